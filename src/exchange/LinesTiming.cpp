#include "exchange/LinesTiming.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace Quillon::Exchange {

namespace {

/// Units that a bar may be divided into, and what it costs to take them where coarser ones fit almost as well, in
/// squared columns a note.
struct Unit {
    double Length;
    double Penalty;
};
constexpr Unit Units[] = {
    {64, 0},   {32, 0},         {16, 0},        {8, 0.02}, {4, 0.06},      {32.0 / 3, 0.12},
    {2, 0.25}, {16.0 / 3, 0.1}, {8.0 / 3, 0.3}, {1, 0.45}, {4.0 / 3, 0.6},
};

constexpr int MostLead = 4;
constexpr int MostTrail = 3;
constexpr double OtherMargin = 0.05;  ///< for each column that a bar's margins differ from the common ones
constexpr double FirstRest = 0.1;     ///< for a rest at the beginning that the margins may explain as well

/// Slots of a bar under one reading of its margins and unit; nothing when they have no room.
std::optional<BarTimes> Fit(const BarColumns& bar, double barLength, const BarMargins& margins, const Unit& unit) {
    const double count = barLength / unit.Length;
    const auto slots = static_cast<int>(std::lround(count));
    if (std::fabs(count - slots) > 1e-9 || slots < static_cast<int>(bar.Columns.size())) return {};
    const double width = bar.Width - margins.Lead - margins.Trail;
    if (width < 1) return {};
    BarTimes times;
    times.Unit = unit.Length;
    times.Slots.reserve(bar.Columns.size());
    double sum = 0;
    int before = -1;
    for (const int column : bar.Columns) {
        const double exact = (column - margins.Lead) * slots / width;
        const int slot = std::max(static_cast<int>(std::lround(exact)), before + 1);
        if (slot >= slots) return {};
        const double off = (exact - slot) * width / slots;
        sum += off * off;
        times.Slots.push_back(slot);
        before = slot;
    }
    times.Cost = sum / static_cast<double>(std::max<std::size_t>(bar.Columns.size(), 1)) + unit.Penalty;
    const bool mayBegin = !bar.Columns.empty() && bar.Columns.front() <= MostLead && !margins.Exact;
    if (mayBegin && times.Slots.front() > 0) times.Cost += FirstRest;
    return times;
}

std::optional<BarTimes> BestFit(const BarColumns& bar, double barLength, const BarMargins& margins) {
    std::optional<BarTimes> best;
    for (const Unit& unit : Units) {
        if (best && best->Cost <= unit.Penalty) continue;
        auto fit = Fit(bar, barLength, margins, unit);
        if (fit && (!best || fit->Cost < best->Cost)) best = std::move(fit);
    }
    return best;
}

/// The columns from each note to the next where all are the same; 0 where they differ or are too few to tell.
int EvenStep(const std::vector<int>& columns) {
    constexpr std::size_t fewest = 4;
    if (columns.size() < fewest) return 0;
    const int step = columns[1] - columns[0];
    for (std::size_t i = 2; i < columns.size(); ++i) {
        if (columns[i] - columns[i - 1] != step) return 0;
    }
    return step;
}

bool IsProportional(const BarTimes& times, const std::vector<int>& columns) {
    for (std::size_t i = 2; i < columns.size(); ++i) {
        const int steps = times.Slots[i] - times.Slots[i - 1];
        const int firstSteps = times.Slots[1] - times.Slots[0];
        if (steps * (columns[1] - columns[0]) != firstSteps * (columns[i] - columns[i - 1])) return false;
    }
    return true;
}

/// What each of so many even steps lasts in a bar, 64ths: what fills it, else the plain value that leaves the shorter
/// part of it to rests, else the triplet. 0 for more steps than there are values.
double StepLength(int steps, double barLength) {
    constexpr double plain[] = {32, 16, 8, 4, 2, 1};
    constexpr double triplets[] = {32.0 / 3, 16.0 / 3, 8.0 / 3, 4.0 / 3};
    constexpr double hair = 1e-9, longerPart = 0.6;
    for (const double length : triplets) {
        if (std::fabs(steps * length - barLength) < hair) return length;
    }
    for (const double length : plain) {
        const double filled = steps * length;
        if (filled <= barLength + hair && filled >= longerPart * barLength) return length;
    }
    for (const double length : triplets) {
        if (steps * length <= barLength + hair) return length;
    }
    return 0;
}

/// Notes that are written evenly last equally, and the bar rests behind them: whoever wrote them so had no thought of
/// filling it. Nothing for bars that are not so.
std::optional<BarTimes> EvenTimes(const BarColumns& bar, double barLength, int lead) {
    const int step = EvenStep(bar.Columns);
    if (step == 0) return {};
    const auto steps = [&](int columns) { return static_cast<int>(std::lround(static_cast<double>(columns) / step)); };
    const int first = bar.Columns.front();
    const int begin = first <= MostLead ? first : lead;
    BarTimes times;
    for (const int column : bar.Columns) times.Slots.push_back(steps(first - begin) + (column - first) / step);
    const int last = times.Slots.back() + 1;
    times.End = std::max(last, steps(bar.Width - begin));
    // The bar line may have taken the room of a step, or two of them may have been drawn around it.
    for (const int other : {times.End + 1, times.End - 1}) {
        const double length = barLength / other;
        const double power = std::log2(length);
        if (other >= last && length >= 1 && power == std::floor(power)) times.End = other;
    }
    times.Unit = StepLength(times.End, barLength);
    if (times.Unit == 0) times.Unit = StepLength(times.End = last, barLength);
    if (times.Unit == 0) return {};
    return times;
}

int FirstColumn(const BarColumns& bar) { return bar.Columns.empty() ? 0 : bar.Columns.front(); }

}  // namespace

BarMargins CommonMargins(std::span<const BarColumns> bars, double barLength) {
    constexpr std::size_t enough = 200, mostColumns = 64;
    constexpr double noFit = 4, rareTrail = 0.03;
    std::array<std::array<double, MostTrail + 2>, MostLead + 1> costs{};
    std::size_t seen = 0;
    for (const BarColumns& bar : bars) {
        if (bar.Columns.size() < 2 || bar.Columns.size() > mostColumns) continue;
        if (++seen > enough) break;
        for (int lead = 0; lead <= MostLead; ++lead) {
            for (int trail = -1; trail <= MostTrail; ++trail) {
                double& cost = costs[static_cast<std::size_t>(lead)][static_cast<std::size_t>(trail + 1)];
                const auto fit = lead <= FirstColumn(bar) ? BestFit(bar, barLength, {lead, trail}) : std::nullopt;
                cost += fit ? std::min(fit->Cost, noFit) : noFit;
                cost += rareTrail * std::abs(trail);  // a few bars fit many margins
            }
        }
    }
    // Of equal ones: the bar line takes no time, and the first beat stands a column behind it.
    BarMargins best;
    double least = std::numeric_limits<double>::max();
    for (const int lead : {1, 0, 2, 3, 4}) {
        for (const int trail : {0, -1, 1, 2, 3}) {
            const double cost = costs[static_cast<std::size_t>(lead)][static_cast<std::size_t>(trail + 1)];
            if (cost < least - 1e-9) {
                least = cost;
                best = {lead, trail};
            }
        }
    }
    return best;
}

BarTimes TimesOf(const BarColumns& bar, double barLength, const BarMargins& margins) {
    constexpr double goodFit = 0.1;
    const int first = FirstColumn(bar);
    const bool many = static_cast<double>(bar.Columns.size()) > barLength;
    std::optional<BarTimes> best;
    if (!many && margins.Lead <= first) best = BestFit(bar, barLength, margins);
    if (best && margins.Exact) return *std::move(best);
    const auto settled = [&](BarTimes fit) {
        if (IsProportional(fit, bar.Columns)) return fit;
        auto even = EvenTimes(bar, barLength, margins.Lead);
        return even ? *std::move(even) : fit;
    };
    if (best && best->Cost <= goodFit) return settled(*std::move(best));
    for (int lead = 0; !many && lead <= std::min(MostLead, first); ++lead) {
        for (int trail = -1; trail <= MostTrail; ++trail) {
            auto fit = BestFit(bar, barLength, {lead, trail});
            if (!fit) continue;
            fit->Cost += OtherMargin * (std::abs(lead - margins.Lead) + std::abs(trail - margins.Trail));
            if (!best || fit->Cost < best->Cost) best = std::move(fit);
        }
    }
    if (best) return settled(*std::move(best));
    BarTimes times;
    times.Unit = 1;
    for (std::size_t i = 0; i < bar.Columns.size(); ++i) times.Slots.push_back(static_cast<int>(i));
    return times;
}

}  // namespace Quillon::Exchange
