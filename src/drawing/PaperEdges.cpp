// Texts at the edges of the paper.
#include <algorithm>
#include <limits>
#include <string>

#include "drawing/TabParts.h"

namespace Quillon::Drawing {

namespace {

/// True when a bar follows the one before on its row.
bool Joins(const Core::BarPlace& before, const Core::BarPlace& place) {
    return before.BarY == place.BarY && before.BarX + before.BarWidth == place.BarX && before.BarWidth > 0;
}

double PaperLeft(const TabBar& bar) { return RowLeft(bar) + bar.Context.Look.PaperLeft; }

}  // namespace

double RowLeft(const TabBar& bar) {
    return bar.Track.Bars[FirstOfRow(bar)].Place.BarX + (bar.Context.X - bar.Bar.Place.BarX);
}

int FirstOfRow(const TabBar& bar) {
    int first = bar.Context.Bar;
    while (first > 0 && Joins(bar.Track.Bars[first - 1].Place, bar.Track.Bars[first].Place)) --first;
    return first;
}

int LastOfRow(const TabBar& bar) {
    int last = bar.Context.Bar;
    while (last < bar.Track.Bars.UpperBound() && Joins(bar.Track.Bars[last].Place, bar.Track.Bars[last + 1].Place)) {
        ++last;
    }
    return last;
}

double PaperRight(const TabBar& bar) {
    const int right = bar.Context.Look.PaperRight;
    return right == 0 ? std::numeric_limits<double>::max() : RowLeft(bar) + right;
}

double LeftOnPaper(const TabBar& bar, double left, double width) {
    if (bar.Context.Look.PaperRight == 0) return left;
    return std::max(std::min(left, PaperRight(bar) - width), PaperLeft(bar));
}

std::string CutToFit(Picture& picture, const std::string& text, double width) {
    const auto cut = [&](std::size_t bytes) {
        while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80) --bytes;  // whole characters
        return text.substr(0, bytes) + "...";
    };
    std::size_t fits = 0, wide = text.size();
    while (wide - fits > 1) {
        const std::size_t middle = (fits + wide) / 2;
        (picture.TextWidth(cut(middle)) <= width ? fits : wide) = middle;
    }
    return cut(fits);
}

std::string FitToPaper(Picture& picture, const TabBar& bar, const std::string& text) {
    constexpr double margin = 6;
    const RowLook& look = bar.Context.Look;
    const double room = look.PaperRight - look.PaperLeft - margin;
    if (look.PaperRight == 0 || picture.TextWidth(text) <= room) return text;
    return CutToFit(picture, text, room);
}

}  // namespace Quillon::Drawing
