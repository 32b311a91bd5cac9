// Standard MIDI files become tracks.
//
// Each chosen MIDI track becomes one. The time from one note start to the next is cut into note values from the largest
// down, within the bars of one time signature; a note goes to the highest free string that reaches it.
#pragma once

#include <string>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/AsciiImport.h"
#include "exchange/ImportReport.h"
#include "platform/RunTimeError.h"
#include "platform/SmfCursor.h"

namespace Quillon::Exchange {

struct MidiImportOptions {
    std::vector<int> Tracks;  ///< of the file, from 1; they come in the file's order, each once. All when empty
    bool Ties = false;        ///< string 5 of every strum that ended is tied
    bool Reverb = false;
    bool Quantize = false;  ///< the time between two starts is cut to whole 64ths, and what is cut off is lost
};

constexpr int MostImportedBars = 1 << 20;  ///< of all tracks together

/// What a person is told of a file that was refused, without its name.
std::string MidiFailureText(const RunTimeError& error);

/// What the list of tracks shows for each track of a file: its name, or "Track 2", with " (null)" behind it when the
/// file gives it an empty one.
std::vector<std::string> MidiTrackEntries(const SmfFile& midi);

/// Replaces the document's tracks, bars, title and tempo by those of a MIDI file. False when `progress`, in percent of
/// the events, ended it; the document is then half done and to be thrown away, as it is when this raises: "Subscript
/// out of range" for a track that the file lacks, "Overflow" for more tracks, bars or strums than there can be.
/// `report` is told what became of the notes; moved are those that what was dropped before them brought off their time
/// by a 64th and more.
bool ImportMidi(Core::TabFile& file, const SmfFile& midi, const std::string& title, const MidiImportOptions& options,
                const ImportProgress& progress = {}, ImportReport* report = nullptr);

/// Adds the one track of the options to a document, behind its others and in its bars; the document grows when it is
/// longer. As ImportMidi in everything else.
bool AddMidiTrack(Core::TabFile& file, const SmfFile& midi, const MidiImportOptions& options,
                  const ImportProgress& progress = {}, ImportReport* report = nullptr);

}  // namespace Quillon::Exchange
