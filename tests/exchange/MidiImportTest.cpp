// MIDI files against the documents that they become, and files that come back as they were written.
#include "exchange/MidiImport.h"

#include <gtest/gtest.h>

#include "core/mod_TabFileManipulation.h"
#include "exchange/AlignedImport.h"
#include "exchange/JsonDocument.h"
#include "platform/RunTimeError.h"
#include "platform/headless/MemoryStore.h"
#include "tests/support/Golden.h"

namespace Quillon::Exchange {
namespace {

TEST(MidiImportTest, FilesBecomeTheirDocuments) {
    const MemoryStore store;
    int cases = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Testing::GoldenDir() / "midi")) {
        if (entry.path().extension() != ".mid") continue;
        const std::string name = entry.path().stem().string();
        SCOPED_TRACE(name);
        MidiImportOptions options;
        options.Ties = name == "06-ties";
        options.Quantize = name == "05-quantize";
        Core::TabFile file = Core::MakeNewTabFile(store);
        EXPECT_TRUE(ImportMidi(file, ReadSmf(Testing::Slurp(entry.path())), name, options));
        const Core::TabFile wanted =
            ReadJson(Testing::Slurp(std::filesystem::path(entry.path()).replace_extension(".json")), store);
        EXPECT_EQ(WriteJson(file), WriteJson(wanted));
        ++cases;
    }
    EXPECT_EQ(cases, 16);
}

const std::string Head = std::string("MThd\0\0\0\6\0\1\0\1\0\x60", 14);

std::string File(const std::string& track) {
    return Head + "MTrk" + std::string(3, '\0') + static_cast<char>(track.size()) + track;
}

TEST(MidiImportTest, WhatIsWrittenIsReadAgain) {
    SmfFile file;
    file.TicksPerQuarter = 960;
    file.Tracks.resize(2);
    file.Tracks[0] = {{0, SmfEvent::Meta, SmfTempo, 0, std::string("\x07\xA1\x20", 3)},
                      {0, SmfEvent::Meta, SmfEndOfTrack, 0, ""}};
    file.Tracks[1] = {{0, 0xC1, 24, 0, ""},
                      {0x0FFFFFFF, 0x91, 64, 100, ""},
                      {128, 0xF0, 0, 0, std::string(200, 'x')},
                      {127, 0xE1, 0, 64, ""},
                      {0, SmfEvent::Meta, SmfEndOfTrack, 0, ""}};
    EXPECT_EQ(ReadSmf(WriteSmf(file)), file);
    // Running status goes on behind what ends it by the book; other chunks are passed over.
    const std::string running = File(std::string("\0\x90\x40\x40\x10\x41\x40\0\xFF\1\1a\0\x42\x40\0\xFF\x2F\0", 19));
    const SmfFile read = ReadSmf(running.substr(0, 14) + std::string("XFIH\0\0\0\2ab", 10) + running.substr(14));
    ASSERT_EQ(read.Tracks[0].size(), 5U);
    EXPECT_EQ(read.Tracks[0][3], (SmfEvent{0, 0x90, 0x42, 0x40, ""}));
}

TEST(MidiImportTest, DamageIsRefusedWhole) {
    const std::string whole = File(std::string("\0\x90\x40\x40\x10\x40\0\0\xFF\x2F\0", 11));
    EXPECT_NO_THROW(ReadSmf(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THROW(ReadSmf(whole.substr(0, length)), RunTimeError) << length;
    }
    struct Case {
        const char* Why;
        std::string Bytes;
    };
    std::string frames = whole;
    frames[12] = '\xE7';
    std::string timeless = whole;
    timeless[13] = '\0';
    std::string format2 = whole;
    format2[9] = '\2';
    for (const Case& each : {Case{"frames", frames}, Case{"no ticks", timeless}, Case{"format 2", format2},
                             Case{"no status", File(std::string("\0\x40\x40", 3))},
                             Case{"a status as data", File(std::string("\0\x90\x90\x40", 4))},
                             Case{"a long delta", File(std::string("\xFF\xFF\xFF\xFF\x7F\x90\x40\x40", 8))},
                             Case{"a text past the end", File(std::string("\0\xFF\1\x7F", 4) + "ab")}}) {
        EXPECT_THROW(ReadSmf(each.Bytes), RunTimeError) << each.Why;
    }
}

TEST(MidiImportTest, ChosenTracksComeOnceInTheFilesOrderAndAnEmptyOneIsATrack) {
    const MemoryStore store;
    SmfFile midi;
    midi.TicksPerQuarter = 1;
    midi.Tracks.resize(3);
    midi.Tracks[0] = {{0, SmfEvent::Meta, SmfTrackName, 0, "One"}, {0, 0x90, 64, 90, ""}};
    midi.Tracks[1] = {{0, SmfEvent::Meta, SmfTrackName, 0, ""}, {0, 0x90, 65, 90, ""}};
    EXPECT_EQ(MidiTrackEntries(midi), (std::vector<std::string>{"One", "Track 2 (null)", "Track 3"}));
    Core::TabFile file = Core::MakeNewTabFile(store);
    MidiImportOptions options;
    options.Tracks = {3, 2, 1, 2};
    ImportMidi(file, midi, "T", options);
    ASSERT_EQ(file.Tracks.Count(), 3);
    EXPECT_EQ(file.Tracks[0].Name, "One");
    EXPECT_EQ(file.Tracks[1].Bars[0].Strums()[0].Notes[0].Fret, "1");
    EXPECT_EQ(file.Tracks[2].Name, "Untitled Track");
    ImportReport report;
    options.Tracks = {2, 1, 2};
    ImportAligned(file, midi, "T", options, report);
    ASSERT_EQ(file.Tracks.Count(), 2);
    EXPECT_EQ(file.Tracks[0].Name, "One");
    options.Tracks = {4};
    EXPECT_THROW(ImportMidi(file, midi, "T", options), RunTimeError);
}

/// One track for each list of notes, as pairs of ticks since the one before and pitch.
SmfFile Notes(const std::vector<std::vector<std::pair<std::uint32_t, std::uint8_t>>>& tracks, char top = 4,
              std::uint8_t channel = 0) {
    SmfFile midi;
    midi.TicksPerQuarter = 16;  // a tick is a 64th
    for (const auto& track : tracks) {
        midi.Tracks.push_back({{0, SmfEvent::Meta, SmfTimeSignature, 0, std::string{top, '\1'}}});
        for (const auto& [delta, pitch] : track) {
            midi.Tracks.back().push_back({delta, static_cast<std::uint8_t>(0x90 | channel), pitch, 90, ""});
        }
    }
    return midi;
}

TEST(MidiImportTest, LongSilencesShareTheirBarsAndAreAsAnyOther) {
    const MemoryStore store;
    for (const bool ties : {false, true}) {
        MidiImportOptions options;
        options.Ties = ties;
        // 5:2 is a dotted whole, a whole and rests: bars 1 to 3 of the first track, and all of the second one's.
        const SmfFile midi = Notes({{{0, 64}, {160 * 4 + 5, 64}}, {{0, 64}}}, 5);
        Core::TabFile file = Core::MakeNewTabFile(store);
        ImportMidi(file, midi, "T", options);
        ASSERT_EQ(file.BarInfos.Count(), 5);
        const auto& bars = file.Tracks[0].Bars;
        EXPECT_TRUE(bars[1].SharesStrums(bars[3]));
        EXPECT_TRUE(file.Tracks[1].Bars[2].SharesStrums(file.Tracks[1].Bars[4]));
        ASSERT_EQ(bars[3].Strums().Count(), 2);
        EXPECT_EQ(bars[3].Strums()[0].Length, 0);
        EXPECT_TRUE(bars[3].Strums()[0].Dotted);
        EXPECT_EQ(bars[3].Strums()[1].Notes[5].Tied, ties);
        ASSERT_GE(bars[4].Strums().Count(), 3);
        EXPECT_EQ(bars[4].Strums()[0].Length, 4) << "five 64ths behind four whole bars";
        EXPECT_EQ(bars[4].Strums()[2].Notes[0].Fret, "0");
    }
}

TEST(MidiImportTest, WhatASongCantHoldIsRefused) {
    const MemoryStore store;
    const auto refused = [&](const SmfFile& midi) {
        Core::TabFile file = Core::MakeNewTabFile(store);
        try {
            ImportMidi(file, midi, "T", {});
            return 0;
        } catch (const RunTimeError& error) {
            return error.Number;
        }
    };
    constexpr int Overflow = 6;
    EXPECT_EQ(refused(Notes({{{0, 64}, {0x0FFFFFFF, 64}}})), Overflow) << "bars";
    EXPECT_EQ(refused(Notes(std::vector(32769, std::vector{std::pair{0U, std::uint8_t{64}}}))), Overflow) << "tracks";
    std::vector<std::pair<std::uint32_t, std::uint8_t>> close(33000, {1, 64});
    SmfFile fine = Notes({close}, '\xFF');
    fine.TicksPerQuarter = 104;
    EXPECT_EQ(refused(fine), Overflow) << "strums of a bar";
    close.assign(32000, {257, 64});  // four strums each
    EXPECT_EQ(refused(Notes({close}, 4)), Overflow) << "bars again";
}

TEST(MidiImportTest, LettersOfDrumsAreSearchedInTheirStoredOrder) {
    const MemoryStore store;
    Core::TabFile file = Core::MakeNewTabFile(store);
    // The sound of 34 is 0, which each free letter has; 36 then takes the first one that is given away.
    ImportMidi(file, Notes({{{0, 34}, {16, 36}, {16, 34}}}, 4, 9), "T", {});
    const auto& strums = file.Tracks[0].Bars[0].Strums();
    EXPECT_EQ(strums[0].Notes[0].Fret, "X");
    EXPECT_EQ(strums[1].Notes[0].Fret, "x");
    EXPECT_EQ(strums[2].Notes[0].Fret, "X");
}

}  // namespace
}  // namespace Quillon::Exchange
