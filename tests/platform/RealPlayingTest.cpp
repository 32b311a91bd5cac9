// The player on the real timer thread: it is stopped, its device changes and its queue goes, over and over.
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "core/mod_TabFileStructure.h"
#include "platform/headless/RecordingMidi.h"
#include "platform/qt/TimerThread.h"
#include "platform/qt/WindowQueue.h"
#include "playback/MIDI_OUT.h"
#include "playback/mod_TabPlayer.h"
#include "tests/support/Fixture.h"

namespace Quillon::Playback {

namespace {

/// A bar of bends and vibrato that repeats for a very long time.
Core::TabFile RestlessSong() {
    Core::TabFile song;
    song.Tempo = 940;  // a tick is 4 ms
    song.BarInfos.Edit(0).RepeatClose = 30'000;
    Core::List<Core::Strum>& strums = song.Tracks[0].Bars.Edit(0).EditStrums();
    strums.Resize(2);
    for (Core::Strum& strum : strums) {
        strum.Length = 4;
        strum.Technique = Core::Vibrato;
        strum.Notes.Edit(0).Fret = "5";
        strum.Notes.Edit(0).HasBend = true;
    }
    return song;
}

TEST(RealPlayingTest, StopsAndChangesLeaveNothingBehind) {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) static const QCoreApplication application(argc, argv);
    for (int round = 0; round < 12; ++round) {
        Testing::ServicesForTest services;
        RecordingMidi outputs;
        WindowQueue queue;
        TimerThread timers(queue);
        Services.Midi = &outputs;
        Services.Timers = &timers;
        Core::Open.TabFile = RestlessSong();
        MidiOpen(MidiMapper);
        PlayTab(0, 0);
        const auto playUntil = [&](std::size_t messages) {
            while (outputs.Sent.size() < messages) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        };
        playUntil(100);
        EXPECT_GT(timers.Running(), 1U);
        MidiOpen(0);
        playUntil(200);
        if (round % 3 != 0) StopTab();
        if (round % 3 == 1) {
            PlayTab(0, 0);  // messages of the first playing may still wait
            playUntil(outputs.Sent.size() + 50);
        }
        Player = {};  // a window that closes while all runs
        EXPECT_EQ(timers.Running(), 0U);
        const std::size_t sent = outputs.Sent.size();
        QCoreApplication::processEvents();
        EXPECT_EQ(outputs.Sent.size(), sent) << "messages of timers that are gone reach nobody";
        MidiClose();
        EXPECT_EQ(outputs.Opened, 0);
    }
    MidiOut = {};
}

}  // namespace

}  // namespace Quillon::Playback
