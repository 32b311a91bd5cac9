// Chords as boxes: where the panels of a cell stand, and what is drawn of a shape.
#include "library/ChordBoxes.h"

#include "platform/RunTimeError.h"
#include "platform/headless/PictureLog.h"
#include "tests/support/Golden.h"

namespace Quillon::Library {
namespace {

using Frets = Row<std::string, StringCount>;

/// Highest string first.
ChordRec Shape(int strings, const Frets& frets) { return MakeChord(strings, false, frets); }

TEST(ChordBoxes, PanelsStandBelowEachOther) {
    // Each point is first down, then across: only so all panels of a mode lie inside its cell.
    struct Row {
        int Height, Pitch;
        std::optional<PanelPlace> Box, Fingers, Notes;
    };
    const PanelPlace box{.Top = 15, .Left = 43};
    const Row rows[] = {
        {60, 70, box, {}, {}},
        {90, 100, {}, PanelPlace{25, 26}, {}},
        {70, 80, {}, {}, PanelPlace{22, 15}},
        {100, 110, box, {}, PanelPlace{65, 13}},
        {140, 150, box, PanelPlace{78, 23}, {}},
        {110, 120, {}, PanelPlace{22, 23}, PanelPlace{76, 13}},
        {170, 190, box, PanelPlace{77, 23}, PanelPlace{138, 13}},
    };
    for (int mode = 0; mode < DisplayModes; ++mode) {
        SCOPED_TRACE(mode);
        const DisplayMode& shows = ModeOf(mode);
        const Row& row = rows[mode];
        EXPECT_EQ(shows.CellHeight, row.Height);
        EXPECT_EQ(shows.CellPitch, row.Pitch);
        EXPECT_EQ(shows.Box, row.Box);
        EXPECT_EQ(shows.Fingers, row.Fingers);
        EXPECT_EQ(shows.Notes, row.Notes);
    }
    EXPECT_THROW(ModeOf(7), RunTimeError);
    EXPECT_THROW(ModeOf(-1), RunTimeError);
}

TEST(ChordBoxes, ShowTheFretsThatAShapeReaches) {
    struct Case {
        Frets Highest;
        int First, Count;
    };
    const Case cases[] = {{{"0", "1", "0", "2", "3", "x"}, 1, 5}, {{"8", "8", "9", "10", "10", "8"}, 8, 5},
                          {{"x", "8", "7", "6", "7", "0"}, 6, 5}, {{"x", "x", "x", "x", "x", "x"}, 1, 5},
                          {{"1", "0", "2", "x", "x", "7"}, 1, 7}, {{"0", "9", "x", "x", "x", "3"}, 3, 7},
                          {{"0", "0", "0", "0", "0", "0"}, 1, 5}, {{"5", "5", "5", "5", "5", "5"}, 5, 5}};
    for (const Case& each : cases) {
        const BoxFrets frets = FretsOf(Shape(6, each.Highest));
        EXPECT_EQ(frets.First, each.First) << each.Highest[0] << each.Highest[1];
        EXPECT_EQ(frets.Count, each.Count) << each.Highest[0] << each.Highest[1];
    }
}

TEST(ChordBoxes, AreDrawn) {
    PictureLog log;
    ChordRec open = Shape(6, {"0", "1", "0", "2", "3", "x"});
    open.Fingers = {0, 1, 0, 2, 3, 0};
    ChordRec barre = Shape(6, {"8", "8", "9", "10", "10", "8"});
    barre.ChordFlag = true;
    barre.Fingers[5] = 5;
    const ChordRec bass = Shape(4, {"5", "3", "x", "3"});
    log.Remark("# everything");
    DrawChordCell(log, 0, 0, "C", &open, 6, false, {});
    log.Remark("# a left hand: the strings turn round, and nothing else");
    DrawChordCell(log, 0, 0, "C", &open, 5, true, {});
    log.Remark("# a barre with the thumb, up the neck");
    DrawChordCell(log, 130, 0, "C m7 of a name that is too long for its cell", &barre, 1, false, {});
    log.Remark("# seven frets wide, with an open string: as many rows in the same height");
    const ChordRec wide = Shape(6, {"0", "9", "x", "x", "x", "3"});
    DrawChordCell(log, 0, 0, "Wide", &wide, 4, false, {});
    log.Remark("# four strings");
    DrawChordCell(log, 0, 0, "Bass", &bass, 3, false, {});
    log.Remark("# a file that can't be read");
    DrawChordCell(log, 0, 0, "Broken", nullptr, 2, false, {});
    Testing::CheckGolden("library/ChordBoxes.txt", log.Text());
}

}  // namespace
}  // namespace Quillon::Library
