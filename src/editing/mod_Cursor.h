// The cursor: where a click puts it and where the arrow keys take it.
#pragma once

#include "core/mod_TabFileStructure.h"
#include "editing/mod_NoteEntry.h"

namespace Quillon::Editing {

/// A click in the score, in view pixels; with Shift, which is 1, it selects bars up to the one clicked. Nothing while a
/// song plays.
void picDocument_MouseDown(int x, int y, int shift = 0);

/// The mouse was dragged to a point with its left button held: selects from the bar that was pressed, which is the
/// cursor's, to the one under the mouse, or the nearest. Nothing when no bar was pressed, or while a song plays.
void picDocument_MouseMove(int x, int y);
/// The right button, or a second click: places the cursor as a click does, and keeps a selection that it lies in. False
/// when there is nothing to open a menu for: no bar was hit, or a song plays.
bool picDocument_MenuMouseDown(int x, int y);

/// The arrows; true when the document grew. Up and down wrap around the strings in use (in notation input: around the
/// pitches within reach, or the lanes). Right at a bar's last strum goes on to the next bar when the bar is exactly
/// full, making one at the end of the piece; grows a bar that is under; and stays, with a message, in one that is over.
bool MoveCursor(Core::OpenDocument& open, KeyPress key);

/// Changes between tab and notation input, and the cursor goes along: to the pitch, or lane, of the note or the open
/// string under it; or to the string whose note has its pitch, else to one that reaches it, best the one where it is.
void SetInputMode(Core::OpenDocument& open, std::int16_t mode);

/// Lowest and highest pitch that the track reaches, or its first and last lane.
struct PitchRange {
    int Lowest;
    int Highest;
};
PitchRange PitchesInReach(const Core::Track& track);
/// The last string in use, whatever a file says.
int LastString(const Core::Track& track);

/// Whether the open file may be changed: the program's question for the password of a locked one.
extern bool (*MayEdit)();

/// Puts the cursor at the start of a track, on its highest string and that string's open pitch.
void ResetCursor(Core::OpenDocument& open, int track = 0);
/// Keeps the cursor on a bar, strum, string and pitch that exist.
void ClampCursor();
void ClampCursor(Core::OpenDocument& open);

}  // namespace Quillon::Editing
