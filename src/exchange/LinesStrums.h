// A bar of a text tab as strums of a document.
#pragma once

#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/LinesAbove.h"
#include "exchange/LinesBars.h"
#include "exchange/LinesTiming.h"

namespace Quillon::Exchange {

/// Strums of one bar, with the column of the text that each begins at.
struct TimedBar {
    std::vector<Core::Strum> Strums;
    std::vector<int> Columns;  ///< by strum, from the bar's first; ascending
    bool TooLong = false;      ///< more than its time signature has room for
    int Kept = 0;              ///< notes
    int Lost = 0;              ///< on a string that the beat had a note on already
};

/// The columns of the notes, each once, ascending.
std::vector<int> NoteColumns(const TabBar& bar);

/// Strums for a bar that has so many 64ths. `lengths` are those that stand above this bar, in columns of the bar;
/// without any the columns tell the times.
TimedBar StrumsOf(const TabBar& bar, double barLength, const BarMargins& margins,
                  const std::vector<LengthAbove>& lengths);
/// Bars out of one that has no bar lines: a column lasts so many 64ths, from the first note on.
std::vector<TabBar> CutByTime(const TabBar& all, double columnLength, double barLength);

}  // namespace Quillon::Exchange
