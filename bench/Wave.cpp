// How fast a song becomes a sound file, beside the synthesizer's own command on the same messages.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "bench/Measure.h"
#include "bench/RunProgram.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_MusicFile.h"
#include "platform/FileSystem.h"
#include "platform/MidiDevice.h"
#include "platform/Services.h"
#include "platform/sound/FluidSynthesizer.h"
#include "playback/mod_OfflinePlay.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

constexpr int Bars = 45;  ///< three minutes at 60 beats a minute
constexpr int Runs = 5;

/// Highest byte first.
std::string Number(std::uint32_t value, int bytes) {
    std::string out;
    for (int at = bytes; at-- > 0;) out += static_cast<char>((value >> (8 * at)) & 0xFF);
    return out;
}

/// Seven bits a byte, all but the last with the highest bit set.
std::string Delta(std::uint32_t value) {
    std::string out(1, static_cast<char>(value & 0x7F));
    for (value >>= 7; value > 0; value >>= 7) out.insert(out.begin(), static_cast<char>((value & 0x7F) | 0x80));
    return out;
}

/// The open song as it plays, as a MIDI file of one track: a thousand ticks to a quarter note of a second.
std::string MidiFileOfPlaying() {
    std::string track = Delta(0) + std::string("\xFF\x51\x03\x0F\x42\x40", 6);
    std::int64_t before = 0;
    Playback::OfflineOptions song;
    song.EndBar = Bars - 1;
    Playback::PlayOffline(song, [&](const Playback::TimedMessage& each) {
        const auto bytes = BytesOfMessage(each.Status, each.Data1, each.Data2);
        if (!bytes) return;
        track += Delta(static_cast<std::uint32_t>(each.Time - before));
        before = each.Time;
        track += static_cast<char>(bytes->Status);
        track += static_cast<char>(bytes->Data1);
        if ((bytes->Status & 0xF0) != 0xC0) track += static_cast<char>(bytes->Data2);
    });
    track += Delta(0) + std::string("\xFF\x2F\x00", 3);
    return "MThd" + Number(6, 4) + Number(0, 2) + Number(1, 2) + Number(1000, 2) + "MTrk" +
           Number(static_cast<std::uint32_t>(track.size()), 4) + track;
}

}  // namespace

/// Takes the folder of the programs.
int main(int argc, char** argv) {
    if (argc != 2) Fail("give the folder of the programs");
    const Setting setting;
    const std::string base = Services.BaseFolder.string();
    setenv("QUILLON_BASE", base.c_str(), 1);
    const auto fonts = FluidSynthesizer(base).SoundFonts();
    if (fonts.empty()) Fail("there is no SoundFont");

    Core::Open.TabFile = SongS(Bars);
    Core::ForceSaveFile(base + "/song.qlm");
    Services.Files->Replace(base + "/song.mid", MidiFileOfPlaying());
    const double ours = MedianSeconds(Runs, [&] {
        RunToItsEnd({std::string(argv[1]) + "/quillon-cli", "convert", base + "/song.qlm", base + "/a.wav"});
    });
    const double theirs = MedianSeconds(Runs, [&] {
        RunToItsEnd({"/usr/bin/env", "fluidsynth", "-ni", "-q", "-g", "0.6", "-r", "44100", "-F", base + "/b.wav",
                     fonts.front().string(), base + "/song.mid"});
    });
    constexpr double SongSeconds = Bars * 4;
    Row("Sound file of a song of three minutes", SongSeconds / ours, "times real time");
    Row("The same messages by the fluidsynth command", SongSeconds / theirs, "times real time");
    Row("Time of ours to time of theirs", ours / theirs, 1 / 0.8, "times");
    return Status();
}
