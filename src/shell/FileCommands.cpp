// New, open, save: which file stands in the window, and that no change is lost without a question.
#include <cstring>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_Selection.h"
#include "editing/mod_Undo.h"
#include "exchange/JsonDocument.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "playback/mod_TabPlayer.h"
#include "shell/AsciiImportModel.h"
#include "shell/GoCommands.h"
#include "shell/MidiImportModel.h"
#include "shell/PercAssistant.h"
#include "shell/Recovery.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::LanguageText;
using Core::Open;

namespace {

constexpr const char* UnsavedName = "Unsaved.qlm";

std::string ShortName() { return Open.FileName.empty() ? UnsavedName : fs::path(Open.FileName).filename().string(); }

/// A song that has no file yet is asked for by its title, without what names of files can't hold.
std::string SuggestedName() {
    std::string name;
    for (const char letter : Open.TabFile.Title) {
        const bool fits = static_cast<unsigned char>(letter) >= ' ' && std::strchr(R"(<>:"/\|?*)", letter) == nullptr;
        if (fits && (letter != '.' || !name.empty())) name += letter;
    }
    const bool isNamed = !name.empty() && Open.TabFile.Title != Core::TabFile().Title;
    return Open.FileName.empty() && isNamed ? name + ".qlm" : ShortName();
}

std::string LastThree(const fs::path& path) {
    const std::string text = path.string();
    return Core::UpperAscii(text.substr(text.size() < 3 ? 0 : text.size() - 3));
}

bool IsJson(const fs::path& path) { return Core::LowerAscii(path.string()).ends_with(".json"); }

bool IsMidi(const fs::path& path) {
    const std::string ending = Core::LowerAscii(path.extension().string());
    return ending == ".mid" || ending == ".midi";
}

void Tell(const std::string& text, BoxIcon icon = BoxIcon::Exclamation) {
    Services.Messages->Show(text, LanguageText(icon == BoxIcon::Critical ? "str_TitleError" : "str_TitleNote"),
                            Buttons::Ok, icon);
}

/// The folder that a question for a file starts in.
fs::path FolderToAskIn() {
    if (!Open.FileName.empty()) return fs::path(Open.FileName).parent_path();
    const auto recent = RecentFiles();
    return recent.empty() ? fs::path() : recent.front().parent_path();
}

void StopPlaying() {
    if (Playback::IsPlaying()) Playback::StopTab();
}

bool OpenJson(const fs::path& path) {
    const std::string bytes = Services.Files->Read(path);
    try {
        Open.TabFile = Exchange::ReadJson(bytes, *Services.Settings);
    } catch (const RunTimeError& error) {  // the reader knows no file
        throw RunTimeError(error.Number, path.string() + ": " + error.Description());
    }
    Open.FileName.clear();
    Open.CurTrack = Open.CurBar = Open.CurStrum = Open.CurString = 0;
    Open.FileChanged = false;
    return true;
}

}  // namespace

std::string WindowCaption() { return "Quillon 4 - [" + ShortName() + "]"; }

void SetWindowCaption() { Program.View->SetCaption(WindowCaption()); }

void DocumentReplaced() {
    Program.PasswordGiven = false;
    Editing::ClearUndo();
    Playback::Player.Listening = {};
    Editing::ResetCursor(Open);
    Editing::ClearSelection();
    Drawing::View.VScroll = Drawing::View.HScroll = 0;
    Drawing::Page.LayoutDirty = 1;
    SetWindowCaption();
    Program.View->RebuildTrackList();
    PercAssistant.Track = -1;  // its tracks are others
    UpdateGotoPoints();
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

void DocumentRestored() {
    // The go-to points are not looked for here: that is a walk through the song, and the Go menu does it when it opens.
    RefreshPercAssistant();
    Program.View->RebuildTrackList();
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

bool ContinueWithOp() {
    if (!Open.FileChanged) return true;
    const Answer answer =
        Services.Messages->Show(LanguageText("str_SaveChanges") + ShortName() + "' ?",
                                LanguageText("str_TitleQuestion"), Buttons::YesNoCancel, BoxIcon::Question);
    if (answer == Answer::Yes) return mnuFileSave_Click();
    return answer == Answer::No;
}

void ForceNewFile() {
    StopPlaying();
    Core::NewTabFile();
    Open.FileName.clear();
    Open.FileChanged = false;
    RemoveRecovery();
    DocumentReplaced();
}

bool NeedsImport(const fs::path& path) {
    const std::string ending = Core::LowerAscii(path.extension().string());
    return IsMidi(path) || ending == ".txt" || ending == ".tab" || ending == ".html" || ending == ".htm";
}

bool OpenFileByEnding(const fs::path& path) {
    const std::string ending = LastThree(path);
    if (ending == "QL4") {
        Tell(LanguageText("str_OldFile"), BoxIcon::Critical);
        return false;
    }
    if (IsMidi(path)) return OpenMidiAsSong(path);
    if (NeedsImport(path)) return OpenTextTab(path);
    if (ending != "QLM" && !IsJson(path)) {
        Tell(LanguageText("str_UnknownEnding", {path.string()}));
        return false;
    }
    StopPlaying();
    Program.View->ShowStatus(LanguageText("str_Opening", {path.filename().string()}));
    auto outcome = Core::OpenOutcome::UnknownKind;
    const bool done = Guarded([&] {
        if (ending == "QLM") {
            outcome = Core::ForceOpenFile(path);
        } else if (OpenJson(path)) {
            outcome = Core::OpenOutcome::Opened;
        }
    });
    Program.View->ShowStatus("");
    const bool opened = outcome == Core::OpenOutcome::Opened || outcome == Core::OpenOutcome::Damaged;
    if (!done || !opened) {
        Program.View->DrawDocument();
        return false;
    }
    RemoveRecovery();
    if (outcome == Core::OpenOutcome::Opened) AddRecentFile(path);
    DocumentReplaced();
    return true;
}

bool OpenDroppedFile(const fs::path& path) { return ContinueWithOp() && OpenFileByEnding(path); }

bool SaveFileAs(const fs::path& path) {
    bool written = false;
    Program.View->ShowStatus(LanguageText("str_Saving", {path.filename().string()}));
    Guarded([&] { written = Core::ForceSaveFile(path); });
    Program.View->ShowStatus("");
    if (!written) return false;
    Open.FileName = path.string();
    Open.FileChanged = false;
    RemoveRecovery();
    AddRecentFile(path);
    SetWindowCaption();
    Program.View->UpdateCommands();
    Program.View->ShowStatus(LanguageText("str_Saved", {path.filename().string()}));
    return true;
}

void mnuFileNew_Click() {
    if (ContinueWithOp()) ForceNewFile();
}

void mnuFileOpen_Click() {
    if (!ContinueWithOp()) return;
    if (const auto path = Program.View->AskOpenFile(FolderToAskIn())) OpenFileByEnding(*path);
}

bool mnuFileSave_Click() { return Open.FileName.empty() ? mnuFileSaveAs_Click() : SaveFileAs(Open.FileName); }

bool mnuFileSaveAs_Click() {
    const auto chosen = Program.View->AskSaveFile(FolderToAskIn() / SuggestedName());
    if (!chosen) return false;
    if (LastThree(*chosen) == "QLM") return SaveFileAs(*chosen);
    // The name that gets the ending was not asked about.
    const fs::path path = chosen->string() + ".qlm";
    if (Services.Files->Exists(path) &&
        Services.Messages->Show(LanguageText("str_Overwrite", {path.string()}), LanguageText("str_TitleQuestion"),
                                Buttons::YesNo, BoxIcon::Question) != Answer::Yes) {
        return false;
    }
    return SaveFileAs(path);
}

}  // namespace Quillon::Shell
