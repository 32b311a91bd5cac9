// A picture as a list of what was drawn, one operation a line, to be compared as text.
//
//   color #000000            before the first operation that uses another colour than the last one did
//   font Arial 8 bold        likewise for fonts
//   line 0 10 40 10          from, to, and the width when it is not 1
//   polyline w1.2 0,0 4,2    polygon likewise, without a width
//   shape head 40 28         name and anchor of a shape
//   box 1 2 6 8 #ffffff      left, top, width, height
//   circle 4 4 3             middle, radius, and the width when it is not 1; disc without
//   text 12 14 center "H"    x, baseline, the anchor when it is not the left end
#pragma once

#include <string>
#include <string_view>

#include "platform/Picture.h"

namespace Quillon {

/// Texts are 0.55 em a character wide, whatever the font. Coordinates are rounded to hundredths.
class PictureLog : public Picture {
public:
    const std::string& Text() const { return log; }
    void Clear() { *this = {}; }
    /// A line of the caller's own between the operations.
    void Remark(std::string_view text);

    void SetColor(Color value) override { color = value; }
    void SetFont(const Font& value) override { font = value; }
    void Line(double x1, double y1, double x2, double y2, double width) override;
    using Picture::Polyline;
    void Polyline(std::span<const Point> points, double width) override;
    using Picture::Polygon;
    void Polygon(std::span<const Point> points) override;
    void Stamp(const Shape& shape, double x, double y) override;
    void Box(double x, double y, double width, double height, Color fill) override;
    void Circle(double x, double y, double radius, double width) override;
    void Disc(double x, double y, double radius) override;
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override;
    double TextWidth(std::string_view text) override;

private:
    void UseColor();

    std::string log;
    Color color = Black;
    Font font;
    Color loggedColor = -1;
    Font loggedFont{.Name = ""};
};

}  // namespace Quillon
