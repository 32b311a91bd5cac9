// The other reader of standard MIDI files, for songs that come from elsewhere: all tracks on one grid, in the bars that
// the file has, on strings that a hand can play.
//
// Its parts, in the order of the work: MidiScore reads the file, MidiGrid finds bars and places, MidiStrums cuts a part
// into strums, FingerPath chooses the strings, and what could not be kept as it was goes into the report.
#pragma once

#include <string>

#include "core/mod_TabFileStructure.h"
#include "exchange/ImportReport.h"
#include "exchange/MidiImport.h"
#include "platform/SmfCursor.h"

namespace Quillon::Exchange {

/// Replaces the document's tracks, bars, title and tempo by those of a MIDI file, and tells in the report what was
/// kept. Of the options, Ties and Quantize have no meaning here. False when `progress` ended it; the document is then
/// half done and to be thrown away, as it is when this raises: "Subscript out of range" for a track that the file
/// lacks, "Overflow" for more bars than there can be.
bool ImportAligned(Core::TabFile& file, const SmfFile& midi, const std::string& title, const MidiImportOptions& options,
                   ImportReport& report, const ImportProgress& progress = {});

/// Adds the one track of the options to a document, behind its others and in its bars, as one track or, where it holds
/// several instruments, as several; the document grows when it is longer. Tempo and keys stay. As ImportAligned in
/// everything else.
bool AddAlignedTrack(Core::TabFile& file, const SmfFile& midi, const MidiImportOptions& options, ImportReport& report,
                     const ImportProgress& progress = {});

}  // namespace Quillon::Exchange
