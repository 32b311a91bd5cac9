// Real playing for a long time, with all cores loaded: does a message get lost, does a timer stay, does memory grow?
//
// Takes the minutes to play, 30 when left out. Each playing of the song must send what virtual time sends: the order of
// gestures that run beside each other is free, and so is the side on which a vibrato begins.
#include <sched.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <thread>
#include <tuple>
#include <vector>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "platform/Services.h"
#include "platform/headless/RecordingMidi.h"
#include "platform/qt/TimerThread.h"
#include "platform/qt/WindowQueue.h"
#include "playback/MIDI_OUT.h"
#include "playback/frmPlayMemory.h"
#include "playback/mod_OfflinePlay.h"
#include "playback/mod_TabPlayer.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

constexpr int Bars = 16;
constexpr int Tracks = 4;

/// How often each message came; of the wheel's the value is left out.
class Tally {
public:
    void Take(std::int16_t status, std::int16_t data1, std::int16_t data2) {
        ++counts[{status, data1, (status & 0xF0) == 224 ? std::int16_t{-1} : data2}];
        ++all;
    }
    /// Nothing new may be allocated while memory is watched.
    void Reset() {
        for (auto& [message, count] : counts) count = 0;
        all = 0;
    }
    int All() const { return all; }
    bool operator==(const Tally& other) const { return counts == other.counts; }

private:
    std::map<std::tuple<std::int16_t, std::int16_t, std::int16_t>, int> counts;
    int all = 0;
};

class Load {
public:
    Load() {
        const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
        for (unsigned i = 0; i < cores; ++i) {
            const pid_t child = ::fork();
            if (child == 0) {
                ::prctl(PR_SET_PDEATHSIG, SIGKILL);
                for (volatile unsigned spin = 0;;) spin = spin + 1;
            }
            children.push_back(child);
        }
    }
    ~Load() {
        for (const pid_t child : children) {
            ::kill(child, SIGKILL);
            ::waitpid(child, nullptr, 0);
        }
    }
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

private:
    std::vector<pid_t> children;
};

}  // namespace

int main(int argc, char** argv) {
    const double minutes = argc > 1 ? std::atof(argv[1]) : 30;
    const Load load;
    const QCoreApplication application(argc, argv);
    const Setting setting;
    RecordingMidi outputs;
    WindowQueue queue;
    TimerThread timers(queue);
    Services.Midi = &outputs;
    Services.Timers = &timers;
    Core::Open.TabFile = SongOfEffects(Bars, Tracks);

    Tally expected;
    Playback::PlayOffline({0, Bars - 1, {}, 1'000'000}, [&](const Playback::TimedMessage& each) {
        expected.Take(each.Status, each.Data1, each.Data2);
    });
    Tally sent = expected;
    outputs.Receive = [&](const SentMessage& each) { sent.Take(each.Status, each.Data1, each.Data2); };
    Playback::MidiOpen(MidiMapper);

    using Wall = std::chrono::steady_clock;
    const auto end = Wall::now() + std::chrono::duration<double>(minutes * 60);
    double memoryAtFirst = 0;
    std::size_t liveAtFirst = 0;
    int playings = 0;
    int differing = 0;
    int timersLeft = 0;
    long long messages = 0;
    while (Wall::now() < end) {
        sent.Reset();
        Playback::PlayTab(0, Bars - 1);
        while (Playback::IsPlaying()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        differing += !(sent == expected);
        timersLeft += static_cast<int>(timers.Running());
        messages += sent.All();
        if (++playings != 2) continue;  // the first ones find room for the pools
        memoryAtFirst = ResidentBytes();
        liveAtFirst = LiveBytes();
    }
    Row("Playings of the song", playings, "");
    Row("Messages sent", static_cast<double>(messages), "");
    Row("Playings whose messages differ from virtual time", differing, 0, "");
    Row("Timers left after a stop", timersLeft, 0, "");
    Row("Memory gained since the second playing", (ResidentBytes() - memoryAtFirst) / 1024, 512, "KiB");
    Row("Live bytes gained since the second playing",
        static_cast<double>(LiveBytes()) - static_cast<double>(liveAtFirst), 4096, "bytes");
    Playback::MidiClose();
    return Status();
}
