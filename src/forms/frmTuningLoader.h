// Picks a tuning of the library for a track.
#pragma once

#include "forms/ModelDialog.h"

class QListWidget;

namespace Quillon::Shell {
struct TuningLoaderModel;
}

namespace Quillon::Forms {

class frmTuningLoader : public ModelDialog {
    Q_OBJECT

public:
    frmTuningLoader(Shell::TuningLoaderModel& model, QWidget* parent);

private:
    void Show();

    Shell::TuningLoaderModel& model;
    QListWidget* lstTunings = nullptr;
    QLabel* lblNotes = nullptr;
    QLabel* lblLost = nullptr;
};

}  // namespace Quillon::Forms
