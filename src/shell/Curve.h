// Curves of a pitch over a beat, as a person draws them or chooses them by their shape.
//
// Heights are in the units of the documents' curves: eight are a whole tone, two a quarter of one.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editing/mod_Bends.h"

namespace Quillon::Shell {

using Editing::Corner;
using Editing::PointsOf;
using Editing::Shape;
using Editing::UnitsOfQuarter;
constexpr double UnitsOfTone = 8;

/// Points at even distances over the beat, first and last included.
struct Curve {
    std::vector<double> Points;
    double Lowest = 0;  ///< of what can be drawn
    double Highest = 0;

    int Count() const { return static_cast<int>(Points.size()); }
    /// Draws a straight stroke from one point to another, both included, heights kept within the limits. Points
    /// outside are passed over.
    void Stroke(int from, double fromHeight, int to, double toHeight);
    /// Moves a point up or down, to a multiple of the step.
    void Nudge(int point, double step);
    bool IsFlat() const;
    /// The height furthest from 0.
    double Extreme() const;
};

/// Heights near a quarter of a tone become just that; others are kept to a hundredth, as files keep them.
double Snapped(double height);
/// "½", "-1¼", "0", to the quarter of a tone.
std::string HeightText(double height);

/// True when two curves are the same to what a file keeps.
bool SameCurve(std::span<const double> one, std::span<const double> other);

}  // namespace Quillon::Shell
