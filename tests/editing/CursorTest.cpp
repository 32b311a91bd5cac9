#include "editing/mod_Cursor.h"

#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"
#include "platform/Services.h"
#include "tests/support/CountingBox.h"

using namespace Quillon;
using namespace Quillon::Editing;
using Core::Open;

namespace {

class CursorTest : public testing::Test {
protected:
    void SetUp() override {
        Open = {};
        Drawing::Page = {};
        Open.TabFile.Tracks.Add(Core::Track{});
        Core::EditStrum(0, 0, 0).Length = 1;
        Services.Messages = &box;
    }
    void TearDown() override {
        Services.Messages = nullptr;
        MayEdit = [] { return true; };
    }
    Testing::CountingBox box;
};

}  // namespace

TEST_F(CursorTest, WalkingRightFillsTheBarAndMakesTheNextOneOnEveryTrack) {
    Core::EditStrum(0, 0, 0).Notes.Edit(0).Fret = "3";
    Drawing::Page.LayoutDirty = 0;
    picDocument_KeyDown(KeyRight, 0);
    EXPECT_EQ(Open.CurStrum, 1);
    EXPECT_EQ(Core::ReadStrum(0, 0, 1).Length, 1);
    EXPECT_FALSE(Core::HasNotes(Core::ReadStrum(0, 0, 1)));
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_EQ(Drawing::Page.LayoutDirty, 1);
    picDocument_KeyDown(KeyRight, 0);
    EXPECT_EQ(Open.CurBar, 1);
    EXPECT_EQ(Open.CurStrum, 0);
    for (const int track : {0, 1}) EXPECT_EQ(Core::NumberOfBars(track), 1);
    EXPECT_EQ(Open.TabFile.BarInfos.Count(), 2);
    EXPECT_EQ(Core::ReadStrum(0, 1, 0).Length, 1);
    picDocument_KeyDown(KeyLeft, 0);
    EXPECT_EQ(Open.CurBar, 0);
    EXPECT_EQ(Open.CurStrum, 1);
}

TEST_F(CursorTest, AnOverfullBarIsNotLeftByWalking) {
    Core::EditStrum(0, 0, 0).Length = 0;
    Core::EditStrum(0, 0, 0).Dotted = true;
    picDocument_KeyDown(KeyRight, 0);
    EXPECT_EQ(box.Shown, 1);
    EXPECT_EQ(Open.CurBar, 0);
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(CursorTest, ALockedFileDoesNotGrow) {
    MayEdit = [] { return false; };
    picDocument_KeyDown(KeyRight, 0);
    Core::EditStrum(0, 0, 0).Length = 0;
    picDocument_KeyDown(KeyRight, 0);
    EXPECT_EQ(Core::NumberOfStrums(0, 0), 0);
    EXPECT_EQ(Core::NumberOfBars(0), 0);
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(CursorTest, UpAndDownWrapAroundWhatTheTrackHas) {
    picDocument_KeyDown(KeyUp, 0);
    EXPECT_EQ(Open.CurString, 5);
    picDocument_KeyDown(KeyDown, 0);
    EXPECT_EQ(Open.CurString, 0);
    Open.InputMode = Core::NotationInput;
    Open.CurPitch = 40;
    picDocument_KeyDown(KeyDown, 0);
    EXPECT_EQ(Open.CurPitch, 93);
    picDocument_KeyDown(KeyUp, 0);
    EXPECT_EQ(Open.CurPitch, 40);
    picDocument_KeyDown(KeyLeft, 0);
    EXPECT_EQ(Open.CurStrum, 0);
}

TEST_F(CursorTest, FullnessIgnoresLessThanAThousandth) {
    Core::Bar& bar = Core::EditBar(0, 0);
    const auto fill = [&](int strums, std::int32_t length, std::int32_t tuplet) {
        Core::SetBarStrums(bar, strums - 1);
        for (Core::Strum& strum : bar.EditStrums()) {
            strum.Length = length;
            strum.HasTuplet = true;
            strum.Tuplet = tuplet;
        }
        return BarFullness(Open.TabFile, 0, 0);
    };
    EXPECT_EQ(fill(12, 3, 0), Fullness::Full);
    EXPECT_EQ(fill(11, 3, 0), Fullness::Under);
    EXPECT_EQ(fill(13, 3, 0), Fullness::Over);
    EXPECT_EQ(fill(52, 3, 8), Fullness::Full);
    EXPECT_EQ(fill(44, 3, 6), Fullness::Full);
}

TEST_F(CursorTest, ClampingBringsTheCursorBackIntoTheDocument) {
    Open.CurTrack = Open.CurBar = Open.CurStrum = Open.CurString = 9;
    Open.TabFile.Tracks[1].Strings = 4;
    ClampCursor();
    EXPECT_EQ(Open.CurTrack, 1);
    EXPECT_EQ(Open.CurBar, 0);
    EXPECT_EQ(Open.CurStrum, 0);
    EXPECT_EQ(Open.CurString, 3);
}
