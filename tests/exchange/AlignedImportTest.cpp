// MIDI files by the reader that keeps bars, beats and hands: what it makes of each thing, and songs that come back.
#include "exchange/AlignedImport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>

#include "core/mod_TabFileManipulation.h"
#include "exchange/FingerPath.h"
#include "exchange/JsonDocument.h"
#include "exchange/MidiExport.h"
#include "platform/RunTimeError.h"
#include "platform/headless/MemoryStore.h"
#include "playback/mod_TabPlayer.h"
#include "tests/support/Golden.h"

namespace Quillon::Exchange {
namespace {

/// "C4+E4 4" for a quarter of two notes, "- 2." for a dotted half rest, "~" before what is tied to the strum before,
/// ":3" behind a triplet; "|" between bars.
std::string Text(const Core::Track& track) {
    constexpr const char* Lengths[] = {"1", "2", "4", "8", "16", "32", "64"};
    constexpr int Figures[] = {3, 5, 6, 7, 9, 10, 11, 12, 13};
    std::string text;
    const Core::Strum* before = nullptr;
    for (const Core::Bar& bar : track.Bars) {
        if (&bar != &track.Bars[0]) text += " | ";
        bool first = true;
        for (const Core::Strum& strum : bar.Strums()) {
            std::string notes;
            for (int string = 0; string < track.Strings; ++string) {
                const std::string& fret = strum.Notes[string].Fret;
                if (fret.empty()) continue;
                const bool tied = before && before->Notes[string].Tied;
                notes +=
                    (notes.empty() ? "" : "+") + std::string(tied ? "~" : "") + std::to_string(string) + "." + fret;
            }
            text += (first ? "" : ", ") + (notes.empty() ? "-" : notes) + " " + Lengths[strum.Length];
            if (strum.Dotted) text += ".";
            if (strum.HasTuplet) text += ":" + std::to_string(Figures[strum.Tuplet]);
            if (!strum.Text.empty()) text += " (" + strum.Text + ")";
            first = false;
            before = &strum;
        }
    }
    return text;
}

/// A file of 96 ticks to the quarter from notes as {start, end, key}.
struct FileMaker {
    SmfFile Midi{1, 96, {{}}};
    std::vector<std::pair<int, SmfEvent>> Events;

    FileMaker& Note(int start, int end, int key, std::uint8_t channel = 0, int velocity = 100) {
        Events.push_back({start * 2 + 1,
                          {0, static_cast<std::uint8_t>(0x90 | channel), static_cast<std::uint8_t>(key),
                           static_cast<std::uint8_t>(velocity), ""}});
        Events.push_back(
            {end * 2, {0, static_cast<std::uint8_t>(0x80 | channel), static_cast<std::uint8_t>(key), 0, ""}});
        return *this;
    }
    FileMaker& Meta(int at, SmfMeta type, const std::string& bytes) {
        Events.push_back({at * 2, {0, SmfEvent::Meta, type, 0, bytes}});
        return *this;
    }
    FileMaker& Event(int at, std::uint8_t status, int data1, int data2 = 0) {
        Events.push_back({at * 2, {0, status, static_cast<std::uint8_t>(data1), static_cast<std::uint8_t>(data2), ""}});
        return *this;
    }
    SmfFile Make() {
        std::ranges::stable_sort(Events, {}, &std::pair<int, SmfEvent>::first);
        int before = 0;
        for (auto& [at, event] : Events) {
            event.Delta = static_cast<std::uint32_t>(at / 2 - before);
            before = at / 2;
            Midi.Tracks[0].push_back(event);
        }
        return Midi;
    }
};

struct Imported {
    Core::TabFile File;
    ImportReport Report;
};

Imported Import(const SmfFile& midi, const MidiImportOptions& options = {}) {
    Imported made{Core::MakeNewTabFile(MemoryStore{}), {}};
    EXPECT_TRUE(ImportAligned(made.File, midi, "Title", options, made.Report));
    for (int t = 0; t <= made.File.Tracks.UpperBound(); ++t) {
        for (int bar = 0; bar <= made.File.BarInfos.UpperBound(); ++bar) {
            EXPECT_NEAR(Core::BarLength64ths(made.File.Tracks[t].Bars[bar]), Core::BarLengthIn64ths(made.File, bar),
                        1e-6);
        }
    }
    EXPECT_EQ(made.Report.NotesFound, made.Report.NotesKept + made.Report.NotesLost);
    return made;
}

TEST(AlignedImportTest, RhythmsAreWrittenAsTheyAreCounted) {
    struct Case {
        const char* Why;
        FileMaker File;
        const char* Wanted;
    };
    FileMaker triplets, quintuplets, byHand, swung, halfTriplets, strummed;
    for (int i = 0; i < 3; ++i) halfTriplets.Note(i * 64, i * 64 + 64, 64 + i);
    for (int i = 0; i < 6; ++i)
        strummed.Note(i * 3, 90, std::array{40, 47, 52, 56, 59, 64}.at(static_cast<std::size_t>(i)));
    for (int i = 0; i < 3; ++i) triplets.Note(i * 32, i * 32 + 32, 64 + i);
    for (int i = 0; i < 5; ++i) quintuplets.Note((i * 96 + 2) / 5, ((i + 1) * 96 + 2) / 5, 64 + i);
    for (int i = 0; i < 16; ++i) byHand.Note(i * 24 + (i * 7 % 5), i * 24 + 20, 64);
    for (int beat = 0; beat < 4; ++beat)
        swung.Note(beat * 96, beat * 96 + 64, 64).Note(beat * 96 + 64, beat * 96 + 96, 65);
    Case cases[] = {
        {"quarters, a little short",
         FileMaker().Note(0, 90, 64).Note(96, 180, 65).Note(192, 280, 67).Note(288, 370, 69),
         "0.0 4, 0.1 4, 0.3 4, 0.5 4"},
        {"over the bar line", FileMaker().Note(0, 288, 64).Note(288, 480, 65).Note(480, 768, 64),
         "0.0 2., 0.1 4 | ~0.1 4, 0.0 2."},
        {"a rest", FileMaker().Note(96, 192, 64).Note(288, 384, 64), "- 4, 0.0 4, - 4, 0.0 4"},
        {"a triplet", triplets, "0.0 8:3, 0.1 8:3, 0.2 8:3, - 2."},
        {"three on two beats", halfTriplets, "0.0 4:3, 0.1 4:3, 0.2 4:3, - 2"},
        {"a chord struck string by string", strummed, "0.0+1.0+2.1+3.2+4.2+5.0 4, - 2."},
        {"32nds, tied where no plain value is long enough",
         FileMaker().Note(0, 12, 64).Note(12, 96, 65).Note(96, 384, 64), "0.0 32, 0.1 8., ~0.1 32, 0.0 2."},
        {"a finger lifted early from a long note", FileMaker().Note(0, 182, 64).Note(288, 384, 64),
         "0.0 2, - 4, 0.0 4"},
        {"five in a beat", quintuplets, "0.0 8:5, 0.1 8:5, 0.2 8:5, 0.3 8:5, 0.4 8:5, - 2."},
        {"a bass note under a melody", FileMaker().Note(0, 384, 40).Note(0, 192, 64).Note(192, 384, 66),
         "0.0+5.0 2, 0.2+~5.0 2"},
        {"six eighths",
         FileMaker()
             .Meta(0, SmfTimeSignature, std::string("\6\3\x18\x08"))
             .Note(0, 144, 64)
             .Note(144, 288, 65)
             .Note(288, 576, 64),
         "0.0 4., 0.1 4. | 0.0 2."},
        {"a new time signature and tempo",
         FileMaker()
             .Note(0, 384, 64)
             .Meta(384, SmfTimeSignature, std::string("\3\2\x18\x08"))
             .Meta(384, SmfTempo, std::string("\x0A\x2C\x2B"))
             .Note(384, 672, 65),
         "0.0 1 | 0.1 2. (t=90)"},
    };
    for (Case& each : cases) {
        SCOPED_TRACE(each.Why);
        EXPECT_EQ(Text(Import(each.File.Make()).File.Tracks[0]), each.Wanted);
    }
    const Core::TabFile played = Import(byHand.Make()).File;
    EXPECT_EQ(played.Tracks[0].Bars[0].Strums().Count(), 16);
    const Core::TabFile swing = Import(swung.Make()).File;
    EXPECT_EQ(swing.Tracks[0].Bars[0].Strums()[0].Length, 2);
    EXPECT_TRUE(swing.Tracks[0].Bars[0].Strums()[0].HasTuplet);
}

TEST(AlignedImportTest, TracksProgramsKeysAndLossesAreTold) {
    FileMaker maker;
    maker.Meta(0, SmfTrackName, "Band").Meta(0, SmfKeySignature, std::string("\xFD\1", 2));
    maker.Event(0, 0xC0, 25).Event(0, 0xC1, 33).Event(0, 0xE0, 0, 70);
    maker.Note(0, 96, 64, 0, 127).Note(0, 96, 30, 0).Note(0, 96, 40, 0).Note(0, 96, 41, 0, 64);  // one string for two
    maker.Note(0, 96, 30, 1).Note(0, 96, 38, 9).Note(0, 96, 36, 9).Note(0, 96, 34, 9);
    const auto [file, report] = Import(maker.Make());
    ASSERT_EQ(file.Tracks.Count(), 3);
    EXPECT_EQ(file.Title, "Title");
    EXPECT_EQ(file.Tracks[0].Name, "Band - " + file.Tracks[0].InstrumentName);
    EXPECT_EQ(file.Tracks[0].Instrument, 25);
    EXPECT_EQ(file.Tracks[0].Bars[0].Key, 11);
    EXPECT_TRUE(file.Tracks[0].Bars[0].KeyIsMinor);
    EXPECT_EQ(Core::OpenPitch(file.Tracks[1], 3), 28) << "the strings of a bass";
    EXPECT_EQ(file.Tracks[1].Channel, 1);
    EXPECT_TRUE(file.Tracks[2].IsDrum);
    EXPECT_EQ(report.NotesFound, 8);
    std::map<std::string, int> told;
    for (const ImportRemark& remark : report.Remarks) ++told[remark.Key];
    EXPECT_EQ(told["str_ImportNoDrum"], 1);
    EXPECT_EQ(told["str_ImportWheel"], 1);
    const Core::Note& loud = file.Tracks[0].Bars[0].Strums()[0].Notes[0];
    EXPECT_EQ(Playback::getVolume(file.Tracks[0], loud), 127);
}

TEST(AlignedImportTest, AHandThatCanPlayIsPreferred) {
    const Fretboard guitar{{64, 59, 55, 50, 45, 40, 35}, 6};
    using Strings = std::vector<std::vector<int>>;
    const auto play = [&](const std::vector<FingerStrum>& strums) {
        std::int64_t steps = 1'000'000;
        return FingerPath(guitar, strums, steps);
    };
    EXPECT_EQ(play({{{64}, {60}, {55}, {52}, {48}}}), (Strings{{0, 1, 2, 3, 4}})) << "an open C chord";
    EXPECT_EQ(play({{{40}, {40}}}), (Strings{{5, -1}})) << "one string alone has it";
    EXPECT_EQ(play({{{30}}}), (Strings{{-1}}));
    // A run high on the neck stays there instead of falling to open strings between.
    const Strings run = play({{{76}}, {{74}}, {{72}}, {{71}}, {{72}}, {{74}}, {{76}}});
    for (const auto& strings : run) EXPECT_LE(strings[0], 1);
    const Strings open = play({{{76}}, {{72}}, {{69}}, {{64}}, {{69}}, {{72}}, {{76}}});
    EXPECT_NE(open[3][0], 0) << "an open string between high frets";
    EXPECT_EQ(play({{{52}}, {{52, 0}, {64}}}), (Strings{{3}, {3, 0}})) << "a held note keeps its string";
}

/// Each note with its bar, its place in 64ths, how long it sounds with its ties, its string and fret.
std::vector<std::string> Sounds(const Core::TabFile& file, int number) {
    struct Sound {
        double Start, End;
        std::string What;
    };
    std::vector<Sound> sounds;
    std::map<int, std::size_t> tied;  // by string, into sounds
    const Core::Track& track = file.Tracks[number];
    double at = 0;
    for (const Core::Bar& bar : track.Bars) {
        for (const Core::Strum& strum : bar.Strums()) {
            const double end = at + Core::StrumLength(strum);
            for (int string = 0; string < track.Strings; ++string) {
                const Core::Note& note = strum.Notes[string];
                const auto before = tied.find(string);
                const bool goesOn = before != tied.end() && !note.Fret.empty() && !track.IsDrum;
                std::size_t index = goesOn ? before->second : sounds.size();
                tied.erase(string);
                if (note.Fret.empty()) continue;
                if (!goesOn) sounds.push_back({at, end, " string " + std::to_string(string) + " fret " + note.Fret});
                sounds[index].End = end;
                if (note.Tied) tied[string] = index;
            }
            at = end;
        }
    }
    std::vector<std::string> texts;
    for (const Sound& each : sounds) {
        texts.push_back(std::to_string(each.Start) + " to " + std::to_string(each.End) + each.What);
    }
    return texts;
}

void ExpectComesBack(const Core::TabFile& song) {
    const Core::TabFile back = Import(ReadSmf(WriteSmf(MidiOfDocument(song, {})))).File;
    ASSERT_EQ(back.Tracks.Count(), song.Tracks.Count());
    EXPECT_EQ(back.BarInfos, song.BarInfos);
    EXPECT_EQ(back.Tempo, song.Tempo);
    for (int track = 0; track <= song.Tracks.UpperBound(); ++track) {
        SCOPED_TRACE(track);
        EXPECT_EQ(Sounds(back, track), Sounds(song, track));
        EXPECT_EQ(back.Tracks[track].Tuning, song.Tracks[track].Tuning);
        EXPECT_EQ(back.Tracks[track].Instrument, song.Tracks[track].Instrument);
    }
}

/// A song without effects or signs: full bars of plain values, dots, tuplets, rests, chords and ties.
Core::TabFile PlainSong(unsigned seed) {
    unsigned number = seed * 2 + 1;
    const auto next = [&number](unsigned below) {
        number = static_cast<unsigned>(std::uint64_t{number} * 48271 % 2147483647);
        return static_cast<int>(number % below);
    };
    struct Group {
        std::vector<std::pair<int, bool>> Lengths;  ///< code and dot
        int Tuplet = -1;
    };
    const Group groups[] = {{{{2, false}}},
                            {{{3, false}, {3, false}}},
                            {{{3, true}, {4, false}}},
                            {{{4, false}, {4, false}, {5, false}, {5, false}, {4, false}}},
                            {{{3, false}, {3, false}, {3, false}}, 0},
                            {{{2, false}, {3, false}}, 0},
                            {{{3, false}, {3, false}, {3, false}, {3, false}, {3, false}}, 1},
                            {{{3, false}, {2, true}, {2, false}, {3, false}}, 3},
                            {{{6, false}, {6, false}, {5, false}, {4, true}, {5, true}, {6, false}, {5, false}}}};
    Core::TabFile song;
    song.Tempo = static_cast<float>(60 + next(120));
    const int bars = 6;
    song.Tracks.Resize(2);
    song.BarInfos.Resize(bars);
    for (int bar = 0; bar < bars; ++bar) {
        song.BarInfos.Edit(bar).TimeSigTop = bar < 3 ? 4 : 2 + next(4);
        song.BarInfos.Edit(bar).TimeSigBottom = 4;
    }
    for (int t = 0; t < 2; ++t) {
        Core::Track& track = song.Tracks[t];
        track.Name = "Track " + std::to_string(t + 1);
        track.Channel = static_cast<std::int16_t>(2 * t);
        track.EffectChannel = static_cast<std::int16_t>(2 * t + 1);
        track.Tuning[5] = static_cast<std::int16_t>(-2 * t);
        track.Bars.Resize(bars);
        for (int bar = 0; bar < bars; ++bar) {
            auto& strums = track.Bars.Edit(bar).EditStrums();
            strums.Resize(0);
            for (int beat = 0; beat < song.BarInfos[bar].TimeSigTop; ++beat) {
                const Group& group = groups[next(std::size(groups))];
                for (const auto& [length, dotted] : group.Lengths) {
                    Core::Strum strum;
                    strum.Length = length;
                    strum.Dotted = dotted;
                    strum.HasTuplet = group.Tuplet >= 0;
                    strum.Tuplet = std::max(group.Tuplet, 0);
                    for (int string = next(5); string < 6; string += 1 + next(7)) {
                        strum.Notes.Edit(string).Fret = std::to_string(next(20));
                        strum.Notes.Edit(string).Dynamic = next(8);
                    }
                    strums.Add(strum);
                }
            }
        }
    }
    for (int bar = 0; bar + 1 < bars; bar += 2) {  // a tie over the bar line
        auto& last = song.Tracks[0].Bars.Edit(bar).EditStrums();
        auto& first = song.Tracks[0].Bars.Edit(bar + 1).EditStrums();
        Core::Note& note = last[last.UpperBound()].Notes.Edit(0);
        note.Fret = first[0].Notes.Edit(0).Fret = "7";
        note.Tied = true;
    }
    return song;
}

TEST(AlignedImportTest, WhatTheExportWritesComesBack) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        ExpectComesBack(PlainSong(seed));
    }
}

TEST(AlignedImportTest, HugeTimesAreRefusedAndAnImportCanBeCancelled) {
    SmfFile midi = FileMaker().Note(0, 96, 64).Make();
    Core::TabFile file;
    ImportReport report;
    EXPECT_FALSE(ImportAligned(file, midi, "", {}, report, [](int) { return false; }));
    EXPECT_THROW(ImportAligned(file, midi, "", {.Tracks = {2}}, report), RunTimeError);
    midi.TicksPerQuarter = 1;
    midi.Tracks[0].push_back({0x0FFFFFFF, 0x90, 64, 90, ""});
    EXPECT_THROW(ImportAligned(file, midi, "", {}, report), RunTimeError);
}

TEST(AlignedImportTest, WhatTakesTooLongToFingerTakesTheFirstStrings) {
    const Fretboard guitar{{64, 59, 55, 50, 45, 40, 35}, 6};
    std::int64_t steps = 0;
    EXPECT_EQ(FingerPath(guitar, {{{64}, {59}, {20}}, {{52}}}, steps),
              (std::vector<std::vector<int>>{{0, 1, -1}, {3}}));
}

}  // namespace
}  // namespace Quillon::Exchange
