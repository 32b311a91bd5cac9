// Stems and flags.
#include <algorithm>
#include <cmath>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

constexpr double FlagStep = 5;
constexpr double ShortStem = 18.5;  ///< of a head far off the staff whose stem points away from it

/// Length of a single stem from the head at its end's side.
double StemLength(const StaffBar& bar, const StaffColumn& column, double head) {
    const double middle = bar.Place.Top + 2.0 * StaffStep;
    const double outward = column.StemUp ? middle - head : head - middle;
    double length = OctaveLong + FlagStep * std::max(0, column.Hooks - 2);
    const double outside = outward - StaffLineSpan / 2.0;
    if (column.Hooks == 0 && outside > 0) length = std::max(ShortStem, length - 0.6 * outside);
    // A head off the staff points at least to the middle line.
    return std::max(length, -outward);
}

}  // namespace

void PlaceStems(StaffBar& bar) {
    for (const BeamGroup& group : bar.Groups) {
        for (int s = group.First; s <= group.Last; ++s) {
            StaffColumn& column = bar.Column(s);
            column.StemUp = group.StemUp;
            column.HasStem = column.Sounds() && bar.Strum(s).Length >= 1;
            const double middle = bar.Place.Top + 2.0 * StaffStep;
            column.StemStart = middle;  // of a slash
            if (!column.HasStem) continue;
            if (column.Slash) {
                column.StemX = std::round(column.X) + (column.StemUp ? HeadHalf : -HeadHalf);
                column.StemStart = middle + (column.StemUp ? -6 : 6);
                column.StemEnd = column.StemStart + (column.StemUp ? -OctaveLong : OctaveLong) * 0.8;
                continue;
            }
            // Between heads that stand beside each other.
            const double half = std::round(HeadHalf * column.Scale());
            const double side = column.Displaced ? std::round(3 * column.Scale()) : column.StemUp ? half : -half;
            column.StemX = std::round(column.X) + side;
            const double near = column.StemUp ? column.Highest() : column.Lowest();
            column.StemStart = column.StemUp ? column.Lowest() - 1 : column.Highest() + 1;
            const bool atCross = std::any_of(column.Notes.begin(), column.Notes.end(), [&](const StaffNote& note) {
                return note.Cross && note.Y == (column.StemUp ? column.Lowest() : column.Highest());
            });
            if (atCross) column.StemStart += column.StemUp ? -2 : 2;  // at the arm of the "x"
            const double length = StemLength(bar, column, near);
            column.StemEnd = near + (column.StemUp ? -length : length);
        }
    }
}

void DrawStem(Picture& picture, const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    if (!column.HasStem) return;
    picture.Line(column.StemX, column.StemStart, column.StemX, column.StemEnd);
    if (column.Beamed) return;
    const double inward = column.StemUp ? FlagStep : -FlagStep;
    for (int flag = 0; flag < column.Hooks; ++flag) {
        picture.Stamp(FlagShape(column.StemUp, column.Hooks > 1), column.StemX, column.StemEnd + inward * flag);
    }
}

}  // namespace Quillon::Drawing
