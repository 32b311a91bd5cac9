// The score in its window: painting, the mouse, the keys, zoom and scrolling.
#include <QAccessible>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QScrollBar>
#include <QSlider>
#include <QWheelEvent>

#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;
using Drawing::Page;
using Drawing::View;

class DocumentWindowTest : public WindowTest {
protected:
    picDocument& Score() { return window->Document(); }
    static const Core::BarPlace& Place(int bar) { return Open.TabFile.Tracks[Open.CurTrack].Bars[bar].Place; }
    /// Clicks a place of the view, given in document pixels.
    void Click(double x, double y) {
        const double zoom = Score().Zoom();
        QTest::mouseClick(Score().viewport(), Qt::LeftButton, {}, QPointF(x * zoom, y * zoom).toPoint());
        Settle();
    }
    void Wheel(int notches, QPoint at) {
        QWheelEvent turn(at, Score().viewport()->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton,
                         Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Score().viewport(), &turn);
        Settle();
    }
};

TEST_F(DocumentWindowTest, AFileOfTheCommandLineIsPaintedAndNamed) {
    Start("greensleeves.qlm");
    const QImage shot = Shot();
    int ink = 0;
    for (int y = 0; y < shot.height(); ++y) {
        for (int x = 0; x < shot.width(); ++x) ink += qGray(shot.pixel(x, y)) < 60;
    }
    EXPECT_GT(ink, 3000);
    EXPECT_EQ(window->windowTitle(), "Quillon 4 - [greensleeves.qlm]");
    EXPECT_EQ(In<QComboBox>(*window, "cmbTrack").currentText(), "1. Guitar");
    EXPECT_EQ(In<QLabel>(*window, "lblPlace").text(), "Bar 1 of 27, beat 1");
    EXPECT_EQ(In<QLabel>(*window, "lblPages").text(), "Pages: 2");
}

TEST_F(DocumentWindowTest, AClickPutsTheCursorWhereTheNoteIsAtEveryZoom) {
    Start("greensleeves.qlm");
    const int tab = Drawing::TabOffset(Open.TabFile.Tracks[0]);
    for (const int zoom : {100, 50, 125, 200}) {
        SCOPED_TRACE(zoom);
        Shell::SetZoom(zoom);
        Score().verticalScrollBar()->setValue(0);
        Settle();
        Click(Place(0).StrumX[0], Place(0).BarY + tab + 6);
        EXPECT_EQ(Open.CurStrum, 0);
        Click(Place(0).StrumX[2] + 2, Place(0).BarY + tab + 6 + 10 * 3);
        EXPECT_EQ(Open.CurBar, 0);
        EXPECT_EQ(Open.CurStrum, 2);
        EXPECT_EQ(Open.CurString, 3);
    }
}

TEST_F(DocumentWindowTest, ArrowKeysMoveAndTheStatusFollows) {
    Start("greensleeves.qlm");
    QTest::keyClick(&Score(), Qt::Key_Right);
    QTest::keyClick(&Score(), Qt::Key_Down);
    Settle();
    EXPECT_EQ(Open.CurStrum, 1);
    EXPECT_EQ(Open.CurString, 1);
    EXPECT_EQ(In<QLabel>(*window, "lblPlace").text(), "Bar 1 of 27, beat 2");
    EXPECT_EQ(In<QLabel>(*window, "lblNote").text(), "string 2, no note, eighth");
}

TEST_F(DocumentWindowTest, TheCursorIsToldToScreenReaders) {
    Start("greensleeves.qlm");
    const QAccessibleInterface* const score = QAccessible::queryAccessibleInterface(&Score());
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(score->text(QAccessible::Name), "Score");
    EXPECT_EQ(score->text(QAccessible::Description), "Bar 1 of 27, beat 1, string 1, no note, eighth");
}

TEST_F(DocumentWindowTest, ZoomScalesThePaintingAndLeavesTheLayout) {
    Start("amazing-grace.qlm");
    const auto measure = [] {
        std::vector<int> numbers;
        for (int bar = 0; bar <= Open.TabFile.Tracks[0].Bars.UpperBound(); ++bar) {
            const Core::BarPlace& place = Place(bar);
            numbers.push_back(place.BarX - PageLeftX(Page, View));
            numbers.push_back(place.BarY - TopOfPage0(View));
            numbers.push_back(place.BarWidth);
        }
        return numbers;
    };
    const std::vector<int> before = measure();
    for (const int zoom : {50, 110, 125, 250, 400}) {
        Shell::SetZoom(zoom);
        Settle();
        EXPECT_EQ(View.ScaleWidth, (Score().viewport()->width() * 100 + zoom - 1) / zoom) << zoom;
        EXPECT_EQ(measure(), before) << zoom;
        EXPECT_EQ(In<QSlider>(*window, "sldZoom").value(), zoom);
    }
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(DocumentWindowTest, TheWheelWithControlZoomsAboutTheMouse) {
    Start("greensleeves.qlm");
    Score().verticalScrollBar()->setValue(40);
    Settle();
    const QPoint mouse(300, 200);
    const double down = mouse.y() / Score().Zoom() - TopOfPage0(View);
    Wheel(3, mouse);
    EXPECT_EQ(Shell::Program.ZoomPercent, 150);
    // Scrolling goes in steps of 8 document pixels.
    EXPECT_NEAR(mouse.y() / Score().Zoom() - TopOfPage0(View), down, 8);
    Wheel(-3, mouse);
    EXPECT_EQ(Shell::Program.ZoomPercent, 100);
}

TEST_F(DocumentWindowTest, ScrollingStaysWhereThePersonPutItUntilTheCursorMoves) {
    Start("greensleeves.qlm");
    QScrollBar* const bar = Score().verticalScrollBar();
    ASSERT_GT(bar->maximum(), 50);
    bar->setValue(bar->maximum());
    Settle();
    EXPECT_EQ(bar->value(), bar->maximum()) << "not pulled back to the cursor";
    // SetScrolls does nothing for the first bar.
    Open.CurBar = 1;
    QTest::keyClick(&Score(), Qt::Key_Right);
    Settle();
    EXPECT_LT(Place(Open.CurBar).BarY, View.ScaleHeight);
    EXPECT_GT(Place(Open.CurBar).BarY, 0) << "the cursor came into view";
}

TEST_F(DocumentWindowTest, ADroppedFileOpensAfterTheQuestionAboutChanges) {
    Start("greensleeves.qlm");
    const std::string path = (std::filesystem::path(QUILLON_SOURCE_DIR) / "examples/fiddle-set.qlm").string();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    const auto drop = [&] {
        QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Score().viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Score().viewport(), &event);
        EXPECT_TRUE(event.isAccepted());
        Settle();
    };
    Open.FileChanged = true;
    box.Answers = {Answer::Cancel};
    drop();
    EXPECT_EQ(Open.TabFile.Title, "Greensleeves");
    Open.FileChanged = false;
    drop();
    EXPECT_EQ(window->windowTitle(), "Quillon 4 - [fiddle-set.qlm]");
}

TEST_F(DocumentWindowTest, TheTrackChooserShowsAnotherTrack) {
    Start("back-porch-blues.qlm");
    ASSERT_GT(Open.TabFile.Tracks.Count(), 1);
    const QImage before = Shot();
    auto& tracks = In<QComboBox>(*window, "cmbTrack");
    EXPECT_EQ(tracks.count(), Open.TabFile.Tracks.Count());
    tracks.setCurrentIndex(1);
    Q_EMIT tracks.activated(1);
    Settle();
    EXPECT_EQ(Open.CurTrack, 1);
    EXPECT_NE(Shot(), before);
    Run("mnuTrackPrevious");
    EXPECT_EQ(tracks.currentIndex(), 0);
}

TEST_F(DocumentWindowTest, ThePaperStaysWhiteInTheDark) {
    Start("greensleeves.qlm");
    Shell::Program.Theme = 2;
    window->ThemeChanged();
    Settle();
    const QImage shot = Shot();
    EXPECT_EQ(shot.pixelColor(shot.width() / 2, 60), QColor(Qt::white));
    EXPECT_LT(shot.pixelColor(5, 300).lightness(), 100) << "the ground around it";
    EXPECT_LT(window->palette().color(QPalette::Window).lightness(), 100);
}

TEST_F(DocumentWindowTest, ClosingAsksAboutChangesAndKeepsTheWindowsPlace) {
    Start();
    window->resize(900, 700);
    Open.FileChanged = true;
    box.Answers = {Answer::Cancel};
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    box.Answers = {Answer::No};
    EXPECT_TRUE(window->close());
    EXPECT_EQ(store.Get("MainWindowDetails", "Width"), "900");
    frmMain next;
    next.RestorePlaces();
    EXPECT_EQ(next.size(), QSize(900, 700));
}

TEST_F(DocumentWindowTest, APlaceOnNoScreenIsNotTaken) {
    store.Save("MainWindowDetails", "Left", "90000");
    store.Save("MainWindowDetails", "Top", "-90000");
    store.Save("MainWindowDetails", "Width", "junk");
    Start();
    EXPECT_LT(window->x(), 5000);
    EXPECT_GT(window->y(), -5000);
}

}  // namespace
}  // namespace Quillon::Forms
