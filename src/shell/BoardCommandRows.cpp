// The commands of the boards beside the paper, of what is heard, and of the beats.
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_NoteEntry.h"
#include "playback/mod_TabPlayer.h"
#include "shell/Boards.h"
#include "shell/CommandRows.h"
#include "shell/GoCommands.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr Command Table[] = {
    {.Name = "mnuViewFretboard",
     .Menu = ViewMenu,
     .Text = "str_ViewFretboard",
     .Shortcut = "Ctrl+Shift+F",
     .Icon = "fretboard",
     .WhilePlaying = true,
     .Run = mnuViewFretboard_Click,
     .Checked = [] { return Program.FretboardVisible; }},
    {.Name = "mnuViewFretboardNames",
     .Menu = ViewMenu,
     .Text = "str_ViewFretboardNames",
     .WhilePlaying = true,
     .Run = mnuViewFretboardNames_Click,
     .Enabled = [] { return Program.FretboardVisible; },
     .Checked = [] { return Program.FretboardNames; }},
    {.Name = "mnuViewPiano",
     .Menu = ViewMenu,
     .Text = "str_ViewPiano",
     .Shortcut = "Ctrl+Shift+K",
     .Icon = "piano",
     .WhilePlaying = true,
     .Run = mnuViewPiano_Click,
     .Checked = [] { return Program.PianoVisible; }},

    {.Name = "mnuTrackMute",
     .Menu = TrackMenu,
     .Text = "str_TrackMute",
     .Shortcut = "Ctrl+Shift+M",
     .Icon = "track-mute",
     .SeparatorBefore = true,
     .WhilePlaying = true,
     .Run = mnuTrackMute_Click,
     .Checked = [] { return Playback::Player.Listening.IsMuted(Open.CurTrack); }},
    {.Name = "mnuTrackSolo",
     .Menu = TrackMenu,
     .Text = "str_TrackSolo",
     .Shortcut = "Ctrl+Shift+O",
     .Icon = "track-solo",
     .WhilePlaying = true,
     .Run = mnuTrackSolo_Click,
     .Checked = [] { return Playback::Player.Listening.IsSolo(Open.CurTrack); }},

    {.Name = "mnuChordRest",
     .Menu = ChordMenu,
     .Text = "str_ChordRest",
     .Icon = "beat-rest",
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuChordRest_Click},
};

}  // namespace

std::span<const Command> BoardCommandRows() { return Table; }

void mnuViewFretboard_Click() {
    Program.FretboardVisible = !Program.FretboardVisible;
    Program.View->UpdateCommands();
}

void mnuViewFretboardNames_Click() {
    Program.FretboardNames = !Program.FretboardNames;
    Program.View->UpdateCommands();
}

void mnuViewPiano_Click() {
    Program.PianoVisible = !Program.PianoVisible;
    Program.View->UpdateCommands();
}

void mnuTrackMute_Click() { ToggleMute(Open.CurTrack); }
void mnuTrackSolo_Click() { ToggleSolo(Open.CurTrack); }

void mnuChordRest_Click() {
    if (Core::HasNotes(Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum))) {
        if (!PasswordCorrect()) return;
        Core::ClearStrum(Open.CurTrack, Open.CurBar, Open.CurStrum);
        MarkEdited();
    }
    mnuGoNextBeat_Click();
}

}  // namespace Quillon::Shell
