// What the staves show, as logs to be read, and the rules behind them in tables.
#include "core/mod_TabFileManipulation.h"
#include "drawing/NotationParts.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PageLayout.h"
#include "drawing/mod_PrintedPages.h"
#include "exchange/JsonDocument.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "platform/headless/PictureLog.h"
#include "tests/drawing/StaffScore.h"
#include "tests/support/Golden.h"

using namespace Quillon;
using namespace Quillon::Drawing;
using Core::Open;
using Testing::Score;
using Testing::Written;

namespace {

/// The signs of all heads in their order: "#", "b", "n", "." for none, strums apart by a space.
std::string Signs(const Score& score) {
    const BarContext context = score.Context();
    const std::vector<StaffBar> staves = StaffBarsOf(context);
    std::string text;
    for (const StaffColumn& column : staves.front().Columns) {
        if (!text.empty()) text += ' ';
        for (const StaffNote& note : column.Notes) text += ".#bn"[static_cast<int>(note.Sign)];
    }
    return text;
}

/// Beams of a bar: runs as "0-3" and the strokes under them, "B" from stem to stem, "s" a stub.
std::string Beams(const Score& score) {
    const BarContext context = score.Context();
    const std::vector<StaffBar> staves = StaffBarsOf(context);
    std::string text;
    for (const BeamRun& run : staves.front().Runs) {
        text += std::to_string(run.Strums.front()) + "-" + std::to_string(run.Strums.back()) + " ";
    }
    for (const BeamStroke& beam : staves.front().Beams) text += beam.X2 - beam.X1 > 20 ? 'B' : 's';
    return text;
}

class NotationPages : public testing::Test {
protected:
    void SetUp() override {
        Services.Settings = &settings;
        Open = {};
        Open.TabFile = Exchange::ReadJson(Testing::Slurp(Testing::GoldenDir() / "drawing" / "notation.json"), settings);
        Page = {};
        View = {};
    }
    void TearDown() override { Services.Settings = nullptr; }

    MemoryStore settings;
};

}  // namespace

TEST_F(NotationPages, EveryCombinationOfStaves) {
    const struct {
        const char* Name;
        int Track;
        bool Treble, Bass, Tab;
        int Strings;
        bool OctaveUp;
    } rows[] = {{"treble", 0, true, false, false, 6, false},         {"bass-4", 0, false, true, false, 4, false},
                {"bass-tab-7", 0, false, true, true, 7, false},      {"treble-bass", 0, true, true, false, 6, false},
                {"treble-bass-tab-5", 0, true, true, true, 5, true}, {"drums", 1, true, false, false, 6, false},
                {"drums-tab", 1, true, false, true, 6, false}};
    for (const auto& row : rows) {
        Core::Track& track = Open.TabFile.Tracks[row.Track];
        track.ShowTreble = row.Treble;
        track.ShowBass = row.Bass;
        track.ShowTab = row.Tab;
        track.Strings = static_cast<std::int16_t>(row.Strings);
        track.OctaveUp = row.OctaveUp;
        PictureLog log;
        DrawPage(log, row.Track, 0);
        Testing::CheckGolden(std::string("drawing/staves-") + row.Name + ".txt", log.Text());
    }
}

/// How much of each kind a page holds, from where to where its bars reach, and a sum of its log: a line that tells
/// which combination changed, where the logs above tell what.
struct Digest : PictureLog {
    double Top = 1e9, Bottom = 0, Right = 0;
    int Lines = 0, Shapes = 0, Texts = 0;

    void Line(double x1, double y1, double x2, double y2, double width) override {
        Reach(std::max(x1, x2), std::min(y1, y2), std::max(y1, y2));
        ++Lines;
        PictureLog::Line(x1, y1, x2, y2, width);
    }
    void Stamp(const Shape& shape, double x, double y) override {
        Reach(x, y, y);
        ++Shapes;
        PictureLog::Stamp(shape, x, y);
    }
    using PictureLog::Print;
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override {
        ++Texts;
        PictureLog::Print(x, baseline, text, anchor);
    }
    void Reach(double x, double top, double bottom) {
        Right = std::max(Right, x);
        if (top > 200) Top = std::min(Top, top);  // below the header
        Bottom = std::max(Bottom, bottom);
    }
    std::string Told() const {
        std::uint32_t sum = 2166136261u;
        for (const char c : Text()) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619u;
        char line[120];
        std::snprintf(line, sizeof line, "%4d lines %4d shapes %3d texts, %g to %g down, %g across, %08x", Lines,
                      Shapes, Texts, Top, Bottom, Right, static_cast<unsigned>(sum));
        return line;
    }
};

TEST_F(NotationPages, AllCombinationsOfStavesStringsAndLyrics) {
    Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()[0].Syllables.Edit()[0] = "one";
    Open.TabFile.Tracks[1].Bars.Edit(0).EditStrums()[0].Syllables.Edit()[1] = "two";
    const Core::TabFile original = Open.TabFile;
    static constexpr const char* staves[] = {"",    "treble",     "bass",     "treble bass",
                                             "tab", "treble tab", "bass tab", "treble bass tab"};
    static constexpr const char* lyrics[] = {"own lyrics", "other's lyrics", "other's staff"};
    std::string table;
    for (const int drums : {0, 1}) {
        for (int shown = 1; shown < 8; ++shown) {
            for (int strings = drums == 1 ? 6 : 4; strings <= (drums == 1 ? 6 : 7); ++strings) {
                for (int words = 0; words < 3; ++words) {
                    Open.TabFile = original;
                    Core::Track& track = Open.TabFile.Tracks[drums];
                    track.ShowTreble = (shown & 1) != 0;
                    track.ShowBass = (shown & 2) != 0;
                    track.ShowTab = (shown & 4) != 0;
                    track.Strings = static_cast<std::int16_t>(strings);
                    track.LyricsOfOtherTrack = words > 0 ? 1 : 0;
                    track.LyricsTrack = static_cast<std::int16_t>(1 - drums);
                    track.ShowStaff = words == 2;
                    Digest digest;
                    DrawPage(digest, drums, 0);
                    table += std::string(drums == 1 ? "drums, " : "") + staves[shown] + ", " + std::to_string(strings) +
                             " strings, " + lyrics[words] + ": " + digest.Told() + "\n";
                }
            }
        }
    }
    Testing::CheckGolden("drawing/combinations.txt", table);
}

TEST_F(NotationPages, ClefsStandOnEveryRowWhereOneWantsThem) {
    const auto clefs = [] {
        PictureLog log;
        DrawPage(log, 0, 0);
        int count = 0;
        for (std::size_t at = 0; (at = log.Text().find("shape treble-clef", at)) != std::string::npos; ++at) ++count;
        return count;
    };
    for (const int track : {0, 1}) Open.TabFile.Tracks[track].Bars.Resize(60);
    Open.TabFile.BarInfos.Resize(60);
    const int changes = clefs();
    Page.ClefOnEveryRow = true;
    const Core::Track& track = Open.TabFile.Tracks[0];
    int rows = 0;
    for (const Core::Bar& bar : track.Bars) {
        rows += bar.Place.Page == 0 && bar.Place.BarX == Page.PageLeftMargin && !bar.Place.ShowTimeSig;
    }
    EXPECT_GT(rows, 0);
    EXPECT_EQ(clefs(), changes + rows);
    Page.PageLeftMargin = 10;  // no room beside the paper's edge
    EXPECT_EQ(clefs(), changes);
}

TEST_F(NotationPages, TheStaffOfTheTrackWhoseLyricsAreShownHasItsNotes) {
    Core::Track& track = Open.TabFile.Tracks[1];
    track.ShowStaff = true;
    track.LyricsOfOtherTrack = 1;
    track.ShowTreble = false;
    PictureLog log;
    DrawPage(log, 1, 0);
    Testing::CheckGolden("drawing/staves-of-other.txt", log.Text());
}

TEST_F(NotationPages, TheCursorStandsWhereAClickPutIt) {
    Core::Track& track = Open.TabFile.Tracks[0];
    View.FollowCursor = false;
    Open.InputMode = Core::NotationInput;
    const struct {
        bool Treble, Bass, Up;
        int Y, Pitch, Line;  // of the click below the row, the pitch at the cursor, and the middle of its outline
    } rows[] = {{true, false, false, 27, 52, 28},
                {true, false, true, 27, 40, 28},
                {true, true, false, 5, 62, 8},
                {true, true, false, 122, 45, 123},
                {false, true, false, 1, 43, 3}};
    for (const auto& row : rows) {
        track.ShowTreble = row.Treble;
        track.ShowBass = row.Bass;
        track.OctaveUp = row.Up;
        Page.LayoutDirty = 1;
        PictureLog first;
        DrawDocument(first);
        const Core::BarPlace& place = track.Bars[0].Place;
        const Hit hit = HitTest(Open.TabFile, 0, place.StrumX[0] + 1, place.BarY + row.Y);
        EXPECT_EQ(hit.On, Hit::Place::OnPitch) << row.Y;
        EXPECT_EQ(hit.Pitch, row.Pitch) << row.Y;
        Open.CurPitch = hit.Pitch;
        PictureLog log;
        DrawDocument(log);
        const std::string outline =
            "box " + std::to_string(place.StrumX[0] - 8) + " " + std::to_string(place.BarY + row.Line - 5) + " 17 1 ";
        EXPECT_NE(log.Text().find(outline), std::string::npos) << outline;
    }
}

TEST(Notation, AccidentalsFollowTheKeyAndTheBar) {
    const struct {
        const char* Why;
        std::int32_t Key;
        Score Of;
        const char* Signs;
    } rows[] = {
        {"a sharp, again, taken back", 1, Score({{2, {{0, "2"}}}, {2, {{0, "2"}}}, {2, {{0, "1"}}}}), "# . n"},
        {"other octaves stand alone", 1, Score({{2, {{0, "2"}}}, {2, {{3, "4"}}}}), "# #"},
        {"the key's own sharp", 2, Score({{2, {{0, "2"}}}, {2, {{0, "1"}}}, {2, {{0, "2"}}}}, 2), ". n #"},
        {"a flat key spells upward", 9, Score({{2, {{1, "2"}}}, {2, {{1, "3"}}}, {2, {{2, "3"}}}}, 9), "b n ."},
        {"both in one chord, each its own", 1, Score({{2, {{0, "1"}, {1, "7"}}}, {2, {{0, "1"}}}}), "n# n"},
        {"one of a pitch on two strings", 1, Score({{2, {{0, "2"}, {1, "7"}}}}), "#."},
        {"a dead note has none", 1, Score({{2, {{2, "x"}}}}), "."},
    };
    for (const auto& row : rows) EXPECT_EQ(Signs(row.Of), row.Signs) << row.Why;
}

TEST(Notation, BeamsOfAllLevels) {
    const auto e = Written{3, {{1, "0"}}}, s = Written{4, {{1, "0"}}}, t = Written{5, {{1, "0"}}};
    const auto q = Written{2, {{1, "0"}}}, dotted = Written{3, {{1, "0"}}, true}, rest = Written{4, {}};
    const struct {
        const char* Why;
        Score Of;
        const char* Beams;
    } rows[] = {{"eighths in twos", Score({e, e, e, e}), "0-1 2-3 BB"},
                {"a dotted eighth and a sixteenth", Score({dotted, s}), "0-1 Bs"},
                {"a stub looks into its group", Score({s, dotted}), "0-1 Bs"},
                {"three levels", Score({t, t, s, e}), "0-3 BBB"},
                {"the main beam alone passes a rest", Score({s, rest, s, s}), "0-3 BsB"},
                {"rests at the ends have none", Score({rest, s, s, rest}), "1-2 BB"},
                {"a quarter breaks the last beat", Score({q, q, q, e, e, q, e, e}), "3-4 6-7 BB"},
                {"one alone has a flag", Score({e, q}), ""}};
    for (const auto& row : rows) EXPECT_EQ(Beams(row.Of), row.Beams) << row.Why;
}

TEST(Notation, StemsAndBeamsKeepTheirLengths) {
    const struct {
        const char* Why;
        Score Of;
        double Start, End;  // of the first stem, from the top line
    } rows[] = {{"53 points down, an octave long", Score({{2, {{3, "3"}}}}), 25.5, 49},
                {"52 points up", Score({{2, {{3, "2"}}}}), 27, 3.5},
                {"from far below to the middle line", Score({{2, {{5, "0"}}}}), 51.5, 14},
                {"from far above to the middle line", Score({{2, {{0, "12"}}}}), -20, 14},
                {"a chord from its top head", Score({{2, {{0, "0"}, {1, "1"}}}}), 4.5, 35}};
    for (const auto& row : rows) {
        const BarContext context = row.Of.Context();
        const std::vector<StaffBar> staves = StaffBarsOf(context);
        EXPECT_NEAR(staves.front().Column(0).StemStart, row.Start, 0.01) << row.Why;
        EXPECT_NEAR(staves.front().Column(0).StemEnd, row.End, 0.01) << row.Why;
    }
}

TEST(Notation, SignsStandClearOfHeadsBarLinesAndEachOther) {
    const Score score({{2, {{0, "2"}, {1, "4"}, {2, "3"}, {3, "4"}, {4, "4"}}}, {2, {{0, "4"}}}});
    const BarContext context = score.Context();
    const std::vector<StaffBar> staves = StaffBarsOf(context);
    std::vector<Area> taken;
    for (const StaffNote& note : staves.front().Column(0).Notes) {
        if (note.Sign == Accidental::None) continue;
        const Area area = SignArea(staves.front().Column(0), note);
        EXPECT_GT(area.Left, 100) << "the bar line";
        EXPECT_LT(area.Right, note.X - 4);
        for (const Area& other : taken) {
            EXPECT_FALSE(area.Left < other.Right && other.Left < area.Right && area.Top < other.Bottom &&
                         other.Top < area.Bottom);
        }
        taken.push_back(area);
    }
    EXPECT_EQ(taken.size(), 5u);
}

TEST(Notation, ANumberRisesOffTheNotes) {
    for (const auto& [fret, y] : {std::pair{"0", -12}, std::pair{"3", -15}, std::pair{"8", -25}}) {
        Score score({{2, {{0, fret}}}});
        Core::BarPlace& place = score.File.Tracks[0].Bars.Edit(0).Place;
        place.ShowTimeSig = true;
        place.StrumX[0] = 160;
        const BarContext context = score.Context();
        EXPECT_EQ(PlacedBarNumber(context).Y, context.Y + y) << fret;
    }
}

TEST(Notation, NotesOnStringsOutOfUseLeaveARest) {
    Score score({{2, {{5, "3"}}}, {2, {{0, "0"}}}});
    score.File.Tracks[0].Strings = 4;
    const BarContext context = score.Context();
    const std::vector<StaffBar> staves = StaffBarsOf(context);
    EXPECT_TRUE(staves.front().Column(0).Rest);
    EXPECT_FALSE(staves.front().Column(1).Rest);
}

TEST(Notation, NeighbouringGraceHeadsStandBesideEachOther) {
    Score score({{2, {{0, "5"}, {1, "5"}, {2, "5"}}}});
    const char* frets[] = {"0", "3", "x"};
    for (int string = 0; string < 3; ++string) {
        Core::Note& note = score.File.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Edit(string);
        note.HasGrace = true;
        note.GraceFret = frets[string];
    }
    const BarContext context = score.Context();
    const std::vector<StaffBar> staves = StaffBarsOf(context);
    const std::vector<GraceHead> heads = GraceHeads(staves.front(), 0);
    ASSERT_EQ(heads.size(), 3u);
    EXPECT_GT(heads[0].DX, heads[1].DX);
    EXPECT_TRUE(heads[2].Cross);
}

TEST(Notation, ColumnsStepAside) {
    Core::Note plain, ghost, grace, slid;
    for (Core::Note* note : {&plain, &ghost, &grace, &slid}) note->Fret = "0";
    ghost.Ghost = true;
    grace.HasGrace = true;
    grace.GraceFret = "2";
    slid.Technique = Core::SlideIntoUp;
    const struct {
        const char* Why;
        Core::Note First;
        bool Tab, Figures, Opens;
        double Key, X;  // of the first column
    } rows[] = {
        {"nothing in the way", plain, true, false, false, 1, 109},
        {"parentheses clear of the bar line", ghost, true, false, false, 1, 112},
        {"a grace note with its accidental, further than others beside a tab", grace, true, false, false, 1, 121},
        {"a stroke into the note where no tab has it", slid, false, false, false, 1, 118},
        {"not where the tab has it", slid, true, false, false, 1, 109},
        {"the dots of a repeat", plain, true, false, true, 1, 115},
        {"behind the dots, which stand behind the figures", plain, false, true, true, 1, 175},
        {"before them over a tab", plain, true, true, true, 1, 149},
        {"behind seven sharps, with a natural", plain, true, true, false, 8, 160}};
    for (const auto& row : rows) {
        Score score({{2, {}}, {2, {{1, "0"}}}, {2, {}}}, static_cast<std::int32_t>(row.Key));
        Core::Track& track = score.File.Tracks[0];
        track.ShowTab = row.Tab;
        Core::Bar& bar = track.Bars.Edit(0);
        bar.EditStrums()[0].Notes.Edit(0) = row.First;
        score.File.BarInfos.Edit(0).RepeatOpen = row.Opens;
        bar.Place.ShowTimeSig = row.Figures;
        if (row.Figures) {
            int x = 149;
            for (auto& column : bar.Place.StrumX) column = static_cast<std::int16_t>(x), x += 60;
            bar.Place.BarWidth = 300;
        }
        const BarContext context = score.Context();
        EXPECT_NEAR(StaffBarsOf(context).front().Column(0).X, row.X, 0.06) << row.Why;
    }
}

TEST(Notation, HeadsOfCrowdedColumnsAreSmall) {
    Score score({{4, {{1, "0"}}}, {4, {{1, "1"}}}, {4, {{1, "3"}}}, {4, {{1, "0"}}}, {2, {{1, "0"}}}});
    auto& columns = score.File.Tracks[0].Bars.Edit(0).Place.StrumX;
    for (const auto& [apart, size] : {std::pair(9, HeadSize::Full), {7, HeadSize::Small}, {4, HeadSize::Tiny}}) {
        for (int s = 0; s < 4; ++s) columns[s] = static_cast<std::int16_t>(109 + apart * s);
        const BarContext context = score.Context();
        const std::vector<StaffBar> staves = StaffBarsOf(context);
        for (int s = 0; s < 4; ++s) EXPECT_EQ(staves.front().Column(s).Size, size) << apart;
        EXPECT_EQ(staves.front().Column(4).Size, HeadSize::Full) << "a group of its own";
    }
}

TEST(Notation, EveryDrumLaneHasAPlaceThatAClickMeans) {
    for (int lane = 0; lane <= 8; ++lane) {
        const double y = 28 - 3.5 * DrumLaneStep(lane);
        EXPECT_NEAR(DrumLaneY(lane), y, 0.51);
        if (lane <= 6) {
            EXPECT_EQ(DrumLaneFromY(DrumLaneY(lane) - 24), lane);
        }
    }
}

TEST(Notation, AHashMarkTurnsTheStemsOfDrumsToo) {
    Score score({{3, {{5, "F"}}}, {3, {}}, {3, {{5, "F"}, {0, "O"}}}, {3, {{5, "F"}}}});
    Core::Track& track = score.File.Tracks[0];
    track.IsDrum = true;
    track.PercStrings[5].dbf = 1;
    track.PercStrings[0].dbo = 7;
    track.Bars.Edit(0).EditStrums()[1].Hash = 1;
    const auto groups = BeamGroups(track, track.Bars[0], score.File.BarInfos[0]);
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_FALSE(groups[0].StemUp);
    EXPECT_TRUE(groups[1].StemUp);
    const BarContext context = score.Context();
    const StaffBar staff = StaffBarsOf(context).front();
    EXPECT_FALSE(staff.Column(0).StemUp);
    EXPECT_TRUE(staff.Column(2).StemUp);
    // The heads that the staff draws, on their lanes.
    const Core::Strum& both = track.Bars[0].Strums()[2];
    for (const Head& head : StrumHeads(track, both, false)) {
        const int lane = LaneOfNote(track, head.String, both.Notes[head.String]);
        EXPECT_EQ(head.Y + 7, DrumLaneY(lane));
    }
    EXPECT_EQ(StrumHeads(track, both, false).size(), 2U);
}

TEST(Notation, DrumsOnABassStaffAloneAreNotes) {
    Score score({{2, {{5, "F"}}}});
    Core::Track& track = score.File.Tracks[0];
    track.IsDrum = true;
    track.ShowTreble = false;
    track.ShowBass = true;
    track.PercStrings[5].dbf = 2;
    const BarContext context = score.Context();
    const StaffBar staff = StaffBarsOf(context).front();
    EXPECT_EQ(staff.Place.Clef, Clef::Bass);
    ASSERT_EQ(staff.Column(0).Notes.size(), 1U);
    EXPECT_EQ(staff.Column(0).Notes[0].Pitch, 36) << "the key of the second sound, a bass drum";
}

TEST(Notation, ATieOverABarLineMeetsTheHeadWhereItStands) {
    Score score({{2, {{2, "2"}}}, {2, {{2, "2"}}}});
    Core::Track& track = score.File.Tracks[0];
    track.Bars.Resize(2);
    score.File.BarInfos.Resize(2);
    track.Bars.Edit(0).EditStrums()[1].Notes.Edit(2).Tied = true;
    const auto ends = [&](const char* beside, bool newRow) {
        Core::Bar& next = track.Bars.Edit(1);
        next = track.Bars[0];
        next.Place.BarX = newRow ? 100 : 189;
        next.Place.BarY = newRow ? 150 : 0;
        for (auto& column : next.Place.StrumX) column = static_cast<std::int16_t>(column + next.Place.BarX - 100);
        next.EditStrums()[1].Notes.Edit(2).Fret = "";
        next.EditStrums()[0].Notes.Edit(2).Tied = false;
        if (*beside) next.EditStrums()[0].Notes.Edit(1).Fret = beside;
        const BarContext context = score.Context();
        struct Bows : PictureLog {
            using PictureLog::Polygon;
            void Polygon(std::span<const Point> points) override {
                for (const Point& point : points) Right = std::max(Right, point.X);
            }
            double Right = 0;
        } bows;
        const std::vector<StaffBar> staves = StaffBarsOf(context);
        DrawStaffLinks(bows, staves.front(), 1);
        return bows.Right;
    };
    const double usual = ends("", false);
    EXPECT_NEAR(usual, 196, 1);
    EXPECT_GT(ends("2", false), usual + 1) << "an accidental beside it moved it";
    EXPECT_NEAR(ends("", true), 196, 1) << "in the margin";
}
