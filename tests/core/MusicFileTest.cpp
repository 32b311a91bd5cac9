#include "core/mod_MusicFile.h"

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "platform/headless/MemoryStore.h"
#include "platform/portable/Rc4Md5.h"
#include "tests/support/Golden.h"
#include "tests/support/RandomDocument.h"

using namespace Quillon;
using namespace Quillon::Core;
using namespace Quillon::Testing;

namespace {

TabFile Fresh() { return MakeNewTabFile(MemoryStore{}); }

std::string Golden(const std::string& name) { return Slurp(GoldenDir() / "qlm" / name); }

TabFile ReadWhole(std::string_view text) {
    const MusicReadResult read = ReadTabFileText(text, Fresh());
    EXPECT_TRUE(read.Kind.has_value());
    if (read.Stopped) ADD_FAILURE() << read.Stopped->Message();
    return read.Document;
}

/// Reads a tag behind a small sound document of two tracks, two bars, two strums in the first; the damage, or "".
std::string MessageOf(const std::string& tags) {
    const std::string text =
        "Quillon 4.1\r\n<¸1><\u0090"
        "1><µ0|0/1>";
    const MusicReadResult read = ReadTabFileText(ToWindows1252(text + tags) + "\r\n", Fresh());
    return read.Stopped ? read.Stopped->Message() : "";
}

}  // namespace

TEST(MusicFile, CipherGivesTheKnownKeyStream) {
    const Rc4Md5 cipher;
    EXPECT_EQ(cipher.Apply(std::string(16, '\0'), "dahlia"),
              "\x0b\xe0\xd9\x7c\xc1\x99\x83\x7a\xef\xb8\x7d\x3b\x25\x8d\x21\x42");
    EXPECT_EQ(cipher.Apply("", "dahlia"), "");
}

TEST(MusicFile, KnownFilesComeBackByteForByte) {
    const Rc4Md5 cipher;
    for (const std::string name : {"1-new", "2-song", "3-drum-lyrics"}) {
        SCOPED_TRACE(name);
        const std::string text = cipher.Apply(Golden(name + ".qlm"), "dahlia");
        EXPECT_EQ(text, Golden(name + ".txt"));
        EXPECT_TRUE(WriteTabFileText(ReadWhole(text)) == text);
    }
}

TEST(MusicFile, HarmonicIsWrittenInTheFormAtWhichReadingStops) {
    const MusicReadResult read = ReadTabFileText(Golden("4-harmonic.txt"), Fresh());
    ASSERT_TRUE(read.Stopped);
    EXPECT_EQ(read.Stopped->Message(), "Type mismatch. Tag Number: 35 Source (Tag) Data: har:0|0\\0:2/3>");
    EXPECT_EQ(read.Document.Tracks[0].Bars[0].Strums()[0].Notes[0].Fret, "12");
    const TabFile other = ReadWhole(ToWindows1252("Quillon 4.1\r\n<har:0|0\\0/2:3>"));
    EXPECT_EQ(other.Tracks[0].Bars[0].Strums()[0].Notes[2].Harmonic, 3);
}

TEST(MusicFile, RandomDocumentsComeBackWhole) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        const TabFile file = RandomDocument(seed, HeldBy::MusicFile);
        ASSERT_TRUE(SaveLosses(file).empty()) << "seed " << seed << ": " << LossText(SaveLosses(file)[0]);
        const std::string text = WriteTabFileText(file);
        const TabFile back = ReadWhole(text);
        ASSERT_TRUE(back == file) << "seed " << seed;
        ASSERT_EQ(WriteTabFileText(back), text) << "seed " << seed;
    }
}

TEST(MusicFile, DamageIsToldWithTheTagThatCausedIt) {
    static const struct {
        const char* Tags;
        const char* Message;
    } rows[] = {
        // A missing separator is an overflow of the search for it.
        {"<l:2", "Overflow. Tag Number: 4 Source (Tag) Data: l:2\r\n"},
        {"<µ0|0>", "Overflow. Tag Number: 4 Source (Tag) Data: µ0|0>\r\n"},
        {"<dot:0|0/0>", "Overflow. Tag Number: 4 Source (Tag) Data: dot:0|0/0>\r\n"},
        {"<¦A < B>", "Overflow. Tag Number: 4 Source (Tag) Data: ¦A "},
        {"<l:99999999999>", "Overflow. Tag Number: 4 Source (Tag) Data: l:99999999999>\r\n"},
        {"<³32768>", "Overflow. Tag Number: 4 Source (Tag) Data: ³32768>\r\n"},
        {"<hsh:0|0/0\\256>", "Overflow. Tag Number: 4 Source (Tag) Data: hsh:0|0/0\\256>\r\n"},
        {"<ª1E39>", "Overflow. Tag Number: 4 Source (Tag) Data: ª1E39>\r\n"},
        {"<l:>", "Type mismatch. Tag Number: 4 Source (Tag) Data: l:>\r\n"},
        {"<l:2><l:two>", "Type mismatch. Tag Number: 5 Source (Tag) Data: l:two>\r\n"},
        {"<km:0\\0/Maybe>", "Type mismatch. Tag Number: 4 Source (Tag) Data: km:0\\0/Maybe>\r\n"},
        {"<p0|0\\0/0:5|loud>", "Type mismatch. Tag Number: 4 Source (Tag) Data: p0|0\\0/0:5|loud>\r\n"},
        // Conversions come before indices.
        {"<p9|0\\0/0:5|loud>", "Type mismatch. Tag Number: 4 Source (Tag) Data: p9|0\\0/0:5|loud>\r\n"},
        {"<p9|0\\0/0:5|0>", "Subscript out of range. Tag Number: 4 Source (Tag) Data: p9|0\\0/0:5|0>\r\n"},
        {"<p0|0\\0/7:5|0>", "Subscript out of range. Tag Number: 4 Source (Tag) Data: p0|0\\0/7:5|0>\r\n"},
        {"<p0|0\\-1/0:5|0>", "Subscript out of range. Tag Number: 4 Source (Tag) Data: p0|0\\-1/0:5|0>\r\n"},
        {"<ki:0\\2/1>", "Subscript out of range. Tag Number: 4 Source (Tag) Data: ki:0\\2/1>\r\n"},
        {"<TB=0\\1|2>", "Subscript out of range. Tag Number: 4 Source (Tag) Data: TB=0\\1|2>\r\n"},
        {"<f.t.dbf7\\0|1>", "Subscript out of range. Tag Number: 4 Source (Tag) Data: f.t.dbf7\\0|1>\r\n"},
        {"<µ0|0/-1>", "Subscript out of range. Tag Number: 4 Source (Tag) Data: µ0|0/-1>\r\n"},
        {"<º4><º4><º4>", "Subscript out of range. Tag Number: 6 Source (Tag) Data: º4>\r\n"},
        {"<f.t.vov:1><f.t.vov:1><f.t.vov:1>",
         "Subscript out of range. Tag Number: 6 Source (Tag) Data: f.t.vov:1>\r\n"},
        {"<l:1><l:1><l:1><l:1><l:1><l:1>", "Subscript out of range. Tag Number: 9 Source (Tag) Data: l:1>\r\n"},
        // Counts that no text of this size can fill.
        {"<¸32768>", "Out of memory. Tag Number: 4 Source (Tag) Data: ¸32768>\r\n"},
        {"<¸32767>", "Out of memory. Tag Number: 4 Source (Tag) Data: ¸32767>\r\n"},
        {"<µ0|0/2147483647>", "Out of memory. Tag Number: 4 Source (Tag) Data: µ0|0/2147483647>\r\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(MessageOf(row.Tags), row.Message) << row.Tags;
}

TEST(MusicFile, WhatCannotBeReadTakesNoEffect) {
    const MusicReadResult read = ReadTabFileText("Quillon 4.1\r\n<p0|0\\0/0:5|1><p0|0\\0/0:7|x><l:6>", Fresh());
    ASSERT_TRUE(read.Stopped);
    EXPECT_EQ(read.Document.Tracks[0].Bars[0].Strums()[0].Notes[0].Fret, "5");
    EXPECT_EQ(read.Document.Tracks[0].Bars[0].Strums()[0].Length, 2);
}

TEST(MusicFile, RepeatedCountsCannotExhaustMemoryOrTime) {
    std::string growing;
    for (int i = 0; i < 5000; ++i)
        growing +=
            "<¸255><¸0><\x90"
            "32000><\x90"
            "0>";
    std::string strums =
        "<\x90"
        "999>";
    for (int b = 0; b < 1000; ++b)
        strums +=
            "<\xB5"
            "0|" +
            std::to_string(b) + "/32767>";
    std::string copies =
        "<\x90"
        "9><\xB5"
        "0|0/32767>";
    for (int i = 0; i < 9000; ++i) copies += "<TB=0\\1|0><dot:0|1\\5>";
    for (const std::string& tags : {growing, strums, copies}) {
        const MusicReadResult read = ReadTabFileText("Quillon 4.1\r\n" + tags, Fresh());
        ASSERT_TRUE(read.Stopped);
        EXPECT_EQ(read.Stopped->Description, "Out of memory");
    }
}

TEST(MusicFile, VersionLineDecides) {
    static const struct {
        const char* Line;
        std::optional<FileKind> Kind;
    } rows[] = {
        {"Quillon 4.1", FileKind::Current}, {"Quillon 4.0", FileKind::Lyrics40}, {"Quillon 9.9", FileKind::Current},
        {"Quillon 4.10", std::nullopt},     {"Quillon", std::nullopt},           {"", std::nullopt},
        {"quillon 4.1", std::nullopt},      {"Quillon4.1", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ReadTabFileText(std::string(row.Line) + "\r\n<l:2>", Fresh()).Kind, row.Kind) << row.Line;
    }
    EXPECT_TRUE(IsOldMusicFile("Quillon 3.5\r\n..."));
    EXPECT_TRUE(IsOldMusicFile("Quillon 3.7"));
    EXPECT_FALSE(IsOldMusicFile("Quillon 3.8\r\n"));
}

TEST(MusicFile, UnknownTagsAreSkippedAndValuesEndAtTheirSeparator) {
    const TabFile file = ReadWhole(ToWindows1252(
        "Quillon 4.1\r\n<new:1|2><><path:9><ÿ><L:5><ÒÒ6x><¦Song>ignored<l:3>tail<#LC 7 ><ª92,5>\x1A<³4>"));
    EXPECT_EQ(file.Title, "Song");
    EXPECT_EQ(file.Tracks[0].Bars[0].Strums()[0].Length, 3);
    EXPECT_EQ(file.LineColor, 7);
    EXPECT_EQ(file.Tempo, 92.5F);
    EXPECT_EQ(file.RowSpacing, 4);
}

TEST(MusicFile, ASongCutOffInsideATagIsDamaged) {
    const std::string whole = Testing::Slurp(Testing::GoldenDir() / "qlm" / "2-song.txt");
    const std::size_t tags = whole.find('<');
    for (std::size_t size = tags + 1; size < whole.rfind('>'); ++size) {
        if (whole[size - 1] == '>') continue;
        EXPECT_TRUE(ReadTabFileText(whole.substr(0, size), Fresh()).Stopped) << "cut to " << size << " bytes";
    }
}

TEST(MusicFile, ReadingStartsFromABlankDocument) {
    MemoryStore store;
    store.Save("DefaultInfo", "3", "Someone");
    store.Save("DefaultInfo", "12", "75");
    const TabFile file = ReadTabFileText(
                             "Quillon 4.1\r\n<\xB8"
                             "1>",
                             MakeNewTabFile(store))
                             .Document;
    EXPECT_EQ(file.Author, "");
    EXPECT_EQ(file.Tempo, 75);
    EXPECT_FALSE(file.AlwaysCharts);
    EXPECT_EQ(file.Tracks.Count(), 2);
    for (const Track& track : file.Tracks) {
        EXPECT_FALSE(track.ShowTab || track.ShowTreble);
        EXPECT_EQ(track.Bars[0].Strums()[0].Length, 2);
    }
}

TEST(MusicFile, TextsMayBeLongAndHoldLineEnds) {
    TabFile file = Fresh();
    file.Notes = std::string(100'000, 'x') + "\r\n|\\/:end";
    EXPECT_EQ(ReadWhole(WriteTabFileText(file)).Notes, file.Notes);
}

TEST(MusicFile, HeaderAndTrackTagsStandInTheirOrder) {
    TabFile file = Fresh();
    file.Notes = "notes";
    file.Album = "album";
    file.Artist = "artist";
    file.Author = "author";
    file.Copyright = "rights";
    file.Instructions = "how";
    file.Notice = "notice";
    file.RT = "rt";
    file.RA = "ra";
    file.Password = " lock ";
    file.SubTitle = "sub";
    file.TabbedBy = "tabber";
    file.Title = "   ";  // blanks alone are nothing
    file.AlwaysCharts = file.ShowHeader = file.HasPassword = file.Shuffle = true;
    Track& track = file.Tracks[0];
    track.OctaveDown = track.OctaveUp = track.ShowBass = track.Reverb = track.ShowStaff = true;
    track.LyricsOfOtherTrack = 1;
    track.LyricsTrack = 2;
    for (int line = 0; line < LyricLines; ++line) {
        track.Bars.Edit(0).EditStrums()[0].Syllables.Edit()[line] = std::string(1, static_cast<char>('a' + line));
    }
    const std::string text = FromWindows1252(WriteTabFileText(file));
    EXPECT_EQ(text.substr(0, text.find("<#FC")),
              "Quillon 4.1\r\n<Ýnotes><Þalbum><Øartist><×author><¹rights><§how><«notice><RT://rt><RA://ra><¬ lock >"
              "<±><Ð><°><÷><ª60><´sub><ðtabber><³100>");
    const std::size_t from = text.find("<ÑÒÒÑ");
    EXPECT_EQ(text.substr(from, text.find("<f.t.") - from),
              "<ÑÒÒÑ0\\2><ÑÒÑ0><ÑÑ0><ÒÒ10|a><ÒÒ20|b><ÒÒ30|c><ÒÒ40|d><ÒÒ50|e><ÔÔD0><ÔÔU0><²BA²0><²TA²0><²TR²0>");
}

TEST(MusicFile, EqualBarsNameTheNearestEarlierOne) {
    TabFile file = Fresh();
    file.BarInfos.Resize(6);
    file.Tracks[0].Bars.Resize(6);
    for (int b = 0; b < 6; ++b) file.Tracks[0].Bars.Edit(b).EditStrums()[0].Length = b == 2 ? 4 : 3;
    file.Tracks[0].Bars.Edit(5).EditStrums()[0].Hash = 1;
    const std::string text = WriteTabFileText(file);
    EXPECT_NE(text.find("<l:3><TB=0\\1|0><ki:0\\2/0>"), std::string::npos);
    EXPECT_NE(text.find("<l:4><TB=0\\3|1><TB=0\\4|3><TB=0\\5|4>"), std::string::npos);
    const TabFile back = ReadWhole(text);
    EXPECT_EQ(back.Tracks[0].Bars[5].Strums()[0].Hash, 0) << "hash marks of a copied bar are lost: this is meant";
    EXPECT_EQ(back.Tracks[0].Bars[2].Strums()[0].Length, 4);
}

TEST(MusicFile, DecimalsStandWithTheMachinesSignAndAreReadWithEither) {
    TabFile file = Fresh();
    file.Tempo = 92.5F;
    Note& note = file.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Edit(0);
    note.HasBend = true;
    note.BendPoints.Edit()[0] = -0.25;
    DecimalSign = ',';
    const std::string text = WriteTabFileText(file);
    const bool backWithComma = ReadWhole(text) == file;
    DecimalSign = '.';
    EXPECT_NE(text.find("<\xAA"
                        "92,5>"),
              std::string::npos);
    EXPECT_NE(text.find("<bnd:0|0\\0/0:-0,25\\0/"), std::string::npos);
    EXPECT_TRUE(backWithComma);
    EXPECT_TRUE(ReadWhole(text) == file);
}

TEST(MusicFile, LyricsOfOldAndNewFiles) {
    const std::string bars =
        "<\x90"
        "1><\xB5"
        "0|0/1>";
    const auto syllables = [&](const std::string& version, const std::string& line) {
        const TabFile file = ReadWhole("Quillon " + version + "\r\n" + bars +
                                       "<\xD2\xD2"
                                       "20|" +
                                       line + ">");
        EXPECT_EQ(file.Tracks[0].Lyrics[1], "");
        std::vector<std::string> words;
        for (const Bar& bar : file.Tracks[0].Bars) {
            for (const Strum& strum : bar.Strums()) words.push_back(strum.Syllables.Read()[1]);
        }
        return words;
    };
    using Words = std::vector<std::string>;
    EXPECT_EQ(syllables("4.1", "one two\xA3\xA3$`\xA3\xA3$three"), (Words{"one two", "", "three"}));
    EXPECT_EQ(syllables("4.1", "one"), (Words{"one", "", ""}));
    EXPECT_EQ(syllables("4.1", "a\xA3\xA3\xA3$b\xA3\xA3$c\xA3\xA3$too many"), (Words{"a£", "b", "c"}));
    EXPECT_EQ(syllables("4.0", "one two  three"), (Words{"one", "two", ""}));
    EXPECT_EQ(syllables("4.0", "one two"), (Words{"one", "two", ""}));
}

TEST(MusicFile, LossesAreFoundBeforeASave) {
    TabFile file = Fresh();
    EXPECT_TRUE(SaveLosses(file).empty());
    file.Title = "A < B";
    file.NoteFontName = "a|b";
    file.BarInfos.Resize(3);
    Track& track = file.Tracks[0];
    track.Bars.Resize(3);
    for (int b = 0; b < 3; ++b) track.Bars.Edit(b).EditStrums()[0].Length = 2;
    track.Bars.Edit(1).EditStrums()[0].Hash = 1;
    track.Bars.Edit(2).EditStrums()[0].Notes.Edit(3).Harmonic = 1;
    track.Bars.Edit(2).EditStrums()[0].Text = "ok £ $ | / ß";
    track.Bars.Edit(0).EditStrums()[0].Syllables.Edit()[4] = "x££$y";
    track.Name = "Gitarre Ω";
    const std::vector<Loss> expected = {{LossKind::ReservedText, -1, -1, -1, "A < B"},
                                        {LossKind::ReservedText, -1, -1, -1, "a|b"},
                                        {LossKind::UnknownCharacter, 0, -1, -1, "Gitarre Ω"},
                                        {LossKind::ReservedText, 0, 0, 0, "x££$y"},
                                        {LossKind::HashMarks, 0, 1, -1, ""},
                                        {LossKind::Harmonic, 0, 2, 0, ""}};
    EXPECT_EQ(SaveLosses(file), expected);
}

TEST(MusicFile, NumbersStandInTheirShortForm) {
    const std::pair<double, const char*> doubles[] = {{0.1, "0.1"},
                                                      {-0.5, "-0.5"},
                                                      {1.0 / 3, "0.333333333333333"},
                                                      {0.1 + 0.2, "0.3"},
                                                      {1e14, "100000000000000"},
                                                      {1e15, "1E+15"},
                                                      {1e20, "1E+20"},
                                                      {1e-12, "0.000000000001"},
                                                      {1e-16, "1E-16"},
                                                      {1.0 / 24, "4.16666666666667E-02"},
                                                      {-0.0, "0"},
                                                      {-3, "-3"}};
    for (const auto& [value, text] : doubles) EXPECT_EQ(FormatDouble(value), text);
    const std::pair<float, const char*> singles[] = {
        {92.5F, "92.5"}, {120.55F, "120.55"},           {100.0F / 3, "33.33333"},   {9999999.0F, "9999999"},
        {1e7F, "1E+07"}, {16777216.0F, "1.677722E+07"}, {1.0F / 24, "4.166667E-02"}};
    for (const auto& [value, text] : singles) EXPECT_EQ(FormatSingle(value), text);
}
