// A line of lyrics as running text, and as the syllables that stand under the strums.
//
// Blanks divide words, and a "-" within a word its syllables: it ends the syllable and shows. A "_" holds the syllable
// before it over one strum more. A "~" is a blank within a syllable; a "\" takes what follows it as it stands. What is
// joined and divided again is the same.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

/// The syllables of a text, "" for a strum that holds the one before.
std::vector<std::string> DivideLyrics(std::string_view text);
/// The text of syllables, "" for none; those at the end go without a trace.
std::string JoinLyrics(const std::vector<std::string>& syllables);

struct LyricPlace {
    int Bar = 0;
    int Strum = 0;
    bool operator==(const LyricPlace&) const = default;
};
/// The strums of a track that syllables go to: those with notes, and those that have a syllable already. On a track
/// without notes all.
std::vector<LyricPlace> LyricPlaces(const Core::Track& track);

}  // namespace Quillon::Editing
