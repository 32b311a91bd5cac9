// Which bars are removed.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct RemoveBarModel;
}

namespace Quillon::Forms {

class ntne_frmRemoveBar : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmRemoveBar(Shell::RemoveBarModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
