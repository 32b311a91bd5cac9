// Documents made up from a seed, for round trips: every field of every record gets its turn.
#pragma once

#include "core/mod_TabFileStructure.h"

namespace Quillon::Testing {

enum class HeldBy {
    MusicFile,  ///< what a music file gives back whole: no harmonics, no effect values of effects that are off
    Json        ///< what JSON gives back whole
};

Core::TabFile RandomDocument(unsigned seed, HeldBy format);

}  // namespace Quillon::Testing
