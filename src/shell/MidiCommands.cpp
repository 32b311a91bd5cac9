// Standard MIDI files, out and in.
#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/MidiExport.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "shell/MidiImportModel.h"
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

/// Has a file imported by the dialog. False when that was cancelled or failed; the song is as it was.
bool ImportByDialog(MidiImportModel& model, const std::optional<fs::path>& path) {
    return path && OpenMIDIFile(model, *path) && Program.Dialogs->Edit(model);
}

}  // namespace

bool OpenMIDIFile(MidiImportModel& model, const fs::path& path) {
    try {
        model.OpenMIDIFile(path);
        return true;
    } catch (const RunTimeError& error) {
        Tell(path.string() + ": " + Exchange::MidiFailureText(error));
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
    BecomeNewSong();
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
    ImportByDialog(model, AskMidiFile());
}

}  // namespace Quillon::Shell
