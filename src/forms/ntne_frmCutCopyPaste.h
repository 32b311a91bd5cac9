// Bars to cut or copy, or where those copied go.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct CutCopyPasteModel;
}

namespace Quillon::Forms {

class ntne_frmCutCopyPaste : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmCutCopyPaste(Shell::CutCopyPasteModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
