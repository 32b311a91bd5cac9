// The grace note ahead of a note.
#pragma once

#include "forms/StrumDialog.h"

namespace Quillon::Shell {
struct GraceModel;
}

namespace Quillon::Forms {

class ntne_frmGrace : public StrumDialog {
    Q_OBJECT

public:
    ntne_frmGrace(Shell::GraceModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
