// What is drawn for each technique, as logs to be read.
#include <map>

#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PageLayout.h"
#include "drawing/mod_PrintedPages.h"
#include "drawing/mod_TabDrawing.h"
#include "exchange/JsonDocument.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "platform/headless/PictureLog.h"
#include "tests/support/Golden.h"

using namespace Quillon;
using namespace Quillon::Drawing;

namespace {

constexpr int X = 100, Y = 200, Step = 40;

/// Bars of a tab-only track beside each other, their columns 40 pixels apart.
struct Score {
    Core::TabFile File;

    explicit Score(std::initializer_list<int> strums, bool rowBreak = false) {
        Core::Track& track = File.Tracks[0];
        track.ShowTreble = false;
        track.Bars.Resize(static_cast<int>(strums.size()));
        File.BarInfos.Resize(static_cast<int>(strums.size()));
        int index = 0;
        int x = X;
        for (const int count : strums) {
            Core::Bar& bar = track.Bars.Edit(index);
            bar.EditStrums().Resize(count);
            Core::BarPlace& place = bar.Place;
            place.BarX = static_cast<std::int16_t>(x);
            place.BarY = rowBreak && index > 0 ? Y + 150 : Y;
            place.BarWidth = static_cast<std::int16_t>(9 + Step * count);
            place.StrumX.Resize(count);
            for (int i = 0; i < count; ++i) place.StrumX[i] = static_cast<std::int16_t>(x + 9 + Step * i);
            x = rowBreak ? X : x + place.BarWidth;
            ++index;
        }
    }
    Core::Strum& At(int strum, int bar = 0) { return File.Tracks[0].Bars.Edit(bar).EditStrums()[strum]; }
    Core::Note& Note(int strum, int string, const char* fret, int bar = 0) {
        Core::Note& note = At(strum, bar).Notes.Edit(string);
        note.Fret = fret;
        return note;
    }
    std::string Drawn() const {
        PictureLog log;
        for (int bar = 0; bar <= File.Tracks[0].Bars.UpperBound(); ++bar) {
            const Core::BarPlace& place = File.Tracks[0].Bars[bar].Place;
            log.Remark("-- bar " + std::to_string(bar));
            const BarContext context{File, 0, bar, place.BarX, place.BarY, place.BarWidth};
            DrawBarStrums(log, context);
            DrawBarMarks(log, context);
        }
        return log.Text();
    }
};

void Bend(Core::Note& note, std::initializer_list<double> points) {
    note.HasBend = true;
    auto& curve = note.BendPoints.Edit();
    int i = 0;
    double last = 0;
    for (const double point : points) curve[i++] = last = point;
    while (i < Core::BendPointCount) curve[i++] = last;
}

void Check(const char* name, const Score& score) {
    Testing::CheckGolden(std::string("drawing/") + name + ".txt", score.Drawn());
}

}  // namespace

TEST(TabDrawing, FiguresHaveWhiteBoxesOfTheirWidth) {
    Score score({3});
    score.Note(0, 0, "0");
    score.Note(0, 5, "12");
    Core::Note& note = score.Note(1, 2, "7");
    note.Ghost = note.LetRing = true;
    note.Harmonic = Core::PitchHarmonic;
    score.Note(2, 6, "3");  // a string that the track does not use
    Check("figures", score);
}

TEST(TabDrawing, HammerOnsPullOffsAndTies) {
    Score score({4, 1});
    score.Note(0, 2, "5").Technique = Core::HammerOnPullOff;
    score.Note(1, 2, "7").Technique = Core::HammerOnPullOff;
    score.Note(2, 2, "5").Tied = true;
    score.Note(0, 0, "5").Technique = Core::HammerOnPullOff;  // meets a note two columns on
    score.Note(2, 0, "x");
    score.Note(3, 1, "3").Tied = true;     // over the bar line
    score.Note(0, 1, "3", 1).Tied = true;  // to nothing
    Check("links", score);
}

TEST(TabDrawing, LinksGoOnInTheNextRow) {
    Score score({1, 1}, true);
    score.Note(0, 2, "5").Technique = Core::HammerOnPullOff;
    score.Note(0, 2, "7", 1);
    score.Note(0, 4, "5").Technique = Core::LegatoSlide;
    score.Note(0, 4, "3", 1);
    Check("links-over-rows", score);
}

TEST(TabDrawing, Slides) {
    Score score({6, 1});
    score.Note(0, 1, "5").Technique = Core::SlideUp;
    score.Note(1, 1, "5").Technique = Core::SlideDown;
    score.Note(2, 1, "12").Technique = Core::SlideIntoUp;
    score.Note(3, 1, "5").Technique = Core::SlideIntoDown;
    score.Note(4, 1, "5").Technique = Core::LegatoSlide;
    score.Note(5, 1, "7").Technique = Core::LegatoSlide;
    score.Note(0, 1, "4", 1).Technique = Core::SlideIntoUp;
    Check("slides", score);
}

TEST(TabDrawing, BendsReleasesAndBendsHeldFromTheStart) {
    Score score({5});
    Bend(score.Note(0, 1, "7"), {0, 2, 4, 6, 8});
    Bend(score.Note(0, 2, "7"), {0, 2, 4, 6, 8});  // shares the amount
    Bend(score.Note(1, 1, "7"), {0, 4, 4, 4, 2, 0});
    Bend(score.Note(2, 1, "7"), {8});
    Bend(score.Note(3, 1, "7"), {8, 8, 4, 4, 4, 12});
    Bend(score.Note(4, 1, "7"), {0});
    Check("bends", score);
}

TEST(TabDrawing, MarksStackUpwardInTheirOrder) {
    Score score({2});
    Core::Note& note = score.Note(0, 0, "12");
    note.Accentuate = true;
    note.Technique = Core::Staccato;
    note.Harmonic = Core::ArtificialHarmonic12;
    note.LetRing = true;
    note.HasTrill = true;
    note.TrillFret = 14;
    score.At(0).Technique = Core::Vibrato;
    score.At(0).HasTrem = true;
    score.At(0).TremRange = "1½";
    score.At(0).TremPoints.Edit()[3] = -4;
    score.At(0).Text = "rit.";
    score.At(0).GotoText = "A";
    Check("stack", score);
}

TEST(TabDrawing, RunsPassBarLinesAndLeaveBarNumbersReadable) {
    Score score({3, 2, 1});
    for (const auto& [strum, bar] : {std::pair{1, 0}, {2, 0}, {0, 1}, {1, 1}, {0, 2}}) {
        score.Note(strum, 4, "2", bar);
        score.At(strum, bar).Technique = bar == 2 ? Core::WideVibrato : Core::PalmMute;
    }
    score.Note(0, 4, "2", 1).Accentuate = true;  // the run goes over it
    Check("runs", score);
}

TEST(TabDrawing, SingleMarks) {
    Score score({5});
    int strum = 0;
    for (const int technique : {Core::Tapping, Core::Slapping, Core::Popping, Core::FadeIn}) {
        score.Note(strum, 3, "2");
        score.At(strum++).Technique = technique;
    }
    score.Note(4, 3, "2");
    score.At(4).HasTrem = true;
    for (double& point : score.At(4).TremPoints.Edit()) point = 8;  // raised and held
    Check("single-marks", score);
}

TEST(TabDrawing, GraceNotesStrokesAndSlashes) {
    Score score({5});
    for (const int strum : {0, 1}) {
        Core::Note& note = score.Note(strum, 1, "7");
        note.HasGrace = true;
        note.GraceFret = "5";
        score.Note(strum, 4, "10");
        score.At(strum).Stroke = 1 + strum;
    }
    score.At(2).Stroke = 2;
    score.At(3).Hash = 1;
    score.At(4).Hash = 1;
    score.Note(4, 0, "1");
    Check("note-signs", score);
}

TEST(TabDrawing, ASmallFigureNeverCoversAFret) {
    struct Boxes : PictureLog {
        double Neighbour = 0;
        int Over = 0, All = 0;
        void Box(double x, double y, double width, double height, Color fill) override {
            ++All;
            if (x < Neighbour + 2 && Neighbour - 2 < x + width) ++Over;
            PictureLog::Box(x, y, width, height, fill);
        }
    };
    for (const int apart : {40, 15}) {
        for (const bool grace : {true, false}) {
            Score score({2});
            score.File.Tracks[0].Bars.Edit(0).Place.StrumX[1] = static_cast<std::int16_t>(109 + apart);
            score.Note(0, 1, "7");
            score.Note(1, 1, "8");
            Core::Note& note = score.Note(grace ? 1 : 0, 1, "5");
            note.HasGrace = grace;
            note.HasTrill = !grace;
            note.GraceFret = "4";
            note.TrillFret = 9;
            const Core::BarPlace& place = score.File.Tracks[0].Bars[0].Place;
            const BarContext context{score.File, 0, 0, place.BarX, place.BarY, place.BarWidth};
            Boxes log;
            log.Neighbour = place.StrumX[grace ? 0 : 1];
            DrawBarStrums(log, context);
            EXPECT_EQ(log.Over, 1) << "its own; " << apart << grace;
            EXPECT_EQ(log.All, apart == 40 ? 3 : 2) << "raised, it needs none; " << apart << grace;
        }
    }
}

TEST(TabDrawing, ANearFigureLeavesTheLastDigitBeforeItWhole) {
    struct Boxes : PictureLog {
        double Left = 0;
        void Box(double x, double y, double width, double height, Color fill) override {
            Left = x;
            PictureLog::Box(x, y, width, height, fill);
        }
    };
    for (const auto& [apart, before] : {std::pair{40, 7}, std::pair{13, 6}}) {
        Score score({2});
        score.File.Tracks[0].Bars.Edit(0).Place.StrumX[1] = static_cast<std::int16_t>(109 + apart);
        for (const int strum : {0, 1}) score.Note(strum, 1, "12");
        const Core::BarPlace& place = score.File.Tracks[0].Bars[0].Place;
        const BarContext context{score.File, 0, 0, place.BarX, place.BarY, place.BarWidth};
        Boxes log;
        DrawBarStrums(log, context);
        EXPECT_EQ(place.StrumX[1] - log.Left, before) << apart;
    }
}

TEST(TabDrawing, FingersTremoloPickingAndDynamicsStandBelow) {
    Score score({4, 2});
    Core::Note& low = score.Note(0, 5, "3");
    low.LeftFinger = 4;
    low.RightFinger = 1;
    low.Technique = Core::TremoloPicking16ths;
    Core::Note& high = score.Note(0, 0, "0");
    high.LeftFinger = 1;
    high.RightFinger = 4;
    score.Note(1, 0, "0").Dynamic = 7;
    score.Note(2, 0, "0").Dynamic = 7;
    score.Note(3, 0, "0").Dynamic = 3;
    score.Note(3, 1, "0").Dynamic = 7;  // the loudest counts
    score.Note(1, 0, "0", 1);           // back to the unmarked dynamic
    Check("below", score);
}

TEST(TabDrawing, ChordsWithChartsAndWithout) {
    Score score({4});
    const auto chord = [&](int strum, const char* name, std::initializer_list<std::string> frets, int base) {
        Core::Strum& column = score.At(strum);
        column.HasChord = true;
        column.ChordName = name;
        column.ChordFrets.Edit() = Core::Row<std::string, Core::StringCount>(frets);
        column.ChordValueA = static_cast<std::int16_t>(base);
    };
    chord(0, "C", {"0", "1", "0", "2", "3", "x"}, 0);
    chord(1, "Bm", {"7", "8", "9", "9", "7", "x"}, 7);  // the base fret is counted in
    score.At(1).ChordFlag = true;
    chord(2, "N.C.", {}, 0);
    chord(3, "G5", {"x", "x", "5", "5", "3", "99999999999"}, 0);
    Check("chords", score);
    score.File.AlwaysCharts = false;
    Check("chords-without-charts", score);
}

TEST(TabDrawing, TextsAvoidSignsMarksAndEachOther) {
    Score score({3, 1});
    score.File.BarInfos.Edit(0).Segno = 1;
    score.File.BarInfos.Edit(1).ToCoda = 1;
    score.File.BarInfos.Edit(1).DalSegno = 1;
    score.At(0).Text = "Moderato";
    score.At(1).Text = "a longer direction";
    score.At(2).Text = "this one reaches into the next bar";
    score.At(0, 1).Text = "here";
    Check("texts", score);
}

TEST(TabDrawing, FramesOfEveryKind) {
    PictureLog log;
    const struct {
        const char* Name;
        bool Treble, Bass, Tab, Figures, Opens;
        int Closes, Strings, Bar;
    } rows[] = {{"tab with figures", false, false, true, true, false, 0, 6, 0},
                {"treble and tab, repeated", true, false, true, false, true, 3, 7, 0},
                {"all staves, figures", true, true, true, true, true, 0, 4, 0},
                {"bass at the end", false, true, false, false, false, 0, 6, 1},
                {"one string", false, false, true, false, true, 2, 1, 1},
                {"nothing shown", false, false, false, true, false, 0, 6, 0}};
    for (const auto& row : rows) {
        Score score({2, 2});
        Core::Track& track = score.File.Tracks[0];
        track.ShowTreble = row.Treble;
        track.ShowBass = row.Bass;
        track.ShowTab = row.Tab;
        track.Strings = static_cast<std::int16_t>(row.Strings);
        score.File.BarInfos.Edit(row.Bar).RepeatOpen = row.Opens;
        score.File.BarInfos.Edit(row.Bar).RepeatClose = static_cast<std::int16_t>(row.Closes);
        const Core::BarPlace& place = track.Bars[row.Bar].Place;
        track.Bars[row.Bar].Place.ShowTimeSig = row.Figures;
        log.Remark(std::string("-- ") + row.Name);
        DrawBarFrame(log, {score.File, 0, row.Bar, place.BarX, place.BarY, place.BarWidth});
    }
    Testing::CheckGolden("drawing/frames.txt", log.Text());
}

TEST(TabDrawing, WordsShrinkInTheRowWhereTheyWouldMeet) {
    Score score({4, 2}, true);
    const auto syllable = [&](int strum, int line, const char* text, int bar = 0) {
        score.At(strum, bar).Length = 2;
        score.At(strum, bar).Syllables.Edit()[line] = text;
    };
    for (int strum = 0; strum < 4; ++strum) syllable(strum, 0, strum == 1 ? "won" : "Twin");
    syllable(0, 4, "last");
    syllable(0, 0, "like", 1);
    for (const int bar : {0, 1}) score.File.Tracks[0].Bars[bar].Place.Page = 0;
    score.File.RowSpacing = 300;
    const RowLook look = LookOfLyrics(score.File, 0, 0);
    EXPECT_EQ(look.LyricsSize, score.File.FontSize - 1.0);
    PictureLog log;
    for (const int bar : {0, 1}) {
        const Core::BarPlace& place = score.File.Tracks[0].Bars[bar].Place;
        DrawLyrics(log, {score.File, 0, bar, place.BarX, place.BarY, place.BarWidth, look}, 0);
    }
    Testing::CheckGolden("drawing/lyrics.txt", log.Text());
}

/// Where words were printed, line by line.
struct WordLog : PictureLog {
    using PictureLog::Print;
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override {
        Lines[baseline].push_back({x, x + TextWidth(text)});
        PictureLog::Print(x, baseline, text, anchor);
    }
    void SetFont(const Font& next) override {
        Smallest = std::min(Smallest, next.Size);
        PictureLog::SetFont(next);
    }
    std::map<double, std::vector<std::pair<double, double>>> Lines;
    double Smallest = 100;
};

TEST(TabDrawing, WordsNeverMeetNorLeaveThePaper) {
    constexpr int paperLeft = X - 46;
    for (const char* text :
         {"a", "won", "wonder-", "incomprehensibilities", "Donaudampfschifffahrt\xC3\xA4\xC3\xB6\xC3\xBC"}) {
        for (const int strums : {1, 3, 16}) {
            Score score({strums, strums, 1});
            for (int bar = 0; bar < 3; ++bar) {
                const int count = score.File.Tracks[0].Bars[bar].Strums().Count();
                for (int s = 0; s < count; ++s) {
                    score.At(s, bar).Length = 4;
                    score.At(s, bar).Syllables.Edit()[s % 2] = text;
                }
            }
            const Core::BarPlace& end = score.File.Tracks[0].Bars[2].Place;
            const int paperRight = end.BarX + end.BarWidth + 10;
            const RowLook look{.LyricsSize = 18, .PaperLeft = paperLeft - X, .PaperRight = paperRight - X};
            WordLog log;
            for (int bar = 0; bar < 3; ++bar) {
                const Core::BarPlace& place = score.File.Tracks[0].Bars[bar].Place;
                DrawLyrics(log, {score.File, 0, bar, place.BarX, place.BarY, place.BarWidth, look}, 0);
            }
            EXPECT_GE(log.Smallest, strums > 3 ? 4 : 7);
            EXPECT_FALSE(log.Lines.empty());
            for (const auto& [baseline, words] : log.Lines) {
                double free = paperLeft;
                for (const auto& [left, right] : words) {
                    EXPECT_GE(left, free) << text << " " << strums;
                    free = right + 2;
                }
                EXPECT_LE(words.back().second, paperRight + 0.01) << text << " " << strums;
            }
        }
    }
}

TEST(TabDrawing, LyricsAndChartsShareTheRoomBetweenTwoRows) {
    const struct {
        int RowSpacing, Lines;
        bool Charts;
        double Size;
        int Drop;
    } rows[] = {{300, 1, true, 18, 0}, {100, 1, false, 18, 0}, {140, 1, true, 18, 3}, {130, 1, true, 18, 13},
                {100, 1, true, 8, 28}, {100, 4, false, 9, 0},  {11, 2, true, 7, 28},  {100, 0, true, 0, 0}};
    for (const auto& row : rows) {
        Score score({2}, true);
        score.File.RowSpacing = static_cast<std::int16_t>(row.RowSpacing);
        score.File.FontSize = 19;
        score.File.AlwaysCharts = true;
        score.At(0, 0).HasChord = row.Charts;
        for (int line = 0; line < row.Lines; ++line) score.At(0, 0).Syllables.Edit()[line] = "a";
        score.File.Tracks[0].Bars[0].Place.Page = 0;
        PictureLog log;
        const RowLook look = LookOfLyrics(score.File, 0, 0);
        EXPECT_EQ(look.LyricsSize, row.Size) << row.RowSpacing << " " << row.Lines;
        EXPECT_EQ(look.ChartDrop, row.Drop) << row.RowSpacing << " " << row.Lines;
    }
    // A low note's stem pushes the lyrics of a staff alone down, and the next row's charts with them.
    Score low({2});
    low.File.AlwaysCharts = true;
    low.At(0, 0).HasChord = true;
    low.At(0, 0).Syllables.Edit()[0] = "a";
    Core::Track& track = low.File.Tracks[0];
    track.ShowTab = false;
    track.ShowTreble = true;
    low.File.RowSpacing = 145;
    const int usual = LookOfLyrics(low.File, 0, 0).ChartDrop;
    low.At(0, 0).Notes.Edit(5).Fret = "0";
    EXPECT_GT(LookOfLyrics(low.File, 0, 0).ChartDrop, usual);
}

TEST(TabDrawing, WhatABarHoldsTooMuchStandsPaleInTheNext) {
    Score score({4, 2});
    for (int strum = 0; strum < 4; ++strum) score.Note(strum, 2, "5").Accentuate = true;
    score.Note(0, 2, "7", 1);
    const auto count = [&](std::string_view what) {
        const std::string log = score.Drawn();
        int found = 0;
        for (std::size_t at = 0; (at = log.find(what, at)) != log.npos; ++at) ++found;
        return found;
    };
    EXPECT_EQ(count("color #c08c8c"), 0);
    Core::BarPlace& place = score.File.Tracks[0].Bars.Edit(0).Place;
    for (int strum = 0; strum < 4; ++strum) place.StrumX[strum] = static_cast<std::int16_t>(X + 9 + 60 * strum);
    EXPECT_EQ(count("color #c08c8c"), 1);
    EXPECT_EQ(count("\"5\""), 4) << "nothing is lost";
    EXPECT_EQ(count("\">\""), 3) << "its marks are";
}

TEST(TabDrawing, ChartsRiseOverHighNotes) {
    Score score({2});
    score.File.Tracks[0].ShowTreble = true;
    score.File.Tracks[0].ShowTab = false;
    score.File.AlwaysCharts = true;
    score.At(0).HasChord = true;
    score.At(0).ChordFrets.Edit()[0] = "0";
    const auto ring = [&](const char* fret) {
        score.Note(0, 0, fret);
        const std::string log = score.Drawn();
        const std::size_t at = log.find("circle 122 ");
        return at == log.npos ? 0 : std::stoi(log.substr(at + 11));
    };
    const int usual = ring("0");
    EXPECT_EQ(usual, Y - 71);
    EXPECT_EQ(ring("12"), usual);
    EXPECT_LT(ring("22"), usual);
}

TEST(TabDrawing, ChartsKeepClearOfThePagesHeader) {
    Score score({2});
    score.File.Tracks[0].ShowTreble = true;
    score.File.Tracks[0].ShowTab = false;
    score.File.AlwaysCharts = true;
    score.At(0).HasChord = true;
    score.At(0).ChordFrets.Edit()[0] = "0";
    score.Note(0, 0, "34");
    Core::BarPlace& place = score.File.Tracks[0].Bars.Edit(0).Place;
    const auto ring = [&](int page, double headerLeft) {
        place.Page = page;
        PictureLog log;
        const RowLook look{.TopMargin = 210, .HeaderLeft = headerLeft, .HeaderRight = 600};
        DrawBarStrums(log, {score.File, 0, 0, X, Y, place.BarWidth, look});
        const std::size_t at = log.Text().find("circle 122 ");
        return at == std::string::npos ? 0 : std::stoi(log.Text().substr(at + 11));
    };
    EXPECT_EQ(ring(0, 40), Y - 71) << "the tempo stands over it";
    const int lifted = ring(0, -20);
    EXPECT_LT(lifted, Y - 90);
    EXPECT_EQ(ring(1, 40), lifted) << "no header";
    score.File.ShowHeader = true;
    EXPECT_EQ(ring(1, 40), Y - 71);
}

TEST(TabDrawing, ARunKeepsItsHeightOverBarLines) {
    Score score({2, 2});
    for (const int bar : {0, 1}) {
        for (const int strum : {0, 1}) {
            score.Note(strum, 4, "2", bar).Accentuate = bar == 0 && strum == 0;
            score.At(strum, bar).Technique = Core::PalmMute;
        }
    }
    // The accent takes the lowest level of the first bar; the dashes of both stand on the next one.
    const std::string drawn = score.Drawn();
    EXPECT_NE(drawn.find("line 126 180 128 180"), std::string::npos) << drawn;
    EXPECT_NE(drawn.find("line 192 180 194 180"), std::string::npos) << drawn;
}

TEST(TabDrawing, TheStaffOfTheTrackWhoseLyricsAreBorrowedShowsItsLines) {
    Score score({2});
    Core::Track& track = score.File.Tracks[0];
    track.ShowStaff = true;
    track.LyricsOfOtherTrack = 1;
    const auto drawn = [&] {
        PictureLog log;
        DrawBarFrame(log, {score.File, 0, 0, X, Y, 89});
        return log.Text();
    };
    const std::string lastLine = "line 100 373 189 373";  // 28 below the row's height of 173, less the headroom
    EXPECT_NE(drawn().find(lastLine), std::string::npos) << drawn();
    track.LyricsTrack = 1;  // there is none
    EXPECT_EQ(drawn().find(lastLine), std::string::npos);
}

TEST(TabDrawing, RepeatDotsOfATabKeepClearOfFigures) {
    const auto dots = [](bool figures, std::initializer_list<int> strings) {
        Score score({2});
        score.File.Tracks[0].Bars[0].Place.ShowTimeSig = figures;
        score.File.BarInfos.Edit(0).RepeatOpen = true;
        for (const int string : strings) score.Note(0, string, "7");
        PictureLog log;
        DrawBarFrame(log, {score.File, 0, 0, X, Y, 300});
        std::string discs;
        for (auto at = log.Text().find("disc"); at != std::string::npos; at = log.Text().find("disc", at + 1)) {
            discs += log.Text().substr(at + 5, log.Text().find(' ', log.Text().find(' ', at + 5) + 1) - at - 5) + "; ";
        }
        return discs;
    };
    EXPECT_EQ(dots(false, {}), "107 215; 107 235; ");
    EXPECT_EQ(dots(false, {2, 3}), "107 205; 107 245; ");
    EXPECT_EQ(dots(false, {1}), "107 225; 107 235; ");
    EXPECT_EQ(dots(false, {0, 1, 2, 3, 4, 5}), "107 215; 107 235; ");
    // Behind the figures of the time signature, where the letters of the clef are far.
    EXPECT_EQ(dots(true, {2}), "167 215; 167 235; ");
}

TEST(TabDrawing, ShowcaseOfEverySign) {
    MemoryStore settings;
    Services.Settings = &settings;
    Core::Open = {};
    Core::Open.TabFile =
        Exchange::ReadJson(Testing::Slurp(Testing::GoldenDir() / "drawing" / "showcase.json"), settings);
    Page = {};
    View = {};
    // The second track shows the same bars under a treble staff.
    for (const int track : {0, 1}) {
        PictureLog log;
        DrawPage(log, track, 0);
        Testing::CheckGolden("drawing/showcase-" + std::to_string(track) + ".txt", log.Text());
    }
    Services.Settings = nullptr;
}

TEST(TabDrawing, ThousandsOfStrumsOnOneSpotDoNotHang) {
    Score score({4000});
    for (int strum = 0; strum < 4000; ++strum) {
        Core::Note& note = score.Note(strum, 0, "1");
        note.Accentuate = note.LetRing = note.Tied = true;
        score.At(strum).Text = "x";
        score.File.Tracks[0].Bars[0].Place.StrumX[strum] = X;
    }
    EXPECT_FALSE(score.Drawn().empty());
}
