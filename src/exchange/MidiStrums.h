// One part of a MIDI file as strums: a strum lasts to the next start, and what sounds longer is tied.
#pragma once

#include <cstdint>
#include <vector>

#include "exchange/MidiGrid.h"
#include "exchange/NoteValues.h"

namespace Quillon::Exchange {

/// A strum to be. Nothing sounds in a rest.
struct StrumPiece {
    int Bar = 0;
    std::int64_t Start = 0;
    NoteValue Value{};
    std::vector<int> Struck{};  ///< indices into the notes
    std::vector<int> Held{};    ///< of those that sound on from the piece before
};

enum class NoteEnds : std::uint8_t {
    Exact,   ///< as written: the smallest gap is a rest
    Played,  ///< a hand lifts early: a gap is a rest when it is long, and long against its note
    Drums    ///< nothing to hear: a strum lasts to the next one or to the end of its beat
};

/// Strums from the start of the song to its end, none over a bar line. `notes` by start.
std::vector<StrumPiece> StrumsOf(const MidiGrid& grid, const std::vector<GridNote>& notes, NoteEnds ends);

/// The note values that last from one place of a bar to another, the split at its beats where one alone does not do.
std::vector<NoteValue> ValuesBetween(const MidiGrid& grid, std::int64_t start, std::int64_t end);

}  // namespace Quillon::Exchange
