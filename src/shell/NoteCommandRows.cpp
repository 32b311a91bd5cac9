// The menu Note, and the ways of input of the menu Edit.
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "shell/CommandRows.h"
#include "shell/CursorState.h"
#include "shell/NoteCommands.h"

namespace Quillon::Shell {

using Core::Note;
using Core::Open;

namespace {

constexpr std::string_view InputMenu = "str_MenuEdit/str_MenuInput";
constexpr std::string_view TechniquesMenu = "str_MenuNote/str_MenuNoteTechniques";
constexpr std::string_view HarmonicsMenu = "str_MenuNote/str_MenuNoteHarmonics";
constexpr std::string_view DynamicsMenu = "str_MenuNote/str_MenuNoteDynamics";
constexpr std::string_view LeftFingerMenu = "str_MenuNote/str_MenuNoteLeftFinger";
constexpr std::string_view RightFingerMenu = "str_MenuNote/str_MenuNoteRightFinger";
constexpr std::string_view EditingToolbar = "Note Editing";
constexpr std::string_view SlidesToolbar = "Note Effects 1";
constexpr std::string_view HarmonicsToolbar = "Note Effects 2";
constexpr std::string_view PickingToolbar = "Note Effects 3";
constexpr std::string_view AccentsToolbar = "Note Effects 4";
constexpr std::string_view DynamicsToolbar = "Note Misc";

/// The cursor must have something to stand on.
bool HasTab() { return OnStrum() && Open.TabFile.Tracks[Open.CurTrack].ShowTab; }
bool HasNotation() {
    if (!OnStrum()) return false;
    const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    return track.ShowTreble || track.ShowBass;
}

template <int By>
bool CanAdd() {
    return OnFrets() && Editing::CanAddToFret(Open, By);
}
template <int By>
bool CanShift() {
    return OnFrets() && Editing::CanShiftNote(Open, By);
}

template <std::int32_t Entry>
constexpr Command Technique(std::string_view name, std::string_view text, std::string_view icon,
                            std::string_view toolbar, std::string_view key = {}) {
    constexpr std::int32_t code = NoteTechniqueCodes[std::size_t{Entry}];
    return {.Name = name,
            .Menu = TechniquesMenu,
            .Text = text,
            .ScoreKey = key,
            .Icon = icon,
            .Toolbar = toolbar,
            .RightMenu = true,
            .Radio = true,
            .Run = RunEntry<mnuNoteTechniques_Click, Entry>,
            .Enabled = OnFrettedNote,
            .Checked = NoteIs<&Note::Technique, code>};
}

template <std::int32_t Code>
constexpr Command Harmonic(std::string_view name, std::string_view text, std::string_view icon = {}) {
    return {.Name = name,
            .Menu = HarmonicsMenu,
            .Text = text,
            .Icon = icon,
            .Toolbar = icon.empty() ? std::string_view() : HarmonicsToolbar,
            .RightMenu = true,
            .Radio = true,
            .Run = RunEntry<mnuNoteHarmonics_Click, Code>,
            .Enabled = OnFrettedNote,
            .Checked = NoteIs<&Note::Harmonic, Code>};
}

template <std::int32_t Code>
constexpr Command Dynamic(std::string_view name, std::string_view text, std::string_view icon) {
    return {.Name = name,
            .Menu = DynamicsMenu,
            .Text = text,
            .Icon = icon,
            .Toolbar = DynamicsToolbar,
            .RightMenu = true,
            .Radio = true,
            .SaysMenu = true,
            .Run = RunEntry<mnuNoteDynamics_Click, Code>,
            .Enabled = OnNote,
            .Checked = NoteIs<&Note::Dynamic, Code>};
}

template <void (*Handler)(std::int32_t), std::int32_t Note::*Field, std::int32_t Code>
constexpr Command Finger(std::string_view name, std::string_view menu, std::string_view text) {
    return {.Name = name,
            .Menu = menu,
            .Text = text,
            .RightMenu = true,
            .Radio = true,
            .SaysMenu = true,
            .Run = RunEntry<Handler, Code>,
            .Enabled = OnFrettedNote,
            .Checked = NoteIs<Field, Code>};
}
template <std::int32_t Code>
constexpr Command LeftFinger(std::string_view name, std::string_view text) {
    return Finger<mnuNoteLeftFinger_Click, &Note::LeftFinger, Code>(name, LeftFingerMenu, text);
}
template <std::int32_t Code>
constexpr Command RightFinger(std::string_view name, std::string_view text) {
    return Finger<mnuNoteRightFinger_Click, &Note::RightFinger, Code>(name, RightFingerMenu, text);
}

constexpr Command Table[] = {
    {.Name = "mnuInputTab",
     .Menu = InputMenu,
     .Text = "str_InputTab",
     .Icon = "input-tab",
     .Toolbar = "Input Toolbar",
     .Radio = true,
     .Run = mnuInputTab_Click,
     .Enabled = HasTab,
     .Checked = [] { return Open.InputMode == Core::TabInput; }},
    {.Name = "mnuInputNotation",
     .Menu = InputMenu,
     .Text = "str_InputNotation",
     .Icon = "input-notation",
     .Toolbar = "Input Toolbar",
     .Radio = true,
     .Run = mnuInputNotation_Click,
     .Enabled = HasNotation,
     .Checked = [] { return Open.InputMode != Core::TabInput; }},
    {.Name = "mnuInputSwitch",
     .Menu = InputMenu,
     .Text = "str_InputSwitch",
     .Shortcut = "Ctrl+Shift+I",
     .SeparatorBefore = true,
     .Run = mnuInputSwitch_Click,
     .Enabled = [] { return Open.InputMode == Core::TabInput ? HasNotation() : HasTab(); }},

    {.Name = "mnuNoteClear",
     .Menu = NoteMenu,
     .Text = "str_NoteClear",
     .ScoreKey = "Del",
     .Icon = "note-clear",
     .Toolbar = EditingToolbar,
     .RightMenu = true,
     .Run = mnuNoteClear_Click,
     .Enabled = [] { return OnStrum() && Editing::CanDeleteNote(Open); }},
    {.Name = "mnuNoteUp",
     .Menu = NoteMenu,
     .Text = "str_NoteUp",
     .ScoreKey = "Shift++",
     .Icon = "note-up",
     .Toolbar = EditingToolbar,
     .SeparatorBefore = true,
     .Run = mnuNoteUp_Click,
     .Enabled = CanAdd<1>},
    {.Name = "mnuNoteDown",
     .Menu = NoteMenu,
     .Text = "str_NoteDown",
     .ScoreKey = "Shift+-",
     .Icon = "note-down",
     .Toolbar = EditingToolbar,
     .Run = mnuNoteDown_Click,
     .Enabled = CanAdd<-1>},
    {.Name = "mnuNoteShiftUp",
     .Menu = NoteMenu,
     .Text = "str_NoteShiftUp",
     .ScoreKey = "Shift+Up",
     .Icon = "note-string-up",
     .Toolbar = EditingToolbar,
     .RightMenu = true,
     .Run = mnuNoteShiftUp_Click,
     .Enabled = CanShift<-1>},
    {.Name = "mnuNoteShiftDown",
     .Menu = NoteMenu,
     .Text = "str_NoteShiftDown",
     .ScoreKey = "Shift+Down",
     .Icon = "note-string-down",
     .Toolbar = EditingToolbar,
     .RightMenu = true,
     .Run = mnuNoteShiftDown_Click,
     .Enabled = CanShift<1>},
    {.Name = "mnuNoteLinkNote",
     .Menu = NoteMenu,
     .Text = "str_NoteLinkNote",
     .ScoreKey = "L",
     .Icon = "tie",
     .Toolbar = AccentsToolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuNoteLinkNote_Click,
     .Enabled = OnFrets,
     .Checked = NoteHas<&Note::Tied>},
    {.Name = "mnuNoteEffectsLetRing",
     .Menu = NoteEffectsMenu,
     .Text = "str_NoteEffectsLetRing",
     .ScoreKey = "Shift+R",
     .Icon = "let-ring",
     .Toolbar = AccentsToolbar,
     .RightMenu = true,
     .Run = mnuNoteEffectsLetRing_Click,
     .Enabled = OnFrets,
     .Checked = NoteHas<&Note::LetRing>},
    {.Name = "mnuNoteEffectsGhostNote",
     .Menu = NoteEffectsMenu,
     .Text = "str_NoteEffectsGhostNote",
     .ScoreKey = "G",
     .Icon = "ghost-note",
     .Toolbar = AccentsToolbar,
     .RightMenu = true,
     .Run = mnuNoteEffectsGhostNote_Click,
     .Enabled = OnFrettedNote,
     .Checked = NoteHas<&Note::Ghost>},
    {.Name = "mnuNoteEffectsAccentuate",
     .Menu = NoteEffectsMenu,
     .Text = "str_NoteEffectsAccentuate",
     .Icon = "accent",
     .Toolbar = AccentsToolbar,
     .RightMenu = true,
     .Run = mnuNoteEffectsAccentuate_Click,
     .Enabled = OnNote,
     .Checked = NoteHas<&Note::Accentuate>},

    Technique<0>("mnuNoteTechniquesStaccato", "str_TechniqueStaccato", "staccato", PickingToolbar),
    Technique<1>("mnuNoteTechniquesTremolo8", "str_TechniqueTremolo8", "tremolo-8", PickingToolbar),
    Technique<2>("mnuNoteTechniquesTremolo16", "str_TechniqueTremolo16", "tremolo-16", PickingToolbar),
    Technique<3>("mnuNoteTechniquesTremolo32", "str_TechniqueTremolo32", "tremolo-32", PickingToolbar),
    Technique<4>("mnuNoteTechniquesSlideUp", "str_TechniqueSlideUp", "slide-up", SlidesToolbar),
    Technique<5>("mnuNoteTechniquesSlideDown", "str_TechniqueSlideDown", "slide-down", SlidesToolbar),
    Technique<6>("mnuNoteTechniquesLegatoSlide", "str_TechniqueLegatoSlide", "slide-legato", SlidesToolbar, "S"),
    Technique<7>("mnuNoteTechniquesSlideIntoDown", "str_TechniqueSlideIntoDown", "slide-into-down", SlidesToolbar),
    Technique<8>("mnuNoteTechniquesSlideIntoUp", "str_TechniqueSlideIntoUp", "slide-into-up", SlidesToolbar),
    Technique<9>("mnuNoteTechniquesHammerOn", "str_TechniqueHammerOn", "hammer-on", SlidesToolbar, "H"),

    Harmonic<Core::NoHarmonic>("mnuNoteHarmonicsNone", "str_HarmonicNone"),
    Harmonic<Core::NaturalHarmonic>("mnuNoteHarmonicsNatural", "str_HarmonicNatural", "harmonic-natural"),
    Harmonic<Core::ArtificialHarmonic5>("mnuNoteHarmonicsArtificial5", "str_HarmonicArtificial5", "harmonic-5"),
    Harmonic<Core::ArtificialHarmonic7>("mnuNoteHarmonicsArtificial7", "str_HarmonicArtificial7", "harmonic-7"),
    Harmonic<Core::ArtificialHarmonic12>("mnuNoteHarmonicsArtificial12", "str_HarmonicArtificial12", "harmonic-12"),
    Harmonic<Core::TappedHarmonic>("mnuNoteHarmonicsTapped", "str_HarmonicTapped", "harmonic-tapped"),
    Harmonic<Core::PitchHarmonic>("mnuNoteHarmonicsPitch", "str_HarmonicPitch", "harmonic-pitch"),
    Harmonic<Core::SemiHarmonic>("mnuNoteHarmonicsSemi", "str_HarmonicSemi", "harmonic-semi"),

    // By loudness; the codes are not.
    Dynamic<3>("mnuNoteDynamicsFFF", "str_DynamicFFF", "dynamic-fff"),
    Dynamic<2>("mnuNoteDynamicsFF", "str_DynamicFF", "dynamic-ff"),
    Dynamic<1>("mnuNoteDynamicsF", "str_DynamicF", "dynamic-f"),
    Dynamic<0>("mnuNoteDynamicsMF", "str_DynamicMF", "dynamic-mf"),
    Dynamic<4>("mnuNoteDynamicsMP", "str_DynamicMP", "dynamic-mp"),
    Dynamic<5>("mnuNoteDynamicsP", "str_DynamicP", "dynamic-p"),
    Dynamic<6>("mnuNoteDynamicsPP", "str_DynamicPP", "dynamic-pp"),
    Dynamic<7>("mnuNoteDynamicsPPP", "str_DynamicPPP", "dynamic-ppp"),

    LeftFinger<1>("mnuNoteLeftFingerT", "str_FingerT"),
    LeftFinger<2>("mnuNoteLeftFinger1", "str_Finger1"),
    LeftFinger<3>("mnuNoteLeftFinger2", "str_Finger2"),
    LeftFinger<4>("mnuNoteLeftFinger3", "str_Finger3"),
    LeftFinger<5>("mnuNoteLeftFinger4", "str_Finger4"),
    RightFinger<1>("mnuNoteRightFingerT", "str_FingerT"),
    RightFinger<2>("mnuNoteRightFingerI", "str_FingerI"),
    RightFinger<3>("mnuNoteRightFingerM", "str_FingerM"),
    RightFinger<4>("mnuNoteRightFingerA", "str_FingerA"),
    RightFinger<5>("mnuNoteRightFingerO", "str_FingerO"),
};

}  // namespace

std::span<const Command> NoteCommandRows() { return Table; }

}  // namespace Quillon::Shell
