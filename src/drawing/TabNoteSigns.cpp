// What stands beside a figure: grace notes, trill partners, strokes of the hand, and slashes that stand for a chord.
#include <algorithm>
#include <cmath>
#include <string>

#include "core/mod_TabFileManipulation.h"
#include "drawing/TabParts.h"

namespace Quillon::Drawing {

namespace {

constexpr int SmallDrop = 3;  ///< from a string's line to the baseline of a small figure on it

/// A small figure on a string, left or right of x, on white. Its other end is returned.
double PrintSmallFigure(Picture& picture, double x, double line, const std::string& text, Anchor anchor) {
    picture.SetFont(SmallFont);
    const double width = picture.TextWidth(text);
    const double left = anchor == Anchor::Right ? x - width : x;
    picture.Box(std::floor(left), line - 3, std::ceil(width) + 1, 7, White);
    picture.Print(x, line + SmallDrop, text, anchor);
    return anchor == Anchor::Right ? left : left + width;
}

/// True when a figure of another column on a string stands between left and right, in the bar before too.
bool MeetsFigure(Picture& picture, const TabBar& bar, int strum, int string, double left, double right) {
    constexpr double farthest = 60;  // further off no figure reaches
    constexpr int most = 20;         // columns of a bar that is no music would all stand on one spot
    const auto meets = [&](const Core::Note& note, double x) {
        if (note.Fret.empty()) return false;
        const Extent extent = FigureExtent(picture, bar, string, note);
        return left < x + 0.5 + extent.Right && x + 0.5 - extent.Left < right;
    };
    for (int s = strum + 1; s < std::min(bar.StrumCount(), strum + most) && bar.Column(s) < right + farthest; ++s) {
        if (meets(bar.Strum(s).Notes[string], bar.Column(s))) return true;
    }
    for (int s = strum - 1; s >= std::max(0, strum - most) && bar.Column(s) > left - farthest; --s) {
        if (meets(bar.Strum(s).Notes[string], bar.Column(s))) return true;
    }
    const Core::Bar* before = strum < most && bar.Column(0) > left - farthest ? bar.Beside(-1) : nullptr;
    const int last = before ? before->Strums().UpperBound() : -1;
    for (int s = last; s >= std::max(0, last - most); --s) {
        const double x = before->Place.StrumX[s] + (bar.Context.X - bar.Bar.Place.BarX);
        if (x < left - farthest) break;
        if (meets(before->Strums()[s].Notes[string], x)) return true;
    }
    return false;
}

constexpr double Raise = 6.5;  ///< of a small figure that would cover another column's

void DrawGrace(Picture& picture, TabBar& bar, int strum, int string) {
    constexpr double gap = 4, bowRise = 2.5;
    const Core::Note& note = bar.Strum(strum).Notes[string];
    if (note.GraceFret.empty()) return;
    const double x = bar.Column(strum);
    const double line = bar.LineY(string);
    picture.SetFont(SmallFont);
    const double width = picture.TextWidth(note.GraceFret);
    double left = x - FigureExtent(picture, bar, strum, string).Left - gap - width;
    // In a first column there is no room behind the bar line: a small figure there would read as a digit of the large
    // one.
    if (left < bar.Context.X + 2) left = bar.Context.X - 2 - width;
    // Behind the time signature it moves up to its figure.
    const double signature = bar.Context.X + 41;
    if (strum == 0 && bar.Bar.Place.ShowTimeSig) left = std::max(left, std::min(signature, left + gap - 1));
    if (MeetsFigure(picture, bar, strum, string, left - 1, left + width + 1)) {
        constexpr double near = 1;
        const double right = x - FigureExtent(picture, bar, strum, string).Left - near;
        Print(picture, SmallFont, right, line - Raise + SmallDrop, note.GraceFret, Anchor::Right);
        DrawBow(picture, right + 1, x + 1, line - 5, bowRise);
        return bar.Around.Take({right - width, line - Raise - 4, x, line});
    }
    PrintSmallFigure(picture, left, line, note.GraceFret, Anchor::Left);
    DrawBow(picture, left + width / 2, x - 1, line - 4.5, bowRise);
    bar.Around.Take({left, line - 8, x, line});
}

void DrawStroke(Picture& picture, const TabBar& bar, int strum) {
    constexpr double away = 9, awayFirst = 6, overhang = 4;
    const Core::Strum& column = bar.Strum(strum);
    int first = bar.Strings, last = -1;
    Extent widest;
    for (int string = 0; string < bar.Strings; ++string) {
        if (column.Notes[string].Fret.empty()) continue;
        first = std::min(first, string);
        last = string;
        const Extent extent = FigureExtent(picture, bar, strum, string);
        widest = {std::max(widest.Left, extent.Left), std::max(widest.Right, extent.Right)};
    }
    if (last < 0) {  // a chord by its name alone is stroked over all strings
        first = 0;
        last = bar.Strings - 1;
    }
    // The stroke keeps clear of wide figures. In a first column it steps nearer when the time signature stands before
    // it, and aside when the bar line does.
    const double x = bar.Column(strum);
    double at = x - std::max(away, widest.Left + 4);
    double size = 5;
    if (strum == 0 && bar.Bar.Place.ShowTimeSig) {
        at = x - std::max(awayFirst, widest.Left + 2.5);
        size = 4;
    } else if (strum == 0) {
        at = x + std::max(away, widest.Right + 4);
    }
    const bool up = column.Stroke == 1;
    const double top = bar.LineY(first) - overhang;
    const double bottom = bar.LineY(last) + overhang;
    picture.Line(at, up ? top + size - 1 : top, at, up ? bottom : bottom - size + 1);
    DrawArrowhead(picture, at, up ? top - 1 : bottom + 1, up ? -1 : 1, size);
}

/// A rhythm slash over the middle of the tab.
void DrawSlash(Picture& picture, const TabBar& bar, int strum) {
    constexpr double halfWidth = 4, halfHeight = 7;
    const double x = bar.Column(strum);
    const double y = (bar.Top + bar.Bottom) / 2.0;
    picture.Line(x - halfWidth, y + halfHeight, x + halfWidth, y - halfHeight, 2.4);
}

}  // namespace

void DrawNoteSigns(Picture& picture, TabBar& bar, int strum) {
    const Core::Strum& column = bar.Strum(strum);
    for (int string = 0; string < bar.Strings; ++string) {
        const Core::Note& note = column.Notes[string];
        if (note.Fret.empty()) continue;
        if (note.HasGrace) DrawGrace(picture, bar, strum, string);
        if (note.HasTrill) {
            const double right = bar.Column(strum) + FigureExtent(picture, bar, strum, string).Right + 2;
            const std::string partner = "(" + std::to_string(note.TrillFret) + ")";
            picture.SetFont(SmallFont);
            const double end = right + picture.TextWidth(partner) + 1;
            if (MeetsFigure(picture, bar, strum, string, right - 1, end)) {
                const double above = bar.LineY(string) - Raise;
                Print(picture, SmallFont, right - 1, above + SmallDrop, partner, Anchor::Left);
                bar.Around.Take({right - 1, above - 4, end, above + 4});
            } else {
                PrintSmallFigure(picture, right, bar.LineY(string), partner, Anchor::Left);
            }
        }
    }
    if (column.Stroke != 0) DrawStroke(picture, bar, strum);
    if (column.Hash == 1 && !Core::HasNotes(column)) DrawSlash(picture, bar, strum);
}

}  // namespace Quillon::Drawing
