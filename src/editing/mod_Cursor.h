// The cursor: where a click puts it and where the arrow keys take it.
#pragma once

namespace Quillon::Editing {

/// Virtual-key codes of the keys that move.
enum Key { KeyLeft = 37, KeyUp = 38, KeyRight = 39, KeyDown = 40 };

/// A key in the score; `shift` is 1 with the shift key, 2 with control, their sum with both.
void picDocument_KeyDown(int keyCode, int shift);
/// A click in the score, in view pixels.
void picDocument_MouseDown(int x, int y);

/// The arrows. Up and down wrap around the strings in use (in notation input: around the pitches within reach).
/// Right at a bar's last strum goes on to the next bar when the bar is exactly full, making one at the end of the
/// piece; grows a bar that is under; and stays, with a message, in one that is over.
void MoveCursor(int keyCode);

/// Whether the open file may be changed: the program's question for the password of a locked one. The cursor may go
/// anywhere; what would change the document asks first.
extern bool (*MayEdit)();

/// Keeps the cursor on a bar, strum and string that exist.
void ClampCursor();

}  // namespace Quillon::Editing
