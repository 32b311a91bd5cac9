// A picture that nobody looks at: for laying a document out without painting it.
#pragma once

#include "platform/Picture.h"

namespace Quillon {

struct NoPicture final : Picture {
    void SetColor(Color) override {}
    void SetFont(const Font&) override {}
    void Line(double, double, double, double, double) override {}
    void Polyline(std::span<const Point>, double) override {}
    void Polygon(std::span<const Point>) override {}
    void Stamp(const Shape&, double, double) override {}
    void Box(double, double, double, double, Color) override {}
    void Circle(double, double, double, double) override {}
    void Disc(double, double, double) override {}
    void Print(double, double, std::string_view, Anchor) override {}
    double TextWidth(std::string_view text) override { return 6.0 * static_cast<double>(text.size()); }
};

}  // namespace Quillon
