// Light and dark: the colours of everything around the paper, which stays white unless the person wants it otherwise.
#pragma once

#include <QPalette>

namespace Quillon {
class PainterPicture;
}

namespace Quillon::Forms {

enum class Theme { System, Light, Dark };

/// Gives all windows the colours of a theme. System is what the platform's own palette says.
void ApplyTheme(Theme theme);
/// Whether the screen's paper is dark: where the windows are, and it is wanted.
bool IsPaperDark();
/// Gives a picture of the screen its colours for the paper as it is.
void UsePaper(PainterPicture& picture);

}  // namespace Quillon::Forms
