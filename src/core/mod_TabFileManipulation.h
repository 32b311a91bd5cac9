// The accessors of the document that every module uses: engines over a document given, and fronts over the open one.
#pragma once

#include <cstdint>

#include "core/mod_TabFileStructure.h"

namespace Quillon {
struct SettingsStore;
}

namespace Quillon::Core {

/// Open pitches by string as MIDI note numbers, string 0 first.
constexpr int StandardPitches[StringCount] = {64, 59, 55, 50, 45, 40, 35};

/// Base pitch of a string before the track's tuning; raises on an index outside 0 to 6.
int DefaultStringPitch(int string);
/// Standard pitch of the string plus the track's tuning, as a MIDI note number.
int OpenPitch(const Track& track, int string);

// Engines ------------------------------------------------------------------------------------------------------------

/// Plain value of a length code in 64ths of a whole note; 0 for a code outside 0 to 6.
double LengthCodeIn64ths(std::int32_t length);
/// Factor 2/n of a tuplet kind 0 to 8; 1 outside. The numerator is 2 for every n, also for 5, 7 and 9: this is meant.
double TupletFactor(std::int32_t tuplet);
/// A strum's length in 64ths: plain value, times 2/n when it is in a tuplet, then times 1.5 when dotted.
double StrumLength(std::int32_t lengthCode, std::int32_t tupletKind, bool isTuplet, bool isDotted);
double StrumLength(const Strum& strum);
/// Sum of StrumLength over a bar's strums.
double BarLength64ths(const Bar& bar);
/// What the time signature asks for, in 64ths; 0 when the bar is past the last or its bottom is 0. Raises on a bar
/// below 0.
double BarLengthIn64ths(const TabFile& file, int bar);

/// Clears a strum's notes and their marks. Length, text, chord symbol and syllables stay: clearing the notes keeps
/// the rhythm, the harmony and the words.
void ClearStrum(Strum& strum);
/// Resizes to newUpperBound + 1 strums, keeping contents; new strums are default ones.
void SetBarStrums(Bar& bar, int newUpperBound);
/// True when any string holds a note.
bool HasNotes(const Strum& strum);
/// A new document: one track, one bar, one quarter strum, and the defaults of section "DefaultInfo".
TabFile MakeNewTabFile(const SettingsStore& settings);

// Fronts -------------------------------------------------------------------------------------------------------------

/// Upper bound of the track's bars.
std::int16_t NumberOfBars(int track);
/// Upper bound of the bar's strums.
std::int16_t NumberOfStrums(int track, int bar);
const Bar& ReadBar(int track, int bar);
Bar& EditBar(int track, int bar);
const Strum& ReadStrum(int track, int bar, int strum);
Strum& EditStrum(int track, int bar, int strum);
void SetBarStrums(int track, int bar, int newUpperBound);  ///< sets FileChanged
void SetTimeSignature(int bar, std::int32_t top, std::int32_t bottom);
/// Offsets from string 6 down to string 0, and the number of strings in use.
void SetTrackTuning(int track, const Row<std::int16_t, StringCount>& fromLowest, std::int16_t strings);
double BarLengthIn64ths(int track, int bar);
void ClearStrum(int track, int bar, int strum);
/// Replaces the open document by a new one and sets FileChanged.
void NewTabFile();

}  // namespace Quillon::Core
