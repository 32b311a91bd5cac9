// Which tracks of a MIDI file become tracks of the song, and by which reader.
#pragma once

#include "forms/ModelDialog.h"

class QGroupBox;
class QListWidget;
class QPlainTextEdit;

namespace Quillon::Shell {
struct MidiImportModel;
}

namespace Quillon::Forms {

class ImportPreview;

class ntne_frmMIDIImport : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmMIDIImport(Shell::MidiImportModel& edited, QWidget* parent);

private:
    void AddFile(QFormLayout* page);
    void AddTracks(QFormLayout* page);
    void AddReaders(QFormLayout* page);
    void ChooseFile();
    void FillTracks();
    void ShowOutcomes();

    Shell::MidiImportModel& model;
    QLineEdit* txtFile = nullptr;
    QGroupBox* Frame1 = nullptr;
    QListWidget* TrackList = nullptr;
    ImportPreview* classic = nullptr;
    ImportPreview* aligned = nullptr;
    QPlainTextEdit* txtReport = nullptr;
    bool filling = false;
};

}  // namespace Quillon::Forms
