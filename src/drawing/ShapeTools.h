// Outlines of shapes from curves: what a pen with a changing width leaves, ellipses, and paths of cubic arcs.
#pragma once

#include <initializer_list>
#include <vector>

#include "platform/Picture.h"

namespace Quillon::Drawing {

using Outline = std::vector<Point>;

/// Where a pen passes, and how wide it stands there.
struct PenPoint {
    double X, Y, Width;
};
/// The outline of a stroke through all points, smooth between them, with round-ish flat ends.
Outline PenStroke(std::initializer_list<PenPoint> points);
/// An ellipse of half axes a and b, its long axis raised by `degrees` at the right.
Outline Ellipse(double x, double y, double a, double b, double degrees = 0);
inline Outline Ball(double x, double y, double radius) { return Ellipse(x, y, radius, radius); }
/// `outer` with `inner` cut out of it, joined by a seam without width.
Outline WithHole(Outline outer, const Outline& inner);

/// A path of straight edges and cubic arcs.
class PathOf {
public:
    explicit PathOf(Point start) : points{start} {}
    PathOf& To(Point end) {
        points.push_back(end);
        return *this;
    }
    PathOf& Arc(Point first, Point second, Point end);
    operator Outline() const { return points; }

private:
    Outline points;
};

/// The parts of a shape, smaller or turned upside down.
std::vector<Outline> Scaled(const std::vector<Outline>& parts, double x, double y);

}  // namespace Quillon::Drawing
