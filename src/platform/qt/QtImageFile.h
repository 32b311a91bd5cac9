// A page painted into pixels and encoded as a picture file.
#pragma once

#include <functional>
#include <string>

#include "platform/PageTarget.h"

namespace Quillon {

enum class ImageFormat { Png, Jpeg, Bmp };

/// Paints a sheet onto white at `dpi` dots to the inch of its paper and gives the file's bytes; `paint` gets a picture
/// of the sheet's document pixels. Needs no window: without a running application object one for the offscreen platform
/// is made, which stays until the program ends. Raises RunTimeError 5 for a size or dpi that is not above 0, 7 for a
/// picture too large for the memory, and 57 when the encoder is missing.
std::string EncodeImage(const Sheet& sheet, int dpi, ImageFormat format, const std::function<void(Picture&)>& paint);

}  // namespace Quillon
