// The editor's window in memory, for what a person waits for.
#pragma once

#include <QApplication>
#include <memory>

#include "bench/Setting.h"
#include "core/mod_TabFileStructure.h"
#include "platform/VirtualClock.h"
#include "platform/headless/RecordingMidi.h"

namespace Quillon::Forms {
class frmMain;
}

namespace Quillon::Bench {

/// A started editor, offscreen. Its time moves when told, and what it plays is kept, not heard.
class EditorWindow {
public:
    EditorWindow(int& argc, char** argv, int width, int height);
    ~EditorWindow();
    EditorWindow(const EditorWindow&) = delete;
    EditorWindow& operator=(const EditorWindow&) = delete;

    /// Makes it the open song, and paints it.
    void Show(Core::TabFile song);

    Forms::frmMain& Window() { return *window; }

    VirtualClock Clock;

private:
    QApplication application;
    Setting setting;
    RecordingMidi outputs;
    std::unique_ptr<Forms::frmMain> window;
};

}  // namespace Quillon::Bench
