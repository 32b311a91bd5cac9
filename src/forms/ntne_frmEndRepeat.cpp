#include "forms/ntne_frmEndRepeat.h"

#include <QCheckBox>
#include <QSpinBox>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

ntne_frmEndRepeat::ntne_frmEndRepeat(Shell::EndRepeatModel& model, QWidget* parent)
    : ModelDialog(parent, "str_EndRepeatTitle", "EndRepeatWindowDetails") {
    setObjectName("ntne_frmEndRepeat");
    setWindowTitle(
        ToQString(Core::LanguageText("str_TitleOfBar", {windowTitle().toStdString(), std::to_string(model.Bar)})));
    QFormLayout* const page = AddPage();
    AddCheck(page, "chkOpens", "str_RepeatOpens", model.Opens);
    QCheckBox* const closes = AddCheck(page, "chkCloses", "str_RepeatCloses", model.Closes);
    QSpinBox* const jumps =
        AddNumber(page, "vbJumps", "str_RepeatJumps", model.Jumps, 1, Shell::EndRepeatModel::MostJumps);
    jumps->setEnabled(model.Closes);
    connect(closes, &QCheckBox::toggled, jumps, &QWidget::setEnabled);
    AddNote(page, "str_RepeatNote");
    AddPreview(page, model, [&model] {
        return Drawing::Excerpt(model.Changed(), {.Track = Core::Open.CurTrack, .Bar = model.Bar - 1});
    });
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
