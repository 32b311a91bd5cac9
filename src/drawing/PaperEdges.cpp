// Texts at the edges of the paper.
#include <algorithm>
#include <limits>
#include <string>

#include "drawing/TabParts.h"

namespace Quillon::Drawing {

namespace {

/// x of the row's left edge.
double RowLeft(const TabBar& bar) {
    return bar.Track.Bars[FirstOfRow(bar)].Place.BarX + (bar.Context.X - bar.Bar.Place.BarX);
}

double PaperLeft(const TabBar& bar) { return RowLeft(bar) + bar.Context.Look.PaperLeft; }

}  // namespace

int FirstOfRow(const TabBar& bar) {
    int first = bar.Context.Bar;
    for (; first > 0; --first) {
        const Core::BarPlace& place = bar.Track.Bars[first].Place;
        const Core::BarPlace& before = bar.Track.Bars[first - 1].Place;
        if (before.BarY != place.BarY || before.BarX + before.BarWidth != place.BarX || before.BarWidth <= 0) break;
    }
    return first;
}

double PaperRight(const TabBar& bar) {
    const int right = bar.Context.Look.PaperRight;
    return right == 0 ? std::numeric_limits<double>::max() : RowLeft(bar) + right;
}

double LeftOnPaper(const TabBar& bar, double left, double width) {
    if (bar.Context.Look.PaperRight == 0) return left;
    return std::max(std::min(left, PaperRight(bar) - width), PaperLeft(bar));
}

std::string FitToPaper(Picture& picture, const TabBar& bar, const std::string& text) {
    constexpr double margin = 6;
    const RowLook& look = bar.Context.Look;
    const double room = look.PaperRight - look.PaperLeft - margin;
    if (look.PaperRight == 0 || picture.TextWidth(text) <= room) return text;
    const auto cut = [&](std::size_t bytes) {
        while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80) --bytes;  // whole characters
        return text.substr(0, bytes) + "...";
    };
    std::size_t fits = 0, wide = text.size();
    while (wide - fits > 1) {
        const std::size_t middle = (fits + wide) / 2;
        (picture.TextWidth(cut(middle)) <= room ? fits : wide) = middle;
    }
    return cut(fits);
}

}  // namespace Quillon::Drawing
