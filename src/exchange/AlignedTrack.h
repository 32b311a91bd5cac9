// One part of a MIDI file as a track of the document.
#pragma once

#include <cstdint>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/ImportReport.h"
#include "exchange/MidiGrid.h"

namespace Quillon::Exchange {

/// Where a strum of a track begins.
struct StrumStart {
    std::int64_t Place = 0;
    int Bar = 0;
    int Strum = 0;
};

/// The track, all its bars on the grid; names, keys and tempo texts are not its business. `number` is the track's in
/// the document, for the report.
struct AlignedTrack {
    Core::Track Track;
    std::vector<StrumStart> Starts;
};

/// What the parts of one import may use together, counted down: a small file can ask for more than a machine has.
struct AlignedRoom {
    std::int64_t Pieces = 1 << 21;         ///< strums, those of silent bars too
    std::int64_t Strums = 1 << 19;         ///< those of the others
    std::int64_t Notes = 1 << 20;          ///< with what is tied to them
    std::int64_t FingerSteps = 4'000'000;  ///< see FingerPath
};

/// Raises "Overflow" when there is no room left.
AlignedTrack AlignPart(const MidiGrid& grid, const MidiPart& part, int number, AlignedRoom& room, ImportReport& report);

/// True when the part wants the strings of a bass.
bool IsBass(const MidiPart& part);

}  // namespace Quillon::Exchange
