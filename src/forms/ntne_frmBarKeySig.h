// A key signature and how far it reaches.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct BarKeySigModel;
}

namespace Quillon::Forms {

class ntne_frmBarKeySig : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmBarKeySig(Shell::BarKeySigModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
