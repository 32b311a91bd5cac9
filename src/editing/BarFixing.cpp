// Bars are filled to what their time signature asks for, or cut down to it.
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"

namespace Quillon::Editing {

using Core::Strum;
using Core::TabFile;

namespace {

constexpr std::int32_t SixtyFourth = 6;
constexpr int LastTuplet = 8;

/// Thousandths of a 64th: finer than that, sums of tuplets are noise.
double Thousandths(double length) { return Core::RoundHalfEven(length * 1000); }

/// The largest value of the ladder that fits into what is left of a bar; below all of them a whole note.
Strum LargestRest(double left) {
    Strum rest;
    const auto fits = [&](std::int32_t length, std::int32_t tuplet, bool isTuplet) {
        if (Thousandths(left) < Thousandths(Core::StrumLength(length, tuplet, isTuplet, false))) return false;
        rest.Length = length;
        rest.HasTuplet = isTuplet;
        if (isTuplet) rest.Tuplet = tuplet;
        return true;
    };
    for (std::int32_t length = 0; length <= SixtyFourth; ++length) {
        if (fits(length, 0, false)) return rest;
    }
    for (std::int32_t tuplet = 0; tuplet <= LastTuplet; ++tuplet) {
        if (fits(SixtyFourth, tuplet, true)) return rest;
    }
    return rest;
}

/// Drops strums from the end until the bar is not over, or one is left.
void CutBar(TabFile& file, int track, int bar) {
    const auto& strums = file.Tracks[track].Bars[bar].Strums();
    const double asked = Core::BarLengthIn64ths(file, bar);
    int keep = 1;
    double filled = Core::StrumLength(strums[0]);
    for (; keep < strums.Count(); ++keep) {
        const double longer = filled + Core::StrumLength(strums[keep]);
        if (FullnessOf(longer, asked) == Fullness::Over) break;
        filled = longer;
    }
    auto& edited = file.Tracks[track].Bars.Edit(bar).EditStrums();
    edited.Resize(keep);
    if (FullnessOf(filled, asked) != Fullness::Over) return;
    Strum& only = edited[0];
    only.Dotted = only.HasTuplet = false;
    only.Length = 0;
    while (only.Length < SixtyFourth && FullnessOf(Core::StrumLength(only), asked) == Fullness::Over) ++only.Length;
}

}  // namespace

Fullness FullnessOf(double filled, double asked) {
    const double left = Thousandths(asked) - Thousandths(filled);
    return left == 0 ? Fullness::Full : left < 0 ? Fullness::Over : Fullness::Under;
}

Fullness BarFullness(const TabFile& file, int track, int bar) {
    return FullnessOf(Core::BarLength64ths(file.Tracks[track].Bars[bar]), Core::BarLengthIn64ths(file, bar));
}

void FixBar(TabFile& file, int track, int bar) {
    if (BarFullness(file, track, bar) != Fullness::Under) return;
    const double asked = Core::BarLengthIn64ths(file, bar);
    double filled = Core::BarLength64ths(file.Tracks[track].Bars[bar]);
    Core::Bar fixed = file.Tracks[track].Bars[bar];
    auto& strums = fixed.EditStrums();
    while (FullnessOf(filled, asked) == Fullness::Under) {
        Core::ToInt16(strums.Count());
        strums.Add(LargestRest(asked - filled));
        filled += Core::StrumLength(strums[strums.UpperBound()]);
    }
    file.Tracks[track].Bars.Edit(bar) = std::move(fixed);
}

void FixThisBar(TabFile& file, int track, int bar) {
    if (BarFullness(file, track, bar) == Fullness::Over) CutBar(file, track, bar);
    FixBar(file, track, bar);
}

void FixAllBars(TabFile& file, int track) {
    TabFile fixed = file;  // a bar that can't be filled leaves all as they were
    for (int bar = 0; bar <= fixed.Tracks[track].Bars.UpperBound(); ++bar) FixThisBar(fixed, track, bar);
    file = std::move(fixed);
}

}  // namespace Quillon::Editing
