#include "shell/Curve.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/mod_Common.h"

namespace Quillon::Shell {

double Snapped(double height) {
    constexpr double near = 0.5;
    const double quarter = Core::RoundHalfEven(height / UnitsOfQuarter) * UnitsOfQuarter;
    return std::abs(height - quarter) <= near ? quarter : Editing::ToHundredth(height);
}

void Curve::Stroke(int from, double fromHeight, int to, double toHeight) {
    const int first = std::max(0, std::min(from, to));
    const int last = std::min(Count() - 1, std::max(from, to));
    for (int point = first; point <= last; ++point) {
        const double part = from == to ? 1 : static_cast<double>(point - from) / (to - from);
        const double height = fromHeight + part * (toHeight - fromHeight);
        Points[static_cast<std::size_t>(point)] = Snapped(std::clamp(height, Lowest, Highest));
    }
}

void Curve::Nudge(int point, double step) {
    if (point < 0 || point >= Count()) return;
    double& height = Points[static_cast<std::size_t>(point)];
    const double steps = height / step;
    // From between two lines to the next one, not past it.
    const double next = step * (std::floor(steps + 1e-9) + 1);
    height = std::clamp(next, Lowest, Highest);
}

bool Curve::IsFlat() const {
    constexpr double heard = 0.5;
    return std::none_of(Points.begin(), Points.end(), [](double height) { return std::abs(height) >= heard; });
}

double Curve::Extreme() const {
    double extreme = 0;
    for (const double height : Points) {
        if (std::abs(height) > std::abs(extreme)) extreme = height;
    }
    return extreme;
}

std::string HeightText(double height) {
    static constexpr std::array<std::string_view, 4> fractions = {"", "¼", "½", "¾"};
    const auto quarters = static_cast<long>(Core::RoundHalfEven(height / UnitsOfQuarter));
    if (quarters == 0) return "0";
    const long size = std::labs(quarters);
    std::string text = quarters < 0 ? "-" : "";
    if (size >= 4) text += std::to_string(size / 4);
    return text + std::string(fractions[static_cast<std::size_t>(size % 4)]);
}

bool SameCurve(std::span<const double> one, std::span<const double> other) {
    constexpr double kept = 0.011;
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](double a, double b) { return std::abs(a - b) <= kept; });
}

}  // namespace Quillon::Shell
