// Windows keep their place in a section of the settings store, under "Left", "Top", "Width" and "Height".
#pragma once

#include <string_view>

class QWidget;
class QSize;

namespace Quillon::Forms {

/// Puts a window where it was last, or gives it a size. A place that lies on no screen any more is not taken.
void RestorePlace(QWidget& window, std::string_view section, const QSize& otherwise);
void KeepPlace(const QWidget& window, std::string_view section);

}  // namespace Quillon::Forms
