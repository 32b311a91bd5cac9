// The tremolo bar on a strum: its shape drawn, or chosen from a list.
#pragma once

#include "forms/StrumDialog.h"

namespace Quillon::Shell {
struct TremBarModel;
}

namespace Quillon::Forms {

class ntne_frmTremBar : public StrumDialog {
    Q_OBJECT

public:
    ntne_frmTremBar(Shell::TremBarModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
