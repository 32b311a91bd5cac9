// A picture as SVG text: what the drawing code strokes, fills and prints, in as few elements as its order allows.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Picture.h"

namespace Quillon {

/// Whole coordinates of strokes, circles and shapes are the middles of pixels, as on the screen, so that a level stroke
/// of width 1 covers one row of pixels when the file is shown at its own size.
class SvgPicture : public Picture {
public:
    /// A picture of this size in pixels, white. Text widths are those of the common sans and serif metrics.
    SvgPicture(double width, double height);

    /// The whole file so far: UTF-8, one element a line.
    std::string Text() const;

    void SetColor(Color value) override { color = value; }
    void SetFont(const Font& value) override { font = value; }
    void Line(double x1, double y1, double x2, double y2, double width) override;
    using Picture::Polyline;
    void Polyline(std::span<const Point> points, double width) override;
    using Picture::Polygon;
    void Polygon(std::span<const Point> points) override;
    /// A shape's outline is written once, and used from there.
    void Stamp(const Shape& shape, double x, double y) override;
    void Box(double x, double y, double width, double height, Color fill) override;
    void Circle(double x, double y, double radius, double width) override;
    void Disc(double x, double y, double radius) override;
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override;
    double TextWidth(std::string_view text) override;

private:
    /// Goes on in the open element, whose opening is `opening`, or closes it and opens this one.
    void Enter(const std::string& opening, std::string_view closing);

    /// The name under which the shape's outline stands at the head of the file.
    const std::string& NameOf(const Shape& shape);

    double width, height;
    Color color = Black;
    Font font;
    std::vector<std::pair<const Shape*, std::string>> shapes;  ///< those in use, with their names
    std::string body;
    std::string open;  ///< how the element that stands open began; "" when none does
    std::string_view close;
};

/// Text as it stands between XML tags and in attributes; a character that XML forbids becomes U+FFFD.
std::string EscapeXml(std::string_view text);

}  // namespace Quillon
