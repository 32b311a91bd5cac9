// The note values that imported time is cut into.
#pragma once

#include <cstdint>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Exchange {

struct NoteValue {
    double Length = 0;  ///< 64ths
    std::int32_t Code = 0;
    bool Dotted = false;
    bool HasTuplet = false;
    std::int32_t Tuplet = 0;

    void Give(Core::Strum& strum) const;
};

/// The largest value of at most so many 64ths, the last hair of rounding aside; the smallest, 2/13, below all of them.
const NoteValue& LargestValue(double most);

/// The largest value of at most so many 64ths that is a whole multiple of `unit`, itself the length of a value.
const NoteValue& LargestValue(double most, double unit);

/// A bar of one empty quarter note.
Core::Bar EmptyBar();

}  // namespace Quillon::Exchange
