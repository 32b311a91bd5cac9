// Which tracks of a MIDI file become tracks of the song, and by which reader.
#pragma once

#include "forms/ImportDialog.h"

class QListWidget;

namespace Quillon::Shell {
struct MidiImportModel;
}

namespace Quillon::Forms {

class ntne_frmMIDIImport : public ImportDialog {
    Q_OBJECT

public:
    ntne_frmMIDIImport(Shell::MidiImportModel& model, QWidget* parent);

protected:
    void StoreOptions() override {}  // they are stored as they change
    void Command1_Click() override;

private:
    QWidget* MakeOptions();
    void FillTracks();
    void StoreTracks();

    Shell::MidiImportModel& model;
    QListWidget* TrackList = nullptr;
    bool filling = false;
};

}  // namespace Quillon::Forms
