// The chord library: its files, its default chords, its filters, and the names of shapes.
#include "library/mod_Chords.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

#include "library/BuiltInTables.h"
#include "library/ChordNaming.h"
#include "tests/support/Fixture.h"

namespace Quillon::Library {
namespace {

using Frets = Row<std::string, StringCount>;

/// Of a shape as people write it: the lowest string first, blanks between.
ChordRec Shape(const std::string& text) {
    std::vector<std::string> frets;
    std::istringstream words(text);
    for (std::string word; words >> word;) frets.push_back(word);
    Frets highestFirst;
    for (std::size_t i = 0; i < frets.size(); ++i) highestFirst[i] = frets[frets.size() - 1 - i];
    return MakeChord(static_cast<int>(frets.size()), false, highestFirst);
}

TEST(Chords, EveryRowOfTheTableSoundsWhatItsNameSays) {
    std::set<std::string> names;
    for (const auto& row : TableRows("Chords")) {
        const std::string name(row.at(1));
        SCOPED_TRACE(name);
        EXPECT_TRUE(names.insert(name).second);
        EXPECT_EQ(FileNameOf(name), name);
        Frets frets;
        for (std::size_t string = 0; string < 6; ++string) frets[string] = row.at(2 + string);
        const std::vector<int> pitches = PitchesOf(MakeChord(6, false, frets));
        ChordTones tones;
        ASSERT_TRUE(ParseChordSymbol(name, tones));
        ASSERT_FALSE(pitches.empty());
        EXPECT_EQ(pitches.front() % 12, tones.Bass);
        std::set<int> allowed(tones.Needed.begin(), tones.Needed.end());
        allowed.insert(tones.Optional.begin(), tones.Optional.end());
        allowed.insert(tones.Bass);
        std::set<int> sounding;
        for (const int pitch : pitches) {
            sounding.insert(pitch % 12);
            EXPECT_TRUE(allowed.contains(pitch % 12)) << "sounds " << PitchClassName(pitch);
        }
        for (const int needed : tones.Needed) EXPECT_TRUE(sounding.contains(needed)) << PitchClassName(needed);
        EXPECT_FALSE(ChordNames(pitches).empty());
    }
    EXPECT_EQ(names.size(), 1555U);
}

TEST(Chords, AFileHasItsTwentyFourLines) {
    const std::string bytes =
        "\r\n0\r\n6\r\n64\r\n59\r\n55\r\n50\r\n45\r\n40\r\n35\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
        "3\r\n0\r\n0\r\n0\r\n2\r\n3\r\n \r\n";
    const ChordRec chord = Shape("3 2 0 0 0 3");
    EXPECT_EQ(WriteChord(chord), bytes);
    EXPECT_EQ(ReadChord(bytes), chord);
    EXPECT_EQ(Shape("x x x x x x").BaseFret, 20) << "no string is fretted";
    const ChordRec barre = Shape("8 10 10 9 8 8");
    EXPECT_EQ(barre.BaseFret, 8);
    EXPECT_EQ(barre.Frets[2], "1");
    EXPECT_EQ(AbsoluteFret(barre, 2), 9);
    EXPECT_EQ(PitchesOf(barre), (std::vector<int>{48, 55, 60, 64, 67, 72}));

    // As people write them by hand.
    const auto byHand = ReadChord("1\n 3 \n4\n64\n59\n55\n50\n45\n40\n35\n0\n5\n0\n0\n0\n0\n0\n0\n X\n 2");
    ASSERT_TRUE(byHand);
    EXPECT_TRUE(byHand->ChordFlag);
    EXPECT_EQ(FingerText(*byHand, 1), "T");
    EXPECT_TRUE(IsMuted(*byHand, 1));
    EXPECT_EQ(AbsoluteFret(*byHand, 2), 5);
    EXPECT_EQ(AbsoluteFret(*byHand, 3), std::nullopt);
    for (const char* const bad :
         {"", "1\nx\n6\n", "\n0\n8\n", "\n0\n6\n64\n59\n900\n", "\n-1\n6\n", "\n0\n6\n99999\n"}) {
        EXPECT_FALSE(ReadChord(bad)) << bad;
    }
}

class ChordLibraryTest : public testing::Test {
protected:
    std::vector<std::string> Filtered(const ChordFilter& filter) {
        Chords.Refresh();
        return FilteredChords(Chords, filter, Core::Open);
    }
    Testing::ServicesForTest services;
};

TEST_F(ChordLibraryTest, IsMadeWholeAndSearched) {
    EnsureChords();
    EXPECT_TRUE(Chords.Refresh());
    EXPECT_FALSE(Chords.Refresh());
    EXPECT_EQ(Chords.Names().size(), 1555U);
    EXPECT_EQ(Chords.Unreadable(), 0);
    using Kind = ChordFilter::Kind;
    EXPECT_EQ(Filtered({.By = Kind::Name, .Text = ""}).size(), 1555U);
    const auto found = Filtered({.By = Kind::Name, .Text = "cM7"});
    EXPECT_TRUE(std::ranges::count(found, "C m7")) << "blanks in names are optional";
    EXPECT_EQ(Searchable("Dör Šœž ÿ ß ÷ 日本"), "DÖR ŠŒŽ Ÿ ß ÷ 日本");
    EXPECT_EQ(FileNameOf(std::string(300, 'a')).size(), 200U);
    EXPECT_EQ(FileNameOf("a" + std::string(100, '.') + std::string(98, 'b') + "ÄÖ"),
              "a" + std::string(100, '.') + std::string(98, 'b'));
    ChordFilter tab{.By = Kind::Tab};
    tab.Tab = {"3", "2", "0", "0", "0", "3"};
    const std::vector<std::string> shaped = {"B-Bmaj (2)",   "Bb-Bbmaj (2)", "C-Cmaj (3)", "D-Dmaj (4)",
                                             "Db-Dbmaj (2)", "Eb-Ebmaj (2)", "G-Gmaj (2)"};
    EXPECT_EQ(Filtered(tab), shaped) << "one shape at seven places of the neck";

    // A four-string chord of the person's own has no opinion on the upper boxes.
    services.Files.Replace(Chords.FileOf("Mine"), WriteChord(Shape("3 2 0 0")));
    services.Files.Replace(Chords.FileOf("Broken"), "hello");
    const auto both = Filtered(tab);
    EXPECT_EQ(both.size(), shaped.size() + 1);
    EXPECT_EQ(both.back(), "Mine");
    EXPECT_EQ(Chords.Unreadable(), 1);
    EXPECT_EQ(Filtered({.By = Kind::Strings, .Strings = 4}), std::vector<std::string>{"Mine"});

    Core::Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()[0].HasChord = true;
    Core::Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()[0].ChordName = "Mine";
    EXPECT_EQ(Filtered({.By = Kind::InTrack}), std::vector<std::string>{"Mine"});

    // Saved into a library that went away meanwhile, a chord does not stand alone.
    std::filesystem::remove_all(Chords.Folder());
    SaveChord("Mine", Shape("3 2 0 0"));
    EXPECT_EQ(Filtered({}).size(), 1556U);

    // What was there stays until the new is whole; what is no chord file is kept beside it.
    services.Files.MakeFolder(Chords.Folder() / "Sub");
    CreateAllChords();
    EXPECT_EQ(Filtered({}).size(), 1555U);
    EXPECT_TRUE(services.Files.Exists(services.Base.Path() / "Data/My Chords.old/Sub"));
    EXPECT_FALSE(services.Files.Exists(services.Base.Path() / "Data/My Chords.new"));
}

TEST(ChordNaming, NamesWhatAHandPlays) {
    struct Case {
        const char* Frets;
        const char* Name;
    };
    const Case cases[] = {{"x 3 2 0 1 0", "C"},     {"x 0 2 2 1 0", "Am"},       {"3 2 0 0 0 3", "G"},
                          {"0 2 0 1 0 0", "E7"},    {"x 3 2 0 0 0", "Cmaj7"},    {"x x 0 2 3 1", "Dm"},
                          {"0 3 2 0 1 0", "C/E"},   {"x 2 0 0 3 0", "Em7/B"},    {"3 5 5 x x x", "G5"},
                          {"x 0 2 2 3 0", "Asus4"}, {"x 5 7 5 6 5", "Dm7"},      {"x 1 2 1 2 x", "A#m7b5"},
                          {"x 3 2 3 3 x", "C9"},    {"0 7 6 7 8 x", "E7#9"},     {"x 0 5 5 5 5", "Am7"},
                          {"2 2 4 4 x x", "B5/F#"}, {"x 4 3 3 2 2", "F#maj7/C#"}};
    for (const Case& each : cases) {
        const auto names = ChordNames(PitchesOf(Shape(each.Frets)));
        ASSERT_FALSE(names.empty()) << each.Frets;
        EXPECT_EQ(names.front(), each.Name) << each.Frets;
    }
    EXPECT_TRUE(ChordNames(std::vector<int>{60, 61, 62, 63}).empty());
    EXPECT_EQ(ChordNames(PitchesOf(Shape("x 1 3 3 3 1")), true).front(), "Bb");
    for (const char* const flat : {"Bb", "F 7", "Cm7-Cmin7 (2)", "Gm", "Dm7b5", "Eb-Ebmaj"}) {
        EXPECT_TRUE(PrefersFlats(flat)) << flat;
    }
    for (const char* const sharp : {"G", "A m7", "D7", "F#m", "C#-C#maj", "E", "what"}) {
        EXPECT_FALSE(PrefersFlats(sharp)) << sharp;
    }
    ChordTones tones;
    for (const char* const unknown : {"", "H", "Cfoo", "C/Q", "-"}) EXPECT_FALSE(ParseChordSymbol(unknown, tones));
}

}  // namespace
}  // namespace Quillon::Library
