// What the staff itself tells of the hands where no tab does: strokes, staccato, slides into and out of notes, tremolo.
#include <algorithm>
#include <cmath>
#include <string>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

void DrawStaffStroke(Picture& picture, const StaffBar& bar, int strum, bool up) {
    constexpr double overhang = 6;
    const StaffColumn& column = bar.Column(strum);
    const double x = std::round(std::max(column.StrokeX, bar.Context.X + 3.0));
    const double top = column.Highest() - overhang, bottom = column.Lowest() + overhang;
    picture.Line(x, up ? top + 4 : top, x, up ? bottom : bottom - 4);
    DrawArrowhead(picture, x, up ? top - 1 : bottom + 1, up ? -1 : 1);
}

void DrawSlideStroke(Picture& picture, const StaffBar& bar, int strum, const StaffNote& note, std::int32_t technique) {
    constexpr double length = 9, slant = 3, away = 6;
    const bool behind = technique == Core::SlideUp || technique == Core::SlideDown;
    const bool rises = technique == Core::SlideUp || technique == Core::SlideIntoUp;
    const double dots = bar.Strum(strum).Dotted ? 5 : 0;
    const double sign = note.Sign == Accidental::None ? note.X - away : note.SignX - 4;
    const double left = behind ? note.X + away + dots : std::max(sign - length, bar.Context.X + 1.0);
    const double right = behind ? left + length : std::max(sign, left + 4);
    const double rise = rises ? slant : -slant;
    picture.Line(left, note.Y + rise, right, note.Y - rise, 1.2);
}

/// One to three strokes through the stem, or over the head of a whole note.
void DrawTremolo(Picture& picture, const StaffBar& bar, int strum, int count) {
    constexpr double half = 4, rise = 1.5, step = 4, fromHead = 13;
    const StaffColumn& column = bar.Column(strum);
    const double outward = column.StemUp ? -1 : 1;
    const double x = column.HasStem ? column.StemX : column.X;
    const double y = (column.StemUp ? column.Highest() : column.Lowest()) + outward * fromHead;
    for (int i = 0; i < count; ++i) {
        const double at = y + step * (i - (count - 1) / 2.0);
        picture.Polygon({{x - half, at + rise - 1},
                         {x + half, at - rise - 1},
                         {x + half, at - rise + 1},
                         {x - half, at + rise + 1}});
    }
}

/// A curve up from the head with the highest amount of its bend.
void DrawStaffBend(Picture& picture, const StaffBar& bar, int strum, const StaffNote& note) {
    constexpr double reach = 7, height = 11;
    const auto& points = bar.Strum(strum).Notes[note.String].BendPoints.Read();
    const double most = *std::max_element(points.begin(), points.end());
    const std::string label = BendLabel(most);
    if (label.empty()) return;
    const double left = note.X + 5.5 + (bar.Strum(strum).Dotted ? 5 : 0), right = left + reach;
    const double top = note.Y - height;
    picture.Polyline({{left, note.Y - 1}, {left + 4, note.Y - 2.5}, {left + 6.2, note.Y - 5.5}, {right, top + 3}}, 1);
    DrawArrowhead(picture, right, top, -1, 4);
    Print(picture, SmallFont, right, top - 1.5, label);
}

}  // namespace

void DrawStaffSigns(Picture& picture, const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    const Core::Strum& own = bar.Strum(strum);
    if (!bar.ShowsHands() || column.Notes.empty()) return;
    if (own.Stroke != 0) DrawStaffStroke(picture, bar, strum, own.Stroke == 1);
    bool staccato = false;
    std::int32_t tremolo = 0;
    for (const StaffNote& note : column.Notes) {
        const std::int32_t technique = own.Notes[note.String].Technique;
        staccato = staccato || technique == Core::Staccato;
        if (technique >= Core::TremoloPicking8ths && technique <= Core::TremoloPicking32nds) {
            tremolo = std::max(tremolo, technique - Core::TremoloPicking8ths + 1);
        }
        const bool stroke = technique == Core::SlideUp || technique == Core::SlideDown ||
                            technique == Core::SlideIntoUp || technique == Core::SlideIntoDown;
        if (own.Notes[note.String].HasBend) DrawStaffBend(picture, bar, strum, note);
        if (stroke) DrawSlideStroke(picture, bar, strum, note, technique);
    }
    if (tremolo > 0) DrawTremolo(picture, bar, strum, tremolo);
    if (staccato) picture.Disc(column.X, StaccatoY(bar, column), 1.3);
}

double StaccatoY(const StaffBar& bar, const StaffColumn& column) {
    // At the head's side, in a space where it is over the staff.
    const bool above = !column.StemUp;
    const auto outermost =
        std::minmax_element(column.Notes.begin(), column.Notes.end(), [](auto& a, auto& b) { return a.Step < b.Step; });
    const int step = (above ? outermost.second : outermost.first)->Step;
    const bool onLine = step % 2 == 0;
    const int away = onLine || step < 0 || step > 8 ? 3 : 2;
    return bar.YOf(above ? step + (onLine ? away : 2) : step - (onLine ? away : 2));
}

}  // namespace Quillon::Drawing
