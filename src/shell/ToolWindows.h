// The windows of the tools that stand beside the paper. Which of them show is the program's state; the main window
// makes one when it is first to show.
#pragma once

#include <array>
#include <cstdint>

namespace Quillon::Shell {

enum class ToolWindow : std::uint8_t { Chords, Scales, ScaleFinder, Tuner, Count };

struct ToolWindowsState {
    std::array<bool, static_cast<std::size_t>(ToolWindow::Count)> Shown{};
};
extern ToolWindowsState ToolWindows;

bool IsToolShown(ToolWindow window);
/// Shows or hides it; the main window follows.
void ShowTool(ToolWindow window, bool shown);

/// Whether a chord, a scale or a tuning is heard. Who begins or ends one lets the main window update its commands.
bool DoToolsSound();
/// Ends them: when a song begins, when the person says stop, and before the device closes.
void SilenceTools();

}  // namespace Quillon::Shell
