// Which window is which tool's.
#include "forms/LibraryWindow.h"
#include "forms/frmChordManager.h"
#include "forms/frmGuitarTuner.h"
#include "forms/frmMain.h"
#include "forms/frmScaleFinder.h"
#include "forms/frmScaleManager.h"
#include "forms/picDocument.h"
#include "platform/RunTimeError.h"

namespace Quillon::Forms {

LibraryWindow* MakeToolWindow(Shell::ToolWindow which, frmMain& main) {
    switch (which) {
        case Shell::ToolWindow::Chords:
            return new frmChordManager(main);
        case Shell::ToolWindow::Scales:
            return new frmScaleManager(main);
        case Shell::ToolWindow::ScaleFinder:
            return new frmScaleFinder(main);
        case Shell::ToolWindow::Tuner:
            return new frmGuitarTuner(main);
        case Shell::ToolWindow::Count:
            break;
    }
    RaiseSubscriptOutOfRange();
}

void frmMain::ShowToolWindows() {
    for (std::size_t i = 0; i < toolWindows.size(); ++i) {
        const bool shows = Shell::ToolWindows.Shown.at(i);
        LibraryWindow*& tool = toolWindows.at(i);
        if (!tool && shows) {
            tool = MakeToolWindow(static_cast<Shell::ToolWindow>(i), *this);
            tool->SetTexts();
            connect(tool, &LibraryWindow::Left, this, &frmMain::FocusScore);
        }
        if (!tool) continue;
        if (shows == tool->isHidden()) {
            tool->ShowIf(shows);
        } else if (shows) {
            tool->CommandsChanged();
        }
    }
}

void frmMain::TellTools(void (*tell)(LibraryWindow&)) {
    for (LibraryWindow* tool : toolWindows) {
        if (tool) tell(*tool);
    }
}

void frmMain::FocusScore() {
    activateWindow();
    document->setFocus();
}

}  // namespace Quillon::Forms
