// The lock of the open file.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct PasswordModel;
}

namespace Quillon::Forms {

class ntne_frmPassword : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmPassword(Shell::PasswordModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
