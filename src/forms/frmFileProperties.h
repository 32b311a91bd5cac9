// File properties: the texts of the header, how the music is shown, fonts and colours.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct FilePropertiesModel;
}

namespace Quillon::Forms {

class frmFileProperties : public ModelDialog {
    Q_OBJECT

public:
    frmFileProperties(Shell::FilePropertiesModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
