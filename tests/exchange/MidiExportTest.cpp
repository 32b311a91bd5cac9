// Songs written as MIDI files: event by event, against the player, and that nothing is left sounding.
#include "exchange/MidiExport.h"

#include <gtest/gtest.h>

#include <map>

#include "core/mod_Common.h"
#include "exchange/JsonDocument.h"
#include "platform/FileSystem.h"
#include "tests/playback/PlayFixture.h"
#include "tests/support/Golden.h"
#include "tests/support/RandomDocument.h"

namespace Quillon::Exchange {
namespace {

Core::TabFile Song(const std::string& path) {
    return ReadJson(Testing::Slurp(Testing::GoldenDir() / path), MemoryStore{});
}

/// A line for each event: track, tick, status, data, and the bytes of a meta event.
std::string Listing(const SmfFile& midi) {
    std::string text;
    for (std::size_t track = 0; track < midi.Tracks.size(); ++track) {
        std::int64_t tick = 0;
        for (const SmfEvent& event : midi.Tracks[track]) {
            tick += event.Delta;
            text += std::to_string(track) + " " + std::to_string(tick) + " " + std::to_string(event.Status) + " " +
                    std::to_string(event.Data1) + " " + std::to_string(event.Data2);
            for (const char byte : event.Bytes) text += " " + std::to_string(static_cast<unsigned char>(byte));
            text += "\n";
        }
    }
    return text;
}

/// Fails where a key is struck that nothing ends, or ended that nothing struck.
void ExpectNothingHangs(const SmfFile& midi) {
    for (const auto& track : midi.Tracks) {
        std::map<std::pair<int, int>, int> sounding;
        for (const SmfEvent& event : track) {
            const std::pair key(event.Status & 0xF, event.Data1);
            if (event.Status >> 4 == 9 && event.Data2 > 0) ++sounding[key];
            if (event.Status >> 4 == 8) {
                EXPECT_GE(--sounding[key], 0);
            }
        }
        for (const auto& [key, count] : sounding) EXPECT_EQ(count, 0) << key.second;
    }
}

TEST(MidiExportTest, EveryGestureHasItsEvents) {
    const SmfFile midi = MidiOfDocument(Song("midi-out/gestures.json"), {});
    Testing::CheckGolden("midi-out/gestures.txt", Listing(midi));
    ExpectNothingHangs(midi);
    EXPECT_EQ(ReadSmf(WriteSmf(midi)), midi);
}

TEST(MidiExportTest, NothingHangsInAnySong) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        Core::TabFile file = Testing::RandomDocument(seed, Testing::HeldBy::Json);
        for (int bar = 0; bar <= file.BarInfos.UpperBound(); ++bar) file.BarInfos.Edit(bar).RepeatClose %= 3;
        const SmfFile midi = MidiOfDocument(file, {});
        ExpectNothingHangs(midi);
        EXPECT_EQ(ReadSmf(WriteSmf(midi)), midi);
    }
}

TEST(MidiExportTest, ASongThatNeverEndsIsWrittenOnceRoundAndOneTooLongIsRefused) {
    Core::TabFile file;
    file.Tracks[0].Bars.Resize(3);
    file.BarInfos.Resize(3);
    file.BarInfos.Edit(0).ToCoda = file.BarInfos.Edit(0).CodaMark = 1;
    file.BarInfos.Edit(1).DalSegno = 1;
    file.Tracks[0].Bars.Edit(1).EditStrums()[0].Text = "t=0.001";  // as slow as a file can tell
    const SmfFile midi = MidiOfDocument(file, {});
    EXPECT_EQ(midi.Tracks[0][1].Bytes, "\xFF\xFF\xFF");
    std::int64_t length = 0;
    for (const SmfEvent& event : midi.Tracks[1]) length += event.Delta;
    EXPECT_EQ(length, 3 * 64 * MidiTicksPer64th);  // bars 0, 1 and then 0 for ever, of a strum of 64 each
    file.BarInfos.Edit(0) = {.RepeatOpen = true, .RepeatClose = 32767};
    file.BarInfos.Edit(1) = {.RepeatOpen = true, .RepeatClose = 32767};
    EXPECT_THROW(MidiOfDocument(file, {}), RunTimeError);
}

class MidiExportPlayTest : public Playback::PlayTest {};

/// At 125 beats a minute a 64th is 30 ms: no rounding of the player's is in the way.
TEST_F(MidiExportPlayTest, APlainSongSoundsAsThePlayerPlaysIt) {
    constexpr int Bars = 8;
    Core::TabFile file;
    file.Tempo = 125;
    file.Tracks[0].Channel = 4;
    file.Tracks[0].Bars.Resize(Bars);
    file.BarInfos.Resize(Bars);
    unsigned number = 1;
    const auto next = [&number](unsigned below) {
        return static_cast<int>((number = number * 48271 % 2147483647) % below);
    };
    for (int bar = 0; bar < Bars; ++bar) {
        auto& strums = file.Tracks[0].Bars.Edit(bar).EditStrums();
        strums.Resize(1 + next(6));
        for (Core::Strum& strum : strums) {
            strum.Length = 1 + next(5);
            for (int string = 0; string < 6; string += 1 + next(6)) {
                strum.Notes.Edit(string).Fret = std::to_string(next(20));
                strum.Notes.Edit(string).Dynamic = next(8);
            }
        }
    }
    file.BarInfos.Edit(0).RepeatClose = 2;
    using Struck = std::tuple<std::int64_t, int, int>;
    std::vector<Struck> written, played;
    std::int64_t tick = 0;
    const SmfFile midi = MidiOfDocument(file, {});
    for (const SmfEvent& event : midi.Tracks[1]) {
        tick += event.Delta;
        if (event.Status == 0x94) written.emplace_back(tick * 30 / MidiTicksPer64th, event.Data1, event.Data2);
    }
    Core::Open = {};
    Core::Open.TabFile = file;
    Playback::OfflineOptions song;
    song.EndBar = Core::ToInt16(file.BarInfos.UpperBound());
    std::int64_t first = -1;
    Playback::PlayOffline(song, [&](const Playback::TimedMessage& message) {
        if (message.Status != 0x94 || message.Data2 == 0) return;
        if (first < 0) first = message.Time;
        played.emplace_back(message.Time - first, message.Data1, message.Data2);
    });
    ASSERT_GT(played.size(), 10U);
    const std::int64_t lead = std::get<0>(written.front());
    for (Struck& each : written) std::get<0>(each) -= lead;
    EXPECT_EQ(written, played);
}

TEST(MidiExportTest, FilesAreWrittenWholeOrNotAtAll) {
    const Testing::ServicesForTest services;
    const Testing::ScratchFolder folder;
    Core::Open = {};
    ExportMidi(folder / "song.mid");
    EXPECT_EQ(ReadSmf(Testing::Slurp(folder / "song.mid")).Tracks.size(), 2U);
    const std::string before = Testing::Slurp(folder / "song.mid");
    Core::Open.TabFile.BarInfos.Edit(0).RepeatClose = 32767;
    Core::Open.TabFile.BarInfos.Add({.RepeatOpen = true, .RepeatClose = 32767});
    Core::Open.TabFile.BarInfos.Add({.RepeatOpen = true, .RepeatClose = 32767});
    Core::Open.TabFile.Tracks[0].Bars.Resize(3);
    EXPECT_THROW(ExportMidi(folder / "song.mid"), RunTimeError);
    EXPECT_EQ(Testing::Slurp(folder / "song.mid"), before);
    Core::Open = {};
}

}  // namespace
}  // namespace Quillon::Exchange
