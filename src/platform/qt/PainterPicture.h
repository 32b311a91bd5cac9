// The screen, and pixels in general, as a drawing target.
//
// Document pixels are scaled here and not by the painter, so that level and upright strokes can be put on whole device
// pixels at every scale: a staff stays sharp at 100, 125 and 200 percent.
#pragma once

#include <QFont>
#include <QPainter>

#include "platform/Picture.h"

namespace Quillon {

class GlyphCache;

/// Colour of a document on a screen.
QColor ToQColor(Color color);
/// The font that stands for a document's font, with an em of `pixels`. Unhinted, so that widths grow evenly with the
/// scale. A font that the machine lacks gives way to one of the same widths.
QFont ToQFont(const Font& font, int pixels);

class PainterPicture : public Picture {
public:
    /// Paints with a painter of device pixels that has no transformation; `scale` device pixels make a document pixel.
    explicit PainterPicture(QPainter& painter, double scale = 1);

    /// Paints every colour as what `map` makes of it.
    void MapColors(Color (*map)(Color)) { mapped = map; }

    void SetColor(Color color) override;
    void SetFont(const Font& font) override;
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
    struct Span {
        int First, Length;
    };
    /// Device pixels that a stroke covers across itself, its middle on document pixel `at`.
    Span Across(double at, double width) const;
    /// Middle of a document pixel on the device.
    double Middle(double at) const { return (at + 0.5) * scale; }
    void UsePen(double width, Qt::PenCapStyle cap);
    void UseBrush();
    QColor Shown(Color wanted) const { return ToQColor(mapped ? mapped(wanted) : wanted); }

    QPainter& painter;
    double scale;
    QColor color = Qt::black;
    Color (*mapped)(Color) = nullptr;
    int fontId = 0;
    GlyphCache& glyphs;
};

}  // namespace Quillon
