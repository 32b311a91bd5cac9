// Marks of the note, and of the strum, at the cursor: the engines that the keys of the score and the menus share.
//
// Each says whether it wrote. None asks what stands at the cursor; IsMet does.
#pragma once

#include <cstdint>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

/// These raise "Subscript out of range" when the cursor stands on none.
const Core::Strum& StrumAtCursor(const Core::OpenDocument& open);
Core::Strum& EditStrumAtCursor(Core::OpenDocument& open);
const Core::Note& NoteAtCursor(const Core::OpenDocument& open);
Core::Note& EditNoteAtCursor(Core::OpenDocument& open);

/// What a command needs at the cursor before it does anything.
enum class Needs : std::uint8_t {
    Nothing,
    Note,   ///< a Fret on the cursor's string
    Strum,  ///< a strum that StrumIsEmpty denies
};
bool IsMet(const Core::OpenDocument& open, Needs needs);

/// Turns a mark on or off.
bool ToggleMark(Core::OpenDocument& open, bool Core::Note::*mark);
bool ToggleMark(Core::OpenDocument& open, bool Core::Strum::*mark);
/// Gives a field that is one of many its code, or 0 when it has it.
bool ToggleCode(Core::OpenDocument& open, std::int32_t Core::Note::*field, std::int32_t code);
bool ToggleCode(Core::OpenDocument& open, std::int32_t Core::Strum::*field, std::int32_t code);
/// Gives a field its code; false when it has it.
bool SetCode(Core::OpenDocument& open, std::int32_t Core::Note::*field, std::int32_t code);
bool SetCode(Core::OpenDocument& open, std::int32_t Core::Strum::*field, std::int32_t code);
/// Makes the strum a slash that repeats the chord before it, or an ordinary one.
bool ToggleHash(Core::OpenDocument& open);

constexpr std::int32_t UpStroke = 1;
constexpr std::int32_t DownStroke = 2;

// Whether the engines of mod_NoteEntry would do anything -------------------------------------------------------------

bool CanShiftNote(const Core::OpenDocument& open, int by);
bool CanAddToFret(const Core::OpenDocument& open, int by);
bool CanDeleteNote(const Core::OpenDocument& open);

}  // namespace Quillon::Editing
