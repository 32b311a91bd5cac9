#include "platform/qt/PainterPicture.h"

#include <QPaintEngine>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "platform/FontStandIns.h"
#include "platform/qt/GlyphCache.h"
#include "platform/qt/ShapeCache.h"

namespace Quillon {

QColor ToQColor(Color color) { return QColor(RedOf(color), GreenOf(color), BlueOf(color)); }

QFont ToQFont(const Font& font, int pixels) {
    QStringList families;
    for (const std::string_view family : FontStandIns(font.Name)) {
        families << QString::fromUtf8(family.data(), static_cast<qsizetype>(family.size()));
    }
    if (families.isEmpty()) families << QString::fromStdString(font.Name);
    QFont result;
    result.setFamilies(families);
    result.setPixelSize(pixels);
    result.setBold(font.Bold);
    result.setItalic(font.Italic);
    result.setUnderline(font.Underline);
    result.setStrikeOut(font.Strike);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

PainterPicture::PainterPicture(QPainter& target, double devicePixels)
    : painter(target), scale(devicePixels), glyphs(GlyphCache::Instance()) {
    fontId = glyphs.FontId(Font{});
}

void PainterPicture::SetColor(Color value) { color = Shown(value); }

void PainterPicture::SetFont(const Font& font) { fontId = glyphs.FontId(font); }

PainterPicture::Span PainterPicture::Across(double at, double width) const {
    const int thickness = std::max(1, static_cast<int>(std::lround(width * scale)));
    // Rounded downwards at a half, so that an even stroke leans to the smaller side everywhere alike.
    const int first = static_cast<int>(std::ceil(Middle(at) - thickness / 2.0 - 0.5));
    return {first, thickness};
}

void PainterPicture::UsePen(double width, Qt::PenCapStyle cap) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    // Thinner than a device pixel a stroke only turns pale.
    painter.setPen(QPen(color, std::max(1.0, width * scale), Qt::SolidLine, cap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
}

void PainterPicture::UseBrush() {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
}

void PainterPicture::Line(double x1, double y1, double x2, double y2, double width) {
    if (y1 == y2 || x1 == x2) {
        // The ends take the place of a crossing stroke of width 1, so that corners close at every scale.
        const bool level = y1 == y2;
        const auto [from, to] = level ? std::minmax(x1, x2) : std::minmax(y1, y2);
        const Span first = Across(from, 1);
        const Span last = Across(to, 1);
        const Span across = Across(level ? y1 : x1, width);
        const int length = last.First + last.Length - first.First;
        const QRect covered = level ? QRect(first.First, across.First, length, across.Length)
                                    : QRect(across.First, first.First, across.Length, length);
        painter.fillRect(covered, color);
        return;
    }
    UsePen(width, Qt::FlatCap);
    painter.drawLine(QPointF(Middle(x1), Middle(y1)), QPointF(Middle(x2), Middle(y2)));
}

void PainterPicture::Polyline(std::span<const Point> points, double width) {
    QPolygonF path;
    path.reserve(static_cast<qsizetype>(points.size()));
    for (const Point& point : points) path << QPointF(Middle(point.X), Middle(point.Y));
    UsePen(width, Qt::RoundCap);
    painter.drawPolyline(path);
}

void PainterPicture::Polygon(std::span<const Point> points) {
    QPolygonF path;
    path.reserve(static_cast<qsizetype>(points.size()));
    for (const Point& point : points) path << QPointF(Middle(point.X), Middle(point.Y));
    UseBrush();
    painter.drawPolygon(path);
}

void PainterPicture::Stamp(const Shape& shape, double x, double y) {
    // A printer's page keeps the outline itself.
    const bool onPixels = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster;
    if (!onPixels) return Picture::Stamp(shape, x, y);
    ShapeCache::Instance().Draw(painter, shape, scale, color, Middle(x), Middle(y));
}

void PainterPicture::Box(double x, double y, double width, double height, Color fill) {
    const int left = static_cast<int>(std::lround(x * scale));
    const int top = static_cast<int>(std::lround(y * scale));
    const int right = static_cast<int>(std::lround((x + width) * scale));
    const int bottom = static_cast<int>(std::lround((y + height) * scale));
    painter.fillRect(QRect(left, top, right - left, bottom - top), Shown(fill));
}

void PainterPicture::Circle(double x, double y, double radius, double width) {
    UsePen(width, Qt::FlatCap);
    painter.drawEllipse(QPointF(Middle(x), Middle(y)), radius * scale, radius * scale);
}

void PainterPicture::Disc(double x, double y, double radius) {
    UseBrush();
    painter.drawEllipse(QPointF(Middle(x), Middle(y)), radius * scale, radius * scale);
}

void PainterPicture::Print(double x, double baseline, std::string_view text, Anchor anchor) {
    if (text.empty()) return;
    double left = x * scale;
    if (anchor == Anchor::Center) left = Middle(x) - glyphs.Width(fontId, text) * scale / 2;
    if (anchor == Anchor::Right) left -= glyphs.Width(fontId, text) * scale;
    glyphs.Draw(painter, fontId, scale, color, left, baseline * scale, text);
}

double PainterPicture::TextWidth(std::string_view text) { return glyphs.Width(fontId, text); }

}  // namespace Quillon
