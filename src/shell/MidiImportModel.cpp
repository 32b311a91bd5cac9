#include "shell/MidiImportModel.h"

#include <algorithm>
#include <utility>

#include "core/mod_TabFileManipulation.h"
#include "exchange/AlignedImport.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"

namespace Quillon::Shell {

using Core::Open;

void MidiImportModel::OpenMIDIFile(const std::filesystem::path& path) {
    SmfFile read = ReadSmf(Services.Files->Read(path));
    midi = std::move(read);
    File = path;
    TrackList = Exchange::MidiTrackEntries(midi);
    Chosen.assign(TrackList.size(), true);
    ChosenTrack = 0;
    previews = {};
}

Exchange::MidiImportOptions MidiImportModel::Options() const {
    Exchange::MidiImportOptions options{{}, Ties, Reverb, Quantize};
    for (std::size_t track = 0; track < Chosen.size(); ++track) {
        const bool wanted = SingleTrack ? std::cmp_equal(track, ChosenTrack) : Chosen[track];
        if (wanted) options.Tracks.push_back(static_cast<int>(track) + 1);
    }
    return options;
}

std::string_view MidiImportModel::Validate() const {
    if (File.empty()) return "str_MidiNoFile";
    return Options().Tracks.empty() ? "str_MidiNoTrack" : "";
}

bool MidiImportModel::Run(Reader reader, Core::TabFile& into, Exchange::ImportReport& report,
                          const Exchange::ImportProgress& goOn) const {
    report = {};
    const Exchange::MidiImportOptions options = Options();
    if (SingleTrack) {
        return reader == Aligned ? Exchange::AddAlignedTrack(into, midi, options, report, goOn)
                                 : Exchange::AddMidiTrack(into, midi, options, goOn, &report);
    }
    const std::string name = File.filename().string();
    // Without the ending's four characters, whatever they are.
    const std::string title = name.substr(0, name.size() - std::min<std::size_t>(name.size(), 4));
    return reader == Aligned ? Exchange::ImportAligned(into, midi, title, options, report, goOn)
                             : Exchange::ImportMidi(into, midi, title, options, goOn, &report);
}

const MidiImportModel::Outcome& MidiImportModel::Preview(Reader reader) {
    std::string key;
    for (const int track : Options().Tracks) key += std::to_string(track) + " ";
    if (reader == Classic) key += std::string(Ties ? "t" : "") + (Quantize ? "q" : "");
    auto& kept = previews.at(static_cast<std::size_t>(reader));
    if (kept && kept->Options == key) return kept->Made;
    Outcome made;
    made.File = SingleTrack ? Open.TabFile : Core::MakeNewTabFile(*Services.Settings);
    made.FirstTrack = SingleTrack ? made.File.Tracks.Count() : 0;
    if (Validate().empty()) {
        try {
            Run(reader, made.File, made.Report, {});
        } catch (const RunTimeError& error) {
            made.Failure = error.Description();
        }
    }
    kept = Kept{std::move(key), std::move(made)};
    return kept->Made;
}

bool MidiImportModel::Import(const Exchange::ImportProgress& goOn, Exchange::ImportReport& report) {
    Core::TabFile made = SingleTrack ? Open.TabFile : Core::MakeNewTabFile(*Services.Settings);
    const int first = SingleTrack ? made.Tracks.Count() : 0;
    if (!Run(static_cast<Reader>(ChosenReader), made, report, goOn)) return false;
    Open.TabFile = std::move(made);
    Open.FileChanged = true;
    if (SingleTrack) Open.CurTrack = static_cast<std::int16_t>(first);
    return true;
}

}  // namespace Quillon::Shell
