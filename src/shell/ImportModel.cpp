#include "shell/ImportModel.h"

#include <algorithm>
#include <chrono>

#include "core/mod_Language.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_Selection.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "playback/mod_TabPlayer.h"
#include "shell/EditCommands.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;

LastImportReport LastImport;

namespace {

/// A look beforehand must not make one wait.
constexpr std::chrono::milliseconds LongestTrial{1500};

}  // namespace

Core::TabFile ImportModel::Start() const { return Open.TabFile; }

const ImportModel::Trial* ImportModel::Tried(int reader) {
    if (!HasSource() || reader < 0 || reader >= Readers) return nullptr;
    auto& trial = trials[static_cast<std::size_t>(reader)];
    if (trial) return &*trial;
    trial.emplace();
    trial->File = Start();
    const auto begin = std::chrono::steady_clock::now();
    const auto goOn = [&](int) { return std::chrono::steady_clock::now() - begin < LongestTrial; };
    try {
        if (!Read(reader, trial->File, trial->Report, goOn)) trial->Failure = LanguageText("str_PreviewTooLong");
    } catch (const RunTimeError& error) {
        trial->Failure = FailureText(error.Description());
    }
    return &*trial;
}

Drawing::Excerpt ImportModel::Sheet(int reader) {
    const Trial* const trial = Tried(reader);
    if (!trial || !trial->Failure.empty()) return {};
    // Of the bars that may be seen alone: a song of thousands is not laid out for a glance.
    return {trial->File, {.Track = ShownTrack(), .Bar = 0, .TabAlone = true}};
}

bool ImportModel::Import(const std::string& source, const Exchange::ImportProgress& progress) {
    Core::TabFile file = Start();
    Exchange::ImportReport report;
    try {
        if (!Read(Reader, file, report, progress)) {
            Program.View->ShowStatus(LanguageText("str_ImportCancelled"));
            return false;
        }
    } catch (const RunTimeError& error) {
        if (KeepsHalf(Reader)) Take(std::move(file));
        Services.Messages->Show(FailureText(error.Description()), LanguageText("str_Error"), Buttons::Ok,
                                BoxIcon::Critical);
        return false;
    }
    LastImport = {source, report};
    Take(std::move(file));
    Program.View->ShowStatus(
        LanguageText("str_ImportDone", {std::to_string(report.NotesKept), std::to_string(report.NotesLost)}));
    return true;
}

void ImportModel::Take(Core::TabFile file) {
    if (Playback::IsPlaying()) Playback::StopTab();
    const int track = std::clamp(ShownTrack(), 0, file.Tracks.UpperBound());
    Open.TabFile = std::move(file);
    Editing::ResetCursor(Open, track);
    Editing::ClearSelection();
    MarkEdited();
    ShowEdited();
}

std::string LastReportText() {
    if (!LastImport.Report) return "";
    const std::string source = LastImport.Source.empty() ? LanguageText("str_Clipboard") : LastImport.Source;
    return source + "\n\n" + Exchange::ReportText(*LastImport.Report);
}

void ImportReportModel::Save() const {
    const auto path =
        Program.View->AskFileToWrite(LanguageText("str_ImportReportName") + ".txt", {{"str_FilterText", {"txt"}}});
    if (!path) return;
    Guarded([&] {
        Services.Files->Replace(*path, Text);
        Program.View->ShowStatus(LanguageText("str_ReportWritten", {path->filename().string()}));
    });
}

bool HasImportReport() { return LastImport.Report.has_value(); }

void mnuViewImportReport_Click() {
    ImportReportModel model;
    model.Load();
    Program.Dialogs->Edit(model);
}

}  // namespace Quillon::Shell
