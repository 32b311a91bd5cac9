// What the tools ask and tell alike.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/mod_Language.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "shell/mod_Shell.h"

namespace Quillon::Tools {

/// Asks with the text of a key whether something may go; true for yes.
inline bool Agrees(std::string_view key, std::initializer_list<std::string_view> arguments) {
    return Services.Messages->Show(Core::LanguageText(key, arguments), Core::LanguageText("str_TitleQuestion"),
                                   Buttons::YesNo, BoxIcon::Exclamation) == Answer::Yes;
}

/// Has a model edited until `save` says that it is saved, or the person gives up, false then. When a save fails, which
/// is told, or is not agreed to, the window comes back with all that was typed.
template <class Model, class Save>
bool EditUntilSaved(Model& model, Save save) {
    while (Shell::Program.Dialogs->Edit(model)) {
        bool saved = false;
        Shell::Guarded([&] { saved = save(); });
        if (saved) return true;
    }
    return false;
}

/// Behind a count of what is listed: ". 2 files are no part of the library..."; "" for none.
inline std::string PassedByText(int files) {
    if (files == 0) return "";
    return ". " + (files == 1 ? Core::LanguageText("str_LibraryPassedByOne")
                              : Core::LanguageText("str_LibraryPassedBy", {std::to_string(files)}));
}

}  // namespace Quillon::Tools
