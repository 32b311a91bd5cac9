#include <algorithm>
#include <array>

#include "core/mod_Common.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

PageSetup Page;
DocumentView View;

namespace {

struct Paper {
    const char* Name;
    double Width;
    double Height;
};

// Pixels at 3.786 to the millimetre. The eighth row, an A6 sheet, belongs to no entry of the list, so from "Index card
// 5 x 8 in" on each name stands beside the size of the row before its own: documents in use are laid out so.
constexpr double PixelsPerMillimetre = 3.786;

constexpr std::array<Paper, 15> Papers = {{
    {"A4 210 x 297 mm", 795.06, 1124.442},
    {"B5 182 x 257 mm", 689.052, 973.002},
    {"A5 148 x 210 mm", 560.328, 795.06},
    {"Letter 8 1/2 x 11 in", 817.3974, 1057.8084},
    {"Legal 8 1/2 x 14 in", 817.3974, 1346.3016},
    {"Executive 7 1/4 x 10 1/2 in", 697.1919, 1009.7262},
    {"Half Letter 5 1/2 x 8 1/2 in", 528.9042, 817.3974},
    {"Index card 5 x 8 in", 397.53, 560.328},
    {"Index card 8 x 10 in", 480.822, 769.3152},
    {"B4 257 x 364 mm", 769.3152, 961.644},
    {"US B 11 x 17 in", 973.002, 1378.104},
    {"A3 297 x 420 mm", 1057.8084, 1634.7948},
    {"Super A3 329 x 483 mm", 1124.442, 1590.12},
    {"B3 364 x 514 mm", 1245.594, 1828.6381},
    {"", 1378.104, 1946.004},
}};

}  // namespace

const char* PaperSizeName(int index) {
    if (index < 0 || index >= PaperSizeCount) RaiseSubscriptOutOfRange();
    return Papers[static_cast<std::size_t>(index)].Name;
}

void ApplyPaperSize(PageSetup& page) {
    if (page.PaperSizeIndex < 0) page.PaperSizeIndex = 0;
    if (page.PaperSizeIndex >= static_cast<int>(Papers.size())) RaiseSubscriptOutOfRange();
    const Paper& paper = Papers[static_cast<std::size_t>(page.PaperSizeIndex)];
    page.PageWidth = Core::CInt(page.IsLandscape ? paper.Height : paper.Width);
    page.PageHeight = Core::CInt(page.IsLandscape ? paper.Width : paper.Height);
}

PaperSize PaperMillimetres(const PageSetup& page) {
    const auto index = static_cast<std::size_t>(page.PaperSizeIndex);
    if (page.AutoPageStretch || index >= Papers.size()) {
        return {page.PageWidth / PixelsPerMillimetre, page.PageHeight / PixelsPerMillimetre};
    }
    const PaperSize upright{Papers[index].Width / PixelsPerMillimetre, Papers[index].Height / PixelsPerMillimetre};
    return page.IsLandscape ? PaperSize{upright.Height, upright.Width} : upright;
}

void StretchPage(PageSetup& page, const DocumentView& view, int rowHeight) {
    page.PageHeight = Core::ToInt16(std::max(view.ScaleHeight - 60, 3 * rowHeight));
    page.PageWidth = Core::ToInt16(std::max(view.ScaleWidth - 60, 400));
}

int PageLeftX(const PageSetup& page, const DocumentView& view) {
    const int scrolled = 10 * view.HScroll;
    if (view.ScaleWidth < page.PageWidth + 20) return 40 - scrolled;
    return Core::CInt(view.ScaleWidth / 2.0 - page.PageWidth / 2.0) - scrolled;
}

int TopOfPage0(const DocumentView& view) { return PageGap - 8 * view.VScroll; }

}  // namespace Quillon::Drawing
