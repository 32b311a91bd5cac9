// What a person sees of playing: menus, scroll bars, the marker, the track list, the options of sound.
#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

#include "forms/WorkProgress.h"
#include "playback/mod_TabPlayer.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

class PlayingWindowTest : public WindowTest {
protected:
    QWidget& Marker() { return In<QWidget>(*window, "picPlayMarker"); }
    void Play(std::int64_t ms) {
        const std::int64_t until = clock.Now() + ms;
        while (clock.Step(until)) {
        }
        Settle();
    }
    QStringList EnabledMenus() {
        QStringList names;
        for (const QAction* menu : window->menuBar()->actions()) {
            if (menu->isEnabled()) names << menu->text().remove('&');
        }
        return names;
    }
};

TEST_F(PlayingWindowTest, MenusAndScrollBarsAreOffAndTheMarkerWalksOverThePage) {
    Start("fiddle-set.qlm");
    const QImage before = Shot();
    const QStringList menus = EnabledMenus();
    QScrollBar* const bar = window->Document().verticalScrollBar();
    EXPECT_FALSE(Marker().isVisible());
    QTest::keyClick(&window->Document(), Qt::Key_Space);
    ASSERT_TRUE(Playback::IsPlaying());
    EXPECT_FALSE(bar->isEnabled());
    EXPECT_EQ(EnabledMenus(), (QStringList{"View", "Sound", "Track", "Tools", "Help"}));
    EXPECT_FALSE(window->ActionOf("mnuSoundPlayFromStart")->isEnabled());
    EXPECT_TRUE(window->ActionOf("mnuSoundStop")->isEnabled());
    Play(300);
    ASSERT_TRUE(Marker().isVisible());
    const QPoint first = Marker().pos();
    EXPECT_NE(Shot(), before);
    Play(800);
    EXPECT_GT(Marker().x(), first.x());
    QTest::mouseClick(window->Document().viewport(), Qt::LeftButton, {}, QPoint(300, 400));
    EXPECT_TRUE(Playback::IsPlaying());

    const int scrolled = bar->value();
    Play(25'000);
    EXPECT_GT(bar->value(), scrolled) << "the bar that plays stays in view";
    EXPECT_TRUE(window->Document().viewport()->rect().contains(Marker().geometry()));

    QTest::keyClick(&window->Document(), Qt::Key_Right);
    EXPECT_FALSE(Playback::IsPlaying());
    EXPECT_EQ(Core::Open.CurStrum, 0) << "the key did nothing else";
    EXPECT_FALSE(Marker().isVisible());
    EXPECT_TRUE(bar->isEnabled());
    EXPECT_EQ(EnabledMenus(), menus);
    Drawing::View.VScroll = 0;
    window->DrawDocument();
    Settle();
    EXPECT_EQ(Shot(), before) << "the page itself was never touched";
}

TEST_F(PlayingWindowTest, AKeyThatIsHeldStartsOnceAndShiftAloneStopsNothing) {
    Start("amazing-grace.qlm");
    QTest::keyClick(&window->Document(), Qt::Key_Space, Qt::ShiftModifier);
    ASSERT_TRUE(Playback::IsPlaying());
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::ShiftModifier, " ", true);
    QApplication::sendEvent(&window->Document(), &held);
    QTest::keyClick(&window->Document(), Qt::Key_Shift);
    EXPECT_TRUE(Playback::IsPlaying());
    QTest::keyClick(&window->Document(), Qt::Key_Space);
    EXPECT_FALSE(Playback::IsPlaying());
}

TEST_F(PlayingWindowTest, SelectedBarsLieUnderABandThatEscTakesAway) {
    Start("fiddle-set.qlm");
    const QImage before = Shot();
    const auto& place = Core::Open.TabFile.Tracks[0].Bars[2].Place;
    QTest::mouseClick(window->Document().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      QPoint(place.BarX + 20, place.BarY + 25));
    Settle();
    EXPECT_EQ(Editing::SelectedBars(), (Editing::BarRange{0, 2}));
    EXPECT_NE(Shot(), before);
    QTest::keyClick(&window->Document(), Qt::Key_Escape);
    Settle();
    EXPECT_EQ(Shot(), before);
}

TEST_F(PlayingWindowTest, TheTrackListShowsHidesAndPicksTracks) {
    Start("fiddle-set.qlm");
    auto& dock = In<QDockWidget>(*window, "dockMixTable");
    auto& list = In<QTreeWidget>(*window, "picMixTable");
    EXPECT_FALSE(dock.isVisible());
    Run("mnuViewMixTable");
    ASSERT_TRUE(dock.isVisible());
    const int tracks = Core::Open.TabFile.Tracks.Count();
    ASSERT_GT(tracks, 1);
    ASSERT_EQ(list.topLevelItemCount(), tracks);
    EXPECT_EQ(list.visualItemRect(list.topLevelItem(1)).top(), 20);
    Core::Open.CurBar = 3;
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(40, 30));
    EXPECT_EQ(Core::Open.CurTrack, 1);
    EXPECT_EQ(Core::Open.CurBar, 0);
    EXPECT_EQ(list.currentItem(), list.topLevelItem(1));
    Run("mnuTrackPrevious");
    EXPECT_EQ(list.currentItem(), list.topLevelItem(0)) << "the list follows";
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(Core::Open.CurTrack, 1) << "the keyboard picks too";
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Escape}) {
        Run("mnuSoundPlayFromStart");
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Up);
        EXPECT_TRUE(Playback::IsPlaying());
        QTest::keyClick(&list, key);
        EXPECT_FALSE(Playback::IsPlaying()) << key;
    }
    Shell::Stop();
    Start("fiddle-set.qlm");
    EXPECT_TRUE(In<QDockWidget>(*window, "dockMixTable").isVisible()) << "kept";
}

TEST_F(PlayingWindowTest, TheSoundPageListsDevicesAndPutsABadBendBack) {
    Start();
    WithDialog("mnuFileOptions", [&](QDialog& dialog) {
        auto& tabs = *dialog.findChild<QTabWidget*>();
        auto& devices = In<QListWidget>(dialog, "lstDevices");
        EXPECT_EQ(devices.count(), 0) << "filled when its page opens";
        tabs.setCurrentIndex(2);
        ASSERT_EQ(devices.count(), 2);
        EXPECT_EQ(devices.currentRow(), 0);
        EXPECT_FALSE(In<QComboBox>(dialog, "cmbSoundFont").isEnabled()) << "there is no synthesizer here";
        EXPECT_EQ(In<QLabel>(dialog, "lblSoundState").text(), "In use: Recording Device");
        In<QLineEdit>(dialog, "txtBendCoefficient").setText("80");
        devices.setCurrentRow(1);
        EXPECT_EQ(Core::Settings.OutputDevice, 1) << "at once";
        EXPECT_EQ(In<QLineEdit>(dialog, "txtBendCoefficient").text(), "7.9");
        EXPECT_TRUE(In<QLabel>(dialog, "lblComplaint").isVisible());
    });
    EXPECT_EQ(Core::Settings.OutputDevice, 1) << "not undone by Cancel";
}

TEST_F(PlayingWindowTest, LongWorkHoldsInputBackAndIsCancelledByEscOrItsButton) {
    Start("fiddle-set.qlm");
    window->BeginWork("Writing");
    EXPECT_TRUE(window->GoOnWithWork(10));
    QTest::keyClick(&window->Document(), Qt::Key_Right);
    QTest::keyClick(&window->Document(), Qt::Key_Space);
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Core::Open.CurStrum, 0);
    EXPECT_FALSE(Playback::IsPlaying());
    EXPECT_TRUE(window->GoOnWithWork(20));
    QTest::keyClick(&window->Document(), Qt::Key_Escape);
    EXPECT_FALSE(window->GoOnWithWork(30));
    window->EndWork();
    window->BeginWork("Writing");
    EXPECT_TRUE(window->GoOnWithWork(0));
    QTest::mouseClick(&In<QToolButton>(*window, "cmdCancelWork"), Qt::LeftButton);
    EXPECT_FALSE(window->GoOnWithWork(1));
    window->EndWork();
    QTest::keyClick(&window->Document(), Qt::Key_Right);
    EXPECT_EQ(Core::Open.CurStrum, 1);
}

}  // namespace
}  // namespace Quillon::Forms
