// How many bars are inserted, and where.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct InsertBarModel;
}

namespace Quillon::Forms {

class ntne_frmInsertBar : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmInsertBar(Shell::InsertBarModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
