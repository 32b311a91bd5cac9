// The menus Note and Chord, and what their entries say of the note under the cursor.
#include "shell/NoteCommands.h"

#include <algorithm>
#include <stdexcept>

#include "editing/mod_BarsAndTracks.h"
#include "shell/CommandRows.h"
#include "shell/ScoreKeys.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Note;
using Core::Open;
using Core::Strum;

class NoteCommands : public ShellTest {
protected:
    /// Two beats: a chord of 5 on string 1 and 7 on string 2, and the cursor on the second, 3 on string 1.
    NoteCommands() {
        Start("");
        Core::SetBarStrums(0, 0, 1);
        Core::EditStrum(0, 0, 0).Notes.Edit(1).Fret = "5";
        Core::EditStrum(0, 0, 0).Notes.Edit(2).Fret = "7";
        Core::EditStrum(0, 0, 1).Length = 3;
        Core::EditStrum(0, 0, 1).Notes.Edit(1).Fret = "3";
        Open.CurStrum = Open.CurString = 1;
        Open.FileChanged = false;
        Window().Calls.clear();
    }
    static const Command& Find(std::string_view name) {
        const Command* const command = FindCommand(name);
        if (!command) throw std::runtime_error(std::string(name));
        return *command;
    }
    static bool Can(std::string_view name) { return IsEnabled(Find(name)); }
    static bool Does(std::string_view name) { return RunCommand(Find(name)); }
    static bool Shows(std::string_view name) { return IsChecked(Find(name)); }
    static std::vector<Command> Rows() {
        std::vector<Command> rows(NoteCommandRows().begin(), NoteCommandRows().end());
        rows.insert(rows.end(), ChordCommandRows().begin(), ChordCommandRows().end());
        return rows;
    }
    static const Strum& Beat() { return Core::ReadStrum(0, Open.CurBar, Open.CurStrum); }
    static const Note& Here() { return Beat().Notes[Open.CurString]; }
};

TEST_F(NoteCommands, EntriesWriteWhatTheySayAndShowItUntilTheyTakeItBack) {
    struct Row {
        const char* Name;
        std::function<int()> Value;
        int Written;
        int Again;  ///< when it is chosen a second time
    };
    const auto technique = [] { return Here().Technique; };
    const auto harmonic = [] { return Here().Harmonic; };
    const auto dynamic = [] { return Here().Dynamic; };
    const auto length = [] { return Beat().Length; };
    const auto tuplet = [] { return Beat().HasTuplet ? Beat().Tuplet : -1; };
    const auto ofBeat = [] { return Beat().Technique; };
    const std::vector<Row> rows = {
        {"mnuNoteEffectsGhostNote", [] { return Here().Ghost ? 1 : 0; }, 1, 0},
        {"mnuNoteEffectsLetRing", [] { return Here().LetRing ? 1 : 0; }, 1, 0},
        {"mnuNoteEffectsAccentuate", [] { return Here().Accentuate ? 1 : 0; }, 1, 0},
        {"mnuNoteLinkNote", [] { return Here().Tied ? 1 : 0; }, 1, 0},
        {"mnuNoteTechniquesStaccato", technique, 1, 0},
        {"mnuNoteTechniquesTremolo8", technique, 2, 0},
        {"mnuNoteTechniquesTremolo16", technique, 3, 0},
        {"mnuNoteTechniquesTremolo32", technique, 4, 0},
        {"mnuNoteTechniquesSlideUp", technique, 6, 0},
        {"mnuNoteTechniquesSlideDown", technique, 7, 0},
        {"mnuNoteTechniquesLegatoSlide", technique, 8, 0},
        {"mnuNoteTechniquesSlideIntoDown", technique, 10, 0},
        {"mnuNoteTechniquesSlideIntoUp", technique, 9, 0},
        {"mnuNoteTechniquesHammerOn", technique, 11, 0},
        {"mnuNoteHarmonicsNatural", harmonic, 1, 0},
        {"mnuNoteHarmonicsArtificial5", harmonic, 2, 0},
        {"mnuNoteHarmonicsArtificial7", harmonic, 3, 0},
        {"mnuNoteHarmonicsArtificial12", harmonic, 4, 0},
        {"mnuNoteHarmonicsTapped", harmonic, 5, 0},
        {"mnuNoteHarmonicsPitch", harmonic, 6, 0},
        {"mnuNoteHarmonicsSemi", harmonic, 7, 0},
        {"mnuNoteDynamicsFFF", dynamic, 3, 3},
        {"mnuNoteDynamicsFF", dynamic, 2, 2},
        {"mnuNoteDynamicsF", dynamic, 1, 1},
        {"mnuNoteDynamicsMP", dynamic, 4, 4},
        {"mnuNoteDynamicsP", dynamic, 5, 5},
        {"mnuNoteDynamicsPP", dynamic, 6, 6},
        {"mnuNoteDynamicsPPP", dynamic, 7, 7},
        {"mnuNoteDynamicsMF", dynamic, 0, 0},
        {"mnuNoteLeftFinger4", [] { return Here().LeftFinger; }, 5, 0},
        {"mnuNoteRightFingerT", [] { return Here().RightFinger; }, 1, 0},
        {"mnuChordLengthWhole", length, 0, 0},
        {"mnuChordLengthHalf", length, 1, 1},
        {"mnuChordLengthQuarter", length, 2, 2},
        {"mnuChordLengthEighth", length, 3, 3},
        {"mnuChordLength16th", length, 4, 4},
        {"mnuChordLength32nd", length, 5, 5},
        {"mnuChordLength64th", length, 6, 6},
        {"mnuChordDotted", [] { return Beat().Dotted ? 1 : 0; }, 1, 0},
        {"mnuChordXTuplets3", tuplet, 0, -1},
        {"mnuChordXTuplets5", tuplet, 1, -1},
        {"mnuChordXTuplets6", tuplet, 2, -1},
        {"mnuChordXTuplets7", tuplet, 3, -1},
        {"mnuChordXTuplets9", tuplet, 4, -1},
        {"mnuChordXTuplets10", tuplet, 5, -1},
        {"mnuChordXTuplets11", tuplet, 6, -1},
        {"mnuChordXTuplets12", tuplet, 7, -1},
        {"mnuChordXTuplets13", tuplet, 8, -1},
        {"mnuChordUpStroke", [] { return Beat().Stroke; }, 1, 0},
        {"mnuChordDownStroke", [] { return Beat().Stroke; }, 2, 0},
        {"mnuChordTechniquesVibrato", ofBeat, 1, 0},
        {"mnuChordTechniquesWideVibrato", ofBeat, 2, 0},
        {"mnuChordTechniquesPalmMute", ofBeat, 3, 0},
        {"mnuChordTechniquesTapping", ofBeat, 4, 0},
        {"mnuChordTechniquesSlapping", ofBeat, 5, 0},
        {"mnuChordTechniquesPopping", ofBeat, 6, 0},
        {"mnuChordTechniquesFadeIn", ofBeat, 7, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_FALSE(Shows(row.Name));
        Open.FileChanged = false;
        Window().Calls.clear();
        EXPECT_TRUE(Does(row.Name));
        EXPECT_EQ(row.Value(), row.Written);
        EXPECT_TRUE(Shows(row.Name));
        EXPECT_TRUE(Open.FileChanged);
        EXPECT_EQ(Window().Calls.back(), "draw");
        Does(row.Name);
        EXPECT_EQ(row.Value(), row.Again);
        EXPECT_EQ(Shows(row.Name), row.Again == row.Written);
    }
    EXPECT_FALSE(Can("mnuEditUndo")) << "menus take no step";
    Open.FileChanged = false;
    Does("mnuNoteDynamicsMF");
    EXPECT_FALSE(Open.FileChanged) << "it was that already";
}

TEST_F(NoteCommands, WhatWouldDoNothingIsGrey) {
    const auto grey = [](std::initializer_list<const char*> names, bool enabled) {
        for (const char* const name : names) EXPECT_EQ(Can(name), enabled) << name;
    };
    grey({"mnuNoteShiftUp"}, false);  // below the open string
    grey({"mnuNoteUp", "mnuNoteShiftDown", "mnuNoteClear", "mnuChordRepeat", "mnuChordMoveLeft"}, true);
    Does("mnuNoteShiftDown");
    EXPECT_EQ(Here().Fret, "7");
    EXPECT_EQ(Open.CurString, 2);
    Does("mnuNoteUp");
    EXPECT_EQ(Here().Fret, "8");
    Does("mnuNoteDown");
    EXPECT_EQ(Here().Fret, "7");
    grey({"mnuHash"}, false);
    Does("mnuNoteClear");
    grey({"mnuNoteClear", "mnuNoteUp", "mnuNoteEffectsGhostNote", "mnuNoteDynamicsFF", "mnuNoteTechniquesStaccato",
          "mnuChordUpStroke", "mnuChordTechniquesVibrato"},
         false);
    grey({"mnuHash", "mnuNoteLinkNote", "mnuNoteEffectsLetRing", "mnuChordDotted", "mnuChordXTuplets3"}, true);
    EXPECT_FALSE(Shows("mnuNoteDynamicsMF")) << "there is no note";
    Does("mnuHash");
    EXPECT_EQ(Beat().Hash, 1);
    grey({"mnuChordUpStroke"}, true);
    Does("mnuHash");
    Does("mnuChordRepeat");
    EXPECT_EQ(Here().Fret, "7");
    Does("mnuChordMoveLeft");
    EXPECT_EQ(Open.CurStrum, 0);
    grey({"mnuChordMoveLeft", "mnuChordRepeat"}, false);
    Does("mnuChordMoveRight");
    Does("mnuChordShiftRight");
    EXPECT_EQ(Core::NumberOfStrums(0, 0), 2);
    EXPECT_EQ(Open.CurStrum, 2);
    Open.TabFile.Tracks[0].IsDrum = true;
    grey({"mnuNoteTechniquesStaccato", "mnuChordUpStroke", "mnuChordMoveRight", "mnuNoteLinkNote", "mnuNoteUp"}, false);
    grey({"mnuNoteDynamicsFF", "mnuNoteEffectsAccentuate", "mnuChordLengthHalf", "mnuNoteClear"}, true);
    Open.CurBar = 7;
    for (const Command& command : Rows()) EXPECT_NO_THROW(IsEnabled(command) && IsChecked(command)) << command.Name;
}

TEST_F(NoteCommands, ALockedFileStaysAsItIs) {
    Open.TabFile.HasPassword = true;
    Open.TabFile.Password = "x";
    const Core::TabFile before = Open.TabFile;
    for (const Command& command : Rows()) RunCommand(command);
    EXPECT_TRUE(Open.TabFile == before);
}

TEST_F(NoteCommands, TheCursorGoesAlongWhenTheWayOfInputChanges) {
    Does("mnuInputSwitch");
    EXPECT_TRUE(Shows("mnuInputNotation"));
    EXPECT_EQ(Open.CurPitch, 62) << "fret 3 of string 1";
    Open.CurPitch = 62;
    Open.CurString = 4;
    Does("mnuInputTab");
    EXPECT_EQ(Open.CurString, 1) << "the string of that note";
    Open.CurString = 3;
    Does("mnuInputNotation");
    EXPECT_EQ(Open.CurPitch, 50) << "the open string";
    Open.CurPitch = 41;
    Does("mnuInputTab");
    EXPECT_EQ(Open.CurString, 5) << "the only one that reaches it";
    EXPECT_FALSE(Open.FileChanged);
    Open.TabFile.Tracks[0].ShowTreble = false;
    EXPECT_FALSE(Can("mnuInputNotation"));
    EXPECT_FALSE(Can("mnuInputSwitch"));
}

TEST_F(NoteCommands, TheListOfShortcutsHasAllKeysByTheirOldNames) {
    std::string list;
    for (const ShortcutGroup& group : ShortcutGroups()) {
        for (const ShortcutLine& line : group.Lines) {
            list += line.Caption + " = " + line.Keys.front() + line.Mark + "\n";
        }
    }
    for (const char* const line : {"String Bend On/Off = B *",
                                   "Add Chord = C *",
                                   "Add Text = Shift+T",
                                   "Hammer On/Pull Off = H *",
                                   "Slide = S *",
                                   "Ghost Note On/Off = G *",
                                   "Tap = T *",
                                   "Vibrato = V *",
                                   "Upstroke = U *",
                                   "Downstroke = D *",
                                   "Tie Note On/Off = L *",
                                   "Increase/Decrease Beat Length = + / -",
                                   "Dotted Note = .",
                                   "Repeat Previous Chord = R *",
                                   "Subtract 1 from Note = Shift+- *",
                                   "Add 1 to Note = Shift++ *",
                                   "Let Ring = Shift+R *",
                                   "Move Chord Right = Shift+M *",
                                   "Move Chord Left = Shift+N *",
                                   "Shift Chord Right = Shift+O *",
                                   "Triplet On/Off = Shift+3",
                                   "5let On/Off = Shift+5",
                                   "6let On/Off = Shift+6",
                                   "7let On/Off = Shift+7",
                                   "9let On/Off = Shift+9",
                                   "Toggle notation note = Enter",
                                   "Play Tab = Space",
                                   "Play from current bar = Shift+Space",
                                   "Move up a string / line / note = Up",
                                   "Move down a string / line / note = Down",
                                   "Move left a chord = Left",
                                   "Move right a chord = Right",
                                   "Delete this beat = Shift+Del",
                                   "Insert a beat = Shift+Ins",
                                   "Clear Note Value = Del",
                                   "Save as = Ctrl+Shift+S"}) {
        EXPECT_NE(list.find(std::string(line) + "\n"), std::string::npos) << line;
    }
    EXPECT_EQ(Core::LanguageText("str_KeyNormalOnly"), "* = normal tracks only");
    for (const Command& command : Commands()) {
        if (command.ScoreKey.empty()) continue;
        const bool listed = std::ranges::count(ScoreKeys(), command.Name, &ScoreKey::Command) == 1;
        EXPECT_TRUE(listed) << command.Name << " has a key that the list lacks";
    }
    const ShortcutGroup notes = ShortcutGroups().front();
    const auto found = [&](const char* typed) {
        return std::ranges::count_if(notes.Lines,
                                     [&](const ShortcutLine& line) { return Matches(notes, line, typed); });
    };
    EXPECT_EQ(found("shift+r"), 1);
    EXPECT_EQ(found("CHORD move"), 4);
    EXPECT_EQ(found("no such"), 0);
}

}  // namespace
}  // namespace Quillon::Shell
