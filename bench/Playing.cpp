// The player: a tick of the busiest kind, and whole songs in virtual time.
#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "bench/Measure.h"
#include "bench/RunProgram.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_MusicFile.h"
#include "platform/Services.h"
#include "platform/VirtualClock.h"
#include "platform/headless/RecordingMidi.h"
#include "playback/MIDI_CMD.h"
#include "playback/MIDI_OUT.h"
#include "playback/mod_TabPlayer.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

struct Busy {
    static constexpr int Bars = 20;
    static constexpr int Tracks = 16;

    VirtualClock Clock;
    RecordingMidi Outputs;

    Busy() {
        Services.Timers = &Clock;
        Services.Midi = &Outputs;
        Outputs.Sent.reserve(1 << 20);
        Playback::MidiOpen(MidiMapper);
        Core::Open.TabFile = SongOfChords(Bars, Tracks);
    }
    ~Busy() {
        Playback::Player = {};
        Playback::MidiClose();
        Services.Timers = nullptr;
        Services.Midi = nullptr;
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
};

void MeasureTicks() {
    using Wall = std::chrono::steady_clock;
    Busy busy;
    Playback::PlayTab(0, Busy::Bars - 1);
    std::vector<double> seconds;
    int allocating = 0;
    std::size_t messages = 0;
    constexpr std::size_t MessagesOfATick = Busy::Tracks * (4 + 4 + 16);
    while (true) {
        busy.Outputs.Sent.clear();
        const std::size_t before = Allocations();
        const auto start = Wall::now();
        busy.Clock.Step(1'000'000);
        const std::chrono::duration<double> taken = Wall::now() - start;
        if (!Playback::IsPlaying()) break;
        if (busy.Outputs.Sent.size() < MessagesOfATick) continue;  // the tick of a bar line, where all but one wait
        allocating += Allocations() != before;
        seconds.push_back(taken.count());
        messages = busy.Outputs.Sent.size();
    }
    if (seconds.size() < 1000) Fail("too few ticks sounded");
    std::ranges::sort(seconds);
    Row("Messages of a tick of 16 tracks of 16 notes", static_cast<double>(messages), "");
    Row("That tick, median", seconds[seconds.size() / 2] * 1e6, 50, "us");
    Row("That tick, 99th percentile", seconds[seconds.size() * 99 / 100] * 1e6, "us");
    Row("Ticks that allocated, of 1,200 and more", allocating, "");
}

void MeasureSending() {
    Busy busy;
    constexpr int Times = 10'000;
    std::size_t allocated = 0;
    const double seconds = MedianSeconds(1, [&] {
        const std::size_t before = Allocations();
        for (int i = 0; i < Times; ++i) Playback::MidiNoteOn(3, 60, 100);
        allocated += Allocations() - before;
    });
    Row("Sending a message", seconds / Times * 1e9, "ns");
    Row("Allocations in 20,000 messages", static_cast<double>(allocated), 0, "");
}

/// Lines of two files; ends the program when they differ.
double LinesOfEqual(const std::string& first, const std::string& second) {
    std::ifstream a(first);
    std::ifstream b(second);
    double lines = 0;
    std::string lineOfA;
    std::string lineOfB;
    while (std::getline(a, lineOfA)) {
        if (!std::getline(b, lineOfB) || lineOfA != lineOfB) Fail("two traces of one song differ");
        ++lines;
    }
    if (lines == 0 || std::getline(b, lineOfB)) Fail("two traces of one song differ");
    return lines;
}

}  // namespace

/// Takes the folder of the programs.
int main(int argc, char** argv) {
    if (argc != 2) Fail("give the folder of the programs");
    const Setting setting;
    MeasureTicks();
    MeasureSending();

    const std::string twin = std::string(argv[1]) + "/quillon-cli";
    const std::string base = Services.BaseFolder.string();
    const std::string song = base + "/song.qlm";
    const auto trace = [&](const std::string& to) { RunToItsEnd({twin, "--base", base, "trace", song}, to); };
    Core::Open.TabFile = SongS();
    Core::ForceSaveFile(song);
    Row("Trace of Song S, by the twin", MedianSeconds(5, [&] { trace("/dev/null"); }), 1.5, "s");

    constexpr int BarsOfAnHour = 1800;  // of two seconds each
    Core::Open.TabFile = SongOfEffects(BarsOfAnHour, 4);
    Core::ForceSaveFile(song);
    Row("Trace of an hour of effects, by the twin", MedianSeconds(1, [&] { trace(base + "/first"); }), "s");
    trace(base + "/second");
    Row("Messages of it, alike in two runs", LinesOfEqual(base + "/first", base + "/second"), "");
    return Status();
}
