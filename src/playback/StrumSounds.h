// What the notes of a strum sound like, before any effect unfolds: pitches and velocities as the player strikes them.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Playback {

/// A key that is struck. Neither number is limited to what a device takes.
struct Struck {
    std::int16_t Pitch = 0;
    std::int16_t Velocity = 0;
    bool Dead = false;  ///< ends as it begins
};

constexpr const char* DeadFret = "x";

/// The keys of a note of a pitch, in the order in which they are struck: one, or the two of a semi harmonic. Raises
/// "Overflow" for a pitch past 16 bits.
std::vector<Struck> HarmonicSounds(double pitch, std::int32_t harmonic, double velocity);
/// The keys of a strum's chord symbol, none when it has none; strings that raise "Overflow" are left out.
std::vector<Struck> SymbolSounds(const Core::Track& track, const Core::Strum& chord);
/// The key of a letter on a string of a drum track, nothing when the letter plays none.
std::optional<std::int16_t> DrumPitch(const Core::Track& track, int string, const std::string& letter);

/// Velocity of a grace note, and its length in 64ths, 0 for an unknown kind.
std::int16_t GraceVelocity(const Core::Track& track, std::int32_t dynamic);
int GraceLength(std::int32_t duration);

/// The semitones that a slide goes through to the next note on the string, as it stands on the paper. Nothing when
/// either note has no fret.
struct SlideRun {
    double From = 0;  ///< the pitch that it leaves
    std::int32_t Steps = 0;
    bool Up = false;
};
std::optional<SlideRun> SlideOf(const Core::Track& track, const Core::Note& from, const Core::Strum* next, int string);

/// 64ths from one stroke of a trill or of tremolo picking to the next but one, by the rates 0 to 2; 0 outside.
int StrokeSpeed(std::int32_t rate);

/// Where the wheel of a vibrato swings about: two steps above its rest, which is meant.
constexpr double VibratoCentre = 66;

}  // namespace Quillon::Playback
