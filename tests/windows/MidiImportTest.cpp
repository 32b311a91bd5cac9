// The dialog of the MIDI import, field by field.
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "exchange/MidiExport.h"
#include "forms/ntne_frmMIDIImport.h"
#include "shell/MidiImportModel.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

class MidiImportDialog : public WindowTest {};

TEST_F(MidiImportDialog, TracksOptionsAndReadersGoIntoTheModelAndShowWhatComesOfThem) {
    Start("mountain-king.qlm");
    Testing::Spill(folder / "song.mid", WriteSmf(Exchange::MidiOfDocument(Core::Open.TabFile, {})));
    Shell::MidiImportModel model;
    ASSERT_TRUE(Shell::OpenMIDIFile(model, folder / "song.mid"));
    ntne_frmMIDIImport dialog(model, nullptr);
    auto& list = In<QListWidget>(dialog, "TrackList");
    ASSERT_EQ(list.count(), 5);
    EXPECT_EQ(list.selectedItems().size(), 5) << "every entry is selected at first";
    EXPECT_EQ(In<QGroupBox>(dialog, "Frame1").title(), "Tracks to import");
    EXPECT_TRUE(In<QRadioButton>(dialog, "optClassic").isChecked());
    const QString counts = In<QLabel>(dialog, "optAlignedCounts").text();
    EXPECT_TRUE(counts.contains("Tracks: 4"));
    EXPECT_TRUE(In<QPlainTextEdit>(dialog, "txtReport").toPlainText().contains("Notes found"));

    In<QRadioButton>(dialog, "optAligned").setChecked(true);
    EXPECT_EQ(model.ChosenReader, Shell::MidiImportModel::Aligned);
    In<QCheckBox>(dialog, "Check1").setChecked(true);
    EXPECT_TRUE(model.Ties);
    list.item(1)->setSelected(false);
    EXPECT_NE(In<QLabel>(dialog, "optAlignedCounts").text(), counts);
    list.clearSelection();
    dialog.accept();
    EXPECT_EQ(In<QLabel>(dialog, "lblComplaint").text(), "Choose a track to import.");

    model.SingleTrack = true;
    ntne_frmMIDIImport single(model, nullptr);
    EXPECT_EQ(In<QGroupBox>(single, "Frame1").title(), "Track to import");
    In<QListWidget>(single, "TrackList2").item(2)->setSelected(true);
    EXPECT_EQ(model.ChosenTrack, 2);
}

}  // namespace
}  // namespace Quillon::Forms
