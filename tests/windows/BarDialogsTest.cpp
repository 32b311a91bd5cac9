// The dialogs around bars and tracks: what is chosen in them reaches the document, and nothing else does.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>

#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;

class BarDialogTest : public WindowTest {};

TEST_F(BarDialogTest, OkWithoutATouchLeavesSignaturesAndSignsAsTheyAre) {
    Start("back-porch-blues.qlm");
    Open.TabFile.BarInfos.Edit(0).TimeSigBottom = 5;
    const Core::TabFile before = Open.TabFile;
    for (const char* command : {"mnuBarTimeSig", "mnuBarKeySig", "mnuBarCoda"}) {
        WithDialog(command, [](QDialog& dialog) { dialog.accept(); });
    }
    for (const char* command : {"mnuTrackAdd", "mnuBarInsert", "mnuBarRemove", "mnuBarEndRepeat"}) {
        WithDialog(command, [](QDialog& dialog) { dialog.reject(); });
    }
    EXPECT_TRUE(Open.TabFile == before);
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(BarDialogTest, ATrackOfDrumsIsNamedUntilAPersonNamesIt) {
    Start();
    WithDialog("mnuTrackAdd", [](QDialog& dialog) {
        In<QRadioButton>(dialog, "optDrums").setChecked(true);
        EXPECT_FALSE(In<QComboBox>(dialog, "cmbInstrument").isEnabled());
        EXPECT_EQ(In<QLineEdit>(dialog, "txtName").text(), "Drums");
        dialog.accept();
    });
    EXPECT_TRUE(Open.TabFile.Tracks[1].IsDrum);
    EXPECT_EQ(In<QComboBox>(*window, "cmbTrack").currentText(), "2. Drums");
    WithDialog("mnuTrackAdd", [](QDialog& dialog) {
        auto& name = In<QLineEdit>(dialog, "txtName");
        name.selectAll();
        name.insert("Lead");
        In<QRadioButton>(dialog, "optDrums").setChecked(true);
        In<QRadioButton>(dialog, "optNormal").setChecked(true);
        In<QComboBox>(dialog, "cmbInstrument").setCurrentIndex(29);
        In<QSpinBox>(dialog, "vbStrings").setValue(7);
        dialog.accept();
    });
    EXPECT_EQ(Open.TabFile.Tracks[2].Name, "Lead");
    EXPECT_EQ(Open.TabFile.Tracks[2].Instrument, 29);
    EXPECT_EQ(Open.TabFile.Tracks[2].Strings, 7);
}

TEST_F(BarDialogTest, BarsAreInsertedAndRemoved) {
    Start();
    WithDialog("mnuBarInsert", [](QDialog& dialog) {
        In<QSpinBox>(dialog, "vbCount").setValue(5);
        In<QSpinBox>(dialog, "vbBeforeBar").setValue(2);
        dialog.accept();
    });
    EXPECT_EQ(Open.TabFile.BarInfos.Count(), 6);
    bool told = false;
    WithDialog("mnuBarRemove", [&](QDialog& dialog) {
        In<QSpinBox>(dialog, "vbFromBar").setValue(4);
        In<QSpinBox>(dialog, "vbToBar").setValue(3);
        dialog.accept();
        told = dialog.isVisible() && !In<QLabel>(dialog, "lblComplaint").text().isEmpty();
        In<QSpinBox>(dialog, "vbToBar").setValue(6);
        dialog.accept();
    });
    EXPECT_TRUE(told);
    EXPECT_EQ(Open.TabFile.BarInfos.Count(), 3);
}

TEST_F(BarDialogTest, SignaturesRepeatsAndSignsReachTheBar) {
    Start();
    WithDialog("mnuBarTimeSig", [](QDialog& dialog) {
        In<QSpinBox>(dialog, "vbTop").setValue(6);
        In<QComboBox>(dialog, "cmbBottom").setCurrentText("8");
        dialog.accept();
    });
    WithDialog("mnuBarKeySig", [](QDialog& dialog) {
        EXPECT_TRUE(In<QComboBox>(dialog, "cmbKey").itemText(2).startsWith("G "));
        In<QRadioButton>(dialog, "optMinor").setChecked(true);
        EXPECT_TRUE(In<QComboBox>(dialog, "cmbKey").itemText(2).startsWith("Em"));
        In<QComboBox>(dialog, "cmbKey").setCurrentIndex(2);
        dialog.accept();
    });
    WithDialog("mnuBarEndRepeat", [](QDialog& dialog) {
        In<QCheckBox>(dialog, "chkCloses").setChecked(false);
        EXPECT_FALSE(In<QSpinBox>(dialog, "vbJumps").isEnabled());
        In<QCheckBox>(dialog, "chkOpens").setChecked(true);
        In<QCheckBox>(dialog, "chkCloses").setChecked(true);
        dialog.accept();
    });
    WithDialog("mnuBarCoda", [](QDialog& dialog) {
        const QString fine = In<QLabel>(dialog, "lblCheck").text();
        In<QCheckBox>(dialog, "chkDalSegno").setChecked(true);
        EXPECT_NE(In<QLabel>(dialog, "lblCheck").text(), fine);
        In<QCheckBox>(dialog, "chkSegno").setChecked(true);
        EXPECT_EQ(In<QLabel>(dialog, "lblCheck").text(), fine);
        dialog.accept();
    });
    const Core::BarInfo& info = Open.TabFile.BarInfos[0];
    EXPECT_EQ(info.TimeSigTop, 6);
    EXPECT_EQ(info.TimeSigBottom, 8);
    EXPECT_EQ(Open.TabFile.Tracks[0].Bars[0].Key, 2);
    EXPECT_TRUE(Open.TabFile.Tracks[0].Bars[0].KeyIsMinor);
    EXPECT_TRUE(info.RepeatOpen);
    EXPECT_EQ(info.RepeatClose, 1) << "one jump back";
    EXPECT_TRUE(info.Segno != 0 && info.DalSegno != 0);
}

TEST_F(BarDialogTest, BarsAreCopiedPastedAndTransposed) {
    Start();
    Core::EditStrum(0, 0, 0).Notes.Edit(0).Fret = "5";
    EXPECT_FALSE(window->ActionOf("mnuEditPaste")->isEnabled());
    WithDialog("mnuEditCopy", [](QDialog& dialog) { dialog.accept(); });
    WithDialog("mnuEditPaste", [](QDialog& dialog) {
        EXPECT_EQ(In<QLabel>(dialog, "lblCopied").text(), "1 bar(s) of all tracks");
        In<QSpinBox>(dialog, "vbBeforeBar").setValue(2);
        In<QSpinBox>(dialog, "vbTimes").setValue(3);
        dialog.accept();
    });
    ASSERT_EQ(Open.TabFile.BarInfos.Count(), 4);
    WithDialog("mnuEditCut", [](QDialog& dialog) {
        In<QSpinBox>(dialog, "vbFromBar").setValue(2);
        In<QSpinBox>(dialog, "vbToBar").setValue(3);
        dialog.accept();
    });
    ASSERT_EQ(Open.TabFile.BarInfos.Count(), 2);
    WithDialog("mnuOperationsTranspose", [](QDialog& dialog) {
        In<QSpinBox>(dialog, "vbSemitones").setValue(-2);
        In<QSpinBox>(dialog, "vbFromBar").setValue(2);
        dialog.accept();
    });
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[0].Fret, "5");
    EXPECT_EQ(Core::ReadStrum(0, 1, 0).Notes[0].Fret, "3");
}

TEST_F(BarDialogTest, CommandsFollowTheBarUnderTheCursor) {
    Start();
    Editing::AppendBar();
    Open.TabFile.BarInfos.Edit(1).RepeatOpen = true;
    window->DrawDocument();
    Settle();
    EXPECT_FALSE(window->ActionOf("mnuBarRepeatOpen")->isChecked());
    Open.CurBar = 1;
    window->DrawDocument();
    Settle();
    EXPECT_TRUE(window->ActionOf("mnuBarRepeatOpen")->isChecked());
}

}  // namespace
}  // namespace Quillon::Forms
