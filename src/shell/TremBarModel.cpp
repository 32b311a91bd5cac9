#include <algorithm>
#include <cmath>

#include "core/mod_Common.h"
#include "shell/EffectModels.h"

namespace Quillon::Shell {

namespace {

// Down is let loose, up is pulled. The first, the second and the fourth are those of the songs that exist.
constexpr Corner Dip[] = {{0, 0}, {0.35, -1}, {0.7, 0}, {1, 0}};
constexpr Corner Dive[] = {{0, 0}, {0.2, 0}, {1, -1}};
constexpr Corner DiveAndReturn[] = {{0, 0}, {0.1, 0}, {0.45, -1}, {0.65, -1}, {1, 0}};
constexpr Corner Scoop[] = {{0, -1}, {0.4, 0}, {1, 0}};
constexpr Corner PullUp[] = {{0, 0}, {0.35, 1}, {0.7, 0}, {1, 0}};
constexpr Corner Rise[] = {{0, 0}, {0.2, 0}, {1, 1}};
constexpr Corner Flutter[] = {{0, 0},      {0.125, -1}, {0.25, 0},   {0.375, -1}, {0.5, 0},
                              {0.625, -1}, {0.75, 0},   {0.875, -1}, {1, 0}};

constexpr Shape TremStyles[] = {
    {"str_TremStyleDip", Dip},         {"str_TremStyleDive", Dive},   {"str_TremStyleReturn", DiveAndReturn},
    {"str_TremStyleScoop", Scoop},     {"str_TremStylePull", PullUp}, {"str_TremStyleRise", Rise},
    {"str_TremStyleFlutter", Flutter}, {"str_CurveByHand", {}}};
constexpr std::int16_t HandStyle = std::ssize(TremStyles) - 1;
constexpr double Shares[] = {1, 0.5, 0.25};

double HeightOf(int range) { return UnitsOfTone / 2 * (range + 1); }

std::vector<double> ShapedDip(int style, int range, int length) {
    return PointsOf(TremStyles[style], HeightOf(range), Shares[length], Core::TremPointCount);
}

/// The range that a curve needs.
std::int16_t RangeFor(double extreme) {
    const double halves = std::ceil(std::abs(extreme) / (UnitsOfTone / 2) - 0.01);
    return static_cast<std::int16_t>(std::clamp<double>(halves, 1, TremBarModel::Ranges) - 1);
}

}  // namespace

std::string TremBarModel::RangeText(int range) {
    const int halves = range + 1;
    return (halves >= 2 ? std::to_string(halves / 2) : "") + (halves % 2 == 1 ? "½" : "");
}

std::span<const Shape> TremBarModel::Styles() { return TremStyles; }

bool TremBarModel::ByHand(int style) { return style == HandStyle; }

void TremBarModel::Load() {
    StrumModel::Load();
    const Core::Strum& strum = Before();
    Style = ByHand(EffectsChosen.TremStyle) ? std::int16_t{0} : EffectsChosen.TremStyle;
    Range = EffectsChosen.TremRange;
    Length = EffectsChosen.TremLength;
    if (strum.HasTrem) {
        const auto& points = strum.TremPoints.Read();
        Drawn.Points.assign(points.begin(), points.end());
        Range = RangeFor(Drawn.Extreme());
        for (std::int16_t range = Range; range < Ranges; ++range) {
            if (strum.TremRange == RangeText(range)) Range = range;
        }
        Length = strum.TremLength >= 0 && strum.TremLength < std::ssize(Shares)
                     ? static_cast<std::int16_t>(strum.TremLength)
                     : std::int16_t{0};
        Style = HandStyle;
        for (std::int16_t style = 0; style < HandStyle; ++style) {
            if (SameCurve(Drawn.Points, ShapedDip(style, Range, Length))) Style = style;
        }
    }
    loadedRange = Range;
    loadedLength = Length;
    shownRange = HeightOf(Range);
    Reshape();
}

void TremBarModel::Reshape() {
    const double height = HeightOf(Range);
    if (!ByHand(Style)) {
        Drawn.Points = ShapedDip(Style, Range, Length);
    } else if (height != shownRange) {
        for (double& point : Drawn.Points) point = Snapped(point * height / shownRange);
    }
    shownRange = height;
    Drawn.Lowest = -height;
    Drawn.Highest = height;
}

void TremBarModel::TakeDrawn() { Style = HandStyle; }

std::string_view TremBarModel::Validate() const { return Drawn.IsFlat() ? "str_CurveFlat" : ""; }

void TremBarModel::Write(Core::Strum& strum) const {
    const auto& points = strum.TremPoints.Read();
    const bool sameCurve = SameCurve({points.begin(), points.end()}, Drawn.Points);
    // What is opened and accepted stays as it is, also what the dialog shows only nearly.
    if (strum.HasTrem && sameCurve && Range == loadedRange && Length == loadedLength) return;
    if (!sameCurve) {
        for (int i = 0; i < Core::TremPointCount; ++i) {
            strum.TremPoints.Edit()[i] = Drawn.Points[static_cast<std::size_t>(i)];
        }
    }
    strum.HasTrem = true;
    strum.TremRange = RangeText(Range);
    strum.TremLength = Length;
}

void TremBarModel::Remember() const {
    EffectsChosen.TremStyle = Style;
    EffectsChosen.TremRange = Range;
    EffectsChosen.TremLength = Length;
}

}  // namespace Quillon::Shell
