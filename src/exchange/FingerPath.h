// Which strings to play a piece on: the shortest path through the fingerings of its strums.
//
// Each strum has a handful of fingerings, dear by their stretch, their height on the neck and the notes that find no
// string; from one strum to the next the hand moves, and a note that is held must stay on its string. The path of least
// cost is found strum by strum (dynamic programming).
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Exchange {

constexpr int HighestImportedFret = 29;

/// Open pitches of the strings that a path may use, the highest first.
struct Fretboard {
    std::array<int, Core::StringCount> Open{};
    int Strings = 0;

    /// True when some string reaches the key.
    bool Reaches(int key) const;
};

/// A note of a strum: one that is held carries on from the note of that place in the strum before.
struct FingerNote {
    int Key = 0;
    int HeldFrom = -1;  ///< index into the strum before, -1 for one that is struck
};
using FingerStrum = std::vector<FingerNote>;

/// For each note of each strum its string, -1 for one without. No two notes of a strum share a string. `steps` is how
/// much may be searched, counted down; what is left when it is used up takes the strings that come first.
std::vector<std::vector<int>> FingerPath(const Fretboard& board, const std::vector<FingerStrum>& strums,
                                         std::int64_t& steps);

}  // namespace Quillon::Exchange
