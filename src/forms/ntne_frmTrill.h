// A trill with another fret.
#pragma once

#include "forms/StrumDialog.h"

namespace Quillon::Shell {
struct TrillModel;
}

namespace Quillon::Forms {

class ntne_frmTrill : public StrumDialog {
    Q_OBJECT

public:
    ntne_frmTrill(Shell::TrillModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
