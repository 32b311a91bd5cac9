// How many pixels a page has at a resolution, and whether a machine can be asked for them.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/PageTarget.h"

namespace Quillon {

struct ImageSize {
    double Width = 0;
    double Height = 0;

    double Megabytes() const { return std::ceil(Width * Height * 4 / 1e6); }
    /// A gigabyte of memory: an A3 page at 900 dots to the inch. More is a slip.
    bool TooLarge() const { return Width * Height > 250e6; }
};

/// Of a sheet of paper.
inline ImageSize SizeOfImage(const Sheet& sheet, int dpi) {
    constexpr double inch = 25.4;  // millimetres
    return {std::round(sheet.PaperWidth * dpi / inch), std::round(sheet.PaperHeight * dpi / inch)};
}

/// Pixels of the image for one of the document, of which there are a little more than 96 to the inch. Where that is
/// nearly a whole number it is made one, so that lines stay sharp and evenly apart; the margins lose a hair then.
inline double ScaleOfImage(const ImageSize& size, const Sheet& sheet) {
    constexpr double near = 0.005;
    const double exact = std::min(size.Width / sheet.Width, size.Height / sheet.Height);
    const double whole = std::round(exact);
    return std::abs(exact - whole) <= near * whole ? whole : exact;
}

}  // namespace Quillon
