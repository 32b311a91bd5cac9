#include "forms/ntne_frmBarTimeSig.h"

#include <QComboBox>
#include <QSpinBox>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

ntne_frmBarTimeSig::ntne_frmBarTimeSig(Shell::BarTimeSigModel& model, QWidget* parent)
    : ModelDialog(parent, "str_BarTimeSigTitle", "BarTimeSigWindowDetails") {
    setObjectName("ntne_frmBarTimeSig");
    setWindowTitle(
        ToQString(Core::LanguageText("str_TitleOfBar", {windowTitle().toStdString(), std::to_string(model.Bar)})));
    QFormLayout* const page = AddPage();
    AddNumber(page, "vbTop", "str_TimeSigTop", model.Top, 1, Shell::BarTimeSigModel::MostTop);
    QStringList bottoms;
    for (const int bottom : Shell::BarTimeSigModel::Bottoms) bottoms << QString::number(bottom);
    AddChoice(page, "cmbBottom", "str_TimeSigBottom", model.BottomIndex, bottoms);
    AddChoice(page, "cmbScope", "str_SignatureScope", model.Scope,
              {ToQString(Core::LanguageText("str_ScopeThisBar", {std::to_string(model.Bar)})),
               Text("str_ScopeFromHere"), Text("str_ScopeAllBars")});
    AddNote(page, "str_TimeSigNote");
    AddPreview(page, model, [&model] {
        return Drawing::Excerpt(model.Changed(), {.Track = Core::Open.CurTrack, .Bar = model.Bar - 1, .Figures = true});
    });
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
