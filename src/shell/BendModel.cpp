#include <algorithm>
#include <array>
#include <cmath>

#include "core/mod_Common.h"
#include "shell/EffectModels.h"

namespace Quillon::Shell {

LastEffects EffectsChosen;

namespace {

constexpr std::int16_t LastPace = static_cast<std::int16_t>(BendPace::Slow);

/// `amount` and `pace` as the model holds them.
std::vector<double> Shaped(int style, int amount, int pace) {
    return Editing::ShapedBend(style, amount + 1, static_cast<BendPace>(pace));
}

}  // namespace

std::span<const Shape> BendModel::Styles() { return Editing::BendStyles(); }

bool BendModel::ByHand(int style) { return style == std::ssize(Styles()) - 1; }

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
    const auto handStyle = static_cast<std::int16_t>(std::ssize(Styles()) - 1);
    Style = note.BendStyle >= 0 && note.BendStyle < handStyle ? static_cast<std::int16_t>(note.BendStyle) : handStyle;
    Pace = note.BendType >= 0 && note.BendType <= LastPace ? static_cast<std::int16_t>(note.BendType) : std::int16_t{0};
    const double quarters = Core::RoundHalfEven(Drawn.Extreme() / UnitsOfQuarter);
    Amount = static_cast<std::int16_t>(quarters >= 1 ? std::min<double>(quarters, Amounts) - 1 : 0);
    if (!ByHand(Style) && !SameCurve(Drawn.Points, Shaped(Style, Amount, Pace))) Style = handStyle;
}

void BendModel::Reshape() {
    if (!ByHand(Style)) Drawn.Points = Shaped(Style, Amount, Pace);
}

void BendModel::TakeDrawn() {
    Style = static_cast<std::int16_t>(std::ssize(Styles()) - 1);
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
