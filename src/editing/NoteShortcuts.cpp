// The keys of the commands on notes and strums, one row each.
#include <algorithm>
#include <cstdint>
#include <iterator>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_NoteMarks.h"

namespace Quillon::Editing {

using Core::Note;
using Core::OpenDocument;
using Core::Strum;

namespace {

struct Shortcut {
    int Code;
    bool Shift;
    Needs Wanted;
    bool (*Run)(OpenDocument& open);
};

template <auto Mark>
bool Toggle(OpenDocument& open) {
    return ToggleMark(open, Mark);
}

template <auto Field, std::int32_t Code>
bool Toggle(OpenDocument& open) {
    return ToggleCode(open, Field, Code);
}

bool Ask(EntryDialog dialog) { return Entry.OpenDialog && Entry.OpenDialog(dialog); }

bool BendOnOff(OpenDocument& open) {
    return NoteAtCursor(open).HasBend ? ToggleMark(open, &Note::HasBend) : Ask(EntryDialog::Bend);
}

constexpr Shortcut NoteShortcuts[] = {
    {'B', false, Needs::Note, BendOnOff},
    {'H', false, Needs::Note, Toggle<&Note::Technique, Core::HammerOnPullOff>},
    {'S', false, Needs::Note, Toggle<&Note::Technique, Core::LegatoSlide>},
    {'G', false, Needs::Note, Toggle<&Note::Ghost>},
    {'T', false, Needs::Strum, Toggle<&Strum::Technique, Core::Tapping>},
    {'V', false, Needs::Strum, Toggle<&Strum::Technique, Core::Vibrato>},
    {'U', false, Needs::Strum, Toggle<&Strum::Stroke, UpStroke>},
    {'D', false, Needs::Strum, Toggle<&Strum::Stroke, DownStroke>},
    {'C', false, Needs::Nothing, [](OpenDocument&) { return Ask(EntryDialog::Chord); }},
    {'L', false, Needs::Nothing, Toggle<&Note::Tied>},
    {'R', false, Needs::Nothing, RepeatStrum},
    {KeypadSubtract, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, -1); }},
    {KeyMinus, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, -1); }},
    {KeypadAdd, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, 1); }},
    {KeyPlus, true, Needs::Note, [](OpenDocument& open) { return AddToFret(open, 1); }},
    {'R', true, Needs::Nothing, Toggle<&Note::LetRing>},
    {'M', true, Needs::Nothing, [](OpenDocument& open) { return MoveStrumRight(open), true; }},
    {'N', true, Needs::Nothing, MoveStrumLeft},
    {'O', true, Needs::Nothing, [](OpenDocument& open) { return ShiftStrumRight(open), true; }},
    {'T', true, Needs::Nothing, [](OpenDocument&) { return Ask(EntryDialog::Text); }},
};

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
    {KeypadDecimal, false, Needs::Nothing, Toggle<&Strum::Dotted>},
    {KeyPeriod, false, Needs::Nothing, Toggle<&Strum::Dotted>},
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
    return found != std::end(table) && IsMet(open, found->Wanted) && found->Run(open);
}

}  // namespace

bool RunNoteShortcut(OpenDocument& open, KeyPress key) { return RunShortcut(NoteShortcuts, open, key); }

bool RunLengthShortcut(OpenDocument& open, KeyPress key) { return RunShortcut(LengthShortcuts, open, key); }

}  // namespace Quillon::Editing
