#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "shell/BarCommands.h"
#include "shell/CommandRows.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr std::string_view TrackToolbar = "Track";
constexpr std::string_view Bar1Toolbar = "Bar 1";
constexpr std::string_view Bar2Toolbar = "Bar 2";

bool ManyTracks() { return Open.TabFile.Tracks.Count() > 1; }
bool CanMoveUp() { return Open.CurTrack > 0; }
bool CanMoveDown() { return Open.CurTrack < Open.TabFile.Tracks.UpperBound(); }

bool CanShrink() {
    if (!OnBar()) return false;
    if (Core::NumberOfStrums(Open.CurTrack, Open.CurBar) > 0) return true;
    return Open.CurBar > 0 && !ManyTracks();
}
bool CanFix() { return OnBar() && Editing::BarFullness(Open.CurTrack, Open.CurBar) != Editing::Fullness::Full; }

Core::BarInfo Info() { return OnBar() ? Open.TabFile.BarInfos[Open.CurBar] : Core::BarInfo{}; }
bool Opens() { return Info().RepeatOpen; }
bool Closes() { return Info().RepeatClose > 0; }
bool HasSign() {
    const Core::BarInfo info = Info();
    return info.Segno != 0 || info.DalSegno != 0 || info.ToCoda != 0 || info.CodaMark != 0;
}

constexpr Command Table[] = {
    {.Name = "mnuTrackAdd",
     .Menu = TrackMenu,
     .Text = "str_TrackAdd",
     .Shortcut = "Ctrl+Shift+N",
     .Icon = "track-add",
     .Toolbar = TrackToolbar,
     .SeparatorBefore = true,
     .Run = mnuTrackAdd_Click},
    {.Name = "mnuImportMIDITrack",
     .Menu = TrackMenu,
     .Text = "str_ImportMidiTrack",
     .Icon = "import-midi",
     .Run = mnuImportMIDITrack_Click},
    {.Name = "mnuTrackDelete",
     .Menu = TrackMenu,
     .Text = "str_TrackDelete",
     .Icon = "track-delete",
     .Toolbar = TrackToolbar,
     .Run = mnuTrackDelete_Click,
     .Enabled = ManyTracks},
    {.Name = "mnuTrackMoveUp",
     .Menu = TrackMenu,
     .Text = "str_TrackMoveUp",
     .Icon = "track-up",
     .Run = mnuTrackMoveUp_Click,
     .Enabled = CanMoveUp},
    {.Name = "mnuTrackMoveDown",
     .Menu = TrackMenu,
     .Text = "str_TrackMoveDown",
     .Icon = "track-down",
     .Run = mnuTrackMoveDown_Click,
     .Enabled = CanMoveDown},

    {.Name = "mnuBarInsert",
     .Menu = BarMenu,
     .Text = "str_BarInsert",
     .Shortcut = "Ctrl+B",
     .Icon = "bar-insert",
     .Toolbar = Bar1Toolbar,
     .RightMenu = true,
     .Run = mnuBarInsert_Click},
    {.Name = "mnuBarAppend",
     .Menu = BarMenu,
     .Text = "str_BarAppend",
     .Shortcut = "Ctrl+Shift+B",
     .Icon = "bar-append",
     .Toolbar = Bar1Toolbar,
     .RightMenu = true,
     .Run = mnuBarAppend_Click},
    {.Name = "mnuBarRemove",
     .Menu = BarMenu,
     .Text = "str_BarRemove",
     .Icon = "bar-remove",
     .Toolbar = Bar1Toolbar,
     .RightMenu = true,
     .Run = mnuBarRemove_Click},
    {.Name = "mnuBarClear",
     .Menu = BarMenu,
     .Text = "str_BarClear",
     .Icon = "bar-clear",
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuBarClear_Click},
    {.Name = "mnuBarShrink",
     .Menu = BarMenu,
     .Text = "str_BarShrink",
     .RightMenu = true,
     .Run = mnuBarShrink_Click,
     .Enabled = CanShrink},
    {.Name = "mnuFixThisBar",
     .Menu = BarMenu,
     .Text = "str_FixThisBar",
     .Icon = "bar-fix",
     .Toolbar = Bar1Toolbar,
     .RightMenu = true,
     .Run = mnuFixThisBar_Click,
     .Enabled = CanFix},
    {.Name = "mnuFixAllBars", .Menu = BarMenu, .Text = "str_FixAllBars", .Run = mnuFixAllBars_Click},
    // Their keys, Shift+Ins and Shift+Del, are the score's own: there they are steps that can be undone.
    {.Name = "mnuNoteInsertBeat",
     .Menu = BarMenu,
     .Text = "str_NoteInsertBeat",
     .ScoreKey = "Shift+Ins",
     .Icon = "beat-insert",
     .Toolbar = "Note Editing",
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuNoteInsertBeat_Click},
    {.Name = "mnuNoteDeleteBeat",
     .Menu = BarMenu,
     .Text = "str_NoteDeleteBeat",
     .ScoreKey = "Shift+Del",
     .Icon = "beat-delete",
     .Toolbar = "Note Editing",
     .RightMenu = true,
     .Run = mnuNoteDeleteBeat_Click},
    {.Name = "mnuBarTimeSig",
     .Menu = BarMenu,
     .Text = "str_BarTimeSig",
     .Icon = "time-signature",
     .Toolbar = Bar2Toolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuBarTimeSig_Click},
    {.Name = "mnuBarKeySig",
     .Menu = BarMenu,
     .Text = "str_BarKeySig",
     .Icon = "key-signature",
     .Toolbar = Bar2Toolbar,
     .RightMenu = true,
     .Run = mnuBarKeySig_Click},
    {.Name = "mnuBarRepeatOpen",
     .Menu = BarMenu,
     .Text = "str_BarRepeatOpen",
     .Icon = "repeat-open",
     .Toolbar = Bar2Toolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuBarRepeatOpen_Click,
     .Checked = Opens},
    {.Name = "mnuBarEndRepeat",
     .Menu = BarMenu,
     .Text = "str_BarEndRepeat",
     .Icon = "repeat-close",
     .Toolbar = Bar2Toolbar,
     .RightMenu = true,
     .Run = mnuBarEndRepeat_Click,
     .Checked = Closes},
    {.Name = "mnuBarCoda",
     .Menu = BarMenu,
     .Text = "str_BarCoda",
     .Icon = "coda",
     .Toolbar = Bar2Toolbar,
     .RightMenu = true,
     .Run = mnuBarCoda_Click,
     .Checked = HasSign},
};

}  // namespace

std::span<const Command> BarCommandRows() { return Table; }

}  // namespace Quillon::Shell
