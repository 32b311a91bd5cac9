// Keys in the score become changes of the document.
//
// There are two ways of input and two kinds of track, so four routes: with tab input the cursor stands on a string,
// with notation input on a pitch, or on a lane of a drum track. Every engine says whether it wrote; what wrote is
// undone as one step.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_NotationDrawing.h"

namespace Quillon::Editing {

/// A key by its virtual-key code, the keypad's digits as those of the main row.
struct KeyPress {
    int Code = 0;
    bool Shift = false;
};

/// Virtual-key codes with a name of their own; letters and digits have those of their capital ASCII characters.
enum Key {
    KeyBackspace = 8,
    KeyEnter = 13,
    KeyEscape = 27,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyInsert = 45,
    KeyDelete = 46,
    KeypadAdd = 107,
    KeypadSubtract = 109,
    KeypadDecimal = 110,
    KeyPlus = 187,
    KeyMinus = 189,
    KeyPeriod = 190
};

/// The highest fret that the arithmetic of pitches knows.
constexpr int HighestFret = 29;

/// Commands of keys that are a dialog's work.
enum class EntryDialog : std::uint8_t { Bend, Chord, Text };

/// What typing keeps between keys, and whom it asks. A hook that nobody filled does nothing.
struct EntryState {
    bool EditDone = false;     ///< the last key changed the document
    bool AskedTreble = false;  ///< the treble staff was offered since the start
    bool AskedBass = false;    ///< likewise the bass staff
    /// Opens a dialog for the note, or the strum, under the cursor. True when it changed the document.
    bool (*OpenDialog)(EntryDialog) = nullptr;
    /// A note was typed at the cursor and may be heard; the length of its strum is in 64ths.
    void (*SoundStrum)(double length) = nullptr;
    /// A key or a click may have changed what letters the string at the cursor has.
    void (*RefreshPercussion)() = nullptr;
    /// The first step was taken: there is something to undo now.
    void (*StepsChanged)() = nullptr;
    /// The whole document was replaced by an earlier state of itself.
    void (*DocumentRestored)() = nullptr;
};
extern EntryState Entry;

/// A key in the score; `shift` is 1 with the shift key, 2 with control, 4 with Alt, or the sum of those held. While a
/// song plays any key stops it and does nothing else; Esc gives the selection up. Asks for the password of a locked
/// file first. Z takes back a step with any of the modifiers; all else with control or Alt held is another's.
void picDocument_KeyDown(int keyCode, int shift);

/// Sounds the strum at the cursor, its length in 64ths, and silences it by a timer of its own, which does not count as
/// playing. For EntryState::SoundStrum.
void SoundTypedNote(double length);
/// Forgets the timer; before Services.Timers goes.
void EndTypedNote();
void tmr_stop_Timer();

// Engines ------------------------------------------------------------------------------------------------------------

/// Moves the cursor and does what the key means on the route of its track and input. True when it wrote.
bool EnterKey(Core::OpenDocument& open, KeyPress key);

/// True when Fret at the cursor isn't "".
bool NoteUnderCursor(const Core::OpenDocument& open);
/// True when no string in use has a note and the strum is no slash.
bool StrumIsEmpty(const Core::TabFile& file, int track, int bar, int strum);
/// A fret as a number; -1 for "x", a letter, "" or a number of more than three digits.
int FretNumber(std::string_view fret);

/// Writes the digit at the cursor: behind "1" or "2", which gives the frets 10 to 29, else in place of what is there.
/// "3" and then "1" is "1".
void SetFretDigit(Core::OpenDocument& open, char digit);
/// Takes the note at the cursor with its marks. On a strum without notes it takes the marks of all strings and of the
/// strum.
void DeleteNote(Core::OpenDocument& open);
/// Deletes the strum at the cursor; the only one of a bar takes the bar with it when the document has one track, and
/// is cleared else.
void DeleteBeat(Core::OpenDocument& open);
void InsertBeat(Core::OpenDocument& open);
/// Moves the note one string up (-1) or down (1) at the same pitch, all its marks with it, and the cursor too. Not
/// past the ends, onto a note, or to a fret outside 0 to HighestFret.
bool ShiftNote(Core::OpenDocument& open, int by);
/// Adds to a numeric fret, within 0 to HighestFret.
bool AddToFret(Core::OpenDocument& open, int by);
/// One step longer (-1) or shorter (1), from the whole note to the 64th.
bool ChangeLength(Core::OpenDocument& open, int by);
/// Turns a tuplet kind 0 to 8 on or off; another kind that is on changes to it.
void ToggleTuplet(Core::OpenDocument& open, std::int32_t kind);
/// Copies the strum before over the one at the cursor, length and text too; not at a bar's first.
bool RepeatStrum(Core::OpenDocument& open);
/// Swaps the strum with the next, making a bar behind the last, and the cursor goes with it.
void MoveStrumRight(Core::OpenDocument& open);
bool MoveStrumLeft(Core::OpenDocument& open);
/// Pushes this strum and all behind it one place on; the cursor goes with it and leaves a cleared one.
void ShiftStrumRight(Core::OpenDocument& open);

/// Enter in notation input: takes the note of the pitch at the cursor, else writes it on the first free string that
/// reaches it. On a drum track likewise by lanes.
bool ToggleNotationNote(Core::OpenDocument& open);

/// What the note keys and their marks do on a normal track; true when the key wrote.
bool RunNoteShortcut(Core::OpenDocument& open, KeyPress key);
/// Length, dot and tuplets: alike on all tracks.
bool RunLengthShortcut(Core::OpenDocument& open, KeyPress key);

// Drums --------------------------------------------------------------------------------------------------------------

constexpr int LaneCount = 9;
using Drawing::LaneOfSound;
/// True when one of the sounds that the string's letters play lies in the lane.
bool PercNoteIsOnThisString(const Core::Track& track, int string, int lane);
/// What the letters of a new drum track play: cymbals, hi-hat, toms, snare, toms and bass drum from string to string.
Core::Row<Core::PercAssignment, Core::StringCount> DefaultDrumSounds();
/// The letter that a key writes on a drum track, "" for none.
std::string_view DrumLetter(KeyPress key);

}  // namespace Quillon::Editing
