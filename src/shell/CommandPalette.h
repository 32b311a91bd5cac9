// Finding a command by what its caption says.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/Commands.h"

namespace Quillon::Shell {

struct PaletteEntry {
    const Command* Which = nullptr;
    std::string Caption;  ///< as SpokenCaption
    std::string Menu;     ///< where it stands: "View, Toolbars"
    std::string Keys;     ///< its first shortcut, or its key of the score, "" for none
    bool Enabled = false;
};

/// The commands that all words typed are found in, whatever the case of ASCII letters: in the caption or in the names
/// of its menus, at the start of a word or within one. Best first: words of the caption that begin so, then parts of
/// its words, then menus; equal ones in the order of the table. Nothing typed finds all.
std::vector<PaletteEntry> FindCommands(std::string_view typed);

}  // namespace Quillon::Shell
