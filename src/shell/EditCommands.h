// How commands change the open document outside of typing: by a dialog, or by an engine that knows the cursor.
//
// They take no step of undo: what they change belongs to the state that the next key finds.
#pragma once

#include <type_traits>

#include "core/mod_TabFileStructure.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

/// The document changed under the cursor: its marks, the track list, the commands and the painting follow.
void ShowEdited();

/// Runs an engine on the open document once its password was given, and shows what came of it. An engine that gives a
/// bool says whether it did anything. The document counts as changed only when it differs.
template <class Engine>
void ByEngine(Engine&& engine) {
    if (!PasswordCorrect()) return;
    const Core::TabFile before = Core::Open.TabFile;
    if constexpr (std::is_void_v<decltype(engine(Core::Open))>) {
        engine(Core::Open);
    } else if (!engine(Core::Open)) {
        return;
    }
    if (!(Core::Open.TabFile == before)) MarkEdited();
    ShowEdited();
}

/// Loads a model, has it edited and applies it, without showing it. False when that was cancelled or changed nothing.
/// `Load` and `Apply` take no arguments; Apply gives nothing, or whether anything changed.
template <class Model>
bool EditByDialog() {
    if (!PasswordCorrect()) return false;
    Model model;
    model.Load();
    if (!Program.Dialogs->Edit(model)) return false;
    if constexpr (std::is_void_v<decltype(model.Apply())>) {
        model.Apply();
        return true;
    } else {
        return model.Apply();
    }
}

/// The same for a command: what came of it is shown.
template <class Model>
void ByDialog() {
    if (EditByDialog<Model>()) ShowEdited();
}

}  // namespace Quillon::Shell
