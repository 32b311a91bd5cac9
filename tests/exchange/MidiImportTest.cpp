// MIDI files against the documents that they become, and files that come back as they were written.
#include "exchange/MidiImport.h"

#include <gtest/gtest.h>

#include "core/mod_TabFileManipulation.h"
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

TEST(MidiImportTest, HugeTimesAreRefusedAndChosenTracksComeInTheirOrder) {
    const MemoryStore store;
    SmfFile midi;
    midi.TicksPerQuarter = 1;
    midi.Tracks.resize(2);
    midi.Tracks[0] = {{0, SmfEvent::Meta, SmfTrackName, 0, "One"}, {0, 0x90, 64, 90, ""}};
    midi.Tracks[1] = {{0, SmfEvent::Meta, SmfTrackName, 0, ""}, {0, 0x90, 65, 90, ""}};
    EXPECT_EQ(MidiTrackEntries(midi), (std::vector<std::string>{"One", "Track 2 (null)"}));
    Core::TabFile file = Core::MakeNewTabFile(store);
    MidiImportOptions options;
    options.Tracks = {2, 1};
    ImportMidi(file, midi, "T", options);
    ASSERT_EQ(file.Tracks.Count(), 2);
    EXPECT_EQ(file.Tracks[0].Bars[0].Strums()[0].Notes[0].Fret, "1");
    EXPECT_EQ(file.Tracks[1].Name, "One");
    options.Tracks = {3};
    EXPECT_THROW(ImportMidi(file, midi, "T", options), RunTimeError);
    midi.Tracks[0].push_back({0x0FFFFFFF, 0x90, 64, 90, ""});
    options.Tracks = {1};
    EXPECT_THROW(ImportMidi(file, midi, "T", options), RunTimeError);
}

}  // namespace
}  // namespace Quillon::Exchange
