// Text tablature becomes strums of a track, read as a person reads it.
//
// Systems are found by their string lines, bars by their bar lines. A note's time is its column within the bar,
// measured against the time signature, unless note lengths stand above. Technique signs, repeats, chords, words and
// the lines of the header are kept; what is not is told in the report.
#pragma once

#include <optional>
#include <string_view>

#include "core/mod_TabFileStructure.h"
#include "exchange/AsciiImport.h"
#include "exchange/ImportReport.h"

namespace Quillon::Exchange {

struct LinesImportOptions {
    int Dash = 4;                         ///< what a column is worth where there are no bar lines, as Strum::Length
    bool Details = true;                  ///< title, names and tempo are taken from the text
    std::optional<TimeSignature> Timing;  ///< of every bar; else the text's, else as they are
};

/// Makes `bytes`, a text or a page as it lies in its file, the track, which loses its bars. All tracks have the same
/// number of bars at the end. False when `progress` ended it; the document is then half done and to be thrown away, as
/// it is when this raises "Overflow" for more bars or strums than there can be. A text without any system leaves an
/// empty bar.
bool ImportTextLines(Core::TabFile& file, int track, std::string_view bytes, const LinesImportOptions& options,
                     ImportReport& report, const ImportProgress& progress = {});

}  // namespace Quillon::Exchange
