// Light and dark: the colours of everything around the paper, which stays white.
#pragma once

#include <QPalette>

namespace Quillon::Forms {

enum class Theme { System, Light, Dark };

/// Gives all windows the colours of a theme. System is what the platform's own palette says.
void ApplyTheme(Theme theme);

}  // namespace Quillon::Forms
