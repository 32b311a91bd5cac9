// The commands that open the windows of the tools.
#include "shell/CommandRows.h"
#include "shell/ToolWindows.h"

namespace Quillon::Shell {

namespace {

/// The entry that opens a window, and closes it again.
template <ToolWindow Window>
constexpr Command OpenRow(std::string_view name, std::string_view text, std::string_view icon,
                          std::string_view shortcut = {}) {
    return {.Name = name,
            .Menu = ToolsMenu,
            .Text = text,
            .Shortcut = shortcut,
            .Icon = icon,
            .WhilePlaying = true,
            .Run = [] { ShowTool(Window, !IsToolShown(Window)); },
            .Checked = [] { return IsToolShown(Window); }};
}

constexpr Command Table[] = {
    OpenRow<ToolWindow::Chords>("mnuToolsChords", "str_ToolsChords", "chord-manager", "Ctrl+Shift+C"),
    OpenRow<ToolWindow::Scales>("mnuToolsScales", "str_ToolsScales", "scale-manager", "Ctrl+Alt+S"),
    OpenRow<ToolWindow::ScaleFinder>("mnuToolsScaleFinder", "str_ToolsScaleFinder", "scale-finder", "Ctrl+Alt+F"),
    OpenRow<ToolWindow::Tuner>("mnuToolsTuner", "str_ToolsTuner", "tuner", "Ctrl+Alt+T"),
};

}  // namespace

std::span<const Command> ToolCommandRows() { return Table; }

}  // namespace Quillon::Shell
