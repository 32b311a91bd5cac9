// The dialog of the MIDI import, field by field.
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

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
    auto& counts = In<QTableWidget>(dialog, "lstCounts");
    constexpr int systemsRow = 0;
    constexpr int tracksRow = 1;
    EXPECT_TRUE(counts.isRowHidden(systemsRow));
    EXPECT_EQ(counts.item(tracksRow, Shell::ImportModel::Other)->text(), "4");
    In<QRadioButton>(dialog, "optOther").click();
    EXPECT_EQ(model.Reader, Shell::ImportModel::Other);
    EXPECT_TRUE(In<QLabel>(dialog, "lblAbout").text().startsWith("The file's own bars"));
    In<QCheckBox>(dialog, "Check1").setChecked(true);
    EXPECT_TRUE(model.Ties);
    list.clearSelection();
    In<QPushButton>(dialog, "Command2").click();
    EXPECT_EQ(box.Shown.back(), "Choose a track to import.");
    list.item(1)->setSelected(true);
    In<QPushButton>(dialog, "Command2").click();
    EXPECT_EQ(Core::Open.TabFile.Tracks.Count(), 1);

    model.SingleTrack = true;
    ntne_frmMIDIImport single(model, nullptr);
    EXPECT_EQ(In<QGroupBox>(single, "Frame1").title(), "Track to import");
    In<QListWidget>(single, "TrackList2").item(2)->setSelected(true);
    EXPECT_EQ(model.ChosenTrack, 2);
}

}  // namespace
}  // namespace Quillon::Forms
