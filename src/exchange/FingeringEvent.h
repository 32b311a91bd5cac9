// What a MIDI file cannot tell of a guitar: on which string each note is played. An exported track carries it in one
// event of the kind that is a sequencer's own, at its end, where it is in nobody's way; a reader that finds the track
// as it was written takes the strings from it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/MidiScore.h"

namespace Quillon::Exchange {

constexpr int NoStringTold = Core::StringCount;  ///< for the notes of a chord symbol

/// The event's bytes for a track and the strings of its note ons, velocity 0 aside, in the order of the file. "" for a
/// track whose numbers are past a byte.
std::string FingeringBytes(const Core::Track& track, const std::vector<int>& keys, const std::vector<int>& strings);

struct ToldFingering {
    std::vector<int> Strings;  ///< by note of the part
};
/// Gives a track the strings, the tuning and the drum letters that a part's event tells. Nothing, and the track as it
/// was, when there is none or the part is not as it was written.
std::optional<ToldFingering> TakeFingering(const MidiPart& part, Core::Track& track);

}  // namespace Quillon::Exchange
