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
    const double middle = bar.Place.Top + 2.0 * StaffStep;  // of a slash, which has no heads
    const double top = (column.Slash ? middle - 6 : column.Highest()) - overhang;
    const double bottom = (column.Slash ? middle + 6 : column.Lowest()) + overhang;
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
    constexpr double half = TremoloReach, rise = 1.5, step = 4, fromHead = 13;
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

/// The way of a bend from the head up, and back where it is released.
void DrawStaffBend(Picture& picture, const StaffBar& bar, int strum, const StaffNote& note, Room& amounts) {
    constexpr double away = 5.5, dot = 5, beforeNext = 2, narrowest = 4.5, height = 11;
    const std::vector<double> turns = BendTurns(bar.Strum(strum).Notes[note.String]);
    if (turns.empty()) return;
    const double left = note.X + away + (bar.Strum(strum).Dotted ? dot : 0);
    const double next = strum + 1 < bar.Count() ? bar.Column(strum + 1).Left : bar.Right();
    const double room = next - beforeNext - left, curves = std::max(1.0, static_cast<double>(turns.size() - 1));
    const double step = std::clamp(room / curves, narrowest, BendStep);
    DrawBendTurns(picture, turns, {left, note.Y - 1, note.Y - height, step, SmallFont, amounts});
}

/// Heads near each other share an amount.
void DrawStaffBends(Picture& picture, const StaffBar& bar, int strum) {
    const std::vector<StaffNote>& notes = bar.Column(strum).Notes;
    const auto isBent = [&](const StaffNote& note) { return bar.Strum(strum).Notes[note.String].HasBend; };
    if (std::ranges::none_of(notes, isBent)) return;
    Room amounts;
    for (const StaffNote& note : notes) {
        if (isBent(note)) DrawStaffBend(picture, bar, strum, note, amounts);
    }
}

}  // namespace

int TremoloStrokes(const StaffBar& bar, int strum) {
    std::int32_t most = 0;
    for (const StaffNote& note : bar.Column(strum).Notes) {
        const std::int32_t technique = bar.Strum(strum).Notes[note.String].Technique;
        if (technique < Core::TremoloPicking8ths || technique > Core::TremoloPicking32nds) continue;
        most = std::max(most, technique - Core::TremoloPicking8ths + 1);
    }
    return bar.ShowsHands() ? most : 0;
}

void DrawStaffSigns(Picture& picture, const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    const Core::Strum& own = bar.Strum(strum);
    if (!bar.ShowsHands() || !column.Sounds()) return;
    if (own.Stroke != 0) DrawStaffStroke(picture, bar, strum, own.Stroke == 1);
    bool staccato = false;
    for (const StaffNote& note : column.Notes) {
        const std::int32_t technique = own.Notes[note.String].Technique;
        staccato = staccato || technique == Core::Staccato;
        const bool stroke = technique == Core::SlideUp || technique == Core::SlideDown ||
                            technique == Core::SlideIntoUp || technique == Core::SlideIntoDown;
        if (stroke) DrawSlideStroke(picture, bar, strum, note, technique);
    }
    if (const int strokes = TremoloStrokes(bar, strum); strokes > 0) DrawTremolo(picture, bar, strum, strokes);
    DrawStaffBends(picture, bar, strum);
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
