#include "shell/DarkPaper.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

namespace Quillon::Shell {

namespace {

/// Lightness as the eye takes it, from 0 to 1, and two measures of colour: the Oklab space.
struct Seen {
    double Light, Red, Blue;
};
using Linear = std::array<double, 3>;

double ToLinear(int part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

int FromLinear(double value) {
    const double shown = value <= 0.0031308 ? value * 12.92 : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
    return static_cast<int>(std::lround(std::clamp(shown, 0.0, 1.0) * 255));
}

Seen ToSeen(const Linear& c) {
    const double l = std::cbrt(0.4122214708 * c[0] + 0.5363325363 * c[1] + 0.0514459929 * c[2]);
    const double m = std::cbrt(0.2119034982 * c[0] + 0.6806995451 * c[1] + 0.1073969566 * c[2]);
    const double s = std::cbrt(0.0883024619 * c[0] + 0.2817188376 * c[1] + 0.6299787005 * c[2]);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

Linear FromSeen(const Seen& seen) {
    const auto cube = [](double value) { return value * value * value; };
    const double l = cube(seen.Light + 0.3963377774 * seen.Red + 0.2158037573 * seen.Blue);
    const double m = cube(seen.Light - 0.1055613458 * seen.Red - 0.0638541728 * seen.Blue);
    const double s = cube(seen.Light - 0.0894841775 * seen.Red - 1.2914855480 * seen.Blue);
    return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

bool CanBeShown(const Linear& color) {
    return std::ranges::all_of(color, [](double part) { return part >= -0.001 && part <= 1.001; });
}

Color Turned(Color color) {
    constexpr double Paper = 0.245;
    constexpr double Ink = 0.93;
    // Below 1, so that the faint tints of white paper can be told from dark paper too.
    constexpr double Bend = 0.8;
    Seen seen = ToSeen({ToLinear(RedOf(color)), ToLinear(GreenOf(color)), ToLinear(BlueOf(color))});
    const double away = std::pow(std::clamp(1 - seen.Light, 0.0, 1.0), Bend);
    seen.Light = Paper + (Ink - Paper) * away;
    Linear shown = FromSeen(seen);
    for (int i = 0; i < 40 && !CanBeShown(shown); ++i) {
        seen.Red *= 0.93;
        seen.Blue *= 0.93;
        shown = FromSeen(seen);
    }
    return PackColor(FromLinear(shown[0]), FromLinear(shown[1]), FromLinear(shown[2]));
}

}  // namespace

Color OnDarkPaper(Color color) {
    constexpr std::size_t Most = 4096;  // a page has a dozen
    static std::unordered_map<Color, Color> known;
    if (known.size() > Most) known.clear();
    const auto [row, isNew] = known.try_emplace(color, 0);
    if (isNew) row->second = Turned(color);
    return row->second;
}

}  // namespace Quillon::Shell
