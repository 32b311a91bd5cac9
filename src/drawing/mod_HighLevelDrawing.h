// The document on a picture: pages, their headers and footers, and the bars in view.
#pragma once

#include <string>

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "drawing/mod_TabDrawing.h"
#include "platform/Picture.h"

namespace Quillon::Drawing {

/// Lays out, when a full pass is due, and paints what is in view: the pages on a grey ground, the bars, the cursor.
/// Settles View's scroll ranges, and its scroll values when the view follows the cursor. Raises "Overflow" for a
/// document wider than 32767 pixels.
void DrawDocument(Picture& picture);
/// Brings the row of a bar into view: the cursor's, or the one that plays.
void SetScrolls(int bar);
/// Brings the bar's width into view where the page is wider than that: for the bar that plays.
void ScrollAcross(int bar);
/// Text of the status panel, "Pages: 3" in the chosen language, from the last DrawDocument.
const std::string& PageCountText();
/// Index of the last page as the last DrawDocument counted it.
int LastPage();

/// Says, once for a page size, that no row fits on the page.
void TellPageTooSmall();

/// How the rows of a track look as Page has it, with its lyrics or those that it borrows. The track is laid out.
RowLook LookOfRows(Picture& picture, const Core::TabFile& file, int track);
/// Paints one bar at x, y: frame, strums, marks and lyrics.
void DrawBar(Picture& picture, int x, int y, const Core::TabFile& file, int track, int bar, int width,
             const RowLook& look);

}  // namespace Quillon::Drawing
