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
            PrintSmallFigure(picture, right, bar.LineY(string), "(" + std::to_string(note.TrillFret) + ")",
                             Anchor::Left);
        }
    }
    if (column.Stroke != 0) DrawStroke(picture, bar, strum);
    if (column.Hash == 1 && !Core::HasNotes(column)) DrawSlash(picture, bar, strum);
}

}  // namespace Quillon::Drawing
