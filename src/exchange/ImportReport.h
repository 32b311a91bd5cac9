// What an import found in a foreign file, and what became of it: shown before, and kept to be read afterwards.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Quillon::Exchange {

enum class ImportFate : std::uint8_t {
    Moved,  ///< kept, but on another string, pitch or time than the file has it
    Lost,
};

/// One thing that did not arrive as it was.
struct ImportRemark {
    ImportFate Fate = ImportFate::Lost;
    int Notes = 1;      ///< how many notes it befell, 0 for what is no note: a mark, a header, a controller
    int Track = -1;     ///< of the document, from 0; -1 for none
    int Bar = -1;       ///< of the document, from 0; -1 for none
    int Line = 0;       ///< of the text, from 1; 0 for none
    std::string Key{};  ///< of the sentence in the language table
    std::vector<std::string> Fields{};  ///< for the sentence's "%1", "%2"
};

struct ImportReport {
    int Systems = 0;  ///< of a text; 0 for a MIDI file
    int Tracks = 0;
    int Bars = 0;
    int NotesFound = 0;  ///< in the file: kept and lost together
    int NotesKept = 0;   ///< the moved ones among them
    int NotesMoved = 0;
    int NotesLost = 0;
    std::vector<ImportRemark> Remarks{};  ///< in the order of the file

    /// Notes it down, and counts its notes as moved or lost.
    void Add(ImportRemark remark);
};

/// The counts on a line each, an empty line, then a line for each remark: "Bar 3, line 14: ...". UTF-8, lines end with
/// LF, in the language chosen.
std::string ReportText(const ImportReport& report);
/// The remarks alone.
std::string RemarksText(const ImportReport& report);

}  // namespace Quillon::Exchange
