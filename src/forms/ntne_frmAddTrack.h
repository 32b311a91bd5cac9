// A new track: its kind, name, instrument and strings.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct AddTrackModel;
}

namespace Quillon::Forms {

class ntne_frmAddTrack : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmAddTrack(Shell::AddTrackModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
