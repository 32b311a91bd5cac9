// A page painted into pixels and encoded as a picture file.
#pragma once

#include <functional>
#include <string>

#include "platform/Picture.h"

namespace Quillon {

enum class ImageFormat { Png, Jpeg, Bmp };

/// Paints onto white at `dpi` dots to the inch and gives the file's bytes. `width` and `height` are document pixels,
/// 96 to the inch; `paint` gets a picture of that size. Needs no window: without a running application object one for
/// the offscreen platform is made, which stays until the program ends. Raises RunTimeError 5 for a size or dpi that
/// is not above 0, 7 for a picture too large for the memory, and 57 when the encoder is missing.
std::string EncodeImage(int width, int height, int dpi, ImageFormat format, const std::function<void(Picture&)>& paint);

}  // namespace Quillon
