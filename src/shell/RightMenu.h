// picRightMenu: what can be done to the note, the strum and the bars under the cursor.
#pragma once

#include <string_view>
#include <vector>

#include "shell/Commands.h"

namespace Quillon::Shell {

struct RightMenuSection {
    std::string_view Title;  ///< text key
    std::vector<const Command*> Entries;
};
/// The rows of the table that carry RightMenu and are enabled now, in sections for the note, the strum, the bar and
/// the selection. A section without an entry is left out.
std::vector<RightMenuSection> RightMenu();

/// Text keys of the submenus that an entry stands in, joined by "/"; "" for none.
std::string_view SubmenuOf(const Command& command);

}  // namespace Quillon::Shell
