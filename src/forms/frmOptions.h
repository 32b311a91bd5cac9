// The program's options.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct OptionsModel;
}

namespace Quillon::Forms {

class frmOptions : public ModelDialog {
    Q_OBJECT

public:
    frmOptions(Shell::OptionsModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
