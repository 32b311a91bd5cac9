// Columns of a bar as times: where in the bar's time signature each column with notes most likely stands.
#pragma once

#include <span>
#include <vector>

namespace Quillon::Exchange {

/// Columns of a bar that take no time. A text is mostly written with the same in all of its bars.
struct BarMargins {
    int Lead = 1;   ///< before its first beat
    int Trail = 0;  ///< behind its last; -1 where the bar line itself takes the time of a column
    /// The columns are times already, as where bars were cut by them: no other margins are tried.
    bool Exact = false;
};

/// The columns of a bar with notes in them.
struct BarColumns {
    int Width = 0;             ///< of the bar
    std::vector<int> Columns;  ///< ascending, each below Width
};

struct BarTimes {
    double Unit = 0;         ///< 64ths; every time is a whole number of them
    std::vector<int> Slots;  ///< by column: units from the bar's beginning, ascending
    int End = 0;             ///< units behind which the bar rests; 0 where its last note lasts to the end
    double Cost = 0;         ///< how little the columns fit them
};

/// The margins that fit most bars best, of bars with so many 64ths each.
BarMargins CommonMargins(std::span<const BarColumns> bars, double barLength);

/// Times for a bar of so many 64ths, on the coarsest units that its columns fit. More columns than it has 64ths
/// follow each other in 64ths, over its end.
BarTimes TimesOf(const BarColumns& bar, double barLength, const BarMargins& margins);

}  // namespace Quillon::Exchange
