#include "forms/ntne_frmInsertBar.h"

#include <QSpinBox>

#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

ntne_frmInsertBar::ntne_frmInsertBar(Shell::InsertBarModel& model, QWidget* parent)
    : ModelDialog(parent, "str_InsertBarTitle", "InsertBarWindowDetails") {
    setObjectName("ntne_frmInsertBar");
    QFormLayout* const page = AddPage();
    const int bars = Core::Open.TabFile.BarInfos.Count();
    AddNumber(page, "vbCount", "str_InsertBarCount", model.Count, 1, Shell::InsertBarModel::MostBars);
    AddNumber(page, "vbBeforeBar", "str_InsertBarBefore", model.BeforeBar, 1, bars + 1);
    AddNote(page, "str_InsertBarNote");
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
