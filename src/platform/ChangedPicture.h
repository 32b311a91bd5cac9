// A page that is painted again and again, of which only what changed shall be painted.
//
// Between Begin and Paint it takes a whole painting down; what differs from the painting before is then painted, within
// the smallest area around it. A typed note so costs a row and not a page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Picture.h"

namespace Quillon {

/// Document pixels; empty when Right is not beyond Left, or Bottom not beyond Top.
struct Area {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;

    bool Empty() const { return Right <= Left || Bottom <= Top; }
    bool Touches(const Area& other) const {
        return Left < other.Right && other.Left < Right && Top < other.Bottom && other.Top < Bottom;
    }
    /// Grows to hold the other too.
    void Include(const Area& other);
};

class ChangedPicture : public Picture {
public:
    /// Starts a painting. `target` measures texts while it is taken down, and Paint paints on it.
    void Begin(Picture& target);
    /// All that differs from the painting before, `whole` when that was forgotten. A little more than the ink itself,
    /// for what a target rounds outward.
    Area Changed(const Area& whole) const;
    /// Paints what touches the area on the target. What lies there already must be clipped away by the target.
    void Paint(const Area& area);
    /// The target lost its painting: the next is wholly new.
    void Forget() { known = false; }

    void SetColor(Color color) override { pen = color; }
    void SetFont(const Font& font) override;
    void Line(double x1, double y1, double x2, double y2, double width) override;
    using Picture::Polyline;
    void Polyline(std::span<const Point> points, double width) override;
    using Picture::Polygon;
    void Polygon(std::span<const Point> points) override;
    void Stamp(const Shape& shape, double x, double y) override;
    void Box(double x, double y, double width, double height, Color fill) override;
    void Circle(double x, double y, double radius, double width) override;
    void Disc(double x, double y, double radius) override;
    using Picture::Print;
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override;
    double TextWidth(std::string_view text) override;

private:
    enum class Kind : std::uint8_t { Line, Polyline, Polygon, Stamp, Box, Circle, Disc, Print };

    struct Stroke {
        Kind What = Kind::Line;
        Anchor Where = Anchor::Left;
        Color Ink = 0;
        int FontId = 0;                     ///< of texts
        double X = 0, Y = 0, A = 0, B = 0;  ///< by kind: the other end, width and height, radius
        double Width = 0;
        const Shape* Stamped = nullptr;
        std::size_t First = 0, Count = 0;  ///< of the painting's points or letters
        Area Reach;                        ///< of a text it is as wide as the page
    };

    struct Painting {
        std::vector<Stroke> Strokes;
        std::vector<Point> Points;
        std::string Letters;

        void Clear();
        std::string_view Text(const Stroke& stroke) const {
            return std::string_view(Letters).substr(stroke.First, stroke.Count);
        }
        std::span<const Point> Path(const Stroke& stroke) const {
            return std::span(Points).subspan(stroke.First, stroke.Count);
        }
    };

    static bool Same(const Painting& one, const Stroke& a, const Painting& other, const Stroke& b);
    static Area Around(std::span<const Point> points, double beyond);
    Area ReachOf(const Painting& painting, const Stroke& stroke) const;
    const Area& AreaOf(const Shape& shape);
    void AddPath(Kind what, std::span<const Point> points, double width);

    Picture* target = nullptr;
    bool known = false;
    Painting before, now;
    Color pen = Black;
    int font = 0;
    mutable int targetFont = -1;  ///< that the target has now
    std::vector<Font> fonts{Font{}};
    std::unordered_map<const Shape*, Area> shapes;
};

}  // namespace Quillon
