// What stands on a page around its rows: the sheet itself, the header, the footer.
#pragma once

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "drawing/mod_PrintedPages.h"
#include "platform/Picture.h"

namespace Quillon::Drawing {

/// From a page's top: its title and subtitle end at the first, all other lines of its header at the second, the line
/// that a print job puts at the head of pages without a header of their own at the third.
constexpr int TitlesBottom = 79, HeaderBottom = 125, RunningBottom = 44;

/// Of the lines of a header under its titles: where the texts at the left end and where those at the right begin, from
/// the page's left edge.
struct HeaderEdges {
    double Left = 0, Right = 0;
};

// These lie on the ground around the paper.
constexpr Color EdgeColor = PackColor(0x70, 0x74, 0x7A);
constexpr Color ShadowColor = PackColor(0x82, 0x86, 0x8C);
constexpr Color RulerColor = PackColor(0xD8, 0xDC, 0xE2);

/// The sheet in the view: paper, edge, shadow and a ruler along its top and left edges.
void DrawPageFrame(Picture& picture, const PageSetup& page, int left, int top);
/// The edges of a header as a track's pages show it.
HeaderEdges MeasureHeader(Picture& picture, const PageSetup& setup, const Core::TabFile& file, int track);
/// Header and footer; `page` counts from 0. Without running texts the footer holds the copyright and the page number.
void DrawPageFurniture(Picture& picture, const PageSetup& setup, const Core::TabFile& file, int track, int left,
                       int top, int page, int pageCount, const RunningTexts* texts = nullptr);

}  // namespace Quillon::Drawing
