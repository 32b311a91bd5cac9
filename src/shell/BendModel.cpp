#include <algorithm>
#include <array>
#include <cmath>

#include "core/mod_Common.h"
#include "shell/EffectModels.h"

namespace Quillon::Shell {

LastEffects EffectsChosen;

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

constexpr Shape BendStyles[] = {{"str_BendStyleBend", Bend},
                                {"str_BendStyleBendRelease", BendAndRelease},
                                {"str_BendStylePrebendRelease", PrebendAndRelease},
                                {"str_BendStylePrebend", Prebend},
                                {"str_BendStyleRelease", Release},
                                {"str_BendStyleBendReleaseBend", BendReleaseBend},
                                {"str_BendStylePrebendReleaseBend", PrebendReleaseBend},
                                {"str_BendStyleLate", LateBend},
                                {"str_CurveByHand", {}}};
constexpr std::int16_t HandStyle = std::ssize(BendStyles) - 1;

/// The share of the beat that a shape made for all of it takes. A slow one uses the part that the others rest in.
constexpr double Shares[] = {1, 0.5, 1.25};

std::vector<double> ShapedBend(int style, int amount, int pace) {
    const double height = UnitsOfQuarter * (amount + 1);
    return PointsOf(BendStyles[style], height, Shares[pace], Core::BendPointCount);
}

}  // namespace

std::span<const Shape> BendModel::Styles() { return BendStyles; }

bool BendModel::ByHand(int style) { return style == HandStyle; }

void BendModel::Load() {
    StrumModel::Load();
    Drawn.Lowest = 0;
    Drawn.Highest = UnitsOfQuarter * Amounts;
    const Core::Note& note = NoteBefore();
    if (!note.HasBend) {
        Style = ByHand(EffectsChosen.BendStyle) ? std::int16_t{0} : EffectsChosen.BendStyle;
        Amount = EffectsChosen.BendAmount;
        Pace = EffectsChosen.BendPace;
        return Reshape();
    }
    const auto& points = note.BendPoints.Read();
    Drawn.Points.assign(points.begin(), points.end());
    Style = note.BendStyle >= 0 && note.BendStyle < HandStyle ? static_cast<std::int16_t>(note.BendStyle) : HandStyle;
    Pace = note.BendType >= 0 && note.BendType < std::ssize(Shares) ? static_cast<std::int16_t>(note.BendType)
                                                                    : std::int16_t{0};
    const double quarters = Core::RoundHalfEven(Drawn.Extreme() / UnitsOfQuarter);
    Amount = static_cast<std::int16_t>(quarters >= 1 ? std::min<double>(quarters, Amounts) - 1 : 0);
    if (!ByHand(Style) && !SameCurve(Drawn.Points, ShapedBend(Style, Amount, Pace))) Style = HandStyle;
}

void BendModel::Reshape() {
    if (!ByHand(Style)) Drawn.Points = ShapedBend(Style, Amount, Pace);
}

void BendModel::TakeDrawn() {
    Style = HandStyle;
    const double quarters = Core::RoundHalfEven(Drawn.Extreme() / UnitsOfQuarter);
    Amount = static_cast<std::int16_t>(std::clamp<double>(quarters, 1, Amounts) - 1);
}

std::string_view BendModel::Validate() const { return Drawn.IsFlat() ? "str_CurveFlat" : ""; }

void BendModel::WriteNote(Core::Note& note) const {
    const bool kept = note.HasBend && std::ranges::equal(note.BendPoints.Read(), Drawn.Points);
    note.HasBend = true;
    // A curve that came from elsewhere keeps the style that it came with.
    if (kept && ByHand(Style)) return;
    for (int i = 0; i < Core::BendPointCount; ++i)
        note.BendPoints.Edit()[i] = Drawn.Points[static_cast<std::size_t>(i)];
    note.BendStyle = Style;
    note.BendType = Pace;
}

void BendModel::Remember() const {
    EffectsChosen.BendStyle = Style;
    EffectsChosen.BendAmount = Amount;
    EffectsChosen.BendPace = Pace;
}

}  // namespace Quillon::Shell
