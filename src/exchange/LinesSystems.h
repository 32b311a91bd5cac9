// Where the systems of a text tab stand: runs of lines that are strings, and what their labels say about them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/LinesText.h"

namespace Quillon::Exchange {

constexpr int FewestStrings = 4;

/// One line that is a string. Columns count from 0 in the whole line.
struct StringLine {
    int Line = 0;       ///< of the text, from 0
    std::string Label;  ///< "e", "Eb", "3"; "" for none
    int Body = 0;       ///< the first column behind the label and the bar line that begins it
    int End = 0;        ///< the column behind its last; what follows is words
    /// Only its label tells of a string: so full of signs and words that it is one just among others.
    bool Doubtful = false;
};

struct TabSystem {
    std::vector<StringLine> Strings;  ///< from the highest
    int FirstLine = 0;                ///< of its strings, from 0
    int LastLine = 0;
};

struct FoundSystems {
    std::vector<TabSystem> Systems;  ///< from the top of the text
    std::vector<StringLine> Strays;  ///< lines like strings that belong to no system
    std::vector<StringLine> Rulers;  ///< lines with digits drawn on top of labelled systems
    std::vector<bool> Used;          ///< by line: strings of systems and strays
    int Strings = 0;                 ///< of most systems, 4 to 7; 0 without any
    /// Semitones from the standard pitches by string, where the labels tell them.
    std::optional<Core::Row<std::int16_t, Core::StringCount>> Tuning;
};

/// A line as a string, or nothing when it is anything else.
std::optional<StringLine> StringLineOf(const TextColumns& line);

/// Systems have four to seven strings, the highest first: systems written the other way round are turned. Labels
/// that name some of the strings only place their lines.
FoundSystems FindSystems(const std::vector<TextColumns>& lines);

/// Offsets for names of open strings from the highest down, such as {"e", "B", "G", "D", "A", "D"}: each note as near
/// to that of its string as can be, guitar and bass tried, let down as a whole too. Nothing when one is no note, or
/// they are too far from all. `distance` is how many semitones they differ in all from the nearest one let down.
std::optional<Core::Row<std::int16_t, Core::StringCount>> TuningOf(const std::vector<std::string>& names,
                                                                   int* distance = nullptr);

/// The tuning of an instrument of so many strings: a bass of 4 or 5, a guitar of 6 or 7.
Core::Row<std::int16_t, Core::StringCount> UsualTuning(int strings);

}  // namespace Quillon::Exchange
