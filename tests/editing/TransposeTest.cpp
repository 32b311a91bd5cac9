#include "editing/mod_Transpose.h"

#include <algorithm>
#include <random>

#include "core/mod_Common.h"
#include "editing/mod_BarClipboard.h"
#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::Strum;
using Core::TabFile;
using Core::Track;

Strum Notes(std::initializer_list<std::pair<int, const char*>> notes) {
    Strum strum;
    for (const auto& [string, fret] : notes) strum.Notes.Edit(string).Fret = fret;
    return strum;
}

StringsTo Free() {
    StringsTo links;
    links.fill(NoString);
    return links;
}

std::vector<int> Pitches(const Track& track, const Strum& strum) {
    std::vector<int> pitches;
    for (int s = 0; s < track.Strings; ++s) {
        const int fret = FretNumber(strum.Notes[s].Fret);
        if (fret >= 0) pitches.push_back(Core::OpenPitch(track, s) + fret);
    }
    std::ranges::sort(pitches);
    return pitches;
}

TEST(Transpose, KeepsStringsWhereItCanAndElseTheNearest) {
    const Track track;
    struct Case {
        Strum Before;
        int Semitones;
        const char* After;
    };
    const Case cases[] = {
        {Notes({{0, "3"}, {5, "3"}}), 2, "0{0:5 5:5}"},
        {Notes({{0, "0"}}), -1, "0{1:4}"},
        {Notes({{0, "29"}}), 1, ""},  // past every neck
        {Notes({{1, "29"}}), 1, "0{0:25}"},
        {Notes({{5, "0"}}), -1, ""},                      // below the lowest string
        {Notes({{0, "0"}, {1, "0"}}), -2, "0{1:3 2:2}"},  // one makes room for the other
        {Notes({{0, "0"}, {1, "x"}}), -1, "0{1:x 2:8}"},  // dead notes stay where they are
        {Notes({{0, "0"}, {1, "0"}, {2, "0"}, {3, "0"}, {4, "0"}, {5, "0"}}), -1, ""},
        {Notes({{6, "0"}, {0, "1"}}), 1, "0{0:2 6:0}"},  // a string out of use
    };
    for (const auto& [before, semitones, after] : cases) {
        Strum strum = before;
        StringsTo links = Free();
        const bool done = TransposeStrum(track, strum, semitones, false, links);
        EXPECT_EQ(done ? TextOf(strum) : "", after);
        EXPECT_TRUE(done || strum == before);
    }
}

TEST(Transpose, MarksGraceNotesAndTrillsGoWithTheirNote) {
    const Track track;
    Strum strum = Notes({{0, "1"}});
    Core::Note& note = strum.Notes.Edit(0);
    note.Ghost = note.HasGrace = note.HasTrill = true;
    note.GraceFret = "0";
    note.TrillFret = 3;
    StringsTo links = Free();
    ASSERT_TRUE(TransposeStrum(track, strum, -1, false, links));
    EXPECT_EQ(TextOf(strum), "0{1:5g}") << "its grace note would lie off the neck on its own string";
    EXPECT_EQ(strum.Notes[1].GraceFret, "4");
    EXPECT_EQ(strum.Notes[1].TrillFret, 7);
}

TEST(Transpose, TiedNotesStayOnOneString) {
    TabFile file;
    auto& strums = file.Tracks[0].Bars.Edit(0).EditStrums();
    strums.Resize(2);
    // Alone the first would go to string 1; the second, with a dead note there, can't.
    strums[0] = Notes({{0, "0"}, {1, "x"}});
    strums[0].Notes.Edit(0).Tied = true;
    strums[1] = Notes({{0, "0"}});
    ASSERT_FALSE(Transpose(file, 0, {0, 0}, -1, false));
    EXPECT_EQ(TextOf(file), "0{1:x 2:8l} 0{2:8}");
}

TEST(Transpose, PitchesMoveExactlyAndStayOnPlayableStrings) {
    std::mt19937 random(20031);  // NOLINT(cert-msc51-cpp): the same on every run
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    int moved = 0, refused = 0;
    for (int round = 0; round < 4000; ++round) {
        Track track;
        track.Strings = Core::ToInt16(1 + below(7));
        for (int s = 0; s < Core::StringCount; ++s) track.Tuning[s] = Core::ToInt16(below(9) - 4);
        Strum strum;
        for (int s = 0; s < track.Strings; ++s) {
            if (below(3) == 0) continue;
            strum.Notes.Edit(s).Fret = below(8) == 0 ? "x" : std::to_string(below(30));
            strum.Notes.Edit(s).Accentuate = below(2) == 0;
        }
        const Strum before = strum;
        const int semitones = below(25) - 12;
        StringsTo links = Free();
        if (!TransposeStrum(track, strum, semitones, false, links)) {
            ++refused;
            EXPECT_TRUE(strum == before);
            continue;
        }
        ++moved;
        std::vector<int> expected = Pitches(track, before);
        for (int& pitch : expected) pitch += semitones;
        EXPECT_EQ(Pitches(track, strum), expected) << TextOf(before) << " by " << semitones;
        int marks = 0;
        for (int s = 0; s < Core::StringCount; ++s) {
            EXPECT_LE(FretNumber(strum.Notes[s].Fret), HighestFret);
            EXPECT_EQ(strum.Notes[s].Fret == "x", before.Notes[s].Fret == "x");
            EXPECT_TRUE(s < track.Strings || strum.Notes[s].Fret.empty());
            marks += (strum.Notes[s].Accentuate ? 1 : 0) - (before.Notes[s].Accentuate ? 1 : 0);
        }
        EXPECT_EQ(marks, 0);
    }
    EXPECT_GT(moved, 1000);
    EXPECT_GT(refused, 100);
}

TEST(Transpose, MovesTheBarsGivenOrNothingAtAll) {
    TabFile file;
    file.Tracks.Add(Track{});
    file.Tracks[1].IsDrum = true;
    file.BarInfos.Resize(3);
    for (int t = 0; t < 2; ++t) {
        file.Tracks[t].Bars.Resize(3);
        for (int b = 0; b < 3; ++b) {
            file.Tracks[t].Bars.Edit(b).Key = 2;
            file.Tracks[t].Bars.Edit(b).EditStrums()[0].Notes.Edit(5).Fret = t == 0 ? "1" : "o";
        }
    }
    ASSERT_FALSE(Transpose(file, AllTracks, {1, 1}, -1, true));
    EXPECT_EQ(TextOf(file), "0{5:1} | 0{5:0} | 0{5:1}");
    EXPECT_EQ(TextOf(file, 1), "0{5:o} | 0{5:o} | 0{5:o}");
    EXPECT_EQ(file.Tracks[0].Bars[1].Key, 7);
    EXPECT_EQ(file.Tracks[1].Bars[1].Key, 7);
    EXPECT_EQ(file.Tracks[0].Bars[2].Key, 2);
    const TabFile before = file;
    const auto stuck = Transpose(file, 0, {0, 2}, -1, true);
    ASSERT_TRUE(stuck);
    EXPECT_EQ(stuck->Bar, 1);
    EXPECT_TRUE(file == before);
    EXPECT_THROW(Transpose(file, 0, {0, 3}, 1, true), RunTimeError);
    EXPECT_THROW(Transpose(file, 0, {2, 1}, 1, true), RunTimeError);
    EXPECT_THROW(Transpose(file, 2, {0, 0}, 1, true), RunTimeError);
    EXPECT_TRUE(file == before);
}

TEST(Transpose, ChordsAndKeysMoveWithTheNotes) {
    EXPECT_EQ(TransposeChordName("Am7/G", 2, false), "Bm7/A");
    EXPECT_EQ(TransposeChordName("C#m", 1, false), "Dm");
    EXPECT_EQ(TransposeChordName("Bb", 3, false), "Db");
    EXPECT_EQ(TransposeChordName("Dsus4", -1, true), "Dbsus4");
    EXPECT_EQ(TransposeChordName("Cadd9", -25, false), "Badd9");
    EXPECT_EQ(TransposeChordName("N.C.", 1, false), "N.C.");
    for (std::int32_t key = 0; key < 14; ++key) {
        EXPECT_EQ(TransposeKey(key, 12), key);
        // C# comes back as Db; the others as themselves.
        EXPECT_EQ(TransposeKey(TransposeKey(key, 5), -5), key == 8 ? 13 : key);
    }
    EXPECT_EQ(TransposeKey(99, 1), 99);
    const Track track;
    Strum strum;
    strum.HasChord = true;
    strum.ChordName = "C";
    const char* const open[] = {"0", "1", "0", "2", "3", "x", ""};
    for (int s = 0; s < Core::StringCount; ++s) strum.ChordFrets.Edit()[s] = open[s];
    StringsTo links = Free();
    ASSERT_TRUE(TransposeStrum(track, strum, -1, false, links));
    EXPECT_EQ(strum.ChordName, "B");
    EXPECT_EQ(strum.ChordFrets.Read()[0], "11") << "an octave up, as the neck ends below";
    EXPECT_EQ(strum.ChordFrets.Read()[4], "14");
    EXPECT_EQ(strum.ChordFrets.Read()[5], "x");
}

}  // namespace
}  // namespace Quillon::Editing
