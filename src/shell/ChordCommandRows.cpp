// The menu Chord: what the strum under the cursor is.
#include "core/mod_TabFileManipulation.h"
#include "shell/CommandRows.h"
#include "shell/CursorState.h"
#include "shell/NoteCommands.h"

namespace Quillon::Shell {

using Core::Open;
using Core::Strum;

namespace {

constexpr std::string_view LengthMenu = "str_MenuChord/str_MenuChordLength";
constexpr std::string_view TupletsMenu = "str_MenuChord/str_MenuChordTuplets";
constexpr std::string_view TechniquesMenu = "str_MenuChord/str_MenuChordTechniques";
constexpr std::string_view DurationToolbar = "Beat Duration";
constexpr std::string_view StrokesToolbar = "Chord 1";
constexpr std::string_view ChordsToolbar = "Chord 2";
constexpr std::string_view TupletsToolbar = "Chord 3";
constexpr std::string_view EditingToolbar = "Note Editing";

const Strum& Here() { return Editing::StrumAtCursor(Open); }

template <std::int32_t Kind>
bool IsTuplet() {
    return OnStrum() && Here().HasTuplet && Here().Tuplet == Kind;
}

/// A slash stands in for notes, not beside them.
bool CanHash() { return OnStrum() && (Here().Hash != 0 || !Core::HasNotes(Here())); }

template <std::int32_t Code>
constexpr Command Length(std::string_view name, std::string_view text, std::string_view icon) {
    return {.Name = name,
            .Menu = LengthMenu,
            .Text = text,
            .Icon = icon,
            .Toolbar = DurationToolbar,
            .RightMenu = true,
            .Radio = true,
            .SaysMenu = true,
            .Run = RunEntry<mnuChordLength_Click, Code>,
            .Enabled = OnStrum,
            .Checked = StrumIs<&Strum::Length, Code>};
}

/// The triplet stands beside the lengths, where it is looked for.
template <std::int32_t Kind>
constexpr Command Tuplet(std::string_view name, std::string_view text, std::string_view icon,
                         std::string_view key = {}) {
    return {.Name = name,
            .Menu = TupletsMenu,
            .Text = text,
            .ScoreKey = key,
            .Icon = icon,
            .Toolbar = Kind == 0 ? DurationToolbar : TupletsToolbar,
            .RightMenu = true,
            .Radio = true,
            .SaysMenu = true,
            .Run = RunEntry<mnuChordXTuplets_Click, Kind>,
            .Enabled = OnStrum,
            .Checked = IsTuplet<Kind>};
}

template <std::int32_t Code>
constexpr Command Technique(std::string_view name, std::string_view text, std::string_view icon,
                            std::string_view key = {}) {
    return {.Name = name,
            .Menu = TechniquesMenu,
            .Text = text,
            .ScoreKey = key,
            .Icon = icon,
            .Toolbar = StrokesToolbar,
            .RightMenu = true,
            .Radio = true,
            .Run = RunEntry<mnuChordTechniques_Click, Code - 1>,
            .Enabled = OnFrettedChord,
            .Checked = StrumIs<&Strum::Technique, Code>};
}

template <std::int32_t Code>
constexpr Command Stroke(std::string_view name, std::string_view text, std::string_view icon, std::string_view key,
                         void (*run)()) {
    return {.Name = name,
            .Menu = ChordMenu,
            .Text = text,
            .ScoreKey = key,
            .Icon = icon,
            .Toolbar = StrokesToolbar,
            .SeparatorBefore = Code == Editing::UpStroke,
            .RightMenu = true,
            .Radio = true,
            .Run = run,
            .Enabled = OnFrettedChord,
            .Checked = StrumIs<&Strum::Stroke, Code>};
}

constexpr Command Table[] = {
    Length<0>("mnuChordLengthWhole", "str_ChordWhole", "length-whole"),
    Length<1>("mnuChordLengthHalf", "str_ChordHalf", "length-half"),
    Length<2>("mnuChordLengthQuarter", "str_ChordQuarter", "length-quarter"),
    Length<3>("mnuChordLengthEighth", "str_ChordEighth", "length-eighth"),
    Length<4>("mnuChordLength16th", "str_Chord16th", "length-16th"),
    Length<5>("mnuChordLength32nd", "str_Chord32nd", "length-32nd"),
    Length<6>("mnuChordLength64th", "str_Chord64th", "length-64th"),
    {.Name = "mnuChordDotted",
     .Menu = ChordMenu,
     .Text = "str_ChordDotted",
     .ScoreKey = ".",
     .Icon = "dotted",
     .Toolbar = DurationToolbar,
     .RightMenu = true,
     .Run = mnuChordDotted_Click,
     .Enabled = OnStrum,
     .Checked = [] { return OnStrum() && Here().Dotted; }},
    Tuplet<0>("mnuChordXTuplets3", "str_Tuplet3", "tuplet-3", "Shift+3"),
    Tuplet<1>("mnuChordXTuplets5", "str_Tuplet5", "tuplet-5", "Shift+5"),
    Tuplet<2>("mnuChordXTuplets6", "str_Tuplet6", "tuplet-6", "Shift+6"),
    Tuplet<3>("mnuChordXTuplets7", "str_Tuplet7", "tuplet-7", "Shift+7"),
    Tuplet<4>("mnuChordXTuplets9", "str_Tuplet9", "tuplet-9", "Shift+9"),
    Tuplet<5>("mnuChordXTuplets10", "str_Tuplet10", "tuplet-10"),
    Tuplet<6>("mnuChordXTuplets11", "str_Tuplet11", "tuplet-11"),
    Tuplet<7>("mnuChordXTuplets12", "str_Tuplet12", "tuplet-12"),
    Tuplet<8>("mnuChordXTuplets13", "str_Tuplet13", "tuplet-13"),

    Stroke<Editing::UpStroke>("mnuChordUpStroke", "str_ChordUpStroke", "stroke-up", "U", mnuChordUpStroke_Click),
    Stroke<Editing::DownStroke>("mnuChordDownStroke", "str_ChordDownStroke", "stroke-down", "D",
                                mnuChordDownStroke_Click),
    Technique<Core::Vibrato>("mnuChordTechniquesVibrato", "str_ChordVibrato", "vibrato", "V"),
    Technique<Core::WideVibrato>("mnuChordTechniquesWideVibrato", "str_ChordWideVibrato", "vibrato-wide"),
    Technique<Core::PalmMute>("mnuChordTechniquesPalmMute", "str_ChordPalmMute", "palm-mute"),
    Technique<Core::Tapping>("mnuChordTechniquesTapping", "str_ChordTapping", "tapping", "T"),
    Technique<Core::Slapping>("mnuChordTechniquesSlapping", "str_ChordSlapping", "slapping"),
    Technique<Core::Popping>("mnuChordTechniquesPopping", "str_ChordPopping", "popping"),
    Technique<Core::FadeIn>("mnuChordTechniquesFadeIn", "str_ChordFadeIn", "fade-in"),

    {.Name = "mnuChordRepeat",
     .Menu = ChordMenu,
     .Text = "str_ChordRepeat",
     .ScoreKey = "R",
     .Icon = "chord-repeat",
     .Toolbar = ChordsToolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuChordRepeat_Click,
     .Enabled = [] { return OnFrets() && Open.CurStrum > 0; }},
    {.Name = "mnuHash",
     .Menu = ChordMenu,
     .Text = "str_Hash",
     .Icon = "hash",
     .Toolbar = ChordsToolbar,
     .RightMenu = true,
     .Run = mnuHash_Click,
     .Enabled = CanHash,
     .Checked = [] { return OnStrum() && Here().Hash != 0; }},
    {.Name = "mnuChordMoveLeft",
     .Menu = ChordMenu,
     .Text = "str_ChordMoveLeft",
     .ScoreKey = "Shift+N",
     .Icon = "chord-left",
     .Toolbar = EditingToolbar,
     .SeparatorBefore = true,
     .Run = mnuChordMoveLeft_Click,
     .Enabled = [] { return OnFrets() && (Open.CurStrum > 0 || Open.CurBar > 0); }},
    {.Name = "mnuChordMoveRight",
     .Menu = ChordMenu,
     .Text = "str_ChordMoveRight",
     .ScoreKey = "Shift+M",
     .Icon = "chord-right",
     .Toolbar = EditingToolbar,
     .Run = mnuChordMoveRight_Click,
     .Enabled = OnFrets},
    {.Name = "mnuChordShiftRight",
     .Menu = ChordMenu,
     .Text = "str_ChordShiftRight",
     .ScoreKey = "Shift+O",
     .Icon = "chord-shift",
     .Toolbar = EditingToolbar,
     .Run = mnuChordShiftRight_Click,
     .Enabled = OnFrets},
};

}  // namespace

std::span<const Command> ChordCommandRows() { return Table; }

}  // namespace Quillon::Shell
