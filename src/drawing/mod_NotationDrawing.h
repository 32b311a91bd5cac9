// Pitches and heights on the staff, and the order of a bar's notation: heads, beam groups, tuplets.
//
// Pitch is a MIDI note number; guitar music is written an octave above its sound, so the bottom line of the treble
// staff, height 0, stands for sounding pitch 52.
#pragma once

#include <cstdint>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Drawing {

/// Of two staves the treble takes the pitches from here up, middle C as it is written; the bass those below.
constexpr int LowestOnTreble = 48;

/// Height of a pitch's head from the bottom line, 21 lower than the table's (the anchor of a head stands there), in
/// pixels, negative upward. A black key takes the natural below it, with `useFlats` the one above. A pitch off the
/// table stands at the end it is past.
int PitchToStaffY(int pitch, bool useFlats);
/// The natural pitch of the first place at or below a height from the bottom line; 0 below the table.
int StaffYToPitch(int y);
/// True for the flat keys, 9 to 13.
bool KeyUsesFlats(std::int32_t key);
/// Lane 0 to 6 of a height on a percussion staff, from the top; -1 where none lies.
int DrumLaneFromY(int y);
/// Middle of a lane below the row's top, to the pixel; the two lanes under those that a click reaches lie below the
/// staff.
int DrumLaneY(int lane);
/// The place of a lane on the staff in half steps above its bottom line: a line, a space, or a ledger line's.
int DrumLaneStep(int lane);
/// Lane of a drum sound on the percussion staff, 0 at the top to 8; -1 for no sound.
int LaneOfSound(int sound);
/// Lane of the sound that a note's letter plays on its string; the middle one for a letter that plays nothing.
int LaneOfNote(const Core::Track& track, int string, const Core::Note& note);

/// 12 for a track written an octave up, -12 for one written down, else 0: between its strings and the staff.
int OctaveShift(const Core::Track& track);
/// Pitch at which a note is written: open pitch plus fret (0 for what is no number), an octave up or down as the
/// track says. Of a drum note the key that its letter plays.
int WrittenPitch(const Core::Track& track, int string, const Core::Note& note);

struct Head {
    int String = 0;
    int Y = 0;   ///< PitchToStaffY
    int DX = 0;  ///< 6 for a head that makes room for a neighbour, else 0
};
/// Heads of a strum in the order of the strings in use. On the percussion staff, that of a drum track with a treble
/// staff, those of DrumHeads.
std::vector<Head> StrumHeads(const Core::Track& track, const Core::Strum& strum, bool useFlats);

/// Heads on the lanes of a percussion staff, seven pixels above their middles as all heads. Sounds of one lane share a
/// head unless they are written differently.
std::vector<Head> DrumHeads(const Core::Track& track, const Core::Strum& strum);
/// The MIDI key that a drum note's letter plays on its string; a snare's for a letter that plays nothing.
int DrumKey(const Core::Track& track, int string, const Core::Note& note);

struct BeamGroup {
    int First = 0;
    int Last = 0;
    bool StemUp = true;
    bool Drawn = false;  ///< it holds a sounding note
};
/// The beam groups of a bar: a beat each, the last beat taking all that is left. There is no compound grouping: in 6/8
/// each eighth is a beat. Stems of drums go up unless a hash mark turns them.
std::vector<BeamGroup> BeamGroups(const Core::Track& track, const Core::Bar& bar, const Core::BarInfo& info);
/// Up when no strum of the group carries a hash mark and its highest pitch is below 53; the limit is not the middle
/// line: almost all guitar notes get a down stem, as players are used to.
bool StemUp(int highestPitch, bool anyHash);

struct TupletMark {
    int First = 0;
    int Last = 0;
    int Figure = 0;
};
std::vector<TupletMark> Tuplets(const Core::Bar& bar);
/// Figure of a tuplet kind 0 to 8; 0 outside.
int TupletNumber(std::int32_t kind);
/// How many strums a mark reaches over at most: the figure, and 4/3 of it, rounded, for dotted ones.
int TupletCount(std::int32_t kind, bool flag);

}  // namespace Quillon::Drawing
