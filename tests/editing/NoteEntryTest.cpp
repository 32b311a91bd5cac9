#include "editing/mod_NoteEntry.h"

#include "editing/mod_Selection.h"
#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::Open;

struct Row {
    const char* Keys;
    const char* Score;
    const char* Cursor;
    int Steps;
};

class NoteEntryTest : public EntryTest {
protected:
    void Check(const Row& row) const {
        SCOPED_TRACE(row.Keys);
        Type(row.Keys);
        EXPECT_EQ(Score(), row.Score);
        EXPECT_EQ(Cursor(), row.Cursor);
        EXPECT_EQ(Steps(), row.Steps);
        EXPECT_EQ(Open.FileChanged, row.Steps > 0);
    }
};

TEST_F(NoteEntryTest, KeysOnATabWriteWhatTheyShould) {
    const Row rows[] = {
        {"1 2", "2{0:12}", "0 0 0", 2},
        {"3 1", "2{0:1}", "0 0 0", 2},
        {"2 9 9", "2{0:9}", "0 0 0", 3},
        {"Pad9", "2{0:9}", "0 0 0", 1},
        {"+1 +2 +4", "2", "0 0 0", 0},
        {"5 5", "2{0:5}", "0 0 0", 2},  // an equal value is a step too
        {"Up X", "2{5:x}", "0 0 5", 1},
        {"+X", "2{0:x}", "0 0 0", 1},
        {"7 ^8 ^Del ^B ^Right", "2{0:7}", "0 0 0", 1},
        {"Left", "2", "0 0 0", 0},
        {"ShiftItself ControlItself Q", "2", "0 0 0", 0},
        {"5 Right Pad+ 6 Right", "2{0:5} 1{0:6} 1", "0 2 0", 5},
        // Walking fills the bar and makes the next.
        {"Right Right Right Right", "2 2 2 2 | 2", "1 0 0", 4},
        {"Right Right Right Right Left", "2 2 2 2 | 2", "0 3 0", 4},
        {"+3 Right", "2t0 2t0", "0 1 0", 2},
        // Delete.
        {"5 Del", "2", "0 0 0", 2},
        {"Del", "2", "0 0 0", 1},
        {"5 L +R G Del Del", "2", "0 0 0", 6},
        {"5 U Del", "2S1", "0 0 0", 3},
        {"5 U Del Del", "2", "0 0 0", 4},
        {"5 Down 6 Up Del", "2{1:6}", "0 0 0", 3},
        // Beats.
        {"5 Right 6 +Del", "2{0:5}", "0 0 0", 4},
        {"5 Right 6 Left Back", "2{0:6}", "0 0 0", 4},
        {"5 Right Right Right Right Back", "2{0:5} 2 2 2", "0 3 0", 6},
        {"5 Period +Del", "2", "0 0 0", 3},  // the only strum of the first bar is cleared
        {"5 +Back +5 Ins", "2t1{0:5}", "0 0 0", 2},
        {"5 Pad- +Ins", "3 3{0:5}", "0 0 0", 3},
        // Lengths.
        {"Pad- Minus Pad- Minus Pad-", "6", "0 0 0", 4},
        {"Pad+ Plus Pad+", "0", "0 0 0", 2},
        {"Pad. Period Period", "2.", "0 0 0", 3},
        {"+3 +5", "2t1", "0 0 0", 2},
        {"+9 +9", "2", "0 0 0", 2},
        {"+6 Period", "2.t2", "0 0 0", 2},
        {"+7", "2t3", "0 0 0", 1},
        // Marks need a note.
        {"H S G B T V U D", "2", "0 0 0", 0},
        {"L +R", "2{0:rl}", "0 0 0", 2},
        {"5 H S", "2{0:5h8}", "0 0 0", 3},
        {"5 S S", "2{0:5}", "0 0 0", 3},
        {"5 G V", "2{0:5g}V1", "0 0 0", 3},
        {"5 T V V", "2{0:5}", "0 0 0", 4},
        {"5 T Down H", "2{0:5}V4", "0 0 1", 2},
        {"5 U D", "2{0:5}S2", "0 0 0", 3},
        {"5 D D", "2{0:5}", "0 0 0", 3},
        {"5 C +T B", "2{0:5}", "0 0 0", 1},  // dialogs that nobody opens
        // Frets.
        {"5 +Pad- +Minus", "2{0:3}", "0 0 0", 3},
        {"2 9 +Plus", "2{0:29}", "0 0 0", 2},
        {"2 8 +Pad+", "2{0:29}", "0 0 0", 3},
        {"0 +Pad-", "2{0:0}", "0 0 0", 1},
        {"X +Plus +Minus", "2{0:x}", "0 0 0", 1},
        // To the next string at the same pitch.
        {"5 G +Down", "2{1:10g}", "0 0 1", 3},
        {"5 +Down +Down +Up", "2{1:10}", "0 0 1", 4},
        {"5 +Up", "2{0:5}", "0 0 0", 2},
        {"Down 3 +Up", "2{1:3}", "0 0 1", 2},
        {"2 5 +Down", "2{0:25}", "0 0 0", 3},
        {"5 Down 6 Up +Down", "2{0:5 1:6}", "0 0 0", 3},
        {"X +Down", "2{0:x}", "0 0 0", 2},
        // Whole strums.
        {"R", "2", "0 0 0", 0},
        {"5 V Pad- Right R", "3{0:5}V1 3{0:5}V1", "0 1 0", 5},
        {"+N", "2", "0 0 0", 0},
        {"5 Right 6 +N", "2{0:6} 2{0:5}", "0 0 0", 4},
        {"5 +M", "2 | 2{0:5}", "1 0 0", 2},
        {"5 +M +N", "2{0:5} | 2", "0 0 0", 3},
        {"5 Right 6 Right 7 Left Left +M", "2{0:6} 2{0:5} 2{0:7}", "0 1 0", 6},
        {"5 Period +O", "2 2.{0:5}", "0 1 0", 3},
        {"1 Right 2 Right 3 Right 4 Right 5 Left Left +O", "2{0:1} 2{0:2} 2 2{0:3} | 2{0:4} 2{0:5}", "0 3 0", 10},
        {"1 Right 2 Right 3 Right 4 Right 5 Left +O", "2{0:1} 2{0:2} 2{0:3} 2 | 2{0:4} 2{0:5}", "1 0 0", 10},
    };
    for (const Row& row : rows) {
        New();
        Check(row);
    }
}

TEST_F(NoteEntryTest, KeysOnADrumTrackWriteLetters) {
    const Row rows[] = {
        {"O", "2{0:o}", "0 0 0", 1},           {"+O", "2{0:O}", "0 0 0", 1},      {"X", "2{0:x}", "0 0 0", 1},
        {"+X", "2{0:X}", "0 0 0", 1},          {"R", "2{0:r}", "0 0 0", 1},       {"+R", "2{0:~}", "0 0 0", 1},
        {"F", "2{0:f}", "0 0 0", 1},           {"+F", "2{0:F}", "0 0 0", 1},      {"S", "2{0:s}", "0 0 0", 1},
        {"+S", "2{0:S}", "0 0 0", 1},          {"C", "2{0:c}", "0 0 0", 1},       {"+C", "2", "0 0 0", 0},
        {"T", "2{0:t}", "0 0 0", 1},           {"+T 5 L G V", "2", "0 0 0", 0},   {"O Del", "2", "0 0 0", 2},
        {"O Pad- +3", "3t0{0:o}", "0 0 0", 3}, {"O +Down", "2{0:o}", "0 0 1", 1}, {"O Period Back", "2", "0 0 0", 3},
        {"O +Ins", "2 2{0:o}", "0 0 0", 2},
    };
    for (const Row& row : rows) {
        NewDrums();
        Check(row);
    }
}

TEST_F(NoteEntryTest, KeysOnAStaffToggleThePitchUnderTheCursor) {
    const Row rows[] = {
        {"Enter", "2{0:0}", "0 0 0", 1},
        {"Enter Enter", "2", "0 0 0", 2},
        {"Enter Up Enter", "2{0:0 1:6}", "0 0 1", 2},  // the first string is taken
        {"Down Enter", "2{1:4}", "0 0 1", 1},          // below the first string's open pitch
        {"Up Up Down Enter", "2{0:1}", "0 0 0", 1},
        {"5 Del", "2", "0 0 0", 0},
        {"X", "2{0:x}", "0 0 0", 1},
        {"Down Enter H Pad-", "3{1:4h11}", "0 0 1", 3},  // commands act on the string that got the note
        {"Down Enter +Up", "2{1:4}", "0 0 1", 2},
        {"Down Enter Back", "2", "0 0 1", 2},
        {"Enter Right +Del", "2{0:0}", "0 0 0", 3},
    };
    for (const Row& row : rows) {
        New();
        Open.InputMode = Core::NotationInput;
        Check(row);
    }
}

TEST_F(NoteEntryTest, APitchThatNoFreeStringReachesTakesNoStep) {
    Open.TabFile.Tracks[0].Strings = 1;
    Open.InputMode = Core::NotationInput;
    Type("Enter Up Enter");
    EXPECT_EQ(Score(), "2{0:0}");
    EXPECT_EQ(Steps(), 1);
}

TEST_F(NoteEntryTest, PitchesWrapAtTheEndsOfTheTracksReach) {
    Open.InputMode = Core::NotationInput;
    for (int i = 0; i < HighestFret; ++i) Type("Up");
    EXPECT_EQ(Open.CurPitch, 93);
    Type("Up");
    EXPECT_EQ(Open.CurPitch, 40);
    Type("Down");
    EXPECT_EQ(Open.CurPitch, 93);
}

TEST_F(NoteEntryTest, LanesOfADrumTrackAreSteppedThroughAndToggle) {
    NewDrums();
    Open.InputMode = Core::NotationInput;
    Type("Enter");
    EXPECT_EQ(Score(), "2{0:X}") << "a cymbal, of the letters of string 0 the first in the lane";
    Type("Enter Down Down Enter");
    EXPECT_EQ(Open.CurPitch, 2);
    EXPECT_EQ(Score(), "2{1:o}") << "the open hi-hat";
    EXPECT_EQ(Cursor(), "0 0 1");
    Type("Up Up Up Up Enter");
    EXPECT_EQ(Open.CurPitch, 7);
    EXPECT_EQ(Score(), "2{1:o 5:O}") << "the bass drum";
    Type("Enter O");
    EXPECT_EQ(Score(), "2{1:o}") << "letters are for tab input";
}

TEST_F(NoteEntryTest, EveryLetterOfANewDrumTrackPlaysASoundOfItsOwn) {
    Core::Track track;
    track.PercStrings = DefaultDrumSounds();
    const int kick = 7, hats = 2, snare = 5, crash = 0;
    EXPECT_TRUE(PercNoteIsOnThisString(track, 5, kick));
    EXPECT_TRUE(PercNoteIsOnThisString(track, 1, hats));
    EXPECT_TRUE(PercNoteIsOnThisString(track, 3, snare));
    EXPECT_TRUE(PercNoteIsOnThisString(track, 0, crash));
    EXPECT_FALSE(PercNoteIsOnThisString(track, 5, snare));
    EXPECT_EQ(LaneOfSound(0), -1);
    EXPECT_EQ(LaneOfSound(47), -1);
    EXPECT_FALSE(PercNoteIsOnThisString(track, 0, -1));
}

TEST_F(NoteEntryTest, ABarOfSeveralTracksStaysWhenItsOnlyBeatIsDeleted) {
    Open.TabFile.Tracks.Add(Open.TabFile.Tracks[0]);
    Type("5 +M Back");
    EXPECT_EQ(Score(), "2 | 2");
    EXPECT_EQ(Open.TabFile.Tracks[1].Bars.Count(), 2);
    EXPECT_EQ(Cursor(), "1 0 0");
}

TEST_F(NoteEntryTest, DeletingTheOnlyBeatOfABarTakesThatBarAlone) {
    Type("+M +M 5");
    SelectTo(1);
    Type("Left Back");
    EXPECT_EQ(Score(), "2 | 2{0:5}");
    EXPECT_EQ(Cursor(), "0 0 0");
    EXPECT_FALSE(SelectedBars()) << "those selected have other numbers now";
}

TEST_F(NoteEntryTest, AnOverfullBarTellsAndHoldsTheCursor) {
    Type("Plus Plus Period Right");
    EXPECT_EQ(box.Shown.size(), 1U);
    EXPECT_EQ(Score(), "0.");
    EXPECT_EQ(Cursor(), "0 0 0");
    EXPECT_EQ(Steps(), 3);
}

TEST_F(NoteEntryTest, ALockedFileTakesNoKey) {
    Type("5");
    MayEdit = [] { return false; };
    Type("6 Right Z Down");
    EXPECT_EQ(Score(), "2{0:5}");
    EXPECT_EQ(Cursor(), "0 0 0");
    EXPECT_EQ(Steps(), 1);
}

TEST_F(NoteEntryTest, ABentNoteLosesItsBendAndAnotherGetsTheDialog) {
    static EntryDialog asked;
    Entry.OpenDialog = [](EntryDialog dialog) {
        asked = dialog;
        Core::EditStrum(0, 0, 0).Notes.Edit(0).HasBend = true;
        return true;
    };
    Type("5 B");
    EXPECT_EQ(asked, EntryDialog::Bend);
    EXPECT_EQ(Score(), "2{0:5b}");
    Type("B");
    EXPECT_EQ(Score(), "2{0:5}");
    EXPECT_EQ(Steps(), 3);
    Type("C");
    EXPECT_EQ(asked, EntryDialog::Chord);
    Type("+T");
    EXPECT_EQ(asked, EntryDialog::Text);
}

TEST_F(NoteEntryTest, FingersStayWhenANoteIsDeleted) {
    Core::Note& note = Core::EditStrum(0, 0, 0).Notes.Edit(0);
    note.LeftFinger = 2;
    note.Accentuate = true;
    Type("5 Del");
    EXPECT_EQ(Score(), "2{0:f2}");
}

TEST_F(NoteEntryTest, AnEmptyStrumMayBeASlash) {
    Core::EditStrum(0, 0, 0).Hash = 1;
    EXPECT_FALSE(StrumIsEmpty(Open.TabFile, 0, 0, 0));
    Type("V");
    EXPECT_EQ(Score(), "2V1");
    Core::EditStrum(0, 0, 0).Hash = 0;
    Core::EditStrum(0, 0, 0).Notes.Edit(6).Fret = "3";
    EXPECT_TRUE(StrumIsEmpty(Open.TabFile, 0, 0, 0)) << "a string that is not in use";
}

TEST_F(NoteEntryTest, AStaffIsOfferedOnceForEachKind) {
    Core::Track& track = Open.TabFile.Tracks[0];
    box.Answers = {Answer::No, Answer::Yes};
    track.ShowTreble = false;
    track.ShowBass = true;
    Type("1 6");
    EXPECT_EQ(box.Shown.size(), 1U) << "80 lies above the bass staff's reach";
    Type("+Plus Right 1 9");
    EXPECT_EQ(box.Shown.size(), 1U);
    EXPECT_FALSE(track.ShowTreble);
    track.ShowTreble = true;
    track.ShowBass = false;
    track.Tuning[5] = -5;
    Open.FileChanged = false;
    Type("Up 0");
    EXPECT_EQ(box.Shown.size(), 2U) << "35, a low B";
    EXPECT_TRUE(track.ShowBass);
    const int steps = Steps();
    track.ShowBass = false;
    Type("Down Up");
    EXPECT_EQ(Steps(), steps);
    EXPECT_EQ(box.Shown.size(), 2U);
}

TEST_F(NoteEntryTest, StaffRecommendationCanBeOff) {
    Core::Settings.StaffAddition = false;
    Open.TabFile.Tracks[0].ShowTreble = false;
    Open.TabFile.Tracks[0].ShowBass = true;
    Type("2 0");
    EXPECT_TRUE(box.Shown.empty());
}

TEST_F(NoteEntryTest, WhatWasTypedIsHeardUnlessTheSettingIsOff) {
    static double heard;
    static int times;
    heard = times = 0;
    Entry.SoundStrum = [](double length) {
        heard = length;
        ++times;
    };
    Type("5 Period");
    EXPECT_EQ(times, 1) << "a dot makes no sound";
    Type("6");
    EXPECT_EQ(heard, 24);
    Type("Up Del");
    EXPECT_EQ(times, 2);
    Core::Settings.PlayNotesAsTyped = false;
    Type("7");
    EXPECT_EQ(times, 2);
}

}  // namespace
}  // namespace Quillon::Editing
