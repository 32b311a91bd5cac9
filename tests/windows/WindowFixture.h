// The real main window on a scratch base folder, driven without a display.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarClipboard.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Selection.h"
#include "forms/Theme.h"
#include "forms/frmMain.h"
#include "forms/picDocument.h"
#include "forms/picDocumentAccess.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "platform/VirtualClock.h"
#include "platform/headless/RecordingMidi.h"
#include "platform/portable/IniStore.h"
#include "platform/portable/PosixFiles.h"
#include "platform/portable/Rc4Md5.h"
#include "playback/mod_TabPlayer.h"
#include "shell/GoCommands.h"
#include "shell/ImportModel.h"
#include "shell/PercAssistant.h"
#include "shell/Recovery.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"
#include "tests/support/Golden.h"
#include "tests/support/RememberingBox.h"

namespace Quillon::Forms {

using Testing::RememberingBox;

class WindowTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        if (QCoreApplication::instance()) return;
        static int argc = 1;
        static char name[] = "test";
        static char* argv[] = {name, nullptr};
        new QApplication(argc, argv);
        InstallScoreAccess();
    }

    WindowTest() : store(files, folder / "base/settings.ini") {
        Reset();
        Services = {folder / "base", &files, &store, &box, &cipher, &midi, &clock};
    }
    ~WindowTest() override {
        window.reset();
        Editing::EndTypedNote();
        Reset();
        ApplyTheme(Theme::System);
    }

    /// Starts the program with a file of the examples, or with none, and waits for the window's first frame.
    void Start(const std::string& example = "") {
        window = std::make_unique<frmMain>();
        Shell::Program.View = window.get();
        Shell::Program.Dialogs = window.get();
        const auto examples = std::filesystem::path(QUILLON_SOURCE_DIR) / "examples";
        Shell::Start(example.empty() ? "" : (examples / example).string());
        window->resize(1000, 800);
        Settle();
    }
    /// Runs what is posted, and paints what is due.
    void Settle() {
        QApplication::processEvents();
        window->Document().Settle();
        QApplication::processEvents();
    }
    void Run(const char* command) {
        window->ActionOf(command)->trigger();
        Settle();
    }
    /// Has `act` work on the dialog that `open` shows; one still open then is cancelled.
    void WithDialog(const std::function<void()>& open, const std::function<void(QDialog&)>& act) {
        bool seen = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            seen = true;
            act(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        open();
        Settle();
        EXPECT_TRUE(seen);
    }
    void WithDialog(const char* command, const std::function<void(QDialog&)>& act) {
        SCOPED_TRACE(command);
        WithDialog([this, command] { Run(command); }, act);
    }
    template <class Field>
    static Field& In(QWidget& parent, const char* name) {
        auto* const field = parent.findChild<Field*>(name);
        if (!field) throw std::runtime_error(std::string("no field ") + name);
        return *field;
    }
    QImage Shot() { return window->Document().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    Testing::ScratchFolder folder;
    PosixFiles files;
    Rc4Md5 cipher;
    IniStore store;
    RememberingBox box;
    VirtualClock clock;
    RecordingMidi midi;
    std::unique_ptr<frmMain> window;

private:
    static void Reset() {
        // Timers and devices go before the services that they came from.
        Playback::Player = {};
        Playback::MidiOut = {};
        Shell::Sound = {};
        Editing::Selection = {};
        Editing::BarClipboard = {};
        Services = {};
        Core::Open = {};
        Core::Settings = {};
        Core::Language = {};
        Drawing::Page = {};
        Drawing::View = {};
        Shell::Recovery = {};
        Shell::PercAssistant = {};
        Shell::LastImport = {};
        Shell::Go = {};
        Shell::ToolWindows = {};
        Shell::Program = {};
    }
};

}  // namespace Quillon::Forms
