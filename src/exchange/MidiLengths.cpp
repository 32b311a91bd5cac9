// Stretches of the grid as note values.
#include <algorithm>
#include <functional>
#include <map>

#include "core/mod_TabFileManipulation.h"
#include "exchange/MidiStrums.h"

namespace Quillon::Exchange {

namespace {

constexpr std::int32_t Codes = 7;
constexpr std::int32_t TupletKinds = 9;

using Table = std::map<std::int64_t, NoteValue, std::greater<>>;

/// Every value by its length in units; of several of one length the plainest.
const Table& Values() {
    static const Table table = [] {
        Table values;
        const auto add = [&](bool hasTuplet, std::int32_t kind, bool dotted) {
            for (std::int32_t code = 0; code < Codes; ++code) {
                // In whole numbers: a third of a third is to be met again.
                std::int64_t units = (64 >> code) * UnitsPer64th;
                const auto factor = hasTuplet ? static_cast<int>(2 / Core::TupletFactor(kind) + 0.5) : 2;
                units = units * 2 / factor * (dotted ? 3 : 2) / 2;
                values.try_emplace(units, NoteValue{static_cast<double>(units) / UnitsPer64th, code, dotted, hasTuplet,
                                                    hasTuplet ? kind : 0});
            }
        };
        add(false, 0, false);
        add(false, 0, true);
        for (const bool dotted : {false, true}) {
            for (std::int32_t kind = 0; kind < TupletKinds; ++kind) add(true, kind, dotted);
        }
        return values;
    }();
    return table;
}

const NoteValue* ValueOf(std::int64_t units) {
    const auto found = Values().find(units);
    return found == Values().end() ? nullptr : &found->second;
}

constexpr std::int32_t Plain = -1;

std::int32_t KindOf(const NoteValue& value) { return value.HasTuplet ? value.Tuplet : Plain; }

/// Two values that last so long together, the longer first, if `allows` is true of both.
bool FillByTwo(std::int64_t units, const std::function<bool(const NoteValue&)>& allows, std::vector<NoteValue>& out) {
    for (auto first = Values().upper_bound(units); first != Values().end(); ++first) {
        const NoteValue* const second = ValueOf(units - first->first);
        if (!second || !allows(first->second) || !allows(*second)) continue;
        out.push_back(first->second);
        out.push_back(*second);
        return true;
    }
    return false;
}

/// By as many plain values and triplets as it takes; false when a triplet of 64ths does not divide it.
bool FillByTriplets(std::int64_t units, std::vector<NoteValue>& out) {
    constexpr std::int64_t Shortest = UnitsPer64th * 2 / 3;
    constexpr std::int32_t Triplet = 0;
    if (units % Shortest != 0) return false;
    for (const auto& [length, value] : Values()) {
        if (KindOf(value) > Triplet || length % Shortest != 0) continue;
        for (; length <= units; units -= length) out.push_back(value);
    }
    return true;
}

/// A stretch within a beat that no single value fills: by plain values if possible, by the simplest tuplet else, and by
/// different ones at the last.
void FillWithinBeat(std::int64_t units, std::vector<NoteValue>& out) {
    constexpr std::int32_t FirstRareTuplet = 1;
    for (std::int32_t kind = Plain; kind < TupletKinds; ++kind) {
        if (kind == FirstRareTuplet && FillByTriplets(units, out)) return;
        if (FillByTwo(
                units, [&](const NoteValue& value) { return KindOf(value) == kind; }, out))
            return;
    }
    if (FillByTwo(
            units, [](const NoteValue&) { return true; }, out))
        return;
    const auto largest = Values().lower_bound(units);
    if (largest == Values().end()) return;
    out.push_back(largest->second);
    if (const NoteValue* const rest = ValueOf(units - largest->first)) {
        out.push_back(*rest);
    } else {
        FillWithinBeat(units - largest->first, out);
    }
}

/// Whole beats: the largest values without a tuplet.
void FillBeats(std::int64_t units, std::vector<NoteValue>& out) {
    for (const auto& [length, value] : Values()) {
        if (value.HasTuplet) continue;
        for (; length <= units; units -= length) out.push_back(value);
    }
}

/// Whether it is one of the three parts that two or more beats of the bar are divided into.
bool IsThirdOfBeats(const MidiGrid& grid, std::int64_t start, std::int64_t end) {
    const GridBar& bar = grid.Bars()[static_cast<std::size_t>(grid.BarAt(start))];
    const std::int64_t third = end - start;
    const std::int64_t whole = 3 * third;
    const std::int64_t offset = start - bar.Start;
    const std::int64_t first = offset / whole * whole;
    return whole % UnitsPerBeat == 0 && (offset - first) % third == 0 && first + whole <= bar.Length;
}

void Fill(const MidiGrid& grid, std::int64_t start, std::int64_t end, std::vector<NoteValue>& out) {
    if (end <= start) return;
    const std::vector<std::int64_t>& beats = grid.Beats();
    const std::size_t beat = grid.BeatAt(start);
    const bool onBeat = beats[beat] == start;
    const bool withinBeat = end <= beats[beat + 1];
    const NoteValue* const single = ValueOf(end - start);
    if (single && (!single->HasTuplet || withinBeat || IsThirdOfBeats(grid, start, end))) {
        out.push_back(*single);
    } else if (withinBeat) {
        FillWithinBeat(end - start, out);
    } else if (!onBeat) {
        Fill(grid, start, beats[beat + 1], out);
        Fill(grid, beats[beat + 1], end, out);
    } else {
        const std::size_t last = grid.BeatAt(end);
        const std::int64_t whole = beats[last + 1] <= end ? end : beats[last];
        FillBeats(whole - start, out);
        Fill(grid, whole, end, out);
    }
}

}  // namespace

std::vector<NoteValue> ValuesBetween(const MidiGrid& grid, std::int64_t start, std::int64_t end) {
    std::vector<NoteValue> values;
    Fill(grid, start, end, values);
    return values;
}

}  // namespace Quillon::Exchange
