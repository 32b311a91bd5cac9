// The start and the stop of the system, each one list of steps in the order that they need.
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/AsciiImportModel.h"
#include "shell/EffectCommands.h"
#include "shell/PercAssistant.h"
#include "shell/Recovery.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::Open;

namespace {

fs::path DataFolder() { return Services.BaseFolder / "Data"; }

bool NewDocument() {
    Core::NewTabFile();
    Open.FileName.clear();
    return true;
}

bool FirstRun() {
    if (Core::INISettingsExist()) return true;
    Core::SetDefaultVars();
    Core::SaveINISettings();
    Services.Settings->Flush();
    return true;
}

bool OpenCommandLineFile(const std::string& file) {
    if (!file.empty() && !NeedsImport(file)) OpenFileByEnding(GetLongFilename(file));
    Open.FileChanged = false;
    return true;
}

/// An import asks by a dialog, which comes over the window.
bool ImportAtStart(const std::string& file) {
    if (!NeedsImport(file)) {
        StartTmrImport();
    } else {
        Program.View->WhenPainted([file] { OpenDroppedFile(GetLongFilename(file)); });
    }
    return true;
}

bool ShowAll() {
    DocumentReplaced();
    Program.View->ThemeChanged();
    Program.View->LanguageChanged();
    Program.View->RestorePlaces();
    Program.View->FillRecentFiles();
    Program.View->UpdateZoom();
    return true;
}

bool WriteSettings() {
    Program.View->KeepPlaces();
    Core::SaveINISettings();
    SaveStoredState();
    Services.Settings->Flush();
    return true;
}

}  // namespace

std::vector<Step> StartSteps(const std::string& commandLineFile) {
    return {
        {"Language", [] { return Core::LoadLanguage(*Services.Files, Services.BaseFolder), true; }},
        {"Data folder", [] { return Services.Files->MakeFolder(DataFolder()), true; }},
        {"Language files", [] { return Core::InstallLanguages(*Services.Files, Services.BaseFolder), true; }},
        {"Settings", [] { return Core::LoadINISettings(), true; }},
        {"Stored state", [] { return LoadStoredState(), true; }},
        {"New document", NewDocument},
        {"First run", FirstRun},
        {"Command line", [commandLineFile] { return OpenCommandLineFile(commandLineFile); }},
        {"Show document", ShowAll},
        {"Show window", [] { return Program.View->ShowWindow(), true; }},
        // A device may take its time; the window comes first.
        {"Sound", [] { return Program.View->WhenPainted(LoadMIDI), true; }},
        // Asked over the window, so that a person sees which program it is that asks.
        {"Recovery", [] { return OfferRecovery(), true; }},
        {"Import", [commandLineFile] { return ImportAtStart(commandLineFile); }},
    };
}

std::vector<Step> StopSteps() {
    return {
        {"Ask about changes", ContinueWithOp},
        {"Sound", [] { return EndSound(), true; }},
        {"Settings", WriteSettings},
        {"Scratch files", [] { return Core::DelTempFiles(), true; }},
        {"Recovery", [] { return EndRecovery(), true; }},
    };
}

void Start(const std::string& commandLineFile) {
    Editing::MayEdit = PasswordCorrect;
    Editing::Entry = {};
    Editing::Entry.SoundStrum = Editing::SoundTypedNote;
    Editing::Entry.OpenDialog = OpenEntryDialog;
    Editing::Entry.StepsChanged = [] { Program.View->UpdateCommands(); };
    Editing::Entry.DocumentRestored = DocumentRestored;
    Editing::Entry.RefreshPercussion = RefreshPercAssistant;
    WatchPlaying();
    for (const Step& step : StartSteps(commandLineFile)) Guarded([&] { step.Run(); });
}

bool Stop() {
    for (const Step& step : StopSteps()) {
        bool goOn = true;
        Guarded([&] { goOn = step.Run(); });
        if (!goOn) return false;
    }
    Editing::EndTypedNote();
    return true;
}

}  // namespace Quillon::Shell
