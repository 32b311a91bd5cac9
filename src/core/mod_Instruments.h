// The sounds of General MIDI by the names that people choose them by.
#pragma once

#include <span>

namespace Quillon::Core {

/// Names of the programs 0 to 127.
std::span<const char* const> InstrumentNames();
/// What a percussion letter can play, by the index that a PercAssignment holds; entry 0 is "-", no sound.
std::span<const char* const> DrumSoundNames();

}  // namespace Quillon::Core
