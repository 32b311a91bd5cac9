// A bend: its shape drawn, or chosen from a list.
#pragma once

#include "forms/StrumDialog.h"

namespace Quillon::Shell {
struct BendModel;
}

namespace Quillon::Forms {

class ntne_frmBend : public StrumDialog {
    Q_OBJECT

public:
    ntne_frmBend(Shell::BendModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
