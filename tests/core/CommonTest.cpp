#include "core/mod_Common.h"

#include <limits>

#include "core/mod_TabFileManipulation.h"
#include "platform/headless/MemoryStore.h"

using namespace Quillon;
using namespace Quillon::Core;

namespace {

int NumberOf(auto&& act) {
    try {
        act();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

}  // namespace

TEST(Common, HalvesRoundToEvenAndStoresTrap) {
    const std::pair<double, int> rounded[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},  {-0.5, 0},
                                              {-1.5, -2}, {-2.5, -2}, {29.5, 30}};
    for (const auto& [value, whole] : rounded) EXPECT_EQ(CInt(value), whole) << value;
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(NumberOf([] { CInt(32767.5); }), 6);
    EXPECT_EQ(CInt(-32768.5), -32768);  // the even neighbour is in range
    EXPECT_EQ(NumberOf([] { CInt(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(CLng(2147483647.4), 2147483647);
    EXPECT_EQ(NumberOf([] { CLng(2147483647.5); }), 6);
    EXPECT_EQ(NumberOf([] { ToInt16(32768); }), 6);
    EXPECT_EQ(ToInt16(-32768), -32768);
}

TEST(Common, NumbersAsText) {
    const std::pair<double, const char*> doubles[] = {{0.1, "0.1"},
                                                      {-0.5, "-0.5"},
                                                      {1.0 / 3, "0.333333333333333"},
                                                      {0.1 + 0.2, "0.3"},
                                                      {1E14, "100000000000000"},
                                                      {1E15, "1E+15"},
                                                      {1E20, "1E+20"},
                                                      {1E-12, "0.000000000001"},
                                                      {1E-16, "1E-16"},
                                                      {1.0 / 24, "4.16666666666667E-02"},
                                                      {-0.0, "0"},
                                                      {12, "12"},
                                                      {999999999999999.0, "999999999999999"},
                                                      {1E-300, "1E-300"}};
    for (const auto& [value, text] : doubles) EXPECT_EQ(FormatDouble(value), text);
    const std::pair<float, const char*> singles[] = {
        {92.5F, "92.5"}, {120.55F, "120.55"},           {100.0F / 3, "33.33333"},   {9999999.0F, "9999999"},
        {1E7F, "1E+07"}, {16777216.0F, "1.677722E+07"}, {1.0F / 24, "4.166667E-02"}};
    for (const auto& [value, text] : singles) EXPECT_EQ(FormatSingle(value), text);
}

TEST(Common, TextAsNumbers) {
    EXPECT_EQ(ParseDouble(" 4.16666666666667E-02 "), 0.0416666666666667);
    EXPECT_EQ(ParseDouble("0,5"), 0.5);
    EXPECT_EQ(ParseDouble("+3"), 3);
    EXPECT_EQ(ParseDouble("-.5"), -0.5);
    EXPECT_EQ(ParseDouble("1E-400"), 0);
    EXPECT_EQ(ParseInt16("2.5"), 2);
    EXPECT_EQ(ParseInt32("-2147483648"), std::numeric_limits<std::int32_t>::min());
    for (const char* text : {"", " ", "abc", "1x", "inf", "nan", "--1", "+-1", "1 2", "0x10", "."}) {
        EXPECT_EQ(NumberOf([&] { ParseDouble(text); }), 13) << text;
    }
    EXPECT_EQ(NumberOf([] { ParseDouble("1E400"); }), 6);
    EXPECT_EQ(NumberOf([] { ParseInt16("32768"); }), 6);
    EXPECT_EQ(NumberOf([] { ParseInt32("99999999999"); }), 6);
    EXPECT_EQ(NumberOf([] { ParseSingle("1E39"); }), 6);
    EXPECT_TRUE(ParseBool("true"));
    EXPECT_FALSE(ParseBool(" False "));
    EXPECT_TRUE(ParseBool("-1"));
    EXPECT_EQ(NumberOf([] { ParseBool("yes"); }), 13);
}

TEST(Common, EveryByteOfTheFilesComesBack) {
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    const std::string text = FromWindows1252(bytes);
    EXPECT_TRUE(IsUtf8(text));
    EXPECT_EQ(ToWindows1252(text), bytes);
    EXPECT_EQ(FromWindows1252("\x80\x93\xBD\x81"), "€“½\u0081");
}

TEST(Common, WhatTheCodeLacksBecomesOneQuestionMark) {
    const std::pair<const char*, const char*> texts[] = {
        {"Ā", "?"},         {"a𝄞b", "a?b"},     {"日本", "??"},         {"\xFFz", "?z"},
        {"\xE2\x82", "??"}, {"\xC0\x80", "??"}, {"\xED\xA0\x80", "???"}};
    for (const auto& [utf8, bytes] : texts) EXPECT_EQ(ToWindows1252(utf8), bytes);
    int lost = 0;
    ToWindows1252("Ā ok 日", &lost);
    EXPECT_EQ(lost, 2);
}

TEST(Document, LengthsIn64ths) {
    EXPECT_DOUBLE_EQ(StrumLength(3, 0, true, true), 8);  // a dotted eighth triplet
    EXPECT_DOUBLE_EQ(StrumLength(99, 0, false, false), 0);
    EXPECT_DOUBLE_EQ(StrumLength(2, 99, true, false), 16);
    TabFile file;
    file.BarInfos.Edit(0) = {.TimeSigTop = 6, .TimeSigBottom = 8};
    EXPECT_DOUBLE_EQ(BarLengthIn64ths(file, 0), 48);
    file.BarInfos.Edit(0) = {.TimeSigTop = 7, .TimeSigBottom = 16};
    EXPECT_DOUBLE_EQ(BarLengthIn64ths(file, 0), 28);
    EXPECT_DOUBLE_EQ(BarLengthIn64ths(file, 1), 0);
    EXPECT_EQ(NumberOf([&] { BarLengthIn64ths(file, -1); }), 9);
}

TEST(Document, ClearingKeepsRhythmHarmonyAndWords) {
    Strum strum;
    strum.Length = 3;
    strum.Dotted = strum.HasChord = strum.HasTrem = strum.HasTuplet = true;
    strum.Text = "Am";
    strum.Stroke = strum.Technique = 1;
    strum.Syllables.Edit()[0] = "la";
    Note& note = strum.Notes.Edit(2);
    note.Fret = "5";
    note.HasBend = note.Ghost = note.Tied = true;
    note.Dynamic = note.LeftFinger = 3;
    note.TrillFret = 7;
    ClearStrum(strum);
    EXPECT_FALSE(HasNotes(strum));
    EXPECT_FALSE(strum.Dotted || strum.HasTrem || strum.HasTuplet || strum.Stroke || strum.Technique);
    EXPECT_EQ(strum.Length, 3);
    EXPECT_EQ(strum.Text, "Am");
    EXPECT_TRUE(strum.HasChord);
    EXPECT_EQ(strum.Syllables.Read()[0], "la");
    EXPECT_FALSE(strum.Notes[2].HasBend || strum.Notes[2].Ghost || strum.Notes[2].Tied || strum.Notes[2].Dynamic);
    EXPECT_EQ(strum.Notes[2].TrillFret, 7);  // only what the list names is cleared
}

TEST(Document, ANewFileTakesItsDefaultsFromTheStore) {
    MemoryStore store;
    EXPECT_TRUE(MakeNewTabFile(store).Tempo == 60 && MakeNewTabFile(store).FontName == "Times New Roman");
    store.Save("DefaultInfo", "1", "The Band");
    store.Save("DefaultInfo", "9", "1");
    store.Save("DefaultInfo", "11", "80");
    store.Save("DefaultInfo", "12", "96,5");
    store.Save("DefaultInfo", "GNOTESIZE", "nine");
    const TabFile file = MakeNewTabFile(store);
    EXPECT_EQ(file.Artist, "The Band");
    EXPECT_TRUE(file.Shuffle);
    EXPECT_EQ(file.RowSpacing, 80);
    EXPECT_EQ(file.Tempo, 96.5F);
    EXPECT_EQ(file.NoteFontSize, 8);  // what can't be read counts as missing
    EXPECT_EQ(file.Tracks.Count(), 1);
    EXPECT_EQ(file.Tracks[0].Bars[0].Strums().Count(), 1);
    EXPECT_EQ(file.Tracks[0].Bars[0].Strums()[0].Length, 2);
}
