// Documents by the ending of their files: how each kind is opened and written.
//
// A new kind is a row in the tables of DocumentFiles.cpp; its work stands in a module of exchange/ or drawing/.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

#include "core/mod_MusicFile.h"
#include "exchange/AsciiImport.h"
#include "exchange/MidiImport.h"

namespace Quillon::Cli {

struct ConvertOptions {
    std::optional<int> Track;     ///< from 0: the current track, for outputs that show one
    std::optional<int> Page;      ///< from 1, of a picture or a drawn PDF; every page without it
    bool Engraved = false;        ///< a PDF of the drawn pages in place of one of text
    bool AllTracks = false;       ///< of a drawn PDF: one behind the other
    int Dpi = 96;                 ///< dots to the inch, of a picture of pixels
    std::optional<int> MaxLine;   ///< characters of a text tab's line; without it that of the settings
    std::optional<bool> Warning;  ///< the lines that tell whose work the text is; likewise
};

/// Who reads what is no document of ours. The classic reader takes texts and MIDI files, Lines texts, Aligned MIDI
/// files.
enum class ImportReader : std::uint8_t { Classic, Lines, Aligned };

/// How what is no document of ours becomes one.
struct ImportOptions {
    ImportReader Reader = ImportReader::Classic;
    Exchange::ImportReport* Report = nullptr;  ///< told what was kept and lost
    Exchange::AsciiImportOptions Text;
    Exchange::MidiImportOptions Midi;
    std::filesystem::path Into;  ///< the document that is added to, in place of a new one
    int IntoTrack = 0;           ///< of it, that a text becomes; a MIDI track becomes a new one
};

struct DocumentReader {
    std::string_view Ending;  ///< ".qlm", in small letters
    ImportReader Other;       ///< that may be chosen; Classic where there is none beside it
    /// Makes the file the open document. Raises what the file system raises, and RunTimeError for what can't be read.
    Core::OpenOutcome (*Open)(const std::filesystem::path& path, const ImportOptions& options);
};
struct DocumentWriter {
    std::string_view Ending;
    /// Writes the open document, all or nothing; false when a question was answered against it.
    bool (*Write)(const std::filesystem::path& path, const ConvertOptions& options);
};

std::span<const DocumentReader> DocumentReaders();
std::span<const DocumentWriter> DocumentWriters();

/// Raises UsageError for an ending without a row.
const DocumentReader& ReaderFor(const std::filesystem::path& path);
/// Opens a document by its ending, in capital or small letters. Raises UsageError for an ending without a row or a
/// reader that is not for it, and CommandFailure when nothing was opened. The outcome is Opened or Damaged.
Core::OpenOutcome OpenDocument(const std::filesystem::path& path, const ImportOptions& options = {});
/// As OpenDocument, but a damaged file is a failure too.
void OpenWholeDocument(const std::filesystem::path& path, const ImportOptions& options = {});
/// Raises UsageError for an ending without a row.
const DocumentWriter& WriterFor(const std::filesystem::path& path);
/// Writes the open document by the ending of its path; no path writes nothing. Raises CommandFailure when a question
/// was answered against it.
void SaveDocument(const std::filesystem::path& path, const ConvertOptions& options = {});
/// Makes a track the current one; raises CommandFailure for one that the document lacks.
void ChooseTrack(int track);

}  // namespace Quillon::Cli
