// Shapes painted once and kept as small images, as texts are: a staff shows the same few heads and rests hundreds of
// times.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <unordered_map>

#include "platform/Picture.h"

namespace Quillon {

class ShapeCache {
public:
    /// The cache that all pictures of the window thread share.
    static ShapeCache& Instance();

    /// Paints a shape with its anchor at x, y, in device pixels.
    void Draw(QPainter& painter, const Shape& shape, double scale, const QColor& color, double x, double y);

private:
    struct Key {
        const Shape* What;
        double Scale;
        QRgb Color;
        int Phase;
        bool operator==(const Key&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Key& key) const;
    };
    struct Stamp {
        QImage Image;
        int Left = 0;  ///< from the whole pixel of the anchor to the image
        int Top = 0;
    };

    std::unordered_map<Key, Stamp, Hash> stamps;
};

}  // namespace Quillon
