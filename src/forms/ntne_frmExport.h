// How the current track goes out as text: the length of its lines, whose work it is, and what comes of it.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct TextExportModel;
}

namespace Quillon::Forms {

class ntne_frmExport : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmExport(Shell::TextExportModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
