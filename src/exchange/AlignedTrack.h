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
AlignedTrack AlignPart(const MidiGrid& grid, const MidiPart& part, int number, ImportReport& report);

/// True when the part wants the strings of a bass.
bool IsBass(const MidiPart& part);

}  // namespace Quillon::Exchange
