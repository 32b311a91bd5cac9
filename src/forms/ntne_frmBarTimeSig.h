// A time signature and how far it reaches.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct BarTimeSigModel;
}

namespace Quillon::Forms {

class ntne_frmBarTimeSig : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmBarTimeSig(Shell::BarTimeSigModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
