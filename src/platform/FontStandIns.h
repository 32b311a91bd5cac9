// The names of fonts that documents use, and what stands in for them where the machine lacks them.
#pragma once

#include <span>
#include <string_view>

namespace Quillon {

/// Families of the same, or nearly the same, widths, best first, for a name in any case of letters. Nothing for a name
/// that is no common one: it stands for itself.
std::span<const std::string_view> FontStandIns(std::string_view name);

}  // namespace Quillon
