// Segno, coda and the leaps to them, checked as they are set.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct CodaModel;
}

namespace Quillon::Forms {

class ntne_frmCoda : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmCoda(Shell::CodaModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
