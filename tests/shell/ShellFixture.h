// The program without windows on a scratch base folder: a window, dialogs and boxes that answer and remember.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <vector>

#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarClipboard.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Selection.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/VirtualClock.h"
#include "platform/headless/RecordingMidi.h"
#include "platform/portable/IniStore.h"
#include "platform/portable/PosixFiles.h"
#include "platform/portable/Rc4Md5.h"
#include "playback/mod_TabPlayer.h"
#include "shell/BarModels.h"
#include "shell/DialogModels.h"
#include "shell/GoCommands.h"
#include "shell/ImportModel.h"
#include "shell/PercAssistant.h"
#include "shell/Recovery.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"
#include "tests/support/Golden.h"
#include "tests/support/RememberingBox.h"

namespace Quillon::Shell {

/// Real files, of which writing can be made to fail.
struct FaultyFiles : PosixFiles {
    std::string FullFor;  ///< Replace fails with a full disk for paths that hold this text
    void Replace(const std::filesystem::path& path, std::string_view bytes) override {
        if (!FullFor.empty() && path.string().find(FullFor) != std::string::npos) {
            throw RunTimeError(61, path.string() + ": No space left on device");
        }
        PosixFiles::Replace(path, bytes);
    }
};

using Testing::RememberingBox;

struct FakeWindow : ShellView, Dialogs {
    std::vector<std::string> Calls;
    std::vector<std::optional<MarkerPlace>> Markers;
    std::string Caption;
    std::vector<std::string> Status;
    std::optional<std::filesystem::path> OpenAnswer, SaveAnswer;
    std::filesystem::path Suggested;
    int Percent = 0;
    int CancelAt = 1000;
    std::optional<std::string> Password;
    std::function<ChosenPrinter(PrintModel&)> Printer;
    std::map<std::type_index, std::function<bool(DialogModel&)>> Edits;

    /// What a person does in the dialog of the model from now on.
    template <class Model>
    void On(std::function<bool(Model&)> edit) {
        Edits[typeid(Model)] = [act = std::move(edit)](DialogModel& model) { return act(dynamic_cast<Model&>(model)); };
    }
    bool Edit(DialogModel& model) override {
        const auto found = Edits.find(typeid(model));
        return found != Edits.end() && found->second(model);
    }

    void DrawDocument() override { Calls.emplace_back("draw"); }
    void SetCaption(const std::string& caption) override { Caption = caption; }
    void RebuildTrackList() override { Calls.emplace_back("tracks"); }
    void FillRecentFiles() override { Calls.emplace_back("recent"); }
    void FillGotoPoints() override { Calls.emplace_back("points"); }
    void FillPercAssistant() override { Calls.emplace_back("letters"); }
    void ShowStatus(const std::string& text) override { Status.push_back(text); }
    void UpdateCommands() override {}
    void ArrangeToolbars() override { Calls.emplace_back("toolbars"); }
    void UpdateZoom() override { Calls.emplace_back("zoom"); }
    void LanguageChanged() override { Calls.emplace_back("language"); }
    void ThemeChanged() override { Calls.emplace_back("theme"); }
    void RestorePlaces() override { Calls.emplace_back("places"); }
    void KeepPlaces() override { Services.Settings->Save("MainWindowDetails", "Left", "42"); }
    void ShowWindow() override { Calls.emplace_back("window"); }
    void CloseWindow() override { Calls.emplace_back("close"); }
    void WhenPainted(std::function<void()> act) override {
        Calls.emplace_back("painted");
        act();
    }
    void PlayingStarts() override { Calls.emplace_back("playing"); }
    void PlayingStopped() override { Calls.emplace_back("stopped"); }
    void ScrollToBar(int bar) override { Calls.emplace_back("scroll " + std::to_string(bar)); }
    void MovePlayMarker() override { Markers.push_back(PlayMarkerNow()); }
    std::optional<std::filesystem::path> AskOpenFile(const std::filesystem::path&) override { return OpenAnswer; }
    std::optional<std::filesystem::path> AskSaveFile(const std::filesystem::path& suggested) override {
        Suggested = suggested;
        return SaveAnswer;
    }
    std::optional<std::filesystem::path> AskImportFile(const char*, const char*,
                                                       const std::vector<std::string>&) override {
        return OpenAnswer;
    }
    std::optional<std::filesystem::path> AskExportFile(const char*, const char*,
                                                       const std::filesystem::path& suggested) override {
        Suggested = suggested;
        return SaveAnswer;
    }
    std::optional<std::filesystem::path> AskFileToWrite(const std::filesystem::path& suggested,
                                                        const std::vector<FileKind>&) override {
        Suggested = suggested;
        return SaveAnswer;
    }
    std::string OnClipboard;
    std::string ClipboardText() override { return OnClipboard; }
    void ClearClipboard() override { OnClipboard.clear(); }
    void BeginWork(const std::string&) override { Calls.emplace_back("work"); }
    bool GoOnWithWork(int percent) override {
        Percent = percent;
        return percent < CancelAt;
    }
    void EndWork() override { Calls.emplace_back("work ends"); }
    std::optional<std::string> AskPassword() override {
        Calls.emplace_back("password");
        return Password;
    }
    void ExportPicture() override { Calls.emplace_back("picture"); }
    ChosenPrinter AskPrinter(PrintModel& model) override { return Printer ? Printer(model) : ChosenPrinter(); }
    void ShowPrintPreview() override { Calls.emplace_back("preview"); }
    void ShowAbout() override { Calls.emplace_back("about"); }
    void ShowKeyboardHelp() override { Calls.emplace_back("keyboard"); }
    void ShowCommandPalette() override { Calls.emplace_back("palette"); }
};

inline void ResetGlobals() {
    // Timers and devices go before the services that they came from.
    if (Program.View) SilenceTools();
    Editing::EndTypedNote();
    Playback::Player = {};
    Playback::MidiOut = {};
    Sound = {};
    Editing::Selection = {};
    Editing::BarClipboard = {};
    Services = {};
    Core::Open = {};
    Core::Settings = {};
    Core::Language = {};
    Drawing::Page = {};
    Drawing::View = {};
    Recovery = {};
    PercAssistant = {};
    LastImport = {};
    Go = {};
    ToolWindows = {};
    Program = {};
}

/// One life of the program on a base folder. Destroyed without Stop it is a crash: locks are freed, files stay.
struct Life {
    explicit Life(const std::filesystem::path& base) : Store(Files, base / "settings.ini") {
        ResetGlobals();
        Services = {base, &Files, &Store, &Box, &Cipher, &Midi, &Clock};
        Program.View = &Window;
        Program.Dialogs = &Window;
    }
    ~Life() { ResetGlobals(); }
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;

    FaultyFiles Files;
    Rc4Md5 Cipher;
    IniStore Store;
    RememberingBox Box;
    FakeWindow Window;
    VirtualClock Clock;
    RecordingMidi Midi;
};

class ShellTest : public testing::Test {
protected:
    ShellTest() { Restart(); }
    void Restart() {
        run.reset();
        run = std::make_unique<Life>(folder / "base");
    }
    RememberingBox& Box() { return run->Box; }
    FakeWindow& Window() { return run->Window; }
    /// Puts a fret into the open document, as an edit does.
    static void Edit(const char* fret) {
        Core::EditStrum(0, 0, 0).Notes.Edit(0).Fret = fret;
        Core::Open.FileChanged = true;
    }
    static std::string Fret() { return Core::ReadStrum(0, 0, 0).Notes[0].Fret; }

    Testing::ScratchFolder folder;
    std::unique_ptr<Life> run;
};

}  // namespace Quillon::Shell
