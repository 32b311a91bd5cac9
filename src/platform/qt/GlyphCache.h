// Texts painted once and kept as small images: a page prints the same few figures hundreds of times, and blitting an
// image is ten times as fast as laying out a text.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Picture.h"

namespace Quillon {

class GlyphCache {
public:
    /// The cache that all pictures of the window thread share.
    static GlyphCache& Instance();

    /// A number for a font, valid as long as the cache.
    int FontId(const Font& font);
    /// Width in document pixels.
    double Width(int font, std::string_view text);
    /// Paints a text with its left end at x and its baseline at y, in device pixels.
    void Draw(QPainter& painter, int font, double scale, const QColor& color, double x, double y,
              std::string_view text);

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    template <class T>
    using TextMap = std::unordered_map<std::string, T, Hash, std::equal_to<>>;

    struct KnownFont {
        Font Wanted;
        QFont Shown;    ///< at the size that all are measured and painted from
        double Pixels;  ///< em of the wanted size
        TextMap<double> Widths;
    };
    struct Stamp {
        QImage Image;
        int Left = 0;  ///< from the text's left end to the image's
        int Top = 0;   ///< from the baseline up to the image's top, negative above
    };

    static Stamp MakeStamp(const QFont& font, double em, const QColor& color, double phase, std::string_view text);

    std::vector<KnownFont> fonts;
    TextMap<Stamp> stamps;
    std::string key;
};

}  // namespace Quillon
