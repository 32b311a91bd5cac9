// How far music is moved, and which.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct TransposeModel;
}

namespace Quillon::Forms {

class ntne_frmTranspose : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmTranspose(Shell::TransposeModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
