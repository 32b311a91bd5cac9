// Letters for the sounds of imported drums.
#pragma once

#include <cstdint>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Exchange {

/// The letter that stands for a sound on a string, which takes the sound when it has a letter left; null else. A sound
/// is its MIDI note less 34.
const char* LetterForDrum(Core::PercAssignment& sounds, std::int16_t sound);

/// The string on which a drummer's eye looks for a sound: cymbals above, the bass drum below.
int HomeOfDrum(int key);

}  // namespace Quillon::Exchange
