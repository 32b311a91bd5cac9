// Page setup: paper, orientation, margins.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct PageSetupModel;
}

namespace Quillon::Forms {

class ntne_frmPageSetup : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmPageSetup(Shell::PageSetupModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
