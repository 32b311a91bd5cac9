// Text tablature becomes strums of a track.
//
// The reader knows no string names and no bar lines. It takes everything but digits, dashes and line ends out of the
// text, holds runs of lines for systems, and reads each system column by column: digits are frets, and a strum lasts
// what the gap before it is worth. Technique marks are lost.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/mod_TabFileStructure.h"
#include "exchange/ImportReport.h"

namespace Quillon::Exchange {

struct TimeSignature {
    int Top = 4;
    int Bottom = 4;
};

/// "4:4" as a time signature: 1 to 32, and 1, 2, 4, 8, 16 or 32; nothing for any other text.
std::optional<TimeSignature> ParseTiming(std::string_view text);

struct AsciiImportOptions {
    int Dash = 4;                               ///< what a column is worth, as Strum::Length, 0 to 6
    bool SameLength = false;                    ///< every strum has that length
    bool Details = false;                       ///< title, artist and so on are looked for in the text
    std::optional<TimeSignature> Timing;        ///< of every bar; as they are without it
    std::string AcceptedChars = "1234567890-";  ///< what of the text is read
};

constexpr int MostImportedStrums = 3 << 18;  ///< of one import, those of silent bars apart, which share theirs
constexpr int MostStrumsInAll = 1 << 22;     ///< with those: what a document still can be written with

/// Percent done, 33 to 99; false ends the import.
using ImportProgress = std::function<bool(int percent)>;

/// Bytes of a text as the importer reads them: Windows-1252, of UTF-8 too, with every line end as CR LF. A lone CR is
/// no line end.
std::string TextOfBytes(std::string_view bytes);

/// The text between a marker such as "<ql_res_text='", in any case of letters, and the next "'"; "" without either.
std::string MarkedText(std::string_view text, std::string_view marker);

/// Makes `text` the track, which loses its bars. All tracks have the same number of bars at the end. False when
/// `progress` ended it; the document is then half done and to be thrown away. Raises "Type mismatch" for a "<" that no
/// ">" follows, "Overflow" for more bars or strums than there can be; then the document is as far as it had come.
/// `report`, when given, is told by systems what the rules of the columns leave out.
bool ImportTextTab(Core::TabFile& file, int track, std::string text, const AsciiImportOptions& options,
                   const ImportProgress& progress = {}, ImportReport* report = nullptr);

}  // namespace Quillon::Exchange
