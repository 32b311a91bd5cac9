// The cursor's place in words: for the status bar and for screen readers.
#pragma once

#include <string>

namespace Quillon::Shell {

/// Bar and beat, counted from 1: "Bar 3 of 16, beat 2.5, bar not full". The beat is that of the time signature.
std::string PlaceText();
/// What stands under the cursor: "string 1, fret 5, dotted quarter", or with a pitch in notation input.
std::string NoteText();
/// All of it and the track, what changes most first, for a screen reader.
std::string CursorText();

/// Where a strum begins in its bar, from 1, in beats of the time signature; a hundredth is as fine as anyone reads.
double BeatOf(int track, int bar, int strum);

}  // namespace Quillon::Shell
