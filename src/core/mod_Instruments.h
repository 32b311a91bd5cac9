// The sounds of General MIDI by the names that people choose them by.
#pragma once

#include <cstdint>
#include <span>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Core {

/// Names of the programs 0 to 127.
std::span<const char* const> InstrumentNames();
/// What a percussion letter can play, by the index that a PercAssignment holds; entry 0 is "-", no sound.
std::span<const char* const> DrumSoundNames();

/// A letter that stands for a note on a drum track, and where a string's assignment holds what it plays.
struct PercussionLetter {
    const char* Letter;
    std::int16_t PercAssignment::*Sound;
};
/// The twelve, in the order in which a note's letter is looked for.
std::span<const PercussionLetter> PercussionLetters();

}  // namespace Quillon::Core
