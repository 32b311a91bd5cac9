// What a point of the view means: a bar, a strum, and a string, a pitch or a lane.
#include <algorithm>
#include <utility>

#include "core/mod_Common.h"
#include "drawing/mod_NotationDrawing.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

using Core::Bar;
using Core::TabFile;
using Core::Track;

namespace {

/// Both clefs: past this height below the treble's anchor a click means the lower staff.
constexpr int OneStaffMark = 51;

bool InBand(const Bar& bar, int rowHeight, int y) {
    return y >= bar.Place.BarY - 50 && y < bar.Place.BarY + rowHeight + 40;
}

/// A bar ends where its columns' step makes it end. Where a row is stretched beyond the widest step, or the bar holds
/// more than its time signature, columns stand farther out, and each of them is still to be hit; not beyond the next
/// bar.
int HitEnd(const Track& track, int index) {
    constexpr int besideColumn = 20;
    const Core::BarPlace& place = track.Bars[index].Place;
    const int end = place.BarX + BarPixelWidth(track.Bars[index], place.BarStep);
    if (place.StrumX.UpperBound() < 0) return end;
    int reach = place.StrumX[place.StrumX.UpperBound()] + besideColumn;
    if (index < track.Bars.UpperBound()) {
        const Core::BarPlace& next = track.Bars[index + 1].Place;
        if (next.Page == place.Page && next.BarY == place.BarY) reach = std::min<int>(reach, next.BarX);
    }
    return std::max(end, reach);
}

int StrumAt(const Bar& bar, int x) {
    const auto& columns = bar.Place.StrumX;
    int strum = 0;
    while (strum <= columns.UpperBound() && columns[strum] <= x) ++strum;
    return std::clamp(strum - 1, 0, std::max(0, columns.UpperBound()));
}

/// Pitch at a height below the row's top; 0 when the track's strings don't reach it.
int PitchAt(const Track& track, int rowY) {
    int y = rowY - 24;
    if (track.ShowTreble && track.ShowBass) {
        y += y > OneStaffMark ? 10 - 95 : -3;
    } else if (track.ShowBass) {
        y += 38;
    } else {
        y -= 3;
    }
    const int drawn = StaffYToPitch(y);
    const int pitch = drawn - (drawn > 0 ? OctaveShift(track) : 0);
    const int lowest = Core::DefaultStringPitch(StringsShown(track) - 1) - 1;
    const int highest = Core::DefaultStringPitch(0) + 29;
    return pitch >= lowest && pitch <= highest ? pitch : 0;
}

}  // namespace

int StringFromY(int y, int strings) {
    const int string = Core::CInt((y - 5) / 10.0);
    return string >= 0 && string < strings ? string : -1;
}

Hit HitTest(const TabFile& file, int track, int x, int y) {
    const Track& shown = file.Tracks[track];
    const int rowHeight = RowHeight(shown);
    Hit hit;
    int bar = 0;
    const auto hits = [&](int index) {
        const Bar& candidate = shown.Bars[index];
        return candidate.Place.Page >= 0 && candidate.Place.BarX <= x && InBand(candidate, rowHeight, y) &&
               x < HitEnd(shown, index);
    };
    while (bar <= shown.Bars.UpperBound() && !hits(bar)) ++bar;
    if (bar > shown.Bars.UpperBound()) {
        const Bar& last = shown.Bars[shown.Bars.UpperBound()];
        hit.PastLastBar =
            last.Place.Page >= 0 && InBand(last, rowHeight, y) && x >= HitEnd(shown, shown.Bars.UpperBound());
        return hit;
    }
    const Bar& found = shown.Bars[bar];
    hit.OnBar = true;
    hit.Bar = Core::ToInt16(bar);
    hit.Strum = Core::ToInt16(StrumAt(found, x));
    const int rowY = y - found.Place.BarY;
    if (shown.ShowTab) {
        if (const int string = StringFromY(rowY - TabOffset(shown), StringsShown(shown)); string >= 0) {
            hit.On = Hit::Place::OnString;
            hit.String = Core::ToInt16(string);
            return hit;
        }
    }
    if (!shown.ShowTreble && !shown.ShowBass) return hit;
    if (shown.IsDrum) {
        if (const int lane = DrumLaneFromY(rowY - 24); lane >= 0 && lane < StringsShown(shown)) {
            hit.On = Hit::Place::OnLane;
            hit.String = Core::ToInt16(lane);
        }
    } else if (const int pitch = PitchAt(shown, rowY); pitch > 0) {
        hit.On = Hit::Place::OnPitch;
        hit.Pitch = Core::ToInt16(pitch);
    }
    return hit;
}

int NearestBar(const Track& track, int x, int y) {
    const int rowHeight = RowHeight(track);
    const auto outside = [](int value, int from, int to) { return std::max({from - value, value - to, 0}); };
    int nearest = -1;
    std::pair<int, int> least;
    for (int bar = 0; bar <= track.Bars.UpperBound(); ++bar) {
        const Core::BarPlace& place = track.Bars[bar].Place;
        if (place.Page < 0) continue;
        const std::pair away{outside(y, place.BarY, place.BarY + rowHeight),
                             outside(x, place.BarX, place.BarX + place.BarWidth - 1)};
        if (nearest >= 0 && away >= least) continue;
        nearest = bar;
        least = away;
    }
    return nearest;
}

}  // namespace Quillon::Drawing
