// Stretches of the grid as note values.
#include <algorithm>
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

bool Alike(const NoteValue& a, const NoteValue& b) {
    return a.HasTuplet == b.HasTuplet && (!a.HasTuplet || a.Tuplet == b.Tuplet);
}

/// A stretch within a beat that no single value fills.
void FillWithinBeat(std::int64_t units, std::vector<NoteValue>& out) {
    for (const bool alike : {true, false}) {
        for (auto first = Values().upper_bound(units); first != Values().end(); ++first) {
            const NoteValue* const second = ValueOf(units - first->first);
            if (!second || (alike && !Alike(first->second, *second))) continue;
            out.push_back(first->second);
            out.push_back(*second);
            return;
        }
    }
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

void Fill(const MidiGrid& grid, std::int64_t start, std::int64_t end, std::vector<NoteValue>& out) {
    if (end <= start) return;
    const std::vector<std::int64_t>& beats = grid.Beats();
    const std::size_t beat = grid.BeatAt(start);
    const bool onBeat = beats[beat] == start;
    const bool withinBeat = end <= beats[beat + 1];
    const NoteValue* const single = ValueOf(end - start);
    if (single && (!single->HasTuplet || withinBeat)) {
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
