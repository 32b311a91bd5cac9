// The speed trainer's fields.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct SpeedTrainerModel;
}

namespace Quillon::Forms {

class ntne_frmSpeedTrainer : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmSpeedTrainer(Shell::SpeedTrainerModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
