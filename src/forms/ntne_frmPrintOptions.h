// What comes into a drawn PDF: tracks, header and footer.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct PrintModel;
}

namespace Quillon::Forms {

class ntne_frmPrintOptions : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmPrintOptions(Shell::PrintModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
