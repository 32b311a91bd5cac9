#include "forms/ntne_frmRemoveBar.h"

#include <QSpinBox>

#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

ntne_frmRemoveBar::ntne_frmRemoveBar(Shell::RemoveBarModel& model, QWidget* parent)
    : ModelDialog(parent, "str_RemoveBarTitle", "RemoveBarWindowDetails") {
    setObjectName("ntne_frmRemoveBar");
    QFormLayout* const page = AddPage();
    const int bars = Core::Open.TabFile.BarInfos.Count();
    AddNumber(page, "vbFromBar", "str_FromBar", model.FromBar, 1, bars);
    AddNumber(page, "vbToBar", "str_ToBar", model.ToBar, 1, bars);
    AddNote(page, "str_RemoveBarNote");
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
