// The windows of the scales, the tuner and the tunings, worked as a person does.
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <set>

#include "core/mod_TabFileManipulation.h"
#include "forms/picNeck.h"
#include "forms/picString.h"
#include "library/NoteRun.h"
#include "library/mod_Scales.h"
#include "library/mod_Tuner.h"
#include "platform/FileSystem.h"
#include "shell/ToolWindows.h"
#include "tests/windows/WindowFixture.h"
#include "tools/GuitarTuner.h"
#include "tools/ScaleFinder.h"
#include "tools/ScaleManager.h"

namespace Quillon::Forms {
namespace {

using Core::Open;

class ScaleWindowsTest : public WindowTest {
protected:
    ~ScaleWindowsTest() override {
        window.reset();
        Library::StopRun();
        Library::StopTuning();
        Tools::ScaleManager = {};
        Tools::ScaleFinder = {};
        Tools::GuitarTuner = {};
        Library::Tuner = {};
        Shell::ToolWindows = {};
    }
    QDockWidget& Show(const char* command, const char* name) {
        Run(command);
        auto& tool = In<QDockWidget>(*window, name);
        EXPECT_TRUE(tool.isVisible());
        return tool;
    }
    static void ClickNeck(picNeck& neck, int string, int fret) {
        const auto shown = neck.Shown();
        QTest::mouseClick(&neck, Qt::LeftButton, {},
                          QPointF(shown->Neck.FretX(fret), shown->Neck.StringY(string)).toPoint());
    }
    static void CheckLetters(const QMenu& menu) {
        std::set<QString> letters;
        for (const QAction* action : menu.actions()) {
            if (action->isSeparator()) continue;
            const QString text = action->text();
            const auto mark = text.indexOf('&');
            ASSERT_GE(mark, 0) << text.toStdString();
            EXPECT_TRUE(letters.insert(text.mid(mark + 1, 1).toLower()).second) << text.toStdString();
            if (action->menu()) CheckLetters(*action->menu());
        }
    }
};

TEST_F(ScaleWindowsTest, AScaleIsFoundSeenAndHeard) {
    Start();
    auto& tool = Show("mnuToolsScales", "frmScaleManager");
    auto& list = In<QListWidget>(tool, "lstScales");
    EXPECT_EQ(list.count(), 38);
    In<QAction>(tool, "mnuSearchKeywords").trigger();
    In<QLineEdit>(tool, "txtKeywords").setText("BLUES");
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(In<QLabel>(tool, "lblCount").text(), "2 of 38 scales");
    QTest::keyClick(&In<QLineEdit>(tool, "txtKeywords"), Qt::Key_Down);
    In<QComboBox>(tool, "cmbKey").setCurrentIndex(9);
    Q_EMIT In<QComboBox>(tool, "cmbKey").activated(9);
    EXPECT_EQ(In<QLabel>(tool, "lblCaption").text(), "Blues Scale - A");
    auto& neck = In<picNeck>(tool, "picScale");
    const QImage still = neck.grab().toImage();
    QTest::keyClick(&In<QLineEdit>(tool, "txtKeywords"), Qt::Key_Return);
    EXPECT_TRUE(Library::IsRunPlaying());
    EXPECT_NE(neck.grab().toImage(), still) << "the note that sounds shows";
    EXPECT_TRUE(window->ActionOf("mnuSoundStop")->isEnabled());
    tool.close();
    Settle();
    EXPECT_FALSE(Library::IsRunPlaying());
    EXPECT_FALSE(tool.isVisible() || window->ActionOf("mnuToolsScales")->isChecked());

    // Left-handed: the same place sounds the same, seen upside down.
    Run("mnuToolsScales");
    In<QAction>(tool, "mnuLefty").trigger();
    EXPECT_GT(neck.Shown()->Neck.StringY(0), neck.Shown()->Neck.StringY(5));
    ClickNeck(neck, 0, 5);
    EXPECT_EQ(Tools::ScaleManager.View.Sounding, 69);
    In<QAction>(tool, "mnuHigh").trigger();
    EXPECT_FALSE(In<QAction>(tool, "mnuLow").isChecked());
    for (const char* language : {"English", "German"}) {
        Core::LoadLanguage(files, folder / "base", language);
        window->LanguageChanged();
        CheckLetters(In<QMenu>(tool, "mnuScales"));
    }
}

TEST_F(ScaleWindowsTest, AScaleIsMadeByClicksAndPrinted) {
    Start();
    auto& tool = Show("mnuToolsScales", "frmScaleManager");
    const auto make = [&](QDialog& dialog) {
        QTest::keyClicks(&In<QLineEdit>(dialog, "txtName"), "Three notes");
        auto& neck = In<picNeck>(dialog, "picPattern");
        ClickNeck(neck, 5, 0);
        ClickNeck(neck, 5, 3);
        neck.setFocus();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Space}) QTest::keyClick(&neck, key);
        EXPECT_EQ(In<QLabel>(dialog, "lblTones").text(), "1  b3  5");
        dialog.accept();
    };
    WithDialog([&] { In<QAction>(tool, "mnuNewScale").trigger(); }, make);
    EXPECT_EQ(In<QListWidget>(tool, "lstScales").currentItem()->text(), "Three notes");
    EXPECT_EQ(In<QListWidget>(tool, "lstScales").count(), 39);
    WithDialog([&] { In<QAction>(tool, "mnuPrintScale").trigger(); },
               [&](QDialog& dialog) {
                   EXPECT_EQ(dialog.objectName(), "frmScalePrinter");
                   EXPECT_FALSE(dialog.grab().isNull());
               });
}

TEST_F(ScaleWindowsTest, SelectedBarsNameTheirScale) {
    Start("fiddle-set.qlm");
    auto& tool = Show("mnuToolsScaleFinder", "frmScaleFinder");
    auto& found = In<QTreeWidget>(tool, "lstFound");
    EXPECT_EQ(found.topLevelItemCount(), 0);
    Editing::SelectTo(3);
    In<QPushButton>(tool, "cmdTakeBars").click();
    ASSERT_GT(found.topLevelItemCount(), 0);
    EXPECT_TRUE(In<QLabel>(tool, "lblStatus").text().startsWith("Bars 1 to 4: "));
    EXPECT_TRUE(found.topLevelItem(0)->text(2).isEmpty()) << "the best lacks nothing";
    In<QPushButton>(tool, "cmdClear").click();
    for (const int note : {4, 8, 11}) In<QToolButton>(tool, ("cmdNote" + std::to_string(note)).c_str()).click();
    ClickNeck(In<picNeck>(tool, "picNotes"), 0, 2);
    EXPECT_EQ(Tools::ScaleFinder.Notes.count(), 4U);
    const QString name = found.topLevelItem(0)->text(0) + " - " + found.topLevelItem(0)->text(1);
    found.setFocus();
    QTest::keyClick(&found, Qt::Key_Return);
    Settle();
    EXPECT_EQ(In<QLabel>(In<QDockWidget>(*window, "frmScaleManager"), "lblCaption").text(), name);
}

TEST_F(ScaleWindowsTest, TheTunerRunsWithItsControlsHeld) {
    Start();
    auto& tool = Show("mnuToolsTuner", "frmGuitarTuner");
    auto& tunings = In<QComboBox>(tool, "cmbTuning");
    EXPECT_EQ(tunings.count(), 23) << "22, and the track's own";
    QTest::mouseClick(&In<picString>(tool, "picString5"), Qt::LeftButton);
    EXPECT_TRUE(In<picString>(tool, "picString5").Look().Sounding);
    EXPECT_TRUE(tunings.isEnabled());
    In<QPushButton>(tool, "cmdUp").click();
    for (const char* held : {"cmbTuning", "chk3", "cmdUp", "cmdDown"}) {
        EXPECT_FALSE(In<QWidget>(tool, held).isEnabled()) << held;
    }
    In<QAction>(tool, "mnuDockAbove").trigger();
    Settle();
    EXPECT_TRUE(Library::IsTuningPlaying()) << "a window that moves goes on";
    EXPECT_TRUE(tool.rect().contains(tool.widget()->geometry()));
    clock.Step(clock.Now() + 10'000);
    EXPECT_TRUE(In<picString>(tool, "picString4").Look().Sounding);
    In<QPushButton>(tool, "cmdStop").click();
    EXPECT_TRUE(tunings.isEnabled());
    EXPECT_FALSE(In<picString>(tool, "picString4").Look().Sounding);
    In<QPushButton>(tool, "cmdDown").click();
    tool.close();
    Settle();
    EXPECT_FALSE(Library::IsTuningPlaying());

    Run("mnuToolsTuner");
    const auto make = [&](QDialog& dialog) {
        QTest::keyClicks(&In<QLineEdit>(dialog, "txtName"), "Low");
        Q_EMIT In<QComboBox>(dialog, "cmbNote5").activated(8);  // four below
        dialog.accept();
    };
    WithDialog([&] { In<QAction>(tool, "mnuNewTuning").trigger(); }, make);
    EXPECT_EQ(tunings.currentText(), "Low");
    EXPECT_EQ(In<QLabel>(tool, "lblNote5").text(), QString::fromUtf8("C2  \u22124"));
    for (const char* language : {"English", "German"}) {
        Core::LoadLanguage(files, folder / "base", language);
        window->LanguageChanged();
        CheckLetters(In<QMenu>(tool, "mnuTunings"));
    }
}

TEST_F(ScaleWindowsTest, KeysOfAFieldStayInItsWindow) {
    Start("fiddle-set.qlm");
    const char* const tools[][3] = {{"mnuToolsTuner", "frmGuitarTuner", "cmbTuning"},
                                    {"mnuToolsChords", "frmChordManager", "cmbSearch"},
                                    {"mnuToolsScales", "frmScaleManager", "cmbKey"}};
    for (const auto& [command, name, field] : tools) {
        auto& list = In<QComboBox>(Show(command, name), field);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_End);
        EXPECT_EQ(Open.CurStrum, 0) << name;
        QTest::keyClick(&list, Qt::Key_Space);
        EXPECT_FALSE(Shell::Sound.Playing) << name;
        list.hidePopup();
        QTest::keyClick(&list, Qt::Key_Escape);
        EXPECT_TRUE(window->Document().hasFocus()) << name;
    }
    QTest::keyClick(&window->Document(), Qt::Key_End);
    EXPECT_GT(Open.CurStrum, 0);
}

TEST_F(ScaleWindowsTest, AFolderIsWatchedAlsoWhenItMoves) {
    Start();
    auto& tool = Show("mnuToolsTuner", "frmGuitarTuner");
    auto& tunings = In<QComboBox>(tool, "cmbTuning");
    constexpr int guard = 30'000;  // ms: it ends as soon as the list is as it should be
    const auto shows = [&](int count) { return QTest::qWaitFor([&] { return tunings.count() == count; }, guard); };
    const auto library = folder / "base/Data/My Tunings";
    ASSERT_EQ(tunings.count(), 23);
    Testing::Spill(library / "Another program's", "6\r\n12\r\n");
    EXPECT_TRUE(shows(24));
    // Without its folder the library is made anew; the folder that comes back is watched as the one before.
    std::filesystem::rename(library, folder / "aside");
    EXPECT_TRUE(shows(23));
    std::filesystem::remove_all(library);
    std::filesystem::rename(folder / "aside", library);
    EXPECT_TRUE(shows(24));
    std::filesystem::remove(library / "Another program's");
    EXPECT_TRUE(shows(23));
}

TEST_F(ScaleWindowsTest, ATrackTakesATuningOfTheLibrary) {
    Start();
    WithDialog("mnuTrackLoadTuning", [&](QDialog& dialog) {
        auto& list = In<QListWidget>(dialog, "lstTunings");
        EXPECT_EQ(list.currentItem()->text(), "Standard Tuning");
        list.setCurrentItem(list.findItems("Dropped D", Qt::MatchExactly).front());
        EXPECT_EQ(In<QLabel>(dialog, "lblNotes").text(), "D2  A2  D3  G3  B3  E4");
        dialog.accept();
    });
    EXPECT_EQ(Open.TabFile.Tracks[0].Tuning[5], -2);
    WithDialog("mnuTrackTuning", [&](QDialog& dialog) {
        WithDialog([&] { In<QPushButton>(dialog, "cmdLibrary").click(); },
                   [&](QDialog& loader) {
                       auto& list = In<QListWidget>(loader, "lstTunings");
                       list.setCurrentItem(list.findItems("Open A", Qt::MatchExactly).front());
                       loader.accept();
                   });
        EXPECT_EQ(In<QLineEdit>(dialog, "txtTuning1").text(), "C#4");
        dialog.accept();
    });
    EXPECT_EQ(Open.TabFile.Tracks[0].Tuning[1], 2);
    EXPECT_EQ(Open.TabFile.Tracks[0].Tuning[5], 0);
    Open.FileChanged = false;
}

}  // namespace
}  // namespace Quillon::Forms
