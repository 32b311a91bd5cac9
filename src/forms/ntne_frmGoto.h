// The name of a go-to point, and the number of a bar to go to.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct GotoModel;
struct GotoBarModel;
}  // namespace Quillon::Shell

namespace Quillon::Forms {

class ntne_frmGoto : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmGoto(Shell::GotoModel& model, QWidget* parent);
};

class ntne_frmGotoBar : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmGotoBar(Shell::GotoBarModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
