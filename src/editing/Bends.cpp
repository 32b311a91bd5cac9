#include "editing/mod_Bends.h"

#include <algorithm>

#include "core/mod_Common.h"

namespace Quillon::Editing {

namespace {

// The first three are those of the songs that exist.
constexpr Corner Bend[] = {{0, 0}, {0.3, 1}, {1, 1}};
constexpr Corner BendAndRelease[] = {{0, 0}, {0.25, 1}, {0.55, 1}, {0.8, 0}, {1, 0}};
constexpr Corner PrebendAndRelease[] = {{0, 1}, {0.5, 1}, {0.8, 0}, {1, 0}};
constexpr Corner Prebend[] = {{0, 1}, {1, 1}};
constexpr Corner Release[] = {{0, 1}, {0.3, 0}, {1, 0}};
constexpr Corner BendReleaseBend[] = {{0, 0}, {0.2, 1}, {0.3, 1}, {0.5, 0}, {0.6, 0}, {0.8, 1}, {1, 1}};
constexpr Corner PrebendReleaseBend[] = {{0, 1}, {0.25, 1}, {0.5, 0}, {0.6, 0}, {0.85, 1}, {1, 1}};
constexpr Corner LateBend[] = {{0, 0}, {0.5, 0}, {0.8, 1}, {1, 1}};

constexpr Shape Styles[] = {{"str_BendStyleBend", Bend},
                            {"str_BendStyleBendRelease", BendAndRelease},
                            {"str_BendStylePrebendRelease", PrebendAndRelease},
                            {"str_BendStylePrebend", Prebend},
                            {"str_BendStyleRelease", Release},
                            {"str_BendStyleBendReleaseBend", BendReleaseBend},
                            {"str_BendStylePrebendReleaseBend", PrebendReleaseBend},
                            {"str_BendStyleLate", LateBend},
                            {"str_CurveByHand", {}}};

/// The share of the beat that a shape made for all of it takes. A slow one uses the part that the others rest in.
constexpr double Shares[] = {1, 0.5, 1.25};

}  // namespace

double ToHundredth(double height) {
    constexpr double hundredths = 100;
    return Core::RoundHalfEven(height * hundredths) / hundredths;
}

std::vector<double> PointsOf(const Shape& shape, double amount, double share, int count) {
    std::vector<double> points;
    const std::span<const Corner> corners = shape.Corners;
    for (int i = 0; i < count; ++i) {
        const double at = static_cast<double>(i) / (count - 1) / share;
        const auto right =
            std::find_if(corners.begin() + 1, corners.end(), [at](const Corner& corner) { return corner.At >= at; });
        if (right == corners.end()) {
            points.push_back(ToHundredth(amount * corners.back().Height));
            continue;
        }
        const Corner& left = *(right - 1);
        const double part = (at - left.At) / (right->At - left.At);
        points.push_back(ToHundredth(amount * (left.Height + part * (right->Height - left.Height))));
    }
    return points;
}

std::span<const Shape> BendStyles() { return Styles; }

std::vector<double> ShapedBend(int style, int quarters, BendPace pace) {
    return PointsOf(Styles[style], UnitsOfQuarter * quarters, Shares[static_cast<int>(pace)], Core::BendPointCount);
}

void GiveBend(Core::Note& note, int quarters, bool release) {
    enum Style { Plain, Released };
    note.HasBend = true;
    note.BendStyle = release ? Released : Plain;
    note.BendType = static_cast<std::int32_t>(BendPace::Usual);
    const std::vector<double> points = ShapedBend(note.BendStyle, quarters, BendPace::Usual);
    std::ranges::copy(points, note.BendPoints.Edit().begin());
}

}  // namespace Quillon::Editing
