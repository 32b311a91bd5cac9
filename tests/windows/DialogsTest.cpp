// The dialogs: what is typed into them reaches the document, and nothing else does.
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>
#include <set>

#include "forms/ColorButton.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;

class DialogTest : public WindowTest {
protected:
    /// Types as a person does, so that the field knows that it was changed.
    static void Type(QDialog& dialog, const char* name, const QString& text) {
        auto& field = In<QLineEdit>(dialog, name);
        field.selectAll();
        field.insert(text);
    }
};

TEST_F(DialogTest, FilePropertiesReachTheDocument) {
    Start("greensleeves.qlm");
    WithDialog("mnuFileProperties", [&](QDialog& dialog) {
        Type(dialog, "txtTitle", "Grün & weiß");
        In<QDoubleSpinBox>(dialog, "vbTempo").setValue(72.5);
        In<QSpinBox>(dialog, "vbRowSpacing").setValue(40);
        In<QCheckBox>(dialog, "chkShowHeader").setChecked(true);
        In<ColorButton>(dialog, "colLines").Choose(PackColor(1, 2, 3));
        dialog.accept();
    });
    EXPECT_EQ(Open.TabFile.Title, "Grün & weiß");
    EXPECT_FLOAT_EQ(Open.TabFile.Tempo, 72.5F);
    EXPECT_EQ(Open.TabFile.RowSpacing, 40);
    EXPECT_TRUE(Open.TabFile.ShowHeader);
    EXPECT_EQ(Open.TabFile.LineColor, 0x030201);
    EXPECT_TRUE(Open.FileChanged);
}

TEST_F(DialogTest, WhatIsTypedTakesTheNumbersPlaceAndCtrlEnterIsOk) {
    Start("greensleeves.qlm");
    WithDialog("mnuFileProperties", [&](QDialog& dialog) {
        auto& tempo = In<QDoubleSpinBox>(dialog, "vbTempo");
        QFocusEvent byKey(QEvent::FocusIn, Qt::ShortcutFocusReason);
        QApplication::sendEvent(&tempo, &byKey);
        QApplication::processEvents();
        QTest::keyClicks(&tempo, "90");
        QTest::keyClick(&In<QPlainTextEdit>(dialog, "txtNotes"), Qt::Key_Return, Qt::ControlModifier);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_FLOAT_EQ(Open.TabFile.Tempo, 90);
}

TEST_F(DialogTest, OkWithoutATouchAndCancelChangeNothing) {
    Start("back-porch-blues.qlm");
    Open.TabFile.NoteFontName = "No Such Font";
    Open.TabFile.Notes = "one\ntwo\r\nthree";
    const Core::TabFile before = Open.TabFile;
    for (const char* command : {"mnuFileProperties", "mnuTrackProperties", "mnuFilePageSetup", "mnuFileOptions"}) {
        WithDialog(command, [](QDialog& dialog) { dialog.accept(); });
    }
    WithDialog("mnuFileProperties", [](QDialog& dialog) {
        Type(dialog, "txtTitle", "gone");
        dialog.reject();
    });
    EXPECT_TRUE(Open.TabFile == before);
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(DialogTest, ADialogComesBackWithItsButtonsOnTheScreen) {
    Start();
    const QRect screen = window->screen()->availableGeometry();
    Services.Settings->Save("GotoBarWindowDetails", "Left", std::to_string(screen.right() - 120));
    Services.Settings->Save("GotoBarWindowDetails", "Top", std::to_string(screen.bottom() - 60));
    Services.Settings->Save("GotoBarWindowDetails", "Width", "420");
    Services.Settings->Save("GotoBarWindowDetails", "Height", "120");
    WithDialog("mnuGoGotoBar", [&](QDialog& dialog) {
        EXPECT_TRUE(screen.contains(dialog.geometry()));
        dialog.reject();
    });
}

TEST_F(DialogTest, AComplaintKeepsTheDialogOpenAndSaysWhy) {
    Start();
    bool told = false;
    WithDialog("mnuTrackProperties", [&](QDialog& dialog) {
        Type(dialog, "txtTuning0", "H9");
        dialog.accept();
        told = dialog.isVisible() && In<QLabel>(dialog, "lblComplaint").text().contains("E4");
        Type(dialog, "txtTuning0", "D4");
        dialog.accept();
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(told);
    EXPECT_EQ(Open.TabFile.Tracks[0].Tuning[0], -2);
}

TEST_F(DialogTest, TrackPropertiesReachTheTrack) {
    Start("greensleeves.qlm");
    const int rows = Drawing::RowHeight(Open.TabFile.Tracks[0]);
    WithDialog("mnuTrackProperties", [&](QDialog& dialog) {
        Type(dialog, "txtName", "Lute");
        In<QComboBox>(dialog, "cmbInstrument").setCurrentIndex(46);
        In<QComboBox>(dialog, "cmbChannel").setCurrentIndex(3);
        In<QSpinBox>(dialog, "vbStrings").setValue(7);
        In<QSpinBox>(dialog, "vbCapo").setValue(2);
        In<QTableWidget>(dialog, "tblDrums").item(3, 0)->setData(Qt::UserRole, 4);  // the letter X on string 1
        dialog.accept();
    });
    const Core::Track& track = Open.TabFile.Tracks[0];
    EXPECT_EQ(track.Name, "Lute");
    EXPECT_EQ(track.Instrument, 46);
    EXPECT_EQ(track.Channel, 3);
    EXPECT_EQ(track.Strings, 7);
    EXPECT_EQ(track.Capo, 2);
    EXPECT_EQ(track.PercStrings[0].dbx, 4);
    EXPECT_EQ(Drawing::RowHeight(track), rows + 10);
    EXPECT_EQ(In<QComboBox>(*window, "cmbTrack").currentText(), "1. Lute");
}

TEST_F(DialogTest, PageSetupTurnsThePaper) {
    Start();
    WithDialog("mnuFilePageSetup", [](QDialog& dialog) {
        In<QComboBox>(dialog, "cmbPaperSize").setCurrentIndex(2);
        In<QRadioButton>(dialog, "optLandscape").setChecked(true);
        dialog.accept();
    });
    EXPECT_EQ(Drawing::Page.PageWidth, 795);
    EXPECT_EQ(Drawing::Page.PageHeight, 560);
}

TEST_F(DialogTest, OptionsChangeLanguageAndColoursAtOnce) {
    Start();
    WithDialog("mnuFileOptions", [](QDialog& dialog) {
        In<QComboBox>(dialog, "cmbLanguage").setCurrentText("German");
        In<QComboBox>(dialog, "cmbTheme").setCurrentIndex(2);
        for (const char* name : {"chkAutoStretch", "chkChordPlay", "chkChordHide", "chkScaleReverb"}) {
            In<QCheckBox>(dialog, name).setChecked(true);
        }
        dialog.accept();
    });
    EXPECT_EQ(window->menuBar()->actions().first()->text(), "&Datei");
    EXPECT_LT(window->palette().color(QPalette::Window).lightness(), 100);
    EXPECT_EQ(Drawing::Page.PageWidth, window->Document().viewport()->width() - 60);
    EXPECT_TRUE(Core::Settings.PlayChordsOnLoad && Core::Settings.HideChordManager && Core::Settings.ScaleReverb);
    EXPECT_FALSE(Core::Settings.ChordReverb);
}

TEST_F(DialogTest, EveryDialogSpeaksEveryLanguageAndNoTwoFieldsOfAPageShareALetter) {
    Start("amazing-grace.qlm");
    for (const char* language : {"English", "German"}) {
        Core::LoadLanguage(files, Services.BaseFolder, language);
        window->LanguageChanged();
        for (const char* command :
             {"mnuFileProperties", "mnuTrackProperties", "mnuFilePageSetup", "mnuFileOptions", "mnuSoundSpeedTrainer",
              "mnuHelpKeyboard", "mnuHelpAbout", "mnuTrackTuning", "mnuTrackInstrument", "mnuTrackLyrics",
              "mnuGoSetPoint", "mnuGoGotoBar", "mnuFilePassword", "mnuOperationsFixBars", "mnuTrackLoadTuning"}) {
            WithDialog(command, [&](QDialog& dialog) {
                EXPECT_FALSE(dialog.windowTitle().startsWith("str_"));
                for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                    EXPECT_FALSE(label->text().contains("str_")) << label->text().toStdString();
                }
                for (const QWidget* page : dialog.findChildren<QWidget*>()) {
                    if (!page->layout()) continue;
                    std::set<QChar> letters;
                    for (const QObject* child : page->children()) {
                        const QString text = child->property("text").toString();
                        const auto at = text.indexOf('&');
                        if (at < 0 || qobject_cast<const QLineEdit*>(child)) continue;
                        EXPECT_TRUE(letters.insert(text[at + 1].toLower()).second)
                            << language << " " << command << ": " << text.toStdString();
                    }
                }
            });
        }
    }
}

}  // namespace
}  // namespace Quillon::Forms
