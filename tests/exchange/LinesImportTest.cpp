// Text tabs in the styles found in the world, read by their lines, against the notes that they hold.
#include "exchange/LinesImport.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <sstream>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/JsonDocument.h"
#include "exchange/LinesHeader.h"
#include "exchange/TextExport.h"
#include "platform/headless/MemoryStore.h"
#include "tests/support/Golden.h"
#include "tests/support/RandomDocument.h"

namespace Quillon::Exchange {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Imported {
    Core::TabFile File;
    ImportReport Report;
    const Core::Bar& Bar(int bar) const { return File.Tracks[0].Bars[bar]; }
    const Core::Strum& Strum(int bar, int strum) const { return Bar(bar).Strums()[strum]; }
};

Imported Import(std::string_view bytes, const LinesImportOptions& options = {}) {
    const MemoryStore store;
    Imported imported;
    imported.File = Core::MakeNewTabFile(store);
    EXPECT_TRUE(ImportTextLines(imported.File, 0, bytes, options, imported.Report));
    EXPECT_EQ(imported.Report.NotesFound, imported.Report.NotesKept + imported.Report.NotesLost);
    return imported;
}

/// A line a bar; "2/5+3/7 1/12": strings from 1 and frets, a blank between beats.
std::string NotesText(const Core::TabFile& file, int track = 0) {
    std::string text;
    for (const Core::Bar& bar : file.Tracks[track].Bars) {
        std::string line;
        for (const Core::Strum& strum : bar.Strums()) {
            std::string beat;
            for (int s = 0; s < Core::StringCount; ++s) {
                const std::string& fret = strum.Notes[s].Fret;
                if (!fret.empty()) beat += (beat.empty() ? "" : "+") + std::to_string(s + 1) + "/" + fret;
            }
            if (!beat.empty()) line += (line.empty() ? "" : " ") + beat;
        }
        text += line + "\n";
    }
    return text;
}

/// Notes by bar, string and fret, with how often each stands there.
std::map<std::string, int> Counted(const std::string& notes) {
    std::map<std::string, int> counts;
    std::istringstream bars(notes);
    std::string line;
    for (int bar = 1; std::getline(bars, line); ++bar) {
        std::ranges::replace(line, '+', ' ');
        std::istringstream words(line);
        for (std::string note; words >> note;) ++counts[std::to_string(bar) + ":" + note];
    }
    return counts;
}

TEST(LinesImportTest, TabsOfTheWorldKeepTheirNotes) {
    int tabs = 0, wanted = 0, right = 0;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(QUILLON_SOURCE_DIR) / "tests" /
                                                                 "exchange" / "tabs")) {
        if (entry.path().extension() == ".notes") continue;
        SCOPED_TRACE(entry.path().filename());
        const std::string notes = Testing::Slurp(std::filesystem::path(entry.path()).replace_extension(".notes"));
        const Imported imported = Import(Testing::Slurp(entry.path()));
        const auto expected = Counted(notes);
        const auto read = Counted(NotesText(imported.File));
        ++tabs;
        int here = 0, all = 0;
        for (const auto& [note, count] : expected) {
            all += count;
            const auto found = read.find(note);
            if (found != read.end()) here += std::min(count, found->second);
        }
        wanted += all;
        right += here;
        EXPECT_GE(100 * here, 98 * all) << NotesText(imported.File) << "\nexpected\n"
                                        << notes << ReportText(imported.Report);
    }
    EXPECT_GE(tabs, 56);
    EXPECT_GE(100 * right, 98 * wanted);
    std::cout << tabs << " tabs, " << right << " of " << wanted << " notes right\n";
}

std::string Lengths(const Core::Bar& bar) {
    std::string text;
    for (const Core::Strum& strum : bar.Strums()) {
        text += text.empty() ? "" : " ";
        text += (Core::HasNotes(strum) ? "" : "r") + Core::FormatDouble(Core::StrumLength(strum));
    }
    return text;
}

/// A system of one bar with this on its highest string.
std::string OneBar(const std::string& first) {
    std::string text = "e|" + first + "|\n";
    for (const char* label : {"B|", "G|", "D|", "A|", "E|"}) text += label + std::string(first.size(), '-') + "|\n";
    return text;
}

TEST(LinesImportTest, ColumnsAreTimes) {
    for (const auto& [bar, lengths] : {
             std::pair{"-0-2-3-2-", "16 16 16 16"},
             std::pair{"0---2---3---2---", "16 16 16 16"},
             std::pair{"--0-----2-----3-----2-----", "16 16 16 16"},
             std::pair{"-0-2-3-5-0-2-3-5-", "8 8 8 8 8 8 8 8"},
             std::pair{"-0---2-3-5-------", "16 8 8 32"},
             std::pair{"-----2---5-------", "r16 16 32"},
             std::pair{"-0-----2-3---5---", "24 8 16 16"},
             std::pair{"-0---2---3---5---7---8---", "32/3 32/3 32/3 32/3 32/3 32/3"},
             std::pair{"-----------------", "r64"},
             // Even steps that don't fill the bar, or begin where its margins may end.
             std::pair{"-0-1-0-1-0-----", "8 8 8 8 32"},
             std::pair{"-0-1-0-1-0-", "8 8 8 8 8 r24"},
             std::pair{"-5-5-5-7-5-7-8~-", "8 8 8 8 8 8 16"},
             std::pair{"--5-5-5-7-5-7-8~-", "8 8 8 8 8 8 16"},
             std::pair{"--0---0---0---0--", "16 16 16 16"},
             std::pair{"--2-2-2---2-2-2---2-2-2---2-2-2--", "4 4 8 4 4 8 4 4 8 4 4 8"},
         }) {
        std::string wanted = lengths;
        for (std::size_t at = wanted.find("32/3"); at != std::string::npos; at = wanted.find("32/3")) {
            wanted.replace(at, 4, Core::FormatDouble(32.0 / 3));
        }
        EXPECT_EQ(Lengths(Import(OneBar(bar)).Bar(0)), wanted) << bar;
    }
    LinesImportOptions waltz;
    waltz.Timing = TimeSignature{3, 4};
    EXPECT_EQ(Lengths(Import(OneBar("-0---2---3---"), waltz).Bar(0)), "16 16 16");
    waltz.Timing = TimeSignature{6, 8};
    EXPECT_EQ(Lengths(Import(OneBar("-0-2-3-0-2-3-"), waltz).Bar(0)), "8 8 8 8 8 8");
}

TEST(LinesImportTest, LengthsAboveGoBeforeColumns) {
    const Imported imported = Import("   Q   E E H\n" + OneBar("-0---2-3-5---"));
    EXPECT_EQ(Lengths(imported.Bar(0)), "16 8 8 32");
    const Imported triplet = Import("   |-3-|\n   E E E Q.  E Q\n" + OneBar("-0-2-3-5---7-8----"));
    EXPECT_TRUE(triplet.Strum(0, 2).HasTuplet);
    EXPECT_TRUE(triplet.Strum(0, 3).Dotted);
}

TEST(LinesImportTest, SignsStayWithTheirNotes) {
    const auto first = [](const std::string& bar) {
        static std::vector<Imported> kept;
        kept.push_back(Import(OneBar(bar)));
        for (const Core::Strum& strum : kept.back().Bar(0).Strums()) {
            if (Core::HasNotes(strum)) return strum;
        }
        return Core::Strum();
    };
    for (const auto& [bar, technique] :
         {std::pair{"-5h7---", Core::HammerOnPullOff}, std::pair{"-7p5---", Core::HammerOnPullOff},
          std::pair{"-5/7---", Core::LegatoSlide}, std::pair{"-7s5---", Core::LegatoSlide},
          std::pair{"-7\\----", Core::SlideDown}, std::pair{"-/7----", Core::SlideIntoUp},
          std::pair{"-\\7----", Core::SlideIntoDown}, std::pair{"-7/----", Core::SlideUp},
          std::pair{"-5.----", Core::Staccato}}) {
        EXPECT_EQ(first(bar).Notes[0].Technique, technique) << bar;
    }
    EXPECT_EQ(first("-5~~~--").Technique, Core::Vibrato);
    EXPECT_EQ(first("-t12---").Technique, Core::Tapping);
    EXPECT_TRUE(first("-(5)---").Notes[0].Ghost);
    EXPECT_EQ(first("-x-----").Notes[0].Fret, "x");
    EXPECT_EQ(first("-<12>--").Notes[0].Harmonic, Core::NaturalHarmonic);
    EXPECT_EQ(first("-12*---").Notes[0].Harmonic, Core::NaturalHarmonic);
    EXPECT_TRUE(first("-5>----").Notes[0].Accentuate);
    EXPECT_EQ(first("-5tr7--").Notes[0].TrillFret, 7);
    for (const auto& [bar, highest] :
         {std::pair{"-7b9----", 8.0}, std::pair{"-7b8----", 4.0}, std::pair{"-7b-----", 8.0},
          std::pair{"-7b(9)--", 8.0}, std::pair{"-7b(1/2)-", 4.0}, std::pair{"-7b(full)-", 8.0},
          std::pair{"-7full--", 8.0}, std::pair{"-7b1/2--", 4.0}, std::pair{"-7b½----", 4.0},
          std::pair{"-7b9r7--", 8.0}}) {
        const Core::Strum strum = first(bar);
        ASSERT_TRUE(strum.Notes[0].HasBend) << bar;
        EXPECT_EQ(std::ranges::max(strum.Notes[0].BendPoints.Read()), highest) << bar;
        const Imported all = Import(OneBar(bar));
        EXPECT_EQ(all.Report.NotesFound, 1) << bar;
    }
    EXPECT_EQ(first("-7b9r7--").Notes[0].BendPoints.Read()[25], 0);
}

TEST(LinesImportTest, RepeatsChordsWordsAndHeadingsAreKept) {
    std::string bar = OneBar(":0---1---3---5--:");
    bar.insert(bar.find('\n'), " x3");
    const Imported read = Import("[Chorus]\n   Am      C/G\n   Hel-lo  my friend\n" + bar);
    EXPECT_TRUE(read.File.BarInfos[0].RepeatOpen);
    EXPECT_EQ(read.File.BarInfos[0].RepeatClose, 2);
    EXPECT_EQ(read.Strum(0, 0).Text, "Chorus");
    EXPECT_EQ(read.Strum(0, 0).ChordName, "Am");
    EXPECT_EQ(read.Strum(0, 2).ChordName, "C/G");
    std::vector<std::string> sung;
    for (const Core::Strum& strum : read.Bar(0).Strums()) sung.push_back(strum.Syllables.Read()[0]);
    EXPECT_THAT(sung, ElementsAre("Hel-", "lo", "my", "friend"));
    EXPECT_TRUE(read.Report.Remarks.empty()) << ReportText(read.Report);
}

TEST(LinesImportTest, WordsAboveAreReadAsWhatTheySay) {
    struct Row {
        std::string_view Above;
        std::string_view Text;
        int Repeats;
    };
    for (const Row& row : {Row{"INTRO (2x)", "INTRO (2x)", 1}, Row{"Riff A x2", "Riff A x2", 1},
                           Row{"Play 3 times", "", 2}, Row{"x32010", "", 0}, Row{"Softly now", "Softly now", 0},
                           Row{"Gtr 2", "Gtr 2", 0}, Row{"Drop D tuning: D A D G B E", "", 0}, Row{"DADGAD", "", 0},
                           Row{"|1.-----|", "1.", 0}, Row{"P.M. - - - -|", "", 0}}) {
        const Imported read = Import(std::string(row.Above) + "\n" + OneBar("-0-2-3-5-"));
        EXPECT_EQ(read.Strum(0, 0).Text, row.Text) << row.Above;
        EXPECT_EQ(read.File.BarInfos[0].RepeatClose, row.Repeats) << row.Above;
        EXPECT_EQ(read.Strum(0, 1).Technique == Core::PalmMute, row.Above.starts_with("P.M")) << row.Above;
        for (const Core::Strum& strum : read.Bar(0).Strums()) EXPECT_EQ(strum.Syllables.Read()[0], "") << row.Above;
    }
    const std::string second = OneBar("-0-2-3-5-2-3-");
    for (const auto& [head, tempo] :
         {std::pair{"Tempo 96", 96.0F}, std::pair{"q = 120", 120.0F}, std::pair{"♩=132", 132.0F}}) {
        EXPECT_EQ(Import(std::string(head) + "\n\n" + second).File.Tempo, tempo);
    }
    EXPECT_EQ(Import("   Am\nEADGBE\n" + second).Strum(0, 0).ChordName, "Am");
    const Imported timed = Import("3/4\n" + OneBar("-0-2-3-") + "\n6/8\n" + second);
    EXPECT_EQ(timed.File.BarInfos[0].TimeSigTop, 3);
    EXPECT_EQ(timed.File.BarInfos[1].TimeSigBottom, 8);
    EXPECT_EQ(Lengths(timed.Bar(1)), "8 8 8 8 8 8");
    const Imported two = Import("Gtr 1\n" + second + "Gtr 2\n" + second);
    EXPECT_THAT(ReportText(two.Report), HasSubstr("Systems of another player"));
}

TEST(LinesImportTest, LabelsTellTheTuning) {
    for (const auto& [names, pitches] :
         {std::pair{"BGDAE", std::vector{59, 55, 50, 45, 40}}, std::pair{"EADG", std::vector{76, 69, 62, 55}},
          std::pair{"GDAE", std::vector{43, 38, 33, 28}}, std::pair{"EBGDAEB", std::vector{64, 59, 55, 50, 45, 40, 35}},
          std::pair{"DAGDAD", std::vector{62, 57, 55, 50, 45, 38}}, std::pair{"CCCCCC", std::vector<int>{}}}) {
        std::vector<std::string> labels;
        for (const char name : std::string_view(names)) labels.emplace_back(1, name);
        const auto tuning = TuningOf(labels);
        ASSERT_EQ(tuning.has_value(), !pitches.empty()) << names;
        for (std::size_t s = 0; s < pitches.size(); ++s) {
            EXPECT_EQ((*tuning)[s] + Core::StandardPitches[s], pitches[s]) << names << s;
        }
    }
}

TEST(LinesImportTest, TheHeaderTellsOfTheWhole) {
    const Imported read = Import(
        "Title: The <Crane>\nArtist: Herons\nTuning: D A D G B E\nCapo: 2nd fret\nTempo: 96 bpm\n"
        "Time signature: 6/8\n\n" +
        OneBar("-0-2-3-0-2-3-"));
    EXPECT_EQ(read.File.Title, "The Crane");
    EXPECT_EQ(read.File.Artist, "Herons");
    EXPECT_EQ(read.File.Tempo, 96);
    EXPECT_EQ(read.File.Tracks[0].Capo, 2);
    EXPECT_EQ(read.File.BarInfos[0].TimeSigTop, 6);
    // The labels, standard, go before the words.
    EXPECT_EQ(read.File.Tracks[0].Tuning[5], 0);
    for (const auto& [words, strings, lowest] :
         {std::tuple{"D A D G B E", 6, -2}, std::tuple{"DADGAD", 6, -2}, std::tuple{"E B G D A D", 6, -2},
          std::tuple{"Eb Ab Db Gb Bb Eb", 6, -1}, std::tuple{"Drop C", 6, -4}, std::tuple{"half step down", 6, -1},
          std::tuple{"standard", 4, -22}}) {
        const auto tuning = TuningOfWords(words, strings);
        ASSERT_TRUE(tuning) << words;
        EXPECT_EQ((*tuning)[strings - 1], lowest) << words;
    }
    EXPECT_FALSE(TuningOfWords("something else", 6));
    LinesImportOptions plain;
    plain.Details = false;
    EXPECT_EQ(Import("Title: Crane\n\n" + OneBar("-0-")).File.Title, "Crane");
    EXPECT_NE(Import("Title: Crane\n\n" + OneBar("-0-"), plain).File.Title, "Crane");
}

TEST(LinesImportTest, WhatIsLostIsTold) {
    const std::string text = "Just a remark.\n\n|--5-------|\n\n" + OneBar("-0-q-3-5-");
    const Imported read = Import(text);
    const std::string report = ReportText(read.Report);
    EXPECT_THAT(report, HasSubstr("line 3: A line like a string belongs to no system; notes left out: 1"));
    EXPECT_THAT(report, HasSubstr("Signs without a meaning here are left out: q"));
    EXPECT_THAT(report, HasSubstr("line 1: Lines of words that are left out, from here on: 1"));
    EXPECT_EQ(read.Report.NotesLost, 1);
    EXPECT_EQ(Import("").Report.Systems, 0);
    EXPECT_EQ(Import("").File.Tracks[0].Bars.Count(), 1);
}

TEST(LinesImportTest, OtherTracksKeepTheirBarsAndSignatures) {
    const MemoryStore store;
    Core::TabFile file = Core::MakeNewTabFile(store);
    file.Tracks.Add(file.Tracks[0]);
    for (Core::Track& track : file.Tracks) track.Bars.Resize(3);
    file.BarInfos.Resize(3);
    file.BarInfos.Edit(1).RepeatClose = 4;
    ImportReport report;
    EXPECT_TRUE(ImportTextLines(file, 1, "Time: 3/4\n" + OneBar("-0-2-3-2-"), {}, report));
    EXPECT_EQ(file.Tracks[0].Bars.Count(), 3);
    EXPECT_EQ(file.Tracks[1].Bars.Count(), 3);
    EXPECT_EQ(file.BarInfos[0].TimeSigTop, 4);
    EXPECT_EQ(file.BarInfos[1].RepeatClose, 4);
    Core::TabFile before = file;
    EXPECT_FALSE(ImportTextLines(file, 1, OneBar("-0-"), {}, report, [](int) { return false; }));
}

/// Frets of a track as a text tab can hold them: bar by bar, beats without notes left out.
TEST(LinesImportTest, ExportedTextsComeBack) {
    const MemoryStore store;
    std::vector<Core::TabFile> songs;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(QUILLON_SOURCE_DIR) / "examples")) {
        if (entry.path().extension() == ".json") songs.push_back(ReadJson(Testing::Slurp(entry.path()), store));
    }
    EXPECT_GE(songs.size(), 5U);
    for (unsigned seed = 1; seed <= 20; ++seed) {
        Core::TabFile song = Testing::RandomDocument(seed, Testing::HeldBy::Json);
        // Frets that are frets, on strings that a text tab can tell apart.
        for (Core::Track& track : song.Tracks) {
            track.IsDrum = false;
            track.Strings = static_cast<std::int16_t>(std::clamp<int>(track.Strings, 4, 7));
            for (int b = 0; b < track.Bars.Count(); ++b) {
                auto& strums = track.Bars.Edit(b).EditStrums();
                for (Core::Strum& strum : strums) {
                    for (int s = 0; s < Core::StringCount; ++s) {
                        if (strum.Notes[s].Fret.empty()) continue;
                        const auto fret = (static_cast<unsigned>(b) * 7 + static_cast<unsigned>(s) * 5 + seed) % 31;
                        strum.Notes.Edit(s).Fret = s >= track.Strings ? "" : fret == 30 ? "x" : std::to_string(fret);
                    }
                }
            }
        }
        songs.push_back(std::move(song));
    }
    int bars = 0;
    for (const Core::TabFile& song : songs) {
        for (int track = 0; track < song.Tracks.Count(); ++track) {
            if (song.Tracks[track].IsDrum) continue;
            SCOPED_TRACE(song.Title + ", track " + std::to_string(track));
            for (const bool page : {false, true}) {
                const TextExportOptions options{track, 80, page};
                const Imported read = Import(page ? WriteWebPage(song, options) : WriteTextTab(song, options));
                EXPECT_EQ(NotesText(read.File), NotesText(song, track));
                bars += read.Report.Bars;
            }
        }
    }
    std::cout << bars << " bars came back\n";
}

}  // namespace
}  // namespace Quillon::Exchange
