// The keys of the commands on notes and strums, one row each.
#include <algorithm>
#include <cstdint>
#include <iterator>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_NoteEntry.h"

namespace Quillon::Editing {

using Core::Note;
using Core::OpenDocument;
using Core::Strum;

namespace {

/// What a command needs to do anything.
enum class Needs : std::uint8_t { Nothing, Note, Strum };

struct Shortcut {
    int Code;
    bool Shift;
    Needs Wanted;
    bool (*Run)(OpenDocument& open);
};

Strum& EditStrum(OpenDocument& open) {
    return open.TabFile.Tracks[open.CurTrack].Bars.Edit(open.CurBar).EditStrums()[open.CurStrum];
}

Note& EditNote(OpenDocument& open) { return EditStrum(open).Notes.Edit(open.CurString); }

template <bool Note::*Mark>
bool ToggleMark(OpenDocument& open) {
    Note& note = EditNote(open);
    note.*Mark = !(note.*Mark);
    return true;
}

template <std::int32_t Technique>
bool ToggleNoteTechnique(OpenDocument& open) {
    Note& note = EditNote(open);
    note.Technique = note.Technique == Technique ? 0 : Technique;
    return true;
}

template <std::int32_t Strum::*Field, std::int32_t Value>
bool ToggleOfStrum(OpenDocument& open) {
    Strum& strum = EditStrum(open);
    strum.*Field = strum.*Field == Value ? 0 : Value;
    return true;
}

bool Ask(EntryDialog dialog) { return Entry.OpenDialog && Entry.OpenDialog(dialog); }

bool BendOnOff(OpenDocument& open) {
    const Strum& strum = open.TabFile.Tracks[open.CurTrack].Bars[open.CurBar].Strums()[open.CurStrum];
    if (!strum.Notes[open.CurString].HasBend) return Ask(EntryDialog::Bend);
    EditNote(open).HasBend = false;
    return true;
}

constexpr std::int32_t UpStroke = 1;
constexpr std::int32_t DownStroke = 2;

constexpr Shortcut NoteShortcuts[] = {
    {'B', false, Needs::Note, BendOnOff},
    {'H', false, Needs::Note, ToggleNoteTechnique<Core::HammerOnPullOff>},
    {'S', false, Needs::Note, ToggleNoteTechnique<Core::LegatoSlide>},
    {'G', false, Needs::Note, ToggleMark<&Note::Ghost>},
    {'T', false, Needs::Strum, ToggleOfStrum<&Strum::Technique, Core::Tapping>},
    {'V', false, Needs::Strum, ToggleOfStrum<&Strum::Technique, Core::Vibrato>},
    {'U', false, Needs::Strum, ToggleOfStrum<&Strum::Stroke, UpStroke>},
    {'D', false, Needs::Strum, ToggleOfStrum<&Strum::Stroke, DownStroke>},
    {'C', false, Needs::Nothing, [](OpenDocument&) { return Ask(EntryDialog::Chord); }},
    {'L', false, Needs::Nothing, ToggleMark<&Note::Tied>},
    {'R', false, Needs::Nothing, RepeatStrum},
    {KeypadSubtract, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, -1); }},
    {KeyMinus, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, -1); }},
    {KeypadAdd, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, 1); }},
    {KeyPlus, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, 1); }},
    {'R', true, Needs::Nothing, ToggleMark<&Note::LetRing>},
    {'M', true, Needs::Nothing, [](OpenDocument& open) { return MoveStrumRight(open), true; }},
    {'N', true, Needs::Nothing, MoveStrumLeft},
    {'O', true, Needs::Nothing, [](OpenDocument& open) { return ShiftStrumRight(open), true; }},
    {'T', true, Needs::Nothing, [](OpenDocument&) { return Ask(EntryDialog::Text); }},
};

bool ToggleDot(OpenDocument& open) {
    Strum& strum = EditStrum(open);
    strum.Dotted = !strum.Dotted;
    return true;
}

bool Longer(OpenDocument& open) { return ChangeLength(open, -1); }
bool Shorter(OpenDocument& open) { return ChangeLength(open, 1); }

template <std::int32_t Kind>
bool Tuplet(OpenDocument& open) {
    ToggleTuplet(open, Kind);
    return true;
}

constexpr Shortcut LengthShortcuts[] = {
    {KeypadSubtract, false, Needs::Nothing, Shorter},
    {KeyMinus, false, Needs::Nothing, Shorter},
    {KeypadAdd, false, Needs::Nothing, Longer},
    {KeyPlus, false, Needs::Nothing, Longer},
    {KeypadDecimal, false, Needs::Nothing, ToggleDot},
    {KeyPeriod, false, Needs::Nothing, ToggleDot},
    {'3', true, Needs::Nothing, Tuplet<0>},
    {'5', true, Needs::Nothing, Tuplet<1>},
    {'6', true, Needs::Nothing, Tuplet<2>},
    {'7', true, Needs::Nothing, Tuplet<3>},
    {'9', true, Needs::Nothing, Tuplet<4>},
};

template <std::size_t Count>
bool RunShortcut(const Shortcut (&table)[Count], OpenDocument& open, KeyPress key) {
    const auto* const found = std::find_if(std::begin(table), std::end(table), [&](const Shortcut& each) {
        return each.Code == key.Code && each.Shift == key.Shift;
    });
    if (found == std::end(table)) return false;
    if (found->Wanted == Needs::Note && !NoteUnderCursor(open)) return false;
    if (found->Wanted == Needs::Strum && StrumIsEmpty(open.TabFile, open.CurTrack, open.CurBar, open.CurStrum)) {
        return false;
    }
    return found->Run(open);
}

}  // namespace

bool RunNoteShortcut(OpenDocument& open, KeyPress key) { return RunShortcut(NoteShortcuts, open, key); }

bool RunLengthShortcut(OpenDocument& open, KeyPress key) { return RunShortcut(LengthShortcuts, open, key); }

}  // namespace Quillon::Editing
