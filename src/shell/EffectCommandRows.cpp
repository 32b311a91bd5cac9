#include "core/mod_TabFileStructure.h"
#include "shell/CommandRows.h"
#include "shell/CursorState.h"
#include "shell/EffectCommands.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr std::string_view EffectsToolbar = "Note Effects 1";
constexpr std::string_view NoteToolbar = "Note Misc";
constexpr std::string_view ChordToolbar = "Chord 2";

template <bool Core::Strum::*Mark>
bool StrumHas() {
    return OnStrum() && Editing::StrumAtCursor(Open).*Mark;
}

constexpr Command Table[] = {
    {.Name = "mnuNoteEffectsBend",
     .Menu = NoteEffectsMenu,
     .Text = "str_NoteEffectsBend",
     .ScoreKey = "B",
     .Icon = "bend",
     .Toolbar = EffectsToolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuNoteEffectsBend_Click,
     .Enabled = OnFrettedNote,
     .Checked = NoteHas<&Core::Note::HasBend>},
    {.Name = "mnuNoteEffectsGrace",
     .Menu = NoteEffectsMenu,
     .Text = "str_NoteEffectsGrace",
     .Icon = "grace-note",
     .Toolbar = EffectsToolbar,
     .RightMenu = true,
     .Run = mnuNoteEffectsGrace_Click,
     .Enabled = OnFrettedNote,
     .Checked = NoteHas<&Core::Note::HasGrace>},
    {.Name = "mnuNoteEffectsTrill",
     .Menu = NoteEffectsMenu,
     .Text = "str_NoteEffectsTrill",
     .Icon = "trill",
     .Toolbar = EffectsToolbar,
     .RightMenu = true,
     .Run = mnuNoteEffectsTrill_Click,
     .Enabled = OnFrettedNote,
     .Checked = NoteHas<&Core::Note::HasTrill>},
    {.Name = "mnuNoteProperties",
     .Menu = NoteMenu,
     .Text = "str_NoteProperties",
     .Icon = "note-properties",
     .Toolbar = NoteToolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuNoteProperties_Click,
     .Enabled = OnNote},
    {.Name = "mnuChordTremBar",
     .Menu = ChordMenu,
     .Text = "str_ChordTremBar",
     .Icon = "tremolo-bar",
     .Toolbar = ChordToolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuChordTremBar_Click,
     .Enabled = OnFrets,
     .Checked = StrumHas<&Core::Strum::HasTrem>},
    {.Name = "mnuChordChord",
     .Menu = ChordMenu,
     .Text = "str_ChordChord",
     .ScoreKey = "C",
     .Icon = "chord",
     .Toolbar = ChordToolbar,
     .RightMenu = true,
     .Run = mnuChordChord_Click,
     .Enabled = OnFrets,
     .Checked = StrumHas<&Core::Strum::HasChord>},
    {.Name = "mnuChordText",
     .Menu = ChordMenu,
     .Text = "str_ChordText",
     .ScoreKey = "Shift+T",
     .Icon = "text",
     .Toolbar = ChordToolbar,
     .RightMenu = true,
     .Run = mnuChordText_Click,
     .Enabled = OnStrum,
     .Checked = [] { return OnStrum() && !Editing::StrumAtCursor(Open).Text.empty(); }},
};

}  // namespace

std::span<const Command> EffectCommandRows() { return Table; }

}  // namespace Quillon::Shell
