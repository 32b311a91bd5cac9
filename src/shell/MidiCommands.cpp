// Standard MIDI files, out and in.
#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "editing/mod_Cursor.h"
#include "exchange/MidiExport.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "playback/mod_TabPlayer.h"
#include "shell/EditCommands.h"
#include "shell/ImportModel.h"
#include "shell/LongWork.h"
#include "shell/MidiImportModel.h"
#include "shell/Recovery.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::LanguageText;
using Core::Open;

namespace {

void Tell(const std::string& text) {
    Services.Messages->Show(text, LanguageText("str_TitleNote"), Buttons::Ok, BoxIcon::Exclamation);
}

std::optional<fs::path> AskMidiFile() {
    return Program.View->AskImportFile("str_MidiImportTitle", "str_FilterMidi", {".mid", ".midi"});
}

/// Asks how to read a file, and reads it. False when that was cancelled or failed; the song is as it was.
bool ImportByDialog(MidiImportModel& model, const std::optional<fs::path>& path) {
    if (!path || !OpenMIDIFile(model, *path) || !Program.Dialogs->Edit(model)) return false;
    if (Playback::IsPlaying()) Playback::StopTab();
    const std::string name = model.File.filename().string();
    Exchange::ImportReport report;
    bool done = false;
    const bool told = !Guarded([&] {
        const LongWork work(LanguageText("str_MidiReading", {name}));
        done = model.Import([&work](int percent) { return work.GoOn(percent); }, report);
    });
    if (!done) {
        if (!told) Program.View->ShowStatus(LanguageText("str_MidiStopped", {name}));
        return false;
    }
    LastImport = {path->string(), report};
    Program.View->ShowStatus(
        LanguageText("str_MidiRead", {name, std::to_string(report.NotesKept), std::to_string(report.NotesFound)}));
    return true;
}

}  // namespace

bool OpenMIDIFile(MidiImportModel& model, const fs::path& path) {
    try {
        model.OpenMIDIFile(path);
        return true;
    } catch (const RunTimeError& error) {
        Tell(path.string() + ": " + LanguageText("str_BadMidiFile", {error.Description()}));
        return false;
    }
}

void mnuFileExportMIDI_Click() {
    const std::string& name = Open.FileName;
    fs::path suggested = name.empty() ? fs::path(LanguageText("str_Untitled")) : fs::path(name);
    suggested.replace_extension(".mid");
    const auto target = Program.View->AskExportFile("str_MIDExport", "str_FilterMidi", suggested);
    if (!target) return;
    Exchange::ExportMidi(*target);
    Program.View->ShowStatus(LanguageText("str_MidiWritten", {target->filename().string()}));
}

bool OpenMidiAsSong(const fs::path& path) {
    MidiImportModel model;
    if (!ImportByDialog(model, path)) return false;
    Open.FileName.clear();
    RemoveRecovery();
    DocumentReplaced();
    return true;
}

void mnuFileImportMIDI_Click() {
    if (!ContinueWithOp()) return;
    if (const auto path = AskMidiFile()) OpenMidiAsSong(*path);
}

void mnuImportMIDITrack_Click() {
    if (!PasswordCorrect()) return;
    MidiImportModel model;
    model.SingleTrack = true;
    if (!ImportByDialog(model, AskMidiFile())) return;
    Open.CurBar = Open.CurStrum = Open.CurString = 0;
    MarkEdited();
    ShowEdited();
}

}  // namespace Quillon::Shell
