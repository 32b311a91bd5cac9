#include "core/mod_TabFileManipulation.h"
#include "core/mod_TabFileStructure.h"
#include "shell/CommandRows.h"
#include "shell/CursorState.h"
#include "shell/GoCommands.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr std::string_view NavigationToolbar = "File Navigation";

bool AtBarStart() { return Open.CurStrum == 0; }
bool AtBarEnd() { return !InScore() || Open.CurStrum == Core::NumberOfStrums(Open.CurTrack, Open.CurBar); }
bool NotAtStart() { return Open.CurBar > 0 || !AtBarStart(); }
bool HasNextBar() { return InScore() && Open.CurBar < Core::NumberOfBars(Open.CurTrack); }
bool NotAtEnd() { return HasNextBar() || !AtBarEnd(); }
bool OnGotoPoint() { return InScore() && !Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).GotoText.empty(); }

/// The walks to the next point are always offered: asked at every painting, no walk through the song is worth it.
constexpr Command Table[] = {
    {.Name = "mnuGoGotoBar",
     .Menu = GoMenu,
     .Text = "str_GoGotoBar",
     .Shortcut = "Ctrl+G",
     .Icon = "goto-bar",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoGotoBar_Click},
    {.Name = "mnuGoFirstBar",
     .Menu = GoMenu,
     .Text = "str_GoFirstBar",
     .Shortcut = "Ctrl+Home",
     .Icon = "go-first",
     .Toolbar = NavigationToolbar,
     .SeparatorBefore = true,
     .Run = mnuGoFirstBar_Click,
     .Enabled = NotAtStart},
    {.Name = "mnuGoPreviousBar",
     .Menu = GoMenu,
     .Text = "str_GoPreviousBar",
     .Shortcut = "Ctrl+Left",
     .Icon = "go-previous-bar",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoPreviousBar_Click,
     .Enabled = NotAtStart},
    {.Name = "mnuGoPreviousBeat",
     .Menu = GoMenu,
     .Text = "str_GoPreviousBeat",
     .ScoreKey = "Left",
     .Icon = "go-previous-beat",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoPreviousBeat_Click,
     .Enabled = NotAtStart},
    {.Name = "mnuGoNextBeat",
     .Menu = GoMenu,
     .Text = "str_GoNextBeat",
     .ScoreKey = "Right",
     .Icon = "go-next-beat",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoNextBeat_Click},
    {.Name = "mnuGoNextBar",
     .Menu = GoMenu,
     .Text = "str_GoNextBar",
     .Shortcut = "Ctrl+Right",
     .Icon = "go-next-bar",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoNextBar_Click,
     .Enabled = HasNextBar},
    {.Name = "mnuGoLastBar",
     .Menu = GoMenu,
     .Text = "str_GoLastBar",
     .Shortcut = "Ctrl+End",
     .Icon = "go-last",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoLastBar_Click,
     .Enabled = NotAtEnd},
    {.Name = "mnuGoBeginning",
     .Menu = GoMenu,
     .Text = "str_GoBeginning",
     .Shortcut = "Home",
     .SeparatorBefore = true,
     .Run = mnuGoBeginning_Click,
     .Enabled = [] { return !AtBarStart(); }},
    {.Name = "mnuGoEnd",
     .Menu = GoMenu,
     .Text = "str_GoEnd",
     .Shortcut = "End",
     .Run = mnuGoEnd_Click,
     .Enabled = [] { return !AtBarEnd(); }},
    {.Name = "mnuGoSetPoint",
     .Menu = GoMenu,
     .Text = "str_GoSetPoint",
     .Shortcut = "Ctrl+Shift+G",
     .Icon = "goto-point",
     .Toolbar = NavigationToolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuGoSetPoint_Click,
     .Checked = OnGotoPoint},
    {.Name = "mnuGoPreviousPoint",
     .Menu = GoMenu,
     .Text = "str_GoPreviousPoint",
     .Shortcut = "Ctrl+Shift+Left",
     .Icon = "go-previous-point",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoPreviousPoint_Click},
    {.Name = "mnuGoNextPoint",
     .Menu = GoMenu,
     .Text = "str_GoNextPoint",
     .Shortcut = "Ctrl+Shift+Right",
     .Icon = "go-next-point",
     .Toolbar = NavigationToolbar,
     .Run = mnuGoNextPoint_Click},
    // Shows while there are none; else they stand in its place.
    {.Name = "mnuGoGotoPoint",
     .Menu = GoMenu,
     .Text = "str_GoNoPoints",
     .SeparatorBefore = true,
     .Enabled = [] { return false; },
     .Is = Command::Kind::GotoPoints},
};

}  // namespace

std::span<const Command> GoCommandRows() { return Table; }

}  // namespace Quillon::Shell
