#include "drawing/ShapeTools.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Quillon::Drawing {

namespace {

constexpr int PieceCount = 7;  ///< straight pieces of an arc: smooth at four times its size

/// Between b and c, on the curve that passes a, b, c and d.
double Passing(double a, double b, double c, double d, double u) {
    return 0.5 * (2 * b + (c - a) * u + (2 * a - 5 * b + 4 * c - d) * u * u + (3 * b - a - 3 * c + d) * u * u * u);
}

}  // namespace

Outline PenStroke(std::initializer_list<PenPoint> points) {
    const auto at = [&](std::ptrdiff_t i) {
        return points.begin()[std::clamp<std::ptrdiff_t>(i, 0, static_cast<std::ptrdiff_t>(points.size()) - 1)];
    };
    std::vector<PenPoint> walk;
    const auto last = static_cast<std::ptrdiff_t>(points.size()) - 1;
    for (std::ptrdiff_t i = 0; i < last; ++i) {
        const PenPoint a = at(i - 1), b = at(i), c = at(i + 1), d = at(i + 2);
        for (int piece = 0; piece < PieceCount; ++piece) {
            const double u = static_cast<double>(piece) / PieceCount;
            walk.push_back(
                {Passing(a.X, b.X, c.X, d.X, u), Passing(a.Y, b.Y, c.Y, d.Y, u), b.Width + (c.Width - b.Width) * u});
        }
    }
    walk.push_back(at(last));
    Outline left, right;
    for (std::size_t i = 0; i < walk.size(); ++i) {
        const PenPoint& before = walk[i == 0 ? 0 : i - 1];
        const PenPoint& behind = walk[std::min(i + 1, walk.size() - 1)];
        const double dx = behind.X - before.X, dy = behind.Y - before.Y;
        const double length = std::max(std::hypot(dx, dy), 1e-9);
        const double half = walk[i].Width / 2;
        left.push_back({walk[i].X - dy / length * half, walk[i].Y + dx / length * half});
        right.push_back({walk[i].X + dy / length * half, walk[i].Y - dx / length * half});
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    return left;
}

Outline Ellipse(double x, double y, double a, double b, double degrees) {
    constexpr int corners = 28;
    const double turn = -degrees * std::numbers::pi / 180;
    Outline outline;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * std::numbers::pi * i / corners;
        const double u = a * std::cos(angle), v = b * std::sin(angle);
        outline.push_back({x + u * std::cos(turn) - v * std::sin(turn), y + u * std::sin(turn) + v * std::cos(turn)});
    }
    return outline;
}

Outline WithHole(Outline outer, const Outline& inner) {
    outer.push_back(outer.front());
    outer.push_back(inner.front());
    outer.insert(outer.end(), inner.rbegin(), inner.rend());
    return outer;
}

PathOf& PathOf::Arc(Point first, Point second, Point end) {
    const Point start = points.back();
    for (int piece = 1; piece <= PieceCount; ++piece) {
        const double u = static_cast<double>(piece) / PieceCount, v = 1 - u;
        const double a = v * v * v, b = 3 * v * v * u, c = 3 * v * u * u, d = u * u * u;
        points.push_back({a * start.X + b * first.X + c * second.X + d * end.X,
                          a * start.Y + b * first.Y + c * second.Y + d * end.Y});
    }
    return *this;
}

std::vector<Outline> Scaled(const std::vector<Outline>& parts, double x, double y) {
    std::vector<Outline> scaled = parts;
    for (Outline& part : scaled) {
        for (Point& point : part) point = {point.X * x, point.Y * y};
    }
    return scaled;
}

}  // namespace Quillon::Drawing
