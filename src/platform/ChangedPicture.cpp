#include "platform/ChangedPicture.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Quillon {

namespace {

/// What antialiasing and rounding to device pixels may add around any ink.
constexpr double Margin = 2;

constexpr double Far = std::numeric_limits<double>::max();

}  // namespace

void Area::Include(const Area& other) {
    if (other.Empty()) return;
    if (Empty()) {
        *this = other;
        return;
    }
    Left = std::min(Left, other.Left);
    Top = std::min(Top, other.Top);
    Right = std::max(Right, other.Right);
    Bottom = std::max(Bottom, other.Bottom);
}

void ChangedPicture::Painting::Clear() {
    Strokes.clear();
    Points.clear();
    Letters.clear();
}

void ChangedPicture::Begin(Picture& on) {
    target = &on;
    std::swap(before, now);
    now.Clear();
    targetFont = -1;
    pen = Black;
    font = 0;
}

Area ChangedPicture::Around(std::span<const Point> points, double beyond) {
    Area area{Far, Far, -Far, -Far};
    for (const Point& point : points) {
        area.Left = std::min(area.Left, point.X);
        area.Right = std::max(area.Right, point.X);
        area.Top = std::min(area.Top, point.Y);
        area.Bottom = std::max(area.Bottom, point.Y);
    }
    const double add = beyond + Margin;
    return {area.Left - add, area.Top - add, area.Right + add, area.Bottom + add};
}

const Area& ChangedPicture::AreaOf(const Shape& shape) {
    const auto [found, isNew] = shapes.try_emplace(&shape);
    if (isNew) {
        for (const auto& part : shape.Parts) found->second.Include(Around(part, 0));
    }
    return found->second;
}

void ChangedPicture::SetFont(const Font& wanted) {
    if (fonts[static_cast<std::size_t>(font)] == wanted) return;
    const auto found = std::find(fonts.begin(), fonts.end(), wanted);
    font = static_cast<int>(found - fonts.begin());
    if (found == fonts.end()) fonts.push_back(wanted);
}

void ChangedPicture::Line(double x1, double y1, double x2, double y2, double width) {
    const Point ends[] = {{x1, y1}, {x2, y2}};
    now.Strokes.push_back({.What = Kind::Line,
                           .Ink = pen,
                           .X = x1,
                           .Y = y1,
                           .A = x2,
                           .B = y2,
                           .Width = width,
                           .Reach = Around(ends, width)});
}

void ChangedPicture::AddPath(Kind what, std::span<const Point> points, double width) {
    if (points.empty()) return;
    now.Strokes.push_back({.What = what,
                           .Ink = pen,
                           .Width = width,
                           .First = now.Points.size(),
                           .Count = points.size(),
                           .Reach = Around(points, width)});
    now.Points.insert(now.Points.end(), points.begin(), points.end());
}

void ChangedPicture::Polyline(std::span<const Point> points, double width) { AddPath(Kind::Polyline, points, width); }

void ChangedPicture::Polygon(std::span<const Point> points) { AddPath(Kind::Polygon, points, 0); }

void ChangedPicture::Stamp(const Shape& shape, double x, double y) {
    const Area& area = AreaOf(shape);
    now.Strokes.push_back({.What = Kind::Stamp,
                           .Ink = pen,
                           .X = x,
                           .Y = y,
                           .Stamped = &shape,
                           .Reach = {area.Left + x, area.Top + y, area.Right + x, area.Bottom + y}});
}

void ChangedPicture::Box(double x, double y, double width, double height, Color fill) {
    const Point corners[] = {{x, y}, {x + width, y + height}};
    now.Strokes.push_back(
        {.What = Kind::Box, .Ink = fill, .X = x, .Y = y, .A = width, .B = height, .Reach = Around(corners, 0)});
}

void ChangedPicture::Circle(double x, double y, double radius, double width) {
    const Point middle[] = {{x, y}};
    now.Strokes.push_back({.What = Kind::Circle,
                           .Ink = pen,
                           .X = x,
                           .Y = y,
                           .A = radius,
                           .Width = width,
                           .Reach = Around(middle, radius + width)});
}

void ChangedPicture::Disc(double x, double y, double radius) {
    const Point middle[] = {{x, y}};
    now.Strokes.push_back(
        {.What = Kind::Disc, .Ink = pen, .X = x, .Y = y, .A = radius, .Reach = Around(middle, radius)});
}

void ChangedPicture::Print(double x, double baseline, std::string_view text, Anchor anchor) {
    if (text.empty()) return;
    const double em = fonts[static_cast<std::size_t>(font)].Pixels();
    now.Strokes.push_back({.What = Kind::Print,
                           .Where = anchor,
                           .Ink = pen,
                           .FontId = font,
                           .X = x,
                           .Y = baseline,
                           .First = now.Letters.size(),
                           .Count = text.size(),
                           .Reach = {-Far, baseline - 2 * em - Margin, Far, baseline + em + Margin}});
    now.Letters += text;
}

double ChangedPicture::TextWidth(std::string_view text) {
    if (targetFont != font) target->SetFont(fonts[static_cast<std::size_t>(font)]);
    targetFont = font;
    return target->TextWidth(text);
}

Area ChangedPicture::ReachOf(const Painting& painting, const Stroke& stroke) const {
    if (stroke.What != Kind::Print) return stroke.Reach;
    const Font& used = fonts[static_cast<std::size_t>(stroke.FontId)];
    if (targetFont != stroke.FontId) target->SetFont(used);
    targetFont = stroke.FontId;
    // Letters may lean out of their widths.
    const double beyond = used.Pixels() + Margin;
    const double width = target->TextWidth(painting.Text(stroke)) + beyond;
    return {stroke.X - width, stroke.Reach.Top, stroke.X + width, stroke.Reach.Bottom};
}

bool ChangedPicture::Same(const Painting& one, const Stroke& a, const Painting& other, const Stroke& b) {
    if (a.What != b.What || a.Ink != b.Ink || a.X != b.X || a.Y != b.Y || a.A != b.A || a.B != b.B ||
        a.Width != b.Width || a.Stamped != b.Stamped || a.Count != b.Count) {
        return false;
    }
    if (a.What == Kind::Print) return a.Where == b.Where && a.FontId == b.FontId && one.Text(a) == other.Text(b);
    return a.Count == 0 || std::ranges::equal(one.Path(a), other.Path(b));
}

Area ChangedPicture::Changed(const Area& whole) const {
    if (!known) return whole;
    const auto& old = before.Strokes;
    const auto& fresh = now.Strokes;
    const std::size_t shorter = std::min(old.size(), fresh.size());
    std::size_t head = 0;
    while (head < shorter && Same(before, old[head], now, fresh[head])) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && Same(before, old[old.size() - 1 - tail], now, fresh[fresh.size() - 1 - tail])) {
        ++tail;
    }
    Area changed;
    // Strokes that lie over each other keep their order only where both paintings have equally many.
    const bool pairwise = old.size() == fresh.size();
    for (std::size_t i = head; i < old.size() - tail; ++i) {
        if (pairwise && Same(before, old[i], now, fresh[i])) continue;
        changed.Include(ReachOf(before, old[i]));
    }
    for (std::size_t i = head; i < fresh.size() - tail; ++i) {
        if (pairwise && Same(before, old[i], now, fresh[i])) continue;
        changed.Include(ReachOf(now, fresh[i]));
    }
    return changed;
}

void ChangedPicture::Paint(const Area& area) {
    known = true;
    int painted = -1;
    for (const Stroke& stroke : now.Strokes) {
        if (!stroke.Reach.Touches(area)) continue;
        target->SetColor(stroke.Ink);
        switch (stroke.What) {
            case Kind::Line:
                target->Line(stroke.X, stroke.Y, stroke.A, stroke.B, stroke.Width);
                break;
            case Kind::Polyline:
                target->Polyline(now.Path(stroke), stroke.Width);
                break;
            case Kind::Polygon:
                target->Polygon(now.Path(stroke));
                break;
            case Kind::Stamp:
                target->Stamp(*stroke.Stamped, stroke.X, stroke.Y);
                break;
            case Kind::Box:
                target->Box(stroke.X, stroke.Y, stroke.A, stroke.B, stroke.Ink);
                break;
            case Kind::Circle:
                target->Circle(stroke.X, stroke.Y, stroke.A, stroke.Width);
                break;
            case Kind::Disc:
                target->Disc(stroke.X, stroke.Y, stroke.A);
                break;
            case Kind::Print:
                if (painted != stroke.FontId) target->SetFont(fonts[static_cast<std::size_t>(stroke.FontId)]);
                painted = stroke.FontId;
                target->Print(stroke.X, stroke.Y, now.Text(stroke), stroke.Where);
                break;
        }
    }
}

}  // namespace Quillon
