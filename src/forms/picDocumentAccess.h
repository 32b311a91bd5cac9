// The score told to screen readers: its name, and where the cursor stands in words.
#pragma once

namespace Quillon::Forms {

/// Call once, before the first window.
void InstallScoreAccess();

}  // namespace Quillon::Forms
