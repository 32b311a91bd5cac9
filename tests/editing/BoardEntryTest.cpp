#include "editing/mod_BoardEntry.h"

#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Selection.h"
#include "playback/mod_TabPlayer.h"
#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::Open;

class BoardEntryTest : public EntryTest {
protected:
    static void Fret(int string, int fret) {
        EnterByMouse([&](Core::OpenDocument& open) { return EnterFret(open, string, fret); });
    }
    static void Pitch(int pitch) {
        EnterByMouse([&](Core::OpenDocument& open) { return EnterPitch(open, pitch); });
    }
};

TEST_F(BoardEntryTest, AClickWritesWhatTypingWritesAndTakesNoStep) {
    const struct {
        int String, Fret;
        const char* Score;
        const char* Cursor;
    } clicks[] = {{2, 12, "2{2:12}", "0 0 2"}, {0, 0, "2{0:0 2:12}", "0 0 0"}, {2, 5, "2{0:0 2:5}", "0 0 2"},
                  {2, 5, "2{0:0}", "0 0 2"},   {6, 1, "2{0:0}", "0 0 2"},      {-1, 1, "2{0:0}", "0 0 2"},
                  {1, 30, "2{0:0}", "0 0 2"}};
    for (const auto& click : clicks) {
        Fret(click.String, click.Fret);
        EXPECT_EQ(Score(), click.Score);
        EXPECT_EQ(Cursor(), click.Cursor);
    }
    EXPECT_EQ(Steps(), 0);
    EXPECT_TRUE(Open.FileChanged);
    Type("L");  // a key keeps what the mouse had written
    Type("Z");
    EXPECT_EQ(Score(), "2{0:0}");
}

TEST_F(BoardEntryTest, AStringIsClearedWithItsMarksAndAPitchFindsItsString) {
    Fret(1, 3);
    Type("G");
    ClearString(Open, 1);
    EXPECT_EQ(Score(), "2");
    EXPECT_FALSE(ClearString(Open, 1));
    Pitch(62);
    EXPECT_EQ(Score(), "2{1:3}");
    Pitch(60);
    EXPECT_EQ(Score(), "2{1:3 2:5}") << "the next string down";
    Pitch(62);
    EXPECT_EQ(Score(), "2{2:5}");
    const std::int16_t before = Open.CurPitch;
    Pitch(20);
    EXPECT_EQ(Open.CurPitch, before) << "out of reach";
}

TEST_F(BoardEntryTest, DrumsAreWrittenByLetterOrBySound) {
    Open.TabFile.Tracks[0].IsDrum = true;
    Open.TabFile.Tracks[0].PercStrings = DefaultDrumSounds();
    Fret(0, 3);
    EXPECT_EQ(Score(), "2") << "no frets here";
    Pitch(36);  // bass drum
    EXPECT_EQ(Score(), "2{5:o}");
    Pitch(36);
    EXPECT_EQ(Score(), "2");
    EXPECT_TRUE(EnterLetter(Open, 1, 10));
    EXPECT_EQ(Score(), "2{1:x}");
    Pitch(34);
    EXPECT_FALSE(EnterLetter(Open, 1, 12));
}

TEST_F(BoardEntryTest, NothingIsWrittenWhilePlayingOrIntoALockedFile) {
    MayEdit = [] { return false; };
    Fret(0, 1);
    EXPECT_EQ(Score(), "2");
    EXPECT_FALSE(Open.FileChanged);
    MayEdit = [] { return true; };
    static int sounded = 0;
    sounded = 0;
    Entry.SoundStrum = [](double) { ++sounded; };
    Fret(0, 1);
    Fret(0, 1);
    EXPECT_EQ(sounded, 1) << "not when the last note went";
}

TEST_F(BoardEntryTest, MutesFollowTheirTracksThroughUndo) {
    Playback::Player = {};
    AddTrack(Core::Track{});
    AddTrack(Core::Track{});
    Playback::SetMute(2, true);
    Open.CurTrack = 0;
    Type("5");
    DeleteTrack(1);
    EXPECT_TRUE(Playback::Player.Listening.IsMuted(1));
    MoveTrackUp(1);
    EXPECT_TRUE(Playback::Player.Listening.IsMuted(0));
    Type("Z");
    EXPECT_EQ(Open.TabFile.Tracks.Count(), 3);
    EXPECT_TRUE(Playback::Player.Listening.IsMuted(2));
    EXPECT_FALSE(Playback::Player.Listening.IsMuted(0));
    Playback::Player = {};
}

}  // namespace
}  // namespace Quillon::Editing
