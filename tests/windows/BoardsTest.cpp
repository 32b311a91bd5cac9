// The mouse alone: the boards, the list of tracks, the menu over the score, bars selected by dragging.
#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QTreeWidget>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "forms/picFretboard.h"
#include "forms/picPiano.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;

class BoardsWindowTest : public WindowTest {
protected:
    QWidget& Paper() { return *window->Document().viewport(); }
    static QPoint PointOf(int bar) {
        const auto& place = Open.TabFile.Tracks[Open.CurTrack].Bars[bar].Place;
        return {place.BarX + 20, place.BarY + 25};
    }
    QStringList Menu() {
        QStringList names;
        auto* const menu = window->findChild<QMenu*>("picRightMenu");
        if (!menu || !menu->isVisible()) return names;
        for (const QAction* action : menu->actions()) names << action->objectName();
        menu->close();
        return names;
    }
    static std::string Fret(int string) {
        return Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).Notes[string].Fret;
    }
};

TEST_F(BoardsWindowTest, BoardsShowEnterAndAreRemembered) {
    Start();
    EXPECT_FALSE(In<QDockWidget>(*window, "dockFretboard").isVisible());
    Run("mnuViewFretboard");
    Run("mnuViewPiano");
    auto& board = In<picFretboard>(*window, "picFretboard");
    auto& piano = In<picPiano>(*window, "picPiano");
    ASSERT_TRUE(board.isVisible() && piano.isVisible());
    const QImage bare = board.grab().toImage();
    const auto cell = [&](int string, int fret) {
        return QPointF(board.Geometry().NoteX(fret), board.Geometry().StringY(string)).toPoint();
    };
    QTest::mouseClick(&board, Qt::LeftButton, {}, cell(1, 3));
    Settle();
    EXPECT_EQ(Fret(1), "3");
    EXPECT_NE(board.grab().toImage(), bare);
    QTest::mouseClick(&board, Qt::RightButton, {}, cell(1, 7));
    EXPECT_EQ(Fret(1), "");
    const auto& key = *piano.Geometry().Find(66);
    QTest::mouseClick(&piano, Qt::LeftButton, {}, QPoint(static_cast<int>(key.X + key.Width / 2), 20));
    EXPECT_EQ(Fret(0), "2");
    board.setFocus();
    for (const Qt::Key each : {Qt::Key_Home, Qt::Key_Up, Qt::Key_Right, Qt::Key_Return}) QTest::keyClick(&board, each);
    EXPECT_EQ(Fret(0), "1") << "one string up from the one clicked, first fret";
    QTest::keyClick(&board, Qt::Key_Escape);
    EXPECT_TRUE(window->Document().hasFocus());

    Open.TabFile.Tracks[0].IsDrum = true;
    Open.TabFile.Tracks[0].PercStrings = Editing::DefaultDrumSounds();
    window->DrawDocument();
    Settle();
    QTest::mouseClick(&board, Qt::LeftButton, {}, QPoint(40, 15));
    EXPECT_EQ(Fret(0).size(), 1U) << "a letter";
    In<QDockWidget>(*window, "dockFretboard").close();
    Run("mnuGoNextBeat");
    EXPECT_FALSE(board.isVisible()) << "closed by its own button it stays closed";
    Open.FileChanged = false;
    Shell::Stop();
    Start();
    EXPECT_TRUE(In<QDockWidget>(*window, "dockPiano").isVisible()) << "kept";
    EXPECT_FALSE(In<QDockWidget>(*window, "dockFretboard").isVisible());
}

TEST_F(BoardsWindowTest, WhatIsClickedDoesNotMoveAndASelectionIsLeftBehind) {
    Start("fiddle-set.qlm");
    int lowest = 0;  // the last bar of which all is in view
    while (PointOf(lowest + 1).y() + Drawing::RowHeight(Open.TabFile.Tracks[0]) < Paper().height() - 25) ++lowest;
    QTest::mouseClick(&Paper(), Qt::LeftButton, {}, PointOf(lowest));
    Settle();
    EXPECT_EQ(Open.CurBar, lowest);
    EXPECT_EQ(Drawing::View.VScroll, 0);
    Editing::SelectTo(Core::ToInt16(lowest - 1));
    EXPECT_TRUE(Editing::SelectedBars());
    Run("mnuGoFirstBar");
    EXPECT_FALSE(Editing::SelectedBars());
}

TEST_F(BoardsWindowTest, ADragSelectsBarsAndTheMenuKeepsThem) {
    Start("fiddle-set.qlm");
    QTest::mousePress(&Paper(), Qt::LeftButton, {}, PointOf(1));
    QTest::mouseMove(&Paper(), PointOf(1) + QPoint(2, 2));
    EXPECT_FALSE(Editing::SelectedBars()) << "a hand that trembles";
    QTest::mouseMove(&Paper(), PointOf(3));
    QTest::mouseRelease(&Paper(), Qt::LeftButton, {}, PointOf(3));
    Settle();
    EXPECT_EQ(Editing::SelectedBars(), (Editing::BarRange{1, 3}));
    EXPECT_EQ(Open.CurBar, 1);
    QTest::mouseClick(&Paper(), Qt::RightButton, {}, PointOf(2));
    Settle();
    EXPECT_TRUE(Menu().contains("mnuEditCut"));
    EXPECT_EQ(Open.CurBar, 2);
    EXPECT_TRUE(Editing::SelectedBars());
    QTest::mouseClick(&Paper(), Qt::RightButton, {}, PointOf(0));
    EXPECT_FALSE(Editing::SelectedBars());
    QTest::mouseDClick(&Paper(), Qt::LeftButton, {}, PointOf(1));
    Settle();
    EXPECT_EQ(Open.CurBar, 1);
    EXPECT_TRUE(Menu().contains("mnuBarInsert"));
    QTest::keyClick(&window->Document(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(Menu().contains("mnuBarInsert"));
    Run("mnuSoundPlayFromStart");
    QTest::mouseClick(&Paper(), Qt::RightButton, {}, PointOf(0));
    EXPECT_EQ(Open.CurBar, 1) << "not while a song plays";
}

TEST_F(BoardsWindowTest, TheTrackListMutesAndSetsVolumes) {
    Start("fiddle-set.qlm");
    Run("mnuViewMixTable");
    auto& list = In<QTreeWidget>(*window, "picMixTable");
    const auto click = [&](int track, int column, double part) {
        const QRect cell = list.visualRect(list.indexFromItem(list.topLevelItem(track), column));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          QPoint(cell.left() + static_cast<int>(part * cell.width()), cell.center().y()));
    };
    click(1, 4, 0.5);
    click(0, 5, 0.5);
    EXPECT_TRUE(Playback::Player.Listening.IsMuted(1));
    EXPECT_TRUE(Playback::Player.Listening.IsSolo(0));
    EXPECT_FALSE(Open.FileChanged);
    EXPECT_EQ(Open.CurTrack, 0) << "the track in hand stays";
    EXPECT_TRUE(window->Document().hasFocus()) << "who clicked there types on";
    click(1, 3, 0);
    EXPECT_EQ(Open.TabFile.Tracks[1].Volume, 0);
    EXPECT_TRUE(Open.FileChanged);
    Open.FileChanged = false;
}

}  // namespace
}  // namespace Quillon::Forms
