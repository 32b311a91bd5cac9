// The windows of the tools beside the paper: docking, places that are kept, keys, and what ends with them.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>

#include "core/mod_TabFileManipulation.h"
#include "forms/frmChordManager.h"
#include "forms/picChordBox.h"
#include "forms/picChordView.h"
#include "library/NoteRun.h"
#include "shell/ToolWindows.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Tools::ChordManager;

class ToolWindowsTest : public WindowTest {
protected:
    void Open() {
        Run("mnuToolsChords");
        tool = window->findChild<frmChordManager*>();
        ASSERT_TRUE(tool && tool->isVisible());
        view = &In<picChordView>(*tool, "picView");
    }
    void Act(const char* name) {
        tool->findChild<QAction*>(name)->trigger();
        Settle();
    }
    static std::string Fret(int string) { return Core::ReadStrum(0, 0, 0).Notes[string].Fret; }

    frmChordManager* tool = nullptr;
    picChordView* view = nullptr;
};

TEST_F(ToolWindowsTest, DockAtEverySideAndKeepTheirPlace) {
    Start();
    Open();
    EXPECT_EQ(window->dockWidgetArea(tool), Qt::RightDockWidgetArea);
    const std::pair<const char*, Qt::DockWidgetArea> sides[] = {{"mnuDockAbove", Qt::TopDockWidgetArea},
                                                                {"mnuDockBelow", Qt::BottomDockWidgetArea},
                                                                {"mnuDockRight", Qt::RightDockWidgetArea},
                                                                {"mnuDockLeft", Qt::LeftDockWidgetArea}};
    for (const auto& [name, area] : sides) {
        Act(name);
        EXPECT_EQ(window->dockWidgetArea(tool), area) << name;
        EXPECT_TRUE(tool->findChild<QAction*>(name)->isChecked());
    }
    // However narrow it is, the count is whole, with the files that are passed by.
    Testing::Spill(Library::Chords.FileOf("Broken"), "no chord");
    Tools::ChordFolderChanged();
    Tools::optString_Click(6);
    auto& count = In<QLabel>(*tool, "lblCount");
    EXPECT_EQ(count.text(), "1,555 of 1,556 chords, 1 file passed by");
    const auto shown = [&count] {
        return count.fontMetrics().boundingRect(QRect(0, 0, count.width(), 1000), Qt::TextWordWrap, count.text());
    };
    for (const int width : {900, 10}) {
        window->resizeDocks({tool}, {width}, Qt::Horizontal);
        Settle();
        EXPECT_TRUE(count.rect().contains(shown())) << width;
    }
    window->resizeDocks({tool}, {420}, Qt::Horizontal);
    Settle();
    Run("mnuToolsChords");
    EXPECT_FALSE(tool->isVisible());
    EXPECT_EQ(store.Get("ChordWindowDetails2", "Docked"), "Left");
    EXPECT_EQ(store.Get("ChordWindowDetails2", "Size"), "420");

    // Another run of the program; then it floats, and is there again.
    Start();
    Open();
    EXPECT_EQ(window->dockWidgetArea(tool), Qt::LeftDockWidgetArea);
    EXPECT_EQ(tool->width(), 420);
    Act("mnuUndock");
    EXPECT_TRUE(tool->isFloating());
    tool->setGeometry(40, 60, 500, 400);
    Settle();
    tool->close();
    EXPECT_FALSE(Shell::IsToolShown(Shell::ToolWindow::Chords));
    EXPECT_FALSE(window->ActionOf("mnuToolsChords")->isChecked());
    Start();
    Open();
    EXPECT_TRUE(tool->isFloating());
    EXPECT_EQ(tool->size(), QSize(500, 400));
    Act("mnuDockBelow");
    EXPECT_EQ(window->dockWidgetArea(tool), Qt::BottomDockWidgetArea);
    EXPECT_FALSE(tool->isFloating());
}

TEST_F(ToolWindowsTest, ChordsAreFoundHeardAndAddedByTheKeyboard) {
    Start();
    Open();
    EXPECT_EQ(In<QLabel>(*tool, "lblCount").text(), "1,555 of 1,555 chords");
    auto& search = In<QLineEdit>(*tool, "txtSearch");
    EXPECT_TRUE(search.hasFocus());
    QTest::keyClicks(&search, "G-Gmaj");
    EXPECT_EQ(ChordManager.lstChords.front(), "G-Gmaj");
    QTest::keyClick(&search, Qt::Key_Right);
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_GT(ChordManager.Current, 0) << "the arrows go through what was found";
    QTest::keyClick(&search, Qt::Key_Up);
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_TRUE(Library::IsRunPlaying());
    WithDialog([&search] { QTest::keyClick(&search, Qt::Key_F2); },
               [](QDialog& dialog) { EXPECT_EQ(In<QLineEdit>(dialog, "txtName").text(), "G-Gmaj"); });
    window->activateWindow();
    search.setFocus();
    QTest::keyClick(&search, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Fret(0), "3");
    Settle();
    EXPECT_EQ(In<QToolButton>(*tool, "cmdCursor").text(), "Cursor: G");
    QTest::keyClick(&search, Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).ChordName, "G-Gmaj");

    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_EQ(In<QLabel>(*tool, "lblCount").text(), "1,555 of 1,555 chords");
    const auto* const clear = search.findChild<QToolButton*>();
    EXPECT_TRUE(QTest::qWaitFor([clear] { return clear->property("opacity") == 0.0; }, 30'000)) << "it fades";
    view->setFocus();
    QTest::keyClick(view, Qt::Key_End);
    EXPECT_EQ(ChordManager.Current, 1554);
    EXPECT_TRUE(view->viewport()->rect().contains(view->AreaOf(1554)));
    QTest::keyClick(view, Qt::Key_Home);
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(ChordManager.Chosen.size(), 2U);
    QTest::keyClicks(view, "c");
    EXPECT_TRUE(search.hasFocus()) << "typing searches";
    EXPECT_EQ(ChordManager.Filter.Text, "c");
    Run("mnuToolsChords");
    EXPECT_FALSE(Library::IsRunPlaying());
    EXPECT_TRUE(window->Document().hasFocus());
}

TEST_F(ToolWindowsTest, BoxesTakeTheMouseAndShowJustWhatIsInView) {
    Start();
    Open();
    tool->resize(600, 500);
    Settle();
    const auto click = [this](int cell, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, view->AreaOf(cell).center());
    };
    click(1);
    EXPECT_EQ(ChordManager.Current, 1);
    click(2, Qt::ControlModifier);
    EXPECT_EQ(ChordManager.Chosen.size(), 2U);
    const QImage before = view->grab().toImage();
    Act("mnuViewLefty");
    EXPECT_NE(view->grab().toImage(), before);
    for (int mode = 0; mode < Library::DisplayModes; ++mode) {
        Act(QString("mnuDisplay%1").arg(mode).toLatin1());
        EXPECT_EQ(view->Grid().CellHeight, Library::ModeOf(mode).CellHeight);
    }
    QMenu& menu = In<QMenu>(*tool, "lblMenu");
    Q_EMIT view->MenuAsked(QPoint(10, 10));
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    In<QComboBox>(*tool, "cmbSearch").activated(1);
    QTest::keyClicks(&In<QLineEdit>(*tool, "txtTabSearch0"), "3");
    EXPECT_LT(ChordManager.lstChords.size(), 1555U);
}

TEST_F(ToolWindowsTest, AChordIsMadeByClicksRenamedAndPrinted) {
    Start();
    Open();
    WithDialog([this] { Act("mnuAddChord"); },
               [](QDialog& dialog) {
                   auto& neck = In<picChordBox>(dialog, "picChordBox");
                   const auto click = [&neck](int string, int row) {
                       const QPointF at(neck.Box().X(string), neck.Box().Y(row));
                       QTest::mouseClick(&neck, Qt::LeftButton, {}, at.toPoint());
                   };
                   click(5, 2);
                   click(4, 1);
                   for (const int open : {1, 2, 3}) click(open, -1);
                   neck.setFocus();
                   QTest::keyClick(&neck, Qt::Key_Home);  // means nothing here
                   click(0, 2);
                   EXPECT_EQ(In<QLineEdit>(dialog, "txtFrets").text(), "3 2 0 0 0 3");
                   EXPECT_EQ(In<QLineEdit>(dialog, "txtName").text(), "G") << "the name follows the shape";
                   QTest::keyClick(&neck, Qt::Key_4);
                   auto& frets = In<QLineEdit>(dialog, "txtFrets");
                   frets.setFocus();
                   frets.selectAll();
                   QTest::keyClicks(&frets, "x32010");
                   EXPECT_EQ(In<QLineEdit>(dialog, "txtName").text(), "C");
                   EXPECT_EQ(In<QComboBox>(dialog, "cmbNames").currentText(), "C");
                   In<QPushButton>(dialog, "cmdPlay").click();
                   EXPECT_TRUE(Library::IsRunPlaying());
                   In<QLineEdit>(dialog, "txtName").setText("My C");
                   dialog.accept();
               });
    EXPECT_FALSE(Library::IsRunPlaying()) << "it ends with its window";
    EXPECT_EQ(Tools::CurrentChord(), "My C");
    WithDialog([this] { Act("mnuBatch"); },
               [](QDialog& dialog) {
                   EXPECT_EQ(In<QLineEdit>(dialog, "txtFind").text(), "My C");
                   In<QLineEdit>(dialog, "txtReplace").setText("C-Cmaj");
                   dialog.accept();
                   EXPECT_TRUE(dialog.isVisible()) << "another chord has this name";
                   In<QLineEdit>(dialog, "txtReplace").setText("Your C");
                   EXPECT_EQ(In<QTreeWidget>(dialog, "lstPlan").topLevelItem(0)->text(1), "Your C");
                   dialog.accept();
               });
    EXPECT_EQ(Tools::CurrentChord(), "Your C");
    Tools::txtSearch_Change("Cm7");
    Tools::ChooseAllChords();
    WithDialog([this] { Act("mnuPrintChords"); },
               [](QDialog& dialog) {
                   EXPECT_EQ(In<QLabel>(dialog, "lblPage").text(), "Page 1 of 1");
                   const QImage before = dialog.grab().toImage();
                   In<QComboBox>(dialog, "cmbDisplay").activated(0);
                   EXPECT_NE(dialog.grab().toImage(), before);
               });
}

}  // namespace
}  // namespace Quillon::Forms
