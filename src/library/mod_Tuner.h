// The tuner's tones: a tuning heard string by string, to tune by ear. It listens to nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "library/mod_Tunings.h"

namespace Quillon::Library {

constexpr int TunerReach = 12;  ///< semitones that a string may be tuned away from standard, up or down

/// How a string's tone is named on the tuner: "-E" to "-D#" below its standard pitch, "E" at it, "+F" to "+E" above;
/// for the E strings so, and likewise for the others. `string` is 0 for the highest. Raises "Subscript out of range"
/// for an offset beyond the reach.
std::string TunerName(int string, int offset);
/// The MIDI pitch that a name stands for on a string; raises "Type mismatch" for a name that it has not.
int TunerPitch(int string, const std::string& name);

struct TunerState {
    TuningRec Tuning;
    Core::Row<bool, Core::StringCount> Chk = {true, true, true, true, true, true, true};  ///< strings that are to sound
    bool LetRing = false;
    std::int32_t Pause = 1500;              ///< ms from one string to the next
    std::function<void(int)> StringSounds;  ///< told which string sounds, -1 when the run has ended
};
extern TunerState Tuner;

/// Plays the checked strings, from the lowest up or from the highest down; a run that plays ends first. While it plays,
/// the tuning is not to be changed. Does nothing while a song plays.
void PlayTuningUp();
void PlayTuningDown();
/// One string alone, checked or not.
void PlayTuningString(int string);
void StopTuning();
bool IsTuningPlaying();

}  // namespace Quillon::Library
