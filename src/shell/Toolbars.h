// The eighteen toolbars. Which commands stand on one says Command::Toolbar; whether it shows and is docked is kept in
// the settings, and its place by the window.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "shell/Commands.h"

namespace Quillon::Shell {

struct Toolbar {
    std::string_view Name;     ///< "File" is the "File Toolbar" of the settings
    std::string_view Command;  ///< that shows and hides it
    std::string_view Text;     ///< text key of that command, and without the "&" the toolbar's title
};

/// All of them as they stand by default, row by row.
std::span<const Toolbar> Toolbars();
/// Commands that show and hide toolbars: of those of `names` alone, as an empty one is none.
std::vector<Command> ToolbarCommandRows(std::span<const std::string_view> names);

/// Which of the toolbars begin a row, given how wide each is and how much room a row has: a row takes as many as fit,
/// and at least one.
std::vector<bool> BeginRows(std::span<const int> widths, int room);

/// All toolbars show, docked, in their default places, and follow the window's width from now on.
void mnuViewToolbarsDefault_Click();

}  // namespace Quillon::Shell
