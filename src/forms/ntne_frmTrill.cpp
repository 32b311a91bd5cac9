#include "forms/ntne_frmTrill.h"

#include <QComboBox>
#include <QLineEdit>

#include "forms/Text.h"
#include "shell/EffectModels.h"

namespace Quillon::Forms {

ntne_frmTrill::ntne_frmTrill(Shell::TrillModel& model, QWidget* parent)
    : StrumDialog(model, parent, "str_TrillTitle", "TrillWindowDetails") {
    setObjectName("ntne_frmTrill");
    constexpr int longest = 2;
    QLineEdit* const fret = AddText(Fields(), "txtFret", "str_TrillFret", model.Fret);
    fret->setMaxLength(longest);
    fret->selectAll();
    AddChoice(Fields(), "cmbPeriod", "str_TrillPeriod", model.Period,
              {Text("str_TrillPeriod8"), Text("str_TrillPeriod16"), Text("str_TrillPeriod32")});
    FinishStrum("str_TrillRemove");
}

}  // namespace Quillon::Forms
