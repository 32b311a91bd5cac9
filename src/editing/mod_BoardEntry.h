// Notes entered by pointing at a fretboard, a keyboard or the sounds of a drum track: into the strum at the cursor,
// with what typing them does, but without a step of undo. What the mouse changes belongs to the state that the next key
// finds.
#pragma once

#include <functional>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

// Engines: true when they wrote. A string, fret, pitch or sound that the track has not does nothing.

/// Writes a fret, 0 to HighestFret, and the cursor goes to its string; on the note of that very fret it takes the note.
bool EnterFret(Core::OpenDocument& open, int string, int fret);
/// Writes a letter of a drum track, given by its place among Core::PercussionLetters, or takes it.
bool EnterLetter(Core::OpenDocument& open, int string, int letter);
/// Takes the note of a string with its marks.
bool ClearString(Core::OpenDocument& open, int string);
/// Takes the note of a pitch, or writes it on the first free string that reaches it. On a drum track the pitch is that
/// of a drum sound, and a letter that plays it is written.
bool EnterPitch(Core::OpenDocument& open, int pitch);

/// Runs one of them on the open document, as one click: nothing while a song plays, and the password of a locked file
/// is asked for. What is written sounds when typed notes do. True when it wrote.
bool EnterByMouse(const std::function<bool(Core::OpenDocument&)>& engine);

}  // namespace Quillon::Editing
