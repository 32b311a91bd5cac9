// Icons of the commands: line drawings in SVG that take the palette's text colour, so that one set serves light and
// dark, at every size and resolution.
#pragma once

#include <QIcon>
#include <string_view>

namespace Quillon::Forms {

/// The icon of a name such as "save"; an empty one when there is none.
QIcon SvgIcon(std::string_view name);

}  // namespace Quillon::Forms
