#include "editing/mod_Undo.h"

#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::Open;

class UndoTest : public EntryTest {};

TEST_F(UndoTest, BringsBackDocumentAndCursor) {
    Type("5 Down Down 6 Right Right Right Right 7");
    Open.FileChanged = false;
    Drawing::Page.LayoutDirty = 0;
    static int restored;
    restored = 0;
    Entry.DocumentRestored = [] { ++restored; };
    Type("Z");
    EXPECT_EQ(Score(), "2{0:5 2:6} 2 2 2 | 2");
    EXPECT_EQ(Cursor(), "1 0 2");
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_EQ(Drawing::Page.LayoutDirty, 1);
    Type("^Z +Z Z Z");
    EXPECT_EQ(Score(), "2{0:5 2:6}");
    EXPECT_EQ(Cursor(), "0 0 2");
    Type("Z Z");
    EXPECT_EQ(Score(), "2");
    EXPECT_EQ(Cursor(), "0 0 0");
    EXPECT_FALSE(CanUndo());
    Open.FileChanged = false;
    Type("Z");
    EXPECT_FALSE(Open.FileChanged) << "nothing was left to undo";
    EXPECT_EQ(restored, 7);
}

TEST_F(UndoTest, ARingOfNLevelsHoldsNAndOneSteps) {
    Core::Settings.UndoLevels = 2;
    ClearUndo();
    Type("9 3 4 5 6");
    Type("Z Z Z");
    EXPECT_EQ(Score(), "2{0:3}");
    EXPECT_FALSE(CanUndo());
    Type("Z");
    EXPECT_EQ(Score(), "2{0:3}");
    Type("7 8 Z");
    EXPECT_EQ(Score(), "2{0:7}");
    Type("Z Z");
    EXPECT_EQ(Score(), "2{0:3}");
}

TEST_F(UndoTest, NoLevelsAndNegativeOnesTurnItOff) {
    for (const std::int16_t levels : {std::int16_t{0}, std::int16_t{-5}}) {
        Core::Settings.UndoLevels = levels;
        Type("5 Z");
        EXPECT_EQ(Score(), "2{0:5}");
        EXPECT_FALSE(CanUndo());
    }
}

TEST_F(UndoTest, AChangeOfLevelsEmptiesTheRing) {
    Type("5");
    EXPECT_TRUE(CanUndo());
    Core::Settings.UndoLevels = 7;
    EXPECT_FALSE(CanUndo());
    Type("6 Z");
    EXPECT_EQ(Score(), "2{0:5}");
}

TEST_F(UndoTest, WhatADialogChangedGoesWithTheKeyStepBeforeIt) {
    Type("5");
    Open.TabFile.Title = "Changed";
    Type("6 Z");
    EXPECT_EQ(Open.TabFile.Title, "Changed");
    EXPECT_EQ(Score(), "2{0:5}");
    Type("Z");
    EXPECT_EQ(Open.TabFile.Title, "Untitled");
}

TEST_F(UndoTest, ThePitchComesBackToo) {
    Open.InputMode = Core::NotationInput;
    Type("Down Enter Up Up");
    EXPECT_EQ(Open.CurPitch, 65);
    Type("Z");
    EXPECT_EQ(Open.CurPitch, 63);
    EXPECT_EQ(Open.InputMode, Core::NotationInput);
}

}  // namespace
}  // namespace Quillon::Editing
