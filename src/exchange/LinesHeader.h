// What the words around a tab say about the whole of it: title, names, tuning, capo, tempo, time signature.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "exchange/AsciiImport.h"
#include "exchange/LinesSystems.h"

namespace Quillon::Exchange {

struct TabHeader {
    std::string Title, Artist, Author, Album, TabbedBy;  ///< "" for none
    std::optional<Core::Row<std::int16_t, Core::StringCount>> Tuning;
    std::optional<int> Capo;      ///< 0 to 24
    std::optional<double> Tempo;  ///< quarter notes a minute
    std::optional<TimeSignature> Timing;
    /// Signatures with the lines that they stand in, from the top: each holds from there on.
    std::vector<std::pair<int, TimeSignature>> Timings;
    std::vector<bool> Used;  ///< by line: what one of the fields was taken from
};

/// The first line that tells a field counts. Lines of `systems` are none of them.
TabHeader HeaderOf(const std::vector<TextColumns>& lines, const FoundSystems& systems);

/// "DADGAD", "D A D G B E", "Drop D", "Eb Ab Db Gb Bb Eb", "half step down", "standard": semitones from the standard
/// pitches, for so many strings. Names stand from the lowest string up.
std::optional<Core::Row<std::int16_t, Core::StringCount>> TuningOfWords(const std::string& words, int strings);

}  // namespace Quillon::Exchange
