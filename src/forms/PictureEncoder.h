// The encoders of picture files that the editor has.
#pragma once

#include "exchange/PictureExport.h"

namespace Quillon::Forms {

/// `dpi` is for pictures of pixels; an SVG has none.
Exchange::PictureEncoder PictureEncoderOf(Exchange::PictureKind kind, int dpi);

}  // namespace Quillon::Forms
