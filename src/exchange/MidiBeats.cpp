#include "exchange/MidiBeats.h"

#include <algorithm>
#include <cmath>

namespace Quillon::Exchange {

namespace {

struct Division {
    int Parts;
    double Strangeness;  ///< what it costs to believe in it, against errors in squares of `HandError`
};

/// The simplest first.
constexpr Division Divisions[] = {{1, 0}, {2, 0.4}, {4, 0.8}, {3, 1.6}, {8, 2.4}, {6, 3},   {16, 5}, {12, 6},
                                  {5, 8}, {10, 11}, {7, 10},  {9, 12},  {24, 12}, {11, 15}, {13, 16}};
constexpr double HandError = 0.8;  ///< 64ths by which hands miss a beat

/// The shortest parts are 64ths, and triplets of them; a beat has a figure for every other tuplet of its own.
bool IsWritten(int parts, int beat) {
    if ((parts & (parts - 1)) == 0) return parts <= beat;
    const int threes = parts / 3;
    const bool triplets = parts % 3 == 0 && (threes & (threes - 1)) == 0;
    return !triplets || parts * 2 <= beat * 3;
}

double ErrorOf(double offset, int parts, int beat) {
    const double part = static_cast<double>(beat) / parts;
    return std::abs(offset - std::round(offset / part) * part);
}

/// What rounding to ticks, or cutting them off, can be to blame for.
double TickError(double ticksPer64th) {
    constexpr double FineTicks = 15;  // of 240 to the quarter
    return (ticksPer64th >= FineTicks ? 1.05 : 0.55) / ticksPer64th;
}

}  // namespace

void BeatDivider::Meet(double offset) {
    constexpr int Beat = 16;
    const double most = TickError(ticksPer64th);
    ++met;
    if (ErrorOf(offset, 16, Beat) <= most || ErrorOf(offset, 12, Beat) <= most) ++onSteps;
}

bool BeatDivider::InSteps() const {
    constexpr double MostOfThem = 0.8;
    return onSteps >= MostOfThem * met;
}

int BeatDivider::Exact(const std::vector<double>& offsets, int beat) const {
    const double most = TickError(ticksPer64th);
    for (const Division& division : Divisions) {
        const bool holds =
            std::ranges::all_of(offsets, [&](double offset) { return ErrorOf(offset, division.Parts, beat) <= most; });
        if (holds && IsWritten(division.Parts, beat)) return division.Parts;
    }
    return 0;
}

int BeatDivider::Choose(const std::vector<double>& starts, int beat) const {
    constexpr std::size_t Many = 4;  // that are in step by chance no more
    if (InSteps() || starts.size() >= Many) {
        if (const int exact = Exact(starts, beat); exact > 0) return exact;
    }
    int best = 1;
    double least = -1;
    for (const Division& division : Divisions) {
        const bool seldom = division.Strangeness > 6;  // needs more than a note or two to be believed
        if (!IsWritten(division.Parts, beat) || (seldom && starts.size() < 4)) continue;
        double cost = division.Strangeness;
        for (const double start : starts) {
            const double error = ErrorOf(start, division.Parts, beat) / HandError;
            cost += error * error;
        }
        if (least >= 0 && cost >= least) continue;
        least = cost;
        best = division.Parts;
    }
    return best;
}

int BeatDivider::ChooseForEnds(const std::vector<double>& ends, int beat) const {
    constexpr int Usual = 4;
    const int exact = InSteps() ? Exact(ends, beat) : 0;
    return std::min(exact > 0 ? std::min(exact, Usual) : Usual, beat);
}

}  // namespace Quillon::Exchange
