#include "shell/MidiImportModel.h"

#include <algorithm>
#include <utility>

#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/AlignedImport.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;

void MidiImportModel::OpenMIDIFile(const std::filesystem::path& path) {
    SmfFile read = ReadSmf(Services.Files->Read(path));
    midi = std::move(read);
    File = path;
    TrackList = Exchange::MidiTrackEntries(midi);
    Chosen.assign(TrackList.size(), true);
    ChosenTrack = 0;
    Changed();
}

Exchange::MidiImportOptions MidiImportModel::Options() const {
    Exchange::MidiImportOptions options{{}, Ties, Reverb, Quantize};
    for (std::size_t track = 0; track < Chosen.size(); ++track) {
        const bool wanted = SingleTrack ? std::cmp_equal(track, ChosenTrack) : Chosen[track];
        if (wanted) options.Tracks.push_back(static_cast<int>(track) + 1);
    }
    return options;
}

std::string_view MidiImportModel::About(int reader) const {
    return reader == Classic ? "str_MidiClassicAbout" : "str_MidiAlignedAbout";
}

std::string_view MidiImportModel::Missing() const {
    if (File.empty()) return "str_MidiNoFile";
    return Options().Tracks.empty() ? "str_MidiNoTrack" : "";
}

int MidiImportModel::ShownTrack() const { return SingleTrack ? Open.TabFile.Tracks.Count() : 0; }

std::string MidiImportModel::FailureText(const RunTimeError& error) const { return Exchange::MidiFailureText(error); }

bool MidiImportModel::Read(int reader, Core::TabFile& file, Exchange::ImportReport& report,
                           const Exchange::ImportProgress& progress) const {
    const Exchange::MidiImportOptions options = Options();
    if (SingleTrack) {
        return reader == Other ? Exchange::AddAlignedTrack(file, midi, options, report, progress)
                               : Exchange::AddMidiTrack(file, midi, options, progress, &report);
    }
    const std::string name = File.filename().string();
    // Without the ending's four characters, whatever they are.
    const std::string title = name.substr(0, name.size() - std::min<std::size_t>(name.size(), 4));
    return reader == Other ? Exchange::ImportAligned(file, midi, title, options, report, progress)
                           : Exchange::ImportMidi(file, midi, title, options, progress, &report);
}

bool MidiImportModel::Command2_Click(const Exchange::ImportProgress& progress) {
    if (const std::string_view missing = Missing(); !missing.empty()) {
        Services.Messages->Show(LanguageText(missing), LanguageText("str_Error"), Buttons::Ok, BoxIcon::Exclamation);
        return false;
    }
    return Import(File.string(), progress);
}

}  // namespace Quillon::Shell
