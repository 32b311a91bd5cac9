// Widths of the text faces that every machine has in one make or another: a sans and a serif of the common metrics.
#pragma once

#include <string_view>

#include "platform/Picture.h"

namespace Quillon {

/// Width in pixels of a UTF-8 text. Serif names ("Times", "Georgia", ...) take the serif's widths, typewriter names 0.6
/// em a character, all other names the sans's. A character without a known width counts 0.6 em.
double FontTextWidth(const Font& font, std::string_view text);

enum class FontFamily { Sans, Serif, Mono };
FontFamily FamilyOf(std::string_view name);

}  // namespace Quillon
