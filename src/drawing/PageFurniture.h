// What stands on a page around its rows: the sheet itself, the header, the footer.
#pragma once

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "platform/Picture.h"

namespace Quillon::Drawing {

/// The sheet in the view: paper, edge, shadow and a ruler along its top and left edges.
void DrawPageFrame(Picture& picture, const PageSetup& page, int left, int top);
/// Header and footer; `page` counts from 0.
void DrawPageFurniture(Picture& picture, const PageSetup& setup, const Core::TabFile& file, int track, int left,
                       int top, int page, int pageCount);

}  // namespace Quillon::Drawing
