#include "forms/ntne_frmGrace.h"

#include <QComboBox>
#include <QLineEdit>

#include "forms/MarkNames.h"
#include "forms/Text.h"
#include "shell/EffectModels.h"

namespace Quillon::Forms {

ntne_frmGrace::ntne_frmGrace(Shell::GraceModel& model, QWidget* parent)
    : StrumDialog(model, parent, "str_GraceTitle", "GraceWindowDetails") {
    setObjectName("ntne_frmGrace");
    constexpr int longest = 2;
    QLineEdit* const fret = AddText(Fields(), "txtFret", "str_GraceFret", model.Fret);
    fret->setMaxLength(longest);
    fret->selectAll();
    AddChoice(Fields(), "cmbDynamic", "str_GraceDynamic", model.Dynamic, DynamicNames());
    AddChoice(Fields(), "cmbDuration", "str_GraceDuration", model.Duration,
              {Text("str_GraceDuration16"), Text("str_GraceDuration32"), Text("str_GraceDuration64")});
    AddChoice(Fields(), "cmbTransition", "str_GraceTransition", model.Transition,
              {Text("str_GraceNoTransition"), Text("str_GraceSlide"), Text("str_GraceBend"), Text("str_GraceHammer")});
    FinishStrum("str_GraceRemove");
}

}  // namespace Quillon::Forms
