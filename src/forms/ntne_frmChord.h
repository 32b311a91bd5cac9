// A chord symbol written by hand.
#pragma once

#include "forms/StrumDialog.h"

namespace Quillon::Shell {
struct ChordModel;
}

namespace Quillon::Forms {

class ntne_frmChord : public StrumDialog {
    Q_OBJECT

public:
    ntne_frmChord(Shell::ChordModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
