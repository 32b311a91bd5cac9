// Navigation signs above a bar, and where other parts may not print because of them.
#include <algorithm>
#include <array>

#include "drawing/TabParts.h"

namespace Quillon::Drawing {

namespace {

constexpr int Cell = 16;  ///< width and height of a sign, and the step from one to the next above it
constexpr int TextAscent = 10;

const char* SignText(Sign what) { return what == Sign::DalSegno ? "D.S. Al Coda" : "To Coda"; }

bool IsText(Sign what) { return what == Sign::DalSegno || what == Sign::ToCoda; }

void DrawSegno(Picture& picture, double x, double y) {
    // The upper half of an S, 8 wide and 13 high; the lower half is its mirror through the middle.
    static constexpr std::array<Point, 9> upper = {{{3.5, -3.7},
                                                    {3.0, -5.1},
                                                    {1.6, -6.1},
                                                    {-0.4, -6.5},
                                                    {-2.4, -6.0},
                                                    {-3.5, -4.8},
                                                    {-3.5, -3.3},
                                                    {-2.5, -1.9},
                                                    {-1.0, -0.7}}};
    std::array<Point, 2 * upper.size()> points;
    for (std::size_t i = 0; i < upper.size(); ++i) {
        points[i] = {x + upper[i].X, y + upper[i].Y};
        points[points.size() - 1 - i] = {x - upper[i].X, y - upper[i].Y};
    }
    picture.Polyline(points, 1.7);
    picture.Line(x - 5, y + 6.5, x + 5, y - 6.5, 1.1);
    picture.Disc(x - 5, y + 0.8, 1.2);
    picture.Disc(x + 5, y - 0.8, 1.2);
}

void DrawCoda(Picture& picture, double x, double y) {
    picture.Circle(x, y, 5, 1.5);
    picture.Line(x - 8, y, x + 8, y);
    picture.Line(x, y - 8, x, y + 8);
}

}  // namespace

std::vector<PlacedSign> SignsOf(const BarContext& bar) {
    constexpr int first = 36, withFigures = 48, left = 8;
    const Core::BarInfo& info = bar.Info();
    const int x = bar.X + (bar.ItsBar().Place.ShowTimeSig ? withFigures : 0) - left;
    int y = bar.Y - first;
    std::vector<PlacedSign> signs;
    const auto add = [&](std::int16_t flag, Sign what) {
        if (flag == 0) return;
        signs.push_back({what, x, y});
        y -= Cell;
    };
    add(info.DalSegno, Sign::DalSegno);
    add(info.CodaMark, Sign::Coda);
    add(info.ToCoda, Sign::ToCoda);
    add(info.Segno, Sign::Segno);
    return signs;
}

Area SignArea(Picture& picture, const PlacedSign& sign) {
    const auto top = static_cast<double>(sign.Y);
    if (!IsText(sign.What)) return {static_cast<double>(sign.X), top, sign.X + Cell + 1.0, top + Cell};
    picture.SetFont(SignFont);
    return {static_cast<double>(sign.X), top, sign.X + picture.TextWidth(SignText(sign.What)), top + TextAscent + 1};
}

void DrawSign(Picture& picture, Sign what, int x, int y) {
    if (IsText(what)) return Print(picture, SignFont, x, y + TextAscent, SignText(what), Anchor::Left);
    const double middleX = x + Cell / 2, middleY = y + Cell / 2;
    if (what == Sign::Segno) {
        DrawSegno(picture, middleX, middleY);
    } else {
        DrawCoda(picture, middleX, middleY);
    }
}

void DrawBarMarks(Picture& picture, const BarContext& bar) {
    picture.SetColor(bar.File.NoteFontColor);
    for (const PlacedSign& sign : SignsOf(bar)) DrawSign(picture, sign.What, sign.X, sign.Y);
}

}  // namespace Quillon::Drawing
