// A drawing target: the screen, a printer page, a picture file, or a log in a test.
//
// Coordinates are document pixels at 96 to the inch, y downward; a target may scale them. There is no music font:
// lines, circles, filled shapes of straight edges and text in ordinary fonts are all that a page is made of.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon {

/// A colour packed as the documents hold it: red in the lowest byte, then green, then blue.
using Color = std::int32_t;

constexpr Color PackColor(int red, int green, int blue) { return red | (green << 8) | (blue << 16); }
constexpr int RedOf(Color color) { return color & 0xFF; }
constexpr int GreenOf(Color color) { return (color >> 8) & 0xFF; }
constexpr int BlueOf(Color color) { return (color >> 16) & 0xFF; }

constexpr Color Black = 0;
constexpr Color White = 0xFFFFFF;

struct Font {
    std::string Name = "Arial";
    double Size = 8;  ///< points; a point is 4/3 of a pixel
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strike = false;

    /// Height of the em square in pixels.
    double Pixels() const { return Size * 4.0 / 3.0; }
    bool operator==(const Font&) const = default;
};

struct Point {
    double X = 0;
    double Y = 0;
    bool operator==(const Point&) const = default;
};

/// A shape that a page shows again and again, as filled polygons about an anchor at 0, 0. A part may lie over another,
/// but none crosses itself. Targets may keep what they made of it by its address: it must outlive them.
struct Shape {
    std::string_view Name;  ///< stands in logs
    std::vector<std::vector<Point>> Parts;
};

/// Which point of a text stands at the x given to Print.
enum class Anchor { Left, Center, Right };

struct Picture {
    virtual ~Picture() = default;

    /// Pen of Line, Polyline and of the outline of Circle, and the colour of Print.
    virtual void SetColor(Color color) = 0;
    virtual void SetFont(const Font& font) = 0;

    /// A straight stroke whose middle runs from one point to the other. A level or upright stroke of whole
    /// coordinates and width 1 covers exactly the pixels of that row or column, both ends included.
    virtual void Line(double x1, double y1, double x2, double y2, double width = 1) = 0;
    /// Strokes joined end to end, with round joins.
    virtual void Polyline(std::span<const Point> points, double width = 1) = 0;
    /// A filled shape of straight edges in the current colour, without outline.
    virtual void Polygon(std::span<const Point> points) = 0;
    /// A shape with its anchor at x, y, in the current colour. Far cheaper than its polygons one by one on a target
    /// that keeps shapes.
    virtual void Stamp(const Shape& shape, double x, double y) {
        std::vector<Point> moved;
        for (const std::vector<Point>& part : shape.Parts) {
            moved.clear();
            for (const Point& point : part) moved.push_back({x + point.X, y + point.Y});
            Polygon(std::span<const Point>(moved));
        }
    }
    /// A filled rectangle without outline: left, top, width, height.
    virtual void Box(double x, double y, double width, double height, Color fill) = 0;
    virtual void Circle(double x, double y, double radius, double width = 1) = 0;
    virtual void Disc(double x, double y, double radius) = 0;
    /// One line of UTF-8 text in the current font and colour; y is the baseline.
    virtual void Print(double x, double baseline, std::string_view text, Anchor anchor = Anchor::Left) = 0;
    /// Width in pixels of a text in the current font.
    virtual double TextWidth(std::string_view text) = 0;

    /// Prints at CurrentX, CurrentY.
    void Print(std::string_view text, Anchor anchor = Anchor::Left) { Print(CurrentX, CurrentY, text, anchor); }
    double CurrentX = 0;
    double CurrentY = 0;

    void Polyline(std::initializer_list<Point> points, double width = 1) {
        Polyline(std::span<const Point>(points.begin(), points.size()), width);
    }
    void Polygon(std::initializer_list<Point> points) {
        Polygon(std::span<const Point>(points.begin(), points.size()));
    }
};

}  // namespace Quillon
