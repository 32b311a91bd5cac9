// How many pixels a page has at a resolution, and whether a machine can be asked for them.
#pragma once

#include <cmath>

namespace Quillon {

struct ImageSize {
    double Width = 0;
    double Height = 0;

    double Megabytes() const { return std::ceil(Width * Height * 4 / 1e6); }
    /// A gigabyte of memory: an A3 page at 900 dots to the inch. More is a slip.
    bool TooLarge() const { return Width * Height > 250e6; }
};

/// Of a page of document pixels, 96 to the inch.
inline ImageSize SizeOfImage(double width, double height, int dpi) {
    return {std::round(width * dpi / 96.0), std::round(height * dpi / 96.0)};
}

}  // namespace Quillon
