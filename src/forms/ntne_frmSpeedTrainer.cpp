#include "forms/ntne_frmSpeedTrainer.h"

#include <QDialogButtonBox>
#include <QPushButton>

#include "forms/Text.h"
#include "shell/DialogModels.h"

namespace Quillon::Forms {

ntne_frmSpeedTrainer::ntne_frmSpeedTrainer(Shell::SpeedTrainerModel& model, QWidget* parent)
    : ModelDialog(parent, "str_TrainerTitle", "SpeedTrainerWindowDetails") {
    setObjectName("ntne_frmSpeedTrainer");
    Playback::TrainerFields& fields = model.Fields;
    QFormLayout* const page = AddPage();
    AddText(page, "txtFromBar", "str_TrainerFromBar", fields.txtFromBar);
    AddText(page, "txtToBar", "str_TrainerToBar", fields.txtToBar);
    AddText(page, "txtLoops", "str_TrainerLoopCount", fields.txtLoops);
    AddText(page, "txtInitialTempo", "str_TrainerInitialTempo", fields.txtInitialTempo);
    AddText(page, "txtFinalTempo", "str_TrainerFinalTempo", fields.txtFinalTempo);
    AddText(page, "txtTempoIncrease", "str_TrainerTempoIncrease", fields.txtTempoIncrease);
    AddNote(page, "str_TrainerNote");
    Finish([&model] { return model.Validate(); });
    findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->setText(Text("str_TrainerPlay"));
}

}  // namespace Quillon::Forms
