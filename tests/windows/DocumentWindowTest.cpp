// The score in its window: painting, the mouse, the keys, zoom and scrolling.
#include <QAccessible>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QSlider>
#include <QWheelEvent>

#include "core/mod_TabFileManipulation.h"
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
    EXPECT_EQ(In<QLabel>(*window, "lblPlace").text(), "Bar 1 of 27, beat 1, bar full");
    EXPECT_EQ(In<QLabel>(*window, "lblPages").text(), "Pages: 2");
}

TEST_F(DocumentWindowTest, WhatIsRepaintedAfterAKeyIsThePageAsAWhole) {
    Start("fiddle-set.qlm");
    constexpr Qt::Key Keys[] = {Qt::Key_Right, Qt::Key_Down,   Qt::Key_5,     Qt::Key_B,        Qt::Key_Plus,
                                Qt::Key_7,     Qt::Key_Delete, Qt::Key_T,     Qt::Key_PageDown, Qt::Key_Minus,
                                Qt::Key_Tab,   Qt::Key_Insert, Qt::Key_Right, Qt::Key_Up,       Qt::Key_End};
    for (const int zoom : {100, 133}) {
        Shell::SetZoom(zoom);
        Settle();
        unsigned turn = 7;
        for (int press = 0; press < 60; ++press) {
            turn = turn * 1103515245U + 12345U;
            QTest::keyClick(&Score(), Keys[(turn >> 16) % std::size(Keys)],
                            (turn >> 24) % 8 == 0 ? Qt::ShiftModifier : Qt::NoModifier);
            Settle();
            if (press % 6 != 0) continue;
            const QImage partly = Shot();
            const int scrolled = View.VScroll;
            Shell::SetZoom(zoom + 1);
            Settle();
            Shell::SetZoom(zoom);
            Settle();
            View.VScroll = scrolled;
            Score().Redraw(false);
            Settle();
            ASSERT_TRUE(partly == Shot()) << "zoom " << zoom << ", press " << press;
        }
    }
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
    EXPECT_EQ(In<QLabel>(*window, "lblPlace").text(), "Bar 1 of 27, beat 2, bar full");
    EXPECT_EQ(In<QLabel>(*window, "lblNote").text(), "string 2, no note, eighth");
}

TEST_F(DocumentWindowTest, TypedNotesAreEnteredPaintedAndUndone) {
    Start();
    const QImage empty = Shot();
    EXPECT_FALSE(window->ActionOf("mnuEditUndo")->isEnabled());
    EXPECT_FALSE(Open.FileChanged);
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Down, Qt::Key_X, Qt::Key_Right, Qt::Key_5}) {
        QTest::keyClick(&Score(), key);
    }
    Settle();
    const auto fret = [](int strum, int string) { return Core::ReadStrum(0, 0, strum).Notes[string].Fret; };
    ASSERT_EQ(Core::NumberOfStrums(0, 0), 1);
    EXPECT_EQ(fret(0, 0), "12");
    EXPECT_EQ(fret(0, 1), "x");
    EXPECT_EQ(fret(1, 1), "5");
    EXPECT_EQ(In<QLabel>(*window, "lblNote").text(), "string 2, fret 5, quarter");
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_TRUE(window->ActionOf("mnuEditUndo")->isEnabled());
    EXPECT_NE(Shot(), empty);
    QTest::keyClick(&Score(), Qt::Key_Z, Qt::ControlModifier);
    Settle();
    ASSERT_EQ(Core::NumberOfStrums(0, 0), 1) << "one press, one step";
    EXPECT_EQ(fret(1, 1), "");
    QTest::keyClick(&Score(), Qt::Key_Z);
    for (int i = 0; i < 3; ++i) Run("mnuEditUndo");
    EXPECT_FALSE(window->ActionOf("mnuEditUndo")->isEnabled());
    EXPECT_EQ(Shot(), empty);
}

TEST_F(DocumentWindowTest, ShiftedKeysReachTheScoreAsTheirPlainOnes) {
    Start();
    struct Row {
        Qt::Key Key;
        Qt::KeyboardModifiers Held;
        const char* What;
        bool (*Holds)(const Core::Strum&);
    };
    const Row rows[] = {
        {Qt::Key_NumberSign, Qt::ShiftModifier, "Shift+3", [](auto& s) { return s.HasTuplet && s.Tuplet == 0; }},
        {Qt::Key_ParenLeft, Qt::ShiftModifier, "Shift+9", [](auto& s) { return s.Tuplet == 4; }},
        {Qt::Key_Minus, Qt::NoModifier, "-", [](auto& s) { return s.Length == 3; }},
        {Qt::Key_Equal, Qt::NoModifier, "= where + stands", [](auto& s) { return s.Length == 2; }},
        {Qt::Key_Plus, Qt::KeypadModifier, "+ of the keypad", [](auto& s) { return s.Length == 1; }},
        {Qt::Key_Period, Qt::NoModifier, ".", [](auto& s) { return s.Dotted; }},
        {Qt::Key_Comma, Qt::KeypadModifier, "the keypad's decimal key", [](auto& s) { return !s.Dotted; }},
        {Qt::Key_7, Qt::KeypadModifier, "7 of the keypad", [](auto& s) { return s.Notes[0].Fret == "7"; }},
        {Qt::Key_Plus, Qt::ShiftModifier, "Shift++", [](auto& s) { return s.Notes[0].Fret == "8"; }},
        {Qt::Key_Underscore, Qt::ShiftModifier, "Shift+-", [](auto& s) { return s.Notes[0].Fret == "7"; }},
        {Qt::Key_R, Qt::ShiftModifier, "Shift+R", [](auto& s) { return s.Notes[0].LetRing; }},
        {Qt::Key_Down, Qt::ShiftModifier, "Shift+Down", [](auto& s) { return s.Notes[1].Fret == "12"; }},
        {Qt::Key_Delete, Qt::NoModifier, "Del", [](auto& s) { return s.Notes[1].Fret.empty(); }},
        {Qt::Key_Insert, Qt::ShiftModifier, "Shift+Ins", [](auto&) { return Core::NumberOfStrums(0, 0) == 1; }},
        {Qt::Key_Backspace, Qt::NoModifier, "Backspace", [](auto&) { return Core::NumberOfStrums(0, 0) == 0; }},
    };
    for (const Row& row : rows) {
        QTest::keyClick(&Score(), row.Key, row.Held);
        EXPECT_TRUE(row.Holds(Core::ReadStrum(0, 0, 0))) << row.What;
    }
}

TEST_F(DocumentWindowTest, ALockedFileAsksForItsPasswordBeforeAKey) {
    Start();
    Open.TabFile.HasPassword = true;
    Open.TabFile.Password = "sesame";
    int asked = 0;
    const auto press = [&](const QString& password) {
        QTimer::singleShot(0, window.get(), [&asked, password] {
            auto* const dialog = QApplication::activeModalWidget();
            if (!dialog) return;
            ++asked;
            dialog->findChild<QLineEdit*>()->setText(password);
            qobject_cast<QDialog*>(dialog)->accept();
        });
        QTest::keyClick(&Score(), Qt::Key_5);
        Settle();
    };
    press("wrong");
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[0].Fret, "");
    EXPECT_EQ(box.Shown.size(), 1U);
    press("sesame");
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[0].Fret, "5");
    press("");
    EXPECT_EQ(asked, 2) << "given once, it holds";
}

TEST_F(DocumentWindowTest, TheCursorIsToldToScreenReaders) {
    Start("greensleeves.qlm");
    const QAccessibleInterface* const score = QAccessible::queryAccessibleInterface(&Score());
    ASSERT_NE(score, nullptr);
    EXPECT_EQ(score->text(QAccessible::Name), "Score");
    EXPECT_EQ(score->text(QAccessible::Description),
              "string 1, no note, eighth, Bar 1 of 27, beat 1, bar full, track 1, Guitar");
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
