// Track properties: the instrument, its strings, the staves that are shown, lyrics, and what the drum letters play.
#pragma once

#include "forms/ModelDialog.h"

class QTableWidget;

namespace Quillon::Shell {
struct TrackPropertiesModel;
}

namespace Quillon::Forms {

class frmTrackProperties : public ModelDialog {
    Q_OBJECT

public:
    frmTrackProperties(Shell::TrackPropertiesModel& model, QWidget* parent);

private:
    void AddSoundPage();
    void AddStringPage();
    void AddStaffPage();
    void AddLyricPage();
    void AddDrumPage();

    Shell::TrackPropertiesModel& model;
};

}  // namespace Quillon::Forms
