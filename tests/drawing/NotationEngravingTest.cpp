// What keeps off what on a staff: overfull bars, bar numbers, keys and grace notes, ties.
#include <algorithm>
#include <functional>

#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"
#include "platform/headless/PictureLog.h"
#include "tests/drawing/StaffScore.h"
#include "tests/support/Golden.h"

using namespace Quillon;
using namespace Quillon::Drawing;
using Testing::Score;
using Testing::Written;

namespace {

/// A log that also knows how far to the right the ink of its shapes, lines and polygons reaches, and how wide the
/// last polygon was.
struct Ink : PictureLog {
    double Right = 0, Width = 0;
    int Polygons = 0, Discs = 0;

    using PictureLog::Polygon;
    void Line(double x1, double y1, double x2, double y2, double width) override {
        Right = std::max({Right, x1, x2});
        PictureLog::Line(x1, y1, x2, y2, width);
    }
    void Polygon(std::span<const Point> points) override {
        const auto [left, right] = std::ranges::minmax(points, {}, &Point::X);
        Right = std::max(Right, right.X);
        Width = right.X - left.X;
        ++Polygons;
    }
    void Stamp(const Shape& shape, double x, double y) override {
        Right = std::max(Right, x);
        PictureLog::Stamp(shape, x, y);
    }
    void Disc(double x, double y, double radius) override {
        ++Discs;
        PictureLog::Disc(x, y, radius);
    }
    int Count(std::string_view what) const {
        int found = 0;
        for (std::size_t at = 0; (at = Text().find(what, at)) != std::string::npos; ++at) ++found;
        return found;
    }
};

/// Adds a bar like the first one to its right, or on a row of its own.
Core::Bar& AddBar(Score& score, bool newRow = false) {
    Core::Track& track = score.File.Tracks[0];
    track.Bars.Resize(2);
    score.File.BarInfos.Resize(2);
    Core::Bar& next = track.Bars.Edit(1);
    next = track.Bars[0];
    next.Place.BarX = static_cast<std::int16_t>(newRow ? 100 : 100 + next.Place.BarWidth);
    next.Place.BarY = newRow ? 150 : 0;
    for (auto& column : next.Place.StrumX) column = static_cast<std::int16_t>(column + next.Place.BarX - 100);
    return next;
}

BarContext SecondBar(const Score& score) {
    const Core::BarPlace& place = score.File.Tracks[0].Bars[1].Place;
    return {score.File, 0, 1, place.BarX, place.BarY, place.BarWidth};
}

}  // namespace

TEST(Engraving, ABarTooFullStaysOnThePaperAndTellsWhatItLeavesOut) {
    const struct {
        const char* Why;
        bool Tab, Beside, Printed;
        int PaperRight;  // from the row's left edge
        int Heads;
        const char* Mark;
    } rows[] = {
        {"on the screen all show", false, true, false, 500, 4, ""},
        {"on paper none stands over the next bar's music", false, true, true, 500, 2, "+2"},
        {"the margin is as good as any place", false, false, true, 500, 4, ""},
        {"up to the edge", false, false, true, 120, 3, "+1"},
        {"which the screen does not have", false, false, false, 120, 4, ""},
        {"the tab keeps its figures in the next bar", true, true, true, 500, 4, ""},
        {"and loses those past the edge", true, false, true, 120, 3, "+1"},
    };
    for (const auto& row : rows) {
        Score score({{3, {{0, "0"}}}, {3, {{0, "0"}}}, {3, {{0, "0"}}}, {3, {{0, "0"}}}});
        Core::Track& track = score.File.Tracks[0];
        track.ShowTab = row.Tab;
        track.ShowTreble = !row.Tab;
        track.Bars.Edit(0).Place.BarWidth = 89;  // ends behind its second column
        AddBar(score, !row.Beside);
        BarContext context = score.Context();
        context.Look.PaperRight = row.PaperRight;
        context.Look.Printed = row.Printed;
        Ink ink;
        DrawBarStrums(ink, context);
        EXPECT_EQ(ink.Count(row.Tab ? "\"0\"" : "shape head"), row.Heads) << row.Why;
        EXPECT_EQ(ink.Count("\"+"), *row.Mark ? 1 : 0) << row.Why;
        if (*row.Mark) {
            EXPECT_EQ(ink.Count("\"" + std::string(row.Mark) + "\""), 1) << row.Why;
        }
        if (!row.Tab) {
            EXPECT_LE(StaffBarsOf(context).front().Beams.back().X2, 189) << row.Why;
        }
        if (row.Printed && !row.Tab) {
            EXPECT_LE(ink.Right, 100 + row.PaperRight) << row.Why;
        }
    }
}

TEST(Engraving, ANumberKeepsOffAllThatStandsOverTheStaff) {
    const auto edit = [](Score& score, int bar) -> Core::Note& {
        return score.File.Tracks[0].Bars.Edit(bar).EditStrums()[bar == 0 ? 1 : 0].Notes.Edit(0);
    };
    const struct {
        const char* Why;
        std::function<void(Score&)> Add;
        bool NewRow;
        int X, Y;  // of the second bar's number, from its place
    } rows[] = {
        {"nothing in its way", [](Score&) {}, false, 0, 0},
        {"a tie from the bar before", [&](Score& score) { edit(score, 0).Tied = true; }, false, 0, -9},
        {"a tie from the row before", [&](Score& score) { edit(score, 0).Tied = true; }, true, 0, -8},
        {"a staccato dot",
         [&](Score& score) {
             edit(score, 1).Technique = Core::Staccato;
             Core::BarPlace& place = score.File.Tracks[0].Bars.Edit(1).Place;
             place.ShowTimeSig = true;
             place.StrumX[0] = static_cast<std::int16_t>(place.BarX + 64);
         },
         false, 0, -7},
        {"a head of a bar too full",
         [](Score& score) {
             score.File.Tracks[0].Bars.Edit(0).Place.StrumX[1] =
                 static_cast<std::int16_t>(score.Context().X + score.Context().Width);
         },
         false, 0, -3},
    };
    for (const auto& row : rows) {
        Score score({{2, {{0, "3"}}}, {2, {{0, "3"}}}});
        score.File.Tracks[0].ShowTab = false;
        AddBar(score, row.NewRow);
        row.Add(score);
        const BarContext context = SecondBar(score);
        const Label placed = PlacedBarNumber(context),
                    usual = BarNumberLabel(context.ItsBar(), 1, context.X, context.Y);
        EXPECT_EQ(placed.X - usual.X, row.X) << row.Why;
        EXPECT_EQ(placed.Y - usual.Y, row.Y) << row.Why;
    }
}

TEST(Engraving, TheFirstChordStandsBehindKeyAndTime) {
    for (const bool tab : {false, true}) {
        for (const int key : {1, 5, 8}) {
            Score score({{2, {{0, "5"}, {1, "5"}, {2, "5"}, {3, "5"}}}, {2, {{0, "5"}}}}, key);
            score.File.Tracks[0].ShowTab = tab;
            Core::Bar& bar = score.File.Tracks[0].Bars.Edit(0);
            bar.Place.ShowTimeSig = true;
            bar.Place.BarWidth = 300;
            bar.Place.StrumX[0] = 149;
            bar.Place.StrumX[1] = 219;
            const char* graces[] = {"3", "4", "6", "4"};
            for (int string = 0; string < 4; ++string) {
                Core::Note& note = bar.EditStrums()[0].Notes.Edit(string);
                note.HasGrace = true;
                note.GraceFret = graces[string];
            }
            const BarContext context = score.Context();
            const double time = 100 + 40 + SignatureOverhang(context);
            EXPECT_GE(StaffBarsOf(context).front().Column(0).Left, time) << key << tab;
            PictureLog log;
            DrawSignatures(log, context, StaffPlacesOf(context).front());
            const std::size_t last = log.Text().rfind("sharp ");
            if (key == 1 || last == std::string::npos) continue;
            const double sign = std::stod(log.Text().substr(last + 6));
            EXPECT_LE(sign + (log.Text().find("small") == std::string::npos ? 2.8 : 1.9), time - 9.5) << key << tab;
        }
    }
    // Alone on a staff a key has its full size.
    Score score({{2, {{1, "0"}}}, {2, {{1, "0"}}}}, 8);
    score.File.Tracks[0].ShowTab = false;
    Core::Bar& bar = score.File.Tracks[0].Bars.Edit(0);
    bar.Place.ShowTimeSig = true;
    bar.Place.StrumX[0] = 149;
    bar.Place.StrumX[1] = 230;
    Ink ink;
    DrawSignatures(ink, score.Context(), StaffPlacesOf(score.Context()).front());
    EXPECT_EQ(ink.Count("shape sharp"), 7);
}

TEST(Engraving, ATieJoinsOnePitchAndOtherNotesRingOn) {
    const struct {
        const char* Why;
        const char* Next;
        int String, Bows;
        double Width;
    } rows[] = {{"the same pitch", "5", 0, 1, 36},
                {"another pitch, before which it rings on", "7", 0, 1, 12},
                {"no note to hold", "5", 1, 0, 0}};
    for (const auto& row : rows) {
        Score score({{2, {{0, "5"}}}, {2, {{row.String, row.Next}}}});
        score.File.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Edit(0).Tied = true;
        const BarContext context = score.Context();
        Ink ink;
        DrawStaffLinks(ink, StaffBarsOf(context).front(), 0);
        EXPECT_EQ(ink.Polygons, row.Bows) << row.Why;
        EXPECT_NEAR(ink.Width, row.Width, 0.1) << row.Why;
    }
}

TEST(Engraving, HeadsOfOnePlaceShareADot) {
    for (const auto& [second, dots] : {std::pair{"6", 1}, std::pair{"8", 2}}) {
        Score score({{2, {{0, "1"}, {1, second}}, true}});
        const BarContext context = score.Context();
        Ink ink;
        DrawDots(ink, StaffBarsOf(context).front(), 0);
        EXPECT_EQ(ink.Discs, dots) << second;
    }
}

TEST(Engraving, AHeadAtTheEndOfABarKeepsOffItsLine) {
    const struct {
        const char* Why;
        bool Follows, Closes;
        double Away;
    } rows[] = {{"a line", true, false, 6}, {"two lines", false, false, 10}, {"the dots of a repeat", true, true, 14}};
    for (const auto& row : rows) {
        Score score({{2, {{0, "0"}}}, {2, {{0, "0"}}}});
        score.File.Tracks[0].Bars.Edit(0).Place.StrumX[1] = 189 - 5;
        if (row.Follows) AddBar(score);
        score.File.BarInfos.Edit(0).RepeatClose = row.Closes ? 1 : 0;
        const BarContext context = score.Context();
        EXPECT_EQ(189 - StaffBarsOf(context).front().Column(1).X, row.Away) << row.Why;
    }
}

TEST(Engraving, OfTwoStavesARestStandsWithItsNotes) {
    const Written high{2, {{1, "1"}}}, low{2, {{4, "1"}}}, both{2, {{1, "1"}, {4, "1"}}}, rest{2, {}};
    const struct {
        const char* Why;
        Score Of;
        const char* Treble;  // a letter a column: note, rest
        const char* Bass;
    } rows[] = {{"each after its notes", Score({high, rest, low, rest}), "nr  ", "  nr"},
                {"after notes of both", Score({both, rest, low, rest}), "nr  ", "nrnr"},
                {"before the first ones", Score({rest, low, rest, high}), "   n", "rnr "},
                {"a bar without notes", Score({rest, rest}), "rr", "  "}};
    for (const auto& row : rows) {
        Score score = row.Of;
        score.File.Tracks[0].ShowBass = true;
        const BarContext context = score.Context();
        const std::vector<StaffBar> staves = StaffBarsOf(context);
        for (const auto& [staff, expected] : {std::pair{0, row.Treble}, std::pair{1, row.Bass}}) {
            std::string told;
            for (const StaffColumn& column : staves[static_cast<std::size_t>(staff)].Columns) {
                told += column.Rest ? 'r' : column.Notes.empty() ? ' ' : 'n';
            }
            EXPECT_EQ(told, expected) << row.Why;
        }
    }
}

TEST(Engraving, WhereNoTabShowsMarksStandOverTheHeadsAndStrokesBehindTheTime) {
    for (const bool tab : {false, true}) {
        Score score({{2, {{0, "5"}}}, {2, {{0, "5"}}}}, 6);
        Core::Track& track = score.File.Tracks[0];
        track.ShowTab = tab;
        Core::Bar& bar = track.Bars.Edit(0);
        bar.Place.ShowTimeSig = true;
        bar.Place.BarWidth = 249;
        bar.Place.StrumX[0] = 149;
        bar.Place.StrumX[1] = 249;
        Core::Note& note = bar.EditStrums()[0].Notes.Edit(0);
        note.Accentuate = true;
        note.Technique = Core::TremoloPicking32nds;
        bar.EditStrums()[0].HasChord = true;
        bar.EditStrums()[0].ChordName = "Am";
        const BarContext context = score.Context();
        const std::vector<StaffBar> staves = StaffBarsOf(context);
        const StaffColumn& column = staves.front().Column(0);
        if (!tab) {
            EXPECT_GT(column.X, 149);
            EXPECT_GE(column.StemX - TremoloReach, 141 + SignatureOverhang(context)) << "the figures of the time";
        }
        Ink ink;
        DrawBarStrums(ink, context);
        for (const char* mark : {"\">\"", "\"Am\""}) {
            const std::size_t at = ink.Text().rfind("text ", ink.Text().find(mark));
            ASSERT_NE(at, std::string::npos);
            EXPECT_NEAR(std::stod(ink.Text().substr(at + 5)), tab ? 149 : column.X, 0.1) << mark;
        }
    }
}

TEST(Engraving, AStaffTellsTheWayOfABend) {
    const auto full = static_cast<double>(BendUnitsPerTone);
    const struct {
        const char* Why;
        double Start, Middle, End;
        int Arrows, Amounts;
    } rows[] = {{"bent", 0, full, full, 1, 1},
                {"and released", 0, full, 0, 2, 1},
                {"bent before it sounds", full, full, full, 1, 1},
                {"and then released", full, full, 0, 2, 1},
                {"not at all", 0, 0, 0, 0, 0}};
    std::vector<std::string> logs;
    for (const auto& row : rows) {
        Score score({{2, {{0, "5"}}}, {2, {{0, "5"}}}});
        Core::Track& track = score.File.Tracks[0];
        track.ShowTab = false;
        Core::Note& note = track.Bars.Edit(0).EditStrums()[0].Notes.Edit(0);
        note.HasBend = true;
        for (int i = 0; i < Core::BendPointCount; ++i) {
            const int half = Core::BendPointCount / 2;
            note.BendPoints.Edit()[i] = i == 0 ? row.Start : i <= half ? row.Middle : row.End;
        }
        const BarContext context = score.Context();
        Ink ink;
        DrawStaffSigns(ink, StaffBarsOf(context).front(), 0);
        EXPECT_EQ(ink.Polygons, row.Arrows) << row.Why;
        EXPECT_EQ(ink.Count("\"1\""), row.Amounts) << row.Why;
        for (const std::string& other : logs) EXPECT_NE(ink.Text(), other) << row.Why;
        logs.push_back(ink.Text());
    }
}

TEST(Engraving, AGraceNotesSignHoldsForWhatFollows) {
    const struct {
        const char* Why;
        std::int32_t Key;
        const char *Before, *Grace, *Main;
        Accidental OfGrace, OfMain;
    } rows[] = {{"g flat before g, of two flats", 10, "0", "2", "3", Accidental::Flat, Accidental::Natural},
                {"g sharp before g", 2, "0", "4", "3", Accidental::Sharp, Accidental::Natural},
                {"in the key, after an altered one", 1, "4", "3", "5", Accidental::Natural, Accidental::None},
                {"of another place", 1, "0", "1", "3", Accidental::None, Accidental::None}};
    for (const auto& row : rows) {
        Score score({{2, {{0, row.Before}}}, {2, {{0, row.Main}}}}, row.Key);
        Core::Note& note = score.File.Tracks[0].Bars.Edit(0).EditStrums()[1].Notes.Edit(0);
        note.HasGrace = true;
        note.GraceFret = row.Grace;
        const BarContext context = score.Context();
        const std::vector<StaffBar> staves = StaffBarsOf(context);
        EXPECT_EQ(GraceHeads(staves.front(), 1).front().Sign, row.OfGrace) << row.Why;
        EXPECT_EQ(staves.front().Column(1).Notes.front().Sign, row.OfMain) << row.Why;
    }
}

TEST(Engraving, HeadsOfAnAugmentedSecondStandBesideEachOther) {
    // Of two flats and more: A flat (sounding 56) and B (59).
    for (const auto& [length, aside] : {std::pair{2, 6}, std::pair{0, 9}}) {
        const Score score({{length, {{1, "0"}, {2, "1"}}}}, 11);
        const BarContext context = score.Context();
        const std::vector<StaffBar> staves = StaffBarsOf(context);
        const StaffColumn& column = staves.front().Column(0);
        EXPECT_TRUE(column.Displaced);
        EXPECT_NEAR(column.Notes[0].X - column.Notes[1].X, aside, 0.01);
        EXPECT_EQ(StrumHeads(score.File.Tracks[0], staves.front().Strum(0), true)[0].DX, 0) << "to a click";
    }
}
