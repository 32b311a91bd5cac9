#include "platform/qt/GlyphCache.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/qt/PainterPicture.h"

namespace Quillon {

namespace {

// A visible page holds a few hundred different stamps; a long document scrolled end to end a few thousand.
constexpr std::size_t MostStamps = 8192;
constexpr std::size_t MostWidths = 8192;
// Texts higher than this are rare and would make large images.
constexpr double HighestStamp = 96;
// Positions between two device pixels that are told apart.
constexpr int Phases = 4;

/// Fonts are measured and painted from one size, scaled: the font database rounds sizes to whole pixels, and text must
/// keep its proportions at every scale.
constexpr int EmPixels = 64;

QString ToQString(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

template <class T>
void AppendRaw(std::string& out, T value) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    out.append(bytes, sizeof value);
}

}  // namespace

GlyphCache& GlyphCache::Instance() {
    static GlyphCache cache;
    return cache;
}

int GlyphCache::FontId(const Font& font) {
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        if (fonts[i].Wanted == font) return static_cast<int>(i);
    }
    // No font has an em of no height, and a damaged document may ask for any.
    fonts.push_back({font, ToQFont(font, EmPixels), std::clamp(font.Pixels(), 1.0, 4000.0), {}});
    return static_cast<int>(fonts.size() - 1);
}

double GlyphCache::Width(int font, std::string_view text) {
    KnownFont& known = fonts.at(static_cast<std::size_t>(font));
    if (auto found = known.Widths.find(text); found != known.Widths.end()) return found->second;
    if (known.Widths.size() > MostWidths) known.Widths.clear();
    const double width = QFontMetricsF(known.Shown).horizontalAdvance(ToQString(text)) * known.Pixels / EmPixels;
    known.Widths.emplace(text, width);
    return width;
}

GlyphCache::Stamp GlyphCache::MakeStamp(const QFont& font, double em, const QColor& color, double phase,
                                        std::string_view text) {
    const QFontMetricsF metrics(font);
    const QString shown = ToQString(text);
    const double scale = em / EmPixels;
    // Italics and marks may stand out of the advance box on either side.
    const double margin = std::ceil(em / 3) + 1;
    const double ascent = std::ceil(metrics.ascent() * scale) + margin;
    const double width = std::ceil(metrics.horizontalAdvance(shown) * scale) + 2 * margin + 1;
    const double height = ascent + std::ceil(metrics.descent() * scale) + margin;
    Stamp stamp;
    stamp.Image = QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_ARGB32_Premultiplied);
    stamp.Image.fill(Qt::transparent);
    stamp.Left = -static_cast<int>(margin);
    stamp.Top = -static_cast<int>(ascent);
    QPainter painter(&stamp.Image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(color);
    painter.translate(margin + phase, ascent);
    painter.scale(scale, scale);
    painter.drawText(QPointF(0, 0), shown);
    return stamp;
}

void GlyphCache::Draw(QPainter& painter, int font, double scale, const QColor& color, double x, double y,
                      std::string_view text) {
    const KnownFont& known = fonts.at(static_cast<std::size_t>(font));
    const double em = known.Pixels * scale;
    const int baseline = static_cast<int>(std::lround(y));
    // A printer takes the text itself.
    const bool onPixels = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster;
    if (em > HighestStamp || !onPixels) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(known.Shown);
        painter.setPen(color);
        painter.translate(x, baseline);
        painter.scale(em / EmPixels, em / EmPixels);
        painter.drawText(QPointF(0, 0), ToQString(text));
        painter.restore();
        return;
    }
    const int quarters = static_cast<int>(std::floor(x * Phases + 0.5));
    const int left = static_cast<int>(std::floor(static_cast<double>(quarters) / Phases));
    const int phase = quarters - left * Phases;
    key.clear();
    AppendRaw(key, font);
    AppendRaw(key, scale);
    AppendRaw(key, color.rgb());
    key += static_cast<char>(phase);
    key += text;
    auto found = stamps.find(key);
    if (found == stamps.end()) {
        if (stamps.size() > MostStamps) stamps.clear();
        found = stamps.emplace(key, MakeStamp(known.Shown, em, color, static_cast<double>(phase) / Phases, text)).first;
    }
    painter.drawImage(left + found->second.Left, baseline + found->second.Top, found->second.Image);
}

}  // namespace Quillon
