#include "cli/DocumentFiles.h"

#include <algorithm>
#include <new>

#include "cli/Commands.h"
#include "cli/PictureFiles.h"
#include "cli/TextFiles.h"
#include "cli/WaveFiles.h"
#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/AlignedImport.h"
#include "exchange/JsonDocument.h"
#include "exchange/LinesImport.h"
#include "exchange/MidiExport.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"

namespace Quillon::Cli {

namespace fs = std::filesystem;

namespace {

Core::OpenOutcome OpenMusicFile(const fs::path& path, const ImportOptions&) { return Core::ForceOpenFile(path); }

Core::OpenOutcome OpenJson(const fs::path& path, const ImportOptions&) {
    const std::string bytes = Services.Files->Read(path);
    try {
        Core::Open = {};
        Core::Open.TabFile = Exchange::ReadJson(bytes, *Services.Settings);
    } catch (const RunTimeError& error) {
        throw CommandFailure(path.string() + ": " + error.Description());
    }
    return Core::OpenOutcome::Opened;
}

/// The ending alone tells an older file, as in the editor.
Core::OpenOutcome OpenOld(const fs::path& path, const ImportOptions&) {
    Services.Files->Read(path);
    Services.Messages->Show(Core::LanguageText("str_OldFile"), Core::LanguageText("str_TitleError"), Buttons::Ok,
                            BoxIcon::Critical);
    return Core::OpenOutcome::OldKind;
}

/// What an import starts from.
Core::TabFile DocumentFor(const ImportOptions& options) {
    return options.Into.empty() ? Core::MakeNewTabFile(*Services.Settings) : Core::Open.TabFile;
}

/// The text as a track. Pages are read as text; nothing is fetched.
Core::OpenOutcome OpenText(const fs::path& path, const ImportOptions& options) {
    const std::string bytes = Services.Files->Read(path);
    Core::TabFile file = DocumentFor(options);
    const int track = options.IntoTrack;
    const bool details = options.Into.empty() || options.Text.Details;  // a new document has none of its own
    try {
        if (options.Reader == ImportReader::Lines) {
            Exchange::ImportReport report;
            Exchange::ImportTextLines(file, track, bytes, {options.Text.Dash, details, options.Text.Timing},
                                      options.Report ? *options.Report : report);
        } else {
            Exchange::ImportTextTab(file, track, Exchange::TextOfBytes(bytes), options.Text, {}, options.Report);
        }
    } catch (const RunTimeError&) {
        throw CommandFailure(path.string() + ": " + Core::LanguageText("str_ErrorImporting"));
    }
    Core::Open = {};
    Core::Open.TabFile = std::move(file);
    return Core::OpenOutcome::Opened;
}

void ReadMidi(Core::TabFile& file, const SmfFile& midi, const std::string& title, const ImportOptions& options) {
    Exchange::ImportReport report;
    const bool aligned = options.Reader == ImportReader::Aligned;
    if (options.Into.empty()) {
        aligned ? Exchange::ImportAligned(file, midi, title, options.Midi, report)
                : Exchange::ImportMidi(file, midi, title, options.Midi, {}, &report);
    } else {
        aligned ? Exchange::AddAlignedTrack(file, midi, options.Midi, report)
                : Exchange::AddMidiTrack(file, midi, options.Midi, {}, &report);
    }
    if (options.Report) *options.Report = std::move(report);
}

Core::OpenOutcome OpenMidi(const fs::path& path, const ImportOptions& options) {
    const std::string bytes = Services.Files->Read(path);
    Core::TabFile file = DocumentFor(options);
    if (!options.Into.empty() && options.Midi.Tracks.size() != 1) {
        throw UsageError(path.string() + ": one --midi-track goes into a document");
    }
    try {
        const SmfFile midi = ReadSmf(bytes);
        for (const int track : options.Midi.Tracks) {
            if (track < 1 || track > static_cast<int>(midi.Tracks.size())) {
                throw CommandFailure(path.string() + ": MIDI track " + std::to_string(track) + ": the file has " +
                                     std::to_string(midi.Tracks.size()));
            }
        }
        // Without the ending's four characters, whatever they are.
        const std::string name = path.filename().string();
        ReadMidi(file, midi, name.substr(0, name.size() - std::min<std::size_t>(name.size(), 4)), options);
    } catch (const RunTimeError& error) {
        throw CommandFailure(path.string() + ": " + Exchange::MidiFailureText(error));
    }
    Core::Open = {};
    Core::Open.TabFile = std::move(file);
    return Core::OpenOutcome::Opened;
}

bool WriteMusicFile(const fs::path& path, const ConvertOptions&) { return Core::ForceSaveFile(path); }

bool WriteMidi(const fs::path& path, const ConvertOptions&) {
    Core::LoadINISettings();
    Exchange::ExportMidi(path);
    return true;
}

bool WriteJsonFile(const fs::path& path, const ConvertOptions&) {
    Services.Files->Replace(path, Exchange::WriteJson(Core::Open.TabFile));
    return true;
}

constexpr ImportReader NoOther = ImportReader::Classic;

constexpr DocumentReader Readers[] = {
    {".qlm", NoOther, &OpenMusicFile},
    {".ql4", NoOther, &OpenOld},
    {".json", NoOther, &OpenJson},
    {".txt", ImportReader::Lines, &OpenText},
    {".tab", ImportReader::Lines, &OpenText},
    {".html", ImportReader::Lines, &OpenText},
    {".htm", ImportReader::Lines, &OpenText},
    {".mid", ImportReader::Aligned, &OpenMidi},
    {".midi", ImportReader::Aligned, &OpenMidi},
};

constexpr DocumentWriter Writers[] = {
    {".qlm", &WriteMusicFile}, {".json", &WriteJsonFile}, {".svg", &WritePictures}, {".png", &WritePictures},
    {".jpg", &WritePictures},  {".jpeg", &WritePictures}, {".bmp", &WritePictures}, {".wav", &WriteWave},
    {".txt", &WriteText},      {".tab", &WriteText},      {".html", &WritePage},    {".htm", &WritePage},
    {".pdf", &WritePdf},       {".mid", &WriteMidi},      {".midi", &WriteMidi},
};

/// The row of a path's ending.
template <class Row>
const Row& RowFor(std::span<const Row> rows, const fs::path& path, const char* what) {
    const std::string ending = Core::LowerAscii(path.extension().string());
    std::string known;
    for (const Row& row : rows) {
        if (row.Ending == ending) return row;
        known.append(known.empty() ? "" : " ").append(row.Ending);
    }
    throw UsageError(path.string() + ": " + what + " files end in " + known);
}

/// Opens the document that is added to; only what an import reads can be added.
void OpenToAddTo(const fs::path& path, const ImportOptions& options) {
    const auto open = ReaderFor(path).Open;
    if (open != &OpenText && open != &OpenMidi) throw UsageError(path.string() + ": only what is imported goes --into");
    OpenWholeDocument(options.Into);
    ChooseTrack(options.IntoTrack);
    const std::string question = Core::LanguageText("str_IntoQuestion", {path.string(), options.Into.string()});
    if (Services.Messages->Show(question, Core::LanguageText("str_TitleQuestion"), Buttons::YesNo, BoxIcon::Question) !=
        Answer::Yes) {
        throw CommandFailure(options.Into.string() + ": nothing was added; --yes would go on");
    }
}

}  // namespace

std::span<const DocumentReader> DocumentReaders() { return Readers; }
std::span<const DocumentWriter> DocumentWriters() { return Writers; }

const DocumentReader& ReaderFor(const fs::path& path) { return RowFor(DocumentReaders(), path, "input"); }

Core::OpenOutcome OpenDocument(const fs::path& path, const ImportOptions& options) {
    const DocumentReader& row = ReaderFor(path);
    if (options.Reader != ImportReader::Classic && options.Reader != row.Other) {
        throw UsageError(path.string() + ": the reader is not for this kind of file");
    }
    Core::OpenOutcome outcome = Core::OpenOutcome::Opened;
    try {
        outcome = row.Open(path, options);
    } catch (const std::bad_alloc&) {
        throw CommandFailure(path.string() + ": Out of memory");
    }
    if (outcome != Core::OpenOutcome::Opened && outcome != Core::OpenOutcome::Damaged) {
        throw CommandFailure(path.string() + ": not opened");  // a box told why
    }
    return outcome;
}

void OpenWholeDocument(const fs::path& path, const ImportOptions& options) {
    if (!options.Into.empty()) OpenToAddTo(path, options);
    if (OpenDocument(path, options) != Core::OpenOutcome::Opened) {
        throw CommandFailure(path.string() + ": the file is damaged; nothing was made of it");
    }
}

const DocumentWriter& WriterFor(const fs::path& path) { return RowFor(DocumentWriters(), path, "output"); }

void SaveDocument(const fs::path& path, const ConvertOptions& options) {
    try {
        if (path.empty() || WriterFor(path).Write(path, options)) return;
    } catch (const std::bad_alloc&) {
        throw CommandFailure(path.string() + ": Out of memory");
    }
    throw CommandFailure(path.string() + ": not written; --yes would go on");
}

void ChooseTrack(int track) {
    const int tracks = Core::Open.TabFile.Tracks.Count();
    if (track < 0 || track >= tracks) {
        throw CommandFailure("track " + std::to_string(track) + ": the document has the tracks 0 to " +
                             std::to_string(tracks - 1));
    }
    Core::Open.CurTrack = Core::ToInt16(track);
}

}  // namespace Quillon::Cli
