#include "exchange/NoteValues.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Quillon::Exchange {

namespace {

constexpr NoteValue Plain(double length, std::int32_t code) { return {length, code, false, false, 0}; }
constexpr NoteValue Dotted(double length, std::int32_t code) { return {length, code, true, false, 0}; }
constexpr NoteValue Tuplet(double length, std::int32_t code, std::int32_t kind) {
    return {length, code, false, true, kind};
}

constexpr int Triplet = 0;

/// From the longest down. There is no kind for eight.
constexpr NoteValue Ladder[] = {
    Dotted(96, 0),
    Plain(64, 0),
    Dotted(48, 1),
    Plain(32, 1),
    Dotted(24, 2),
    Tuplet(64.0 / 3, 1, Triplet),
    Plain(16, 2),
    Dotted(12, 3),
    Tuplet(32.0 / 3, 2, Triplet),
    Plain(8, 3),
    Dotted(6, 4),
    Tuplet(16.0 / 3, 3, Triplet),
    Plain(4, 4),
    Dotted(3, 5),
    Tuplet(8.0 / 3, 4, Triplet),
    Plain(2, 5),
    Dotted(1.5, 6),
    Tuplet(4.0 / 3, 5, Triplet),
    Plain(1, 6),
    Tuplet(2.0 / 3, 6, Triplet),
    Tuplet(2.0 / 5, 6, 1),
    Tuplet(2.0 / 6, 6, 2),
    Tuplet(2.0 / 7, 6, 3),
    Tuplet(2.0 / 9, 6, 4),
    Tuplet(2.0 / 10, 6, 5),
    Tuplet(2.0 / 11, 6, 6),
    Tuplet(2.0 / 12, 6, 7),
    Tuplet(2.0 / 13, 6, 8),
};

}  // namespace

void NoteValue::Give(Core::Strum& strum) const {
    strum.Length = Code;
    strum.Dotted = Dotted;
    strum.HasTuplet = HasTuplet;
    strum.Tuplet = Tuplet;
}

const NoteValue& LargestValue(double most) {
    constexpr double Tolerance = 1e-9;
    const auto* const found =
        std::ranges::find_if(Ladder, [&](const NoteValue& value) { return value.Length <= most + Tolerance; });
    return found == std::end(Ladder) ? *std::prev(found) : *found;
}

const NoteValue& LargestValue(double most, double unit) {
    constexpr double Tolerance = 1e-9;
    const auto fits = [&](const NoteValue& value) {
        const double units = value.Length / unit;
        return value.Length <= most + Tolerance && std::fabs(units - std::round(units)) < Tolerance;
    };
    const auto* const found = std::ranges::find_if(Ladder, fits);
    return found == std::end(Ladder) ? LargestValue(unit) : *found;
}

Core::Bar EmptyBar() {
    constexpr std::int32_t Quarter = 2;
    Core::Bar bar;
    bar.EditStrums()[0].Length = Quarter;
    return bar;
}

}  // namespace Quillon::Exchange
