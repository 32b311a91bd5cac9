#include "shell/ToolWindows.h"

#include "library/NoteRun.h"
#include "library/mod_Tuner.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

ToolWindowsState ToolWindows;

bool IsToolShown(ToolWindow window) { return ToolWindows.Shown.at(static_cast<std::size_t>(window)); }

void ShowTool(ToolWindow window, bool shown) {
    ToolWindows.Shown.at(static_cast<std::size_t>(window)) = shown;
    Program.View->UpdateCommands();
}

bool DoToolsSound() { return Library::IsRunPlaying() || Library::IsTuningPlaying(); }

void SilenceTools() {
    Library::StopRun();
    Library::StopTuning();
}

}  // namespace Quillon::Shell
