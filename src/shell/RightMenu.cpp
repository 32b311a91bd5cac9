#include "shell/RightMenu.h"

#include "shell/CommandRows.h"

namespace Quillon::Shell {

std::string_view SubmenuOf(const Command& command) {
    const auto slash = command.Menu.find('/');
    return slash == std::string_view::npos ? "" : command.Menu.substr(slash + 1);
}

std::vector<RightMenuSection> RightMenu() {
    struct Part {
        std::string_view Menu, Title;
    };
    constexpr Part Parts[] = {{NoteMenu, "str_RightMenuNote"},      {ChordMenu, "str_RightMenuChord"},
                              {GoMenu, "str_RightMenuChord"},       {BarMenu, "str_RightMenuBar"},
                              {EditMenu, "str_RightMenuSelection"}, {OperationsMenu, "str_RightMenuSelection"},
                              {TrackMenu, "str_RightMenuTrack"}};
    std::vector<RightMenuSection> sections;
    for (const Part& part : Parts) {
        const bool goesOn = !sections.empty() && sections.back().Title == part.Title;
        RightMenuSection section{part.Title, {}};
        if (goesOn) {
            section = std::move(sections.back());
            sections.pop_back();
        }
        for (const Command& command : Commands()) {
            const bool here = command.Menu.substr(0, command.Menu.find('/')) == part.Menu;
            if (here && command.RightMenu && IsEnabled(command)) section.Entries.push_back(&command);
        }
        if (!section.Entries.empty()) sections.push_back(std::move(section));
    }
    return sections;
}

}  // namespace Quillon::Shell
