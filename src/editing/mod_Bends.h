// Shapes of a pitch over a beat, and the bends that are made of them.
//
// Heights are in the units of the documents' curves: eight are a whole tone, two a quarter of one.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

constexpr double UnitsOfQuarter = 2;  ///< a quarter of a tone

/// A corner of a shape: its place in the beat from 0 to 1, its height from -1 to 1.
struct Corner {
    double At = 0;
    double Height = 0;
};
/// A shape by the text key of its name.
struct Shape {
    std::string_view Name;
    std::span<const Corner> Corners;
};
/// Straight lines from corner to corner, drawn together into the first `share` of the beat and let to `amount`. To a
/// hundredth.
std::vector<double> PointsOf(const Shape& shape, double amount, double share, int count);
/// To a hundredth, as files keep heights.
double ToHundredth(double height);

/// How a bend's shape is fitted into the beat: BendType.
enum class BendPace : std::int16_t { Usual, Quick, Slow };
/// The shapes of bends by their number, BendStyle; the last, without corners, is what is drawn by hand.
std::span<const Shape> BendStyles();
/// The 26 points of a shape by its number, up to so many quarters of a tone.
std::vector<double> ShapedBend(int style, int quarters, BendPace pace);
/// Bends a note up by 1 to 12 quarters of a tone, and down again with `release`.
void GiveBend(Core::Note& note, int quarters, bool release);

}  // namespace Quillon::Editing
