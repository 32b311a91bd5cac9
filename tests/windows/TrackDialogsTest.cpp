// Strings, instruments, lyrics, go-to points, the lock, fixing bars and the percussion assistant through their windows.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>

#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;

class TrackDialogTest : public WindowTest {};

TEST_F(TrackDialogTest, OkWithoutATouchChangesNothing) {
    Start("back-porch-blues.qlm");
    const Core::TabFile before = Open.TabFile;
    for (const char* command :
         {"mnuTrackTuning", "mnuTrackInstrument", "mnuTrackLyrics", "mnuGoSetPoint", "mnuGoGotoBar"}) {
        WithDialog(command, [](QDialog& dialog) {
            dialog.accept();
            EXPECT_FALSE(dialog.isVisible()) << dialog.objectName().toStdString();
        });
    }
    EXPECT_TRUE(Open.TabFile == before);
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(TrackDialogTest, StringsAreTunedFromTheListOrByHand) {
    Start();
    Core::EditStrum(0, 0, 0).Notes.Edit(5).Fret = "1";
    WithDialog("mnuTrackTuning", [](QDialog& dialog) {
        auto& list = In<QComboBox>(dialog, "cmbTuning");
        EXPECT_EQ(list.currentText(), "Standard");
        list.setCurrentText("Drop D");
        Q_EMIT list.activated(list.currentIndex());
        EXPECT_EQ(In<QLineEdit>(dialog, "txtTuning5").text(), "D2");
        EXPECT_FALSE(In<QComboBox>(dialog, "cmbLost").isEnabled());
        QTest::keyClicks(&In<QLineEdit>(dialog, "txtTuning0"), "x");
        EXPECT_EQ(list.currentIndex(), 0) << "a tuning of its own";
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible()) << "a complaint";
        auto& note = In<QLineEdit>(dialog, "txtTuning0");
        note.selectAll();
        QTest::keyClicks(&note, "-1");
        In<QRadioButton>(dialog, "optKeepPitches").setChecked(true);
        In<QSpinBox>(dialog, "vbCapo").setValue(3);
        dialog.accept();
    });
    const Core::Track& track = Open.TabFile.Tracks[0];
    EXPECT_EQ(track.Tuning[5], -2);
    EXPECT_EQ(track.Tuning[0], -1);
    EXPECT_EQ(track.Capo, 3);
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[5].Fret, "3");
}

TEST_F(TrackDialogTest, LyricsAreWrittenAsTextOrInTheTable) {
    Start();
    Core::SetBarStrums(0, 0, 3);
    for (int strum = 0; strum < 4; ++strum) Core::EditStrum(0, 0, strum).Notes.Edit(0).Fret = "5";
    WithDialog("mnuTrackLyrics", [](QDialog& dialog) {
        auto& text = In<QPlainTextEdit>(dialog, "txtLine1");
        QTest::keyClicks(&text, "Hal-lo you");
        auto& table = In<QTableView>(dialog, "tblSyllables");
        const auto cell = [&](int row, int column) { return table.model()->index(row, column); };
        EXPECT_EQ(cell(1, 3).data(), "lo");
        table.model()->setData(cell(2, 3), "my");
        EXPECT_EQ(text.toPlainText(), "Hal-lo my");
        table.setCurrentIndex(cell(1, 3));
        In<QPushButton>(dialog, "cmdLater").click();
        EXPECT_EQ(text.toPlainText(), "Hal-_lo my");
        EXPECT_EQ(table.currentIndex().row(), 2);
        table.setCurrentIndex(cell(0, 4));
        EXPECT_EQ(In<QTabWidget>(dialog, "tabLines").currentIndex(), 1);
        text.setPlainText("one two three four five");
        EXPECT_EQ(In<QLabel>(dialog, "lblRest").text(), "Line 1: syllables without a note: 1");
        dialog.accept();
        EXPECT_TRUE(In<QLabel>(dialog, "lblComplaint").text().contains("'five'"));
        text.setPlainText("_ Yeah");
        dialog.accept();
    });
    EXPECT_EQ(Core::ReadStrum(0, 0, 1).Syllables.Read()[0], "Yeah");
    EXPECT_TRUE(Core::ReadStrum(0, 0, 0).Syllables.IsDefault());
}

TEST_F(TrackDialogTest, AnInstrumentIsFoundHeardAndTaken) {
    Start();
    WithDialog("mnuTrackInstrument", [&](QDialog& dialog) {
        auto& filter = In<QLineEdit>(dialog, "txtFilter");
        auto& list = In<QTreeWidget>(dialog, "lstInstruments");
        EXPECT_EQ(list.topLevelItemCount(), 16);
        QTest::keyClicks(&filter, "bass pick");
        ASSERT_EQ(list.topLevelItemCount(), 1);
        midi.Sent.clear();
        In<QPushButton>(dialog, "cmdListen").click();
        EXPECT_FALSE(midi.Sent.empty());
        dialog.accept();
    });
    EXPECT_EQ(Open.TabFile.Tracks[0].Instrument, 34);
}

TEST_F(TrackDialogTest, GotoPointsStandInTheGoMenu) {
    Start();
    for (int bar = 0; bar < 4; ++bar) Editing::AppendBar();
    EXPECT_TRUE(window->ActionOf("mnuGoGotoPoint")->isVisible());
    Open.CurBar = 3;
    WithDialog("mnuGoSetPoint", [](QDialog& dialog) {
        EXPECT_FALSE(In<QPushButton>(dialog, "cmdRemove").isEnabled());
        QTest::keyClicks(&In<QLineEdit>(dialog, "txtName"), "Rock & roll");
        dialog.accept();
    });
    Run("mnuGoFirstBar");
    EXPECT_EQ(Open.CurBar, 0);
    auto* const entry = window->findChild<QAction*>("mnuGoGotoPointItem");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->text(), "&1  Rock && roll (bar 4)");
    entry->trigger();
    EXPECT_EQ(Open.CurBar, 3);
    WithDialog("mnuGoSetPoint", [](QDialog& dialog) { In<QPushButton>(dialog, "cmdRemove").click(); });
    EXPECT_FALSE(window->findChild<QAction*>("mnuGoGotoPointItem"));
    EXPECT_TRUE(window->ActionOf("mnuGoGotoPoint")->isVisible());
}

TEST_F(TrackDialogTest, ALockedSongAsksForItsOldPassword) {
    Start();
    WithDialog("mnuFilePassword", [](QDialog& dialog) {
        EXPECT_FALSE(dialog.findChild<QLineEdit*>("txtOld"));
        for (const char* field : {"txtNew", "txtAgain"}) QTest::keyClicks(&In<QLineEdit>(dialog, field), "moss");
        dialog.accept();
    });
    EXPECT_EQ(Open.TabFile.Password, "moss");
    EXPECT_TRUE(window->ActionOf("mnuFilePassword")->isChecked());
    WithDialog("mnuFilePassword", [](QDialog& dialog) {
        In<QRadioButton>(dialog, "optUnlock").setChecked(true);
        EXPECT_FALSE(In<QLineEdit>(dialog, "txtNew").isEnabled());
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClicks(&In<QLineEdit>(dialog, "txtOld"), "moss");
        dialog.accept();
    });
    EXPECT_FALSE(Open.TabFile.HasPassword);
}

TEST_F(TrackDialogTest, BarsToFixAreListedAndWalked) {
    Start();
    for (int bar = 0; bar < 2; ++bar) Editing::AppendBar();
    Core::EditStrum(0, 1, 0).Length = 0;
    WithDialog("mnuOperationsFixBars", [](QDialog& dialog) {
        auto& list = In<QTreeWidget>(dialog, "lstBars");
        EXPECT_EQ(list.topLevelItemCount(), 2);
        list.setCurrentItem(list.topLevelItem(1));
        EXPECT_EQ(Open.CurBar, 2);
        In<QCheckBox>(dialog, "chkFull").setChecked(true);
        EXPECT_EQ(list.topLevelItemCount(), 3);
        dialog.accept();
    });
    EXPECT_EQ(Editing::BarFullness(0, 2), Editing::Fullness::Full);
}

TEST_F(TrackDialogTest, TheAssistantStandsBesideTheScoreOfDrums) {
    Start();
    EXPECT_FALSE(window->ActionOf("mnuToolsPercAssistant")->isEnabled());
    Core::Track drums;
    drums.IsDrum = true;
    drums.PercStrings = Editing::DefaultDrumSounds();
    Editing::AddTrack(drums);
    window->UpdateCommands();
    Run("mnuToolsPercAssistant");
    auto& assistant = In<QDialog>(*window, "ntne_frmPercAssTAB");
    ASSERT_TRUE(assistant.isVisible());
    auto& letters = In<QTreeWidget>(assistant, "lstLetters");
    ASSERT_EQ(letters.topLevelItemCount(), 12);
    QTest::mouseClick(letters.viewport(), Qt::LeftButton, {}, letters.visualItemRect(letters.topLevelItem(6)).center());
    EXPECT_EQ(Core::ReadStrum(1, 0, 0).Notes[0].Fret, "o");
    EXPECT_EQ(letters.currentItem()->text(0), "o");
    assistant.close();
    Settle();
    EXPECT_FALSE(window->ActionOf("mnuToolsPercAssistant")->isChecked());
    EXPECT_FALSE(store.Get("PercTabWindowDetails", "Width").empty());
    Run("mnuToolsPercAssistant");
    Core::Track silent = drums;
    silent.Name = "Silent";
    silent.PercStrings = {};
    Editing::AddTrack(silent);
    window->UpdateCommands();
    EXPECT_EQ(In<QLabel>(assistant, "lblString").text(), "Silent, string 1");
    EXPECT_EQ(letters.topLevelItem(6)->text(1), "-");
    Shell::ShowTrack(0);
    EXPECT_FALSE(assistant.isVisible());
}

}  // namespace
}  // namespace Quillon::Forms
