// The text above a strum.
#pragma once

#include "forms/StrumDialog.h"

namespace Quillon::Shell {
struct TextModel;
}

namespace Quillon::Forms {

class ntne_frmText : public StrumDialog {
    Q_OBJECT

public:
    ntne_frmText(Shell::TextModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
