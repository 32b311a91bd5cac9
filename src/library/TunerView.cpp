#include "library/TunerView.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace Quillon::Library {

namespace {

constexpr Color AtRest = PackColor(0x6E, 0x6C, 0x69);
constexpr Color LeftOut = PackColor(0xC9, 0xC7, 0xC2);
constexpr Color Swinging = PackColor(0xE8, 0x6A, 0x17);
constexpr Color Bridge = PackColor(0x3A, 0x38, 0x36);
constexpr double EndWidth = 5;  ///< of nut and bridge

/// The outermost places of a string that swings whole, once up and once down.
void DrawSwing(Picture& picture, double from, double to, double y, double reach, double width) {
    constexpr int Steps = 48;
    for (const double side : {-1.0, 1.0}) {
        std::vector<Point> points;
        for (int step = 0; step <= Steps; ++step) {
            const double along = static_cast<double>(step) / Steps;
            const double away = side * reach * std::sin(std::numbers::pi * along);
            points.push_back({from + (to - from) * along, y + std::round(away * 100) / 100});
        }
        picture.Polyline(std::span<const Point>(points), width);
    }
}

}  // namespace

void DrawTunerString(Picture& picture, const TunerStringLook& look, double width, double height) {
    const double y = height / 2;
    const double thick = 1 + look.String * 0.4;
    picture.Box(0, 0, EndWidth, height, Bridge);
    picture.Box(width - EndWidth, 0, EndWidth, height, Bridge);
    if (look.Sounding) {
        picture.SetColor(Swinging);
        DrawSwing(picture, EndWidth, width - EndWidth, y, height * 0.34, thick);
        return;
    }
    picture.SetColor(look.Checked ? AtRest : LeftOut);
    picture.Line(EndWidth, y, width - EndWidth, y, thick);
}

}  // namespace Quillon::Library
