// Where a repeat opens and closes, and how often it is played.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct EndRepeatModel;
}

namespace Quillon::Forms {

class ntne_frmEndRepeat : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmEndRepeat(Shell::EndRepeatModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
