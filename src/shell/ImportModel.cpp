#include "shell/ImportModel.h"

#include <algorithm>
#include <chrono>
#include <new>

#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_Selection.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "playback/mod_TabPlayer.h"
#include "shell/EditCommands.h"
#include "shell/Recovery.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;

LastImportReport LastImport;

namespace {

/// A look beforehand must not make one wait.
constexpr std::chrono::milliseconds LongestTrial{1500};

constexpr const char* OutOfMemory = "Out of memory";

/// The first bar of a track that has notes; nothing without any.
std::optional<int> FirstNotes(const Core::Track& track) {
    for (int bar = 0; bar <= track.Bars.UpperBound(); ++bar) {
        const auto& strums = track.Bars[bar].Strums();
        if (std::any_of(strums.begin(), strums.end(), Core::HasNotes)) return bar;
    }
    return {};
}

}  // namespace

Core::TabFile ImportModel::Start() const {
    return ReplacesSong() ? Core::MakeNewTabFile(*Services.Settings) : Open.TabFile;
}

const ImportModel::Trial* ImportModel::Tried(int reader) {
    if (!Missing().empty() || reader < 0 || reader >= Readers) return nullptr;
    auto& trial = trials[static_cast<std::size_t>(reader)];
    if (trial) return &*trial;
    trial.emplace();
    trial->File = Start();
    const auto begin = std::chrono::steady_clock::now();
    const auto goOn = [&](int) { return std::chrono::steady_clock::now() - begin < LongestTrial; };
    try {
        if (!Read(reader, trial->File, trial->Report, goOn)) trial->Failure = LanguageText("str_PreviewTooLong");
    } catch (const RunTimeError& error) {
        trial->Failure = FailureText(error);
    } catch (const std::bad_alloc&) {
        trial->Failure = OutOfMemory;
    }
    return &*trial;
}

Drawing::Excerpt ImportModel::Sheet(int reader) {
    const Trial* const trial = Tried(reader);
    if (!trial || !trial->Failure.empty()) return {};
    // Of the bars that may be seen alone: a song of thousands is not laid out for a glance.
    Drawing::ExcerptOf shown{.Track = ReplacesSong() ? 0 : ShownTrack(), .Bar = 0, .TabAlone = true};
    const int last = ReplacesSong() ? trial->File.Tracks.UpperBound() : shown.Track;
    for (int track = shown.Track; track <= last; ++track) {
        const auto bar = FirstNotes(trial->File.Tracks[track]);
        if (!bar) continue;
        shown.Track = track;
        shown.Bar = *bar;
        break;
    }
    return {trial->File, shown};
}

bool ImportModel::Import(const std::string& source, const Exchange::ImportProgress& progress) {
    Core::TabFile file = Start();
    Exchange::ImportReport report;
    const auto tell = [&](const std::string& why) {
        Services.Messages->Show(source.empty() ? why : source + ": " + why, LanguageText("str_Error"), Buttons::Ok,
                                BoxIcon::Critical);
        return false;
    };
    try {
        if (!Read(Reader, file, report, progress)) {
            Program.View->ShowStatus(LanguageText("str_ImportCancelled"));
            return false;
        }
    } catch (const RunTimeError& error) {
        if (KeepsHalf(Reader)) Take(std::move(file));
        return tell(FailureText(error));
    } catch (const std::bad_alloc&) {
        return tell(OutOfMemory);
    }
    LastImport = {source, report};
    Take(std::move(file));
    Program.View->ShowStatus(
        LanguageText("str_ImportDone", {std::to_string(report.NotesKept), std::to_string(report.NotesLost)}));
    return true;
}

void ImportModel::Take(Core::TabFile file) {
    if (Playback::IsPlaying()) Playback::StopTab();
    const int track = ReplacesSong() ? 0 : std::clamp(ShownTrack(), 0, file.Tracks.UpperBound());
    Open.TabFile = std::move(file);
    Editing::ResetCursor(Open, track);
    Editing::ClearSelection();
    MarkEdited();
    ShowEdited();
}

void BecomeNewSong() {
    Open.FileName.clear();
    RemoveRecovery();
    DocumentReplaced();
    Open.FileChanged = true;
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
