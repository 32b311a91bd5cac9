#include "bench/EditorWindow.h"

#include <utility>

#include "editing/mod_Cursor.h"
#include "forms/frmMain.h"
#include "platform/Services.h"
#include "playback/MIDI_OUT.h"
#include "playback/mod_TabPlayer.h"
#include "shell/mod_Shell.h"

namespace Quillon::Bench {

namespace {

/// To be said before the application is made.
int& Offscreen(int& argc) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return argc;
}

}  // namespace

EditorWindow::EditorWindow(int& argc, char** argv, int width, int height) : application(Offscreen(argc), argv) {
    Services.Timers = &Clock;
    Services.Midi = &outputs;
    window = std::make_unique<Forms::frmMain>();
    Shell::Program.View = window.get();
    Shell::Program.Dialogs = window.get();
    window->resize(width, height);
    Shell::Start("");
    window->resize(width, height);  // a first start takes the size of the screen
    QApplication::processEvents();
}

EditorWindow::~EditorWindow() {
    Playback::Player.View = nullptr;
    Playback::MidiClose();
    Core::Open.FileChanged = false;
}

void EditorWindow::Show(Core::TabFile song) {
    Core::Open.TabFile = std::move(song);
    Editing::ResetCursor(Core::Open);
    Shell::DocumentReplaced();
    QApplication::processEvents();
}

}  // namespace Quillon::Bench
