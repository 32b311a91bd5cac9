#include "platform/qt/ShapeCache.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace Quillon {

namespace {

// Some forty shapes at sixteen places between two pixels; other scales and colours push older ones out.
constexpr std::size_t MostStamps = 4096;
// Positions between two device pixels that are told apart, each way.
constexpr int Phases = 4;

/// Of one outline, filled throughout: all parts turn the same way, so that none cuts another out.
QPainterPath PathOf(const Shape& shape, double scale, double x, double y) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const std::vector<Point>& part : shape.Parts) {
        QPolygonF polygon;
        double area = 0;
        for (std::size_t i = 0; i < part.size(); ++i) {
            const Point& next = part[(i + 1) % part.size()];
            area += part[i].X * next.Y - next.X * part[i].Y;
            polygon << QPointF(x + part[i].X * scale, y + part[i].Y * scale);
        }
        if (area < 0) std::reverse(polygon.begin(), polygon.end());
        path.addPolygon(polygon);
        path.closeSubpath();
    }
    return path;
}

}  // namespace

ShapeCache& ShapeCache::Instance() {
    static ShapeCache cache;
    return cache;
}

std::size_t ShapeCache::Hash::operator()(const Key& key) const {
    std::size_t hash = std::hash<const void*>()(key.What);
    for (const std::size_t part : {std::hash<double>()(key.Scale), std::size_t{key.Color}, std::size_t(key.Phase)}) {
        hash = hash * 1000003 ^ part;
    }
    return hash;
}

void ShapeCache::Draw(QPainter& painter, const Shape& shape, double scale, const QColor& color, double x, double y) {
    const double left = std::floor(x * Phases + 0.5) / Phases;
    const double top = std::floor(y * Phases + 0.5) / Phases;
    const int wholeX = static_cast<int>(std::floor(left));
    const int wholeY = static_cast<int>(std::floor(top));
    const int phase = static_cast<int>((left - wholeX) * Phases) * Phases + static_cast<int>((top - wholeY) * Phases);
    const Key key{&shape, scale, color.rgb(), phase};
    auto found = stamps.find(key);
    if (found == stamps.end()) {
        if (stamps.size() > MostStamps) stamps.clear();
        const QRect box =
            PathOf(shape, scale, left - wholeX, top - wholeY).boundingRect().toAlignedRect().adjusted(-1, -1, 1, 1);
        Stamp stamp{QImage(box.size(), QImage::Format_ARGB32_Premultiplied), box.left(), box.top()};
        stamp.Image.fill(Qt::transparent);
        QPainter onImage(&stamp.Image);
        onImage.setRenderHint(QPainter::Antialiasing);
        onImage.fillPath(PathOf(shape, scale, left - wholeX - box.left(), top - wholeY - box.top()), color);
        onImage.end();
        found = stamps.emplace(key, std::move(stamp)).first;
    }
    painter.drawImage(wholeX + found->second.Left, wholeY + found->second.Top, found->second.Image);
}

}  // namespace Quillon
