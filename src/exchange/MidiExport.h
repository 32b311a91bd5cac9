// The song as a standard MIDI file: what the player plays, its repeats written out, with a delta where it would wait.
//
// Format 1: a track with the tempo, then one for each track of the song. Bars come in the order in which they are
// played, and last as long as the last track's strums in them: a longer track is cut, a shorter one waits.
#pragma once

#include <filesystem>

#include "core/mod_TabFileStructure.h"
#include "exchange/MidiVoice.h"
#include "platform/SmfCursor.h"

namespace Quillon::Exchange {

constexpr int MostExportedBars = 1 << 16;  ///< as played

/// The whole song, all tracks. One that jumps back for ever is written once round. Raises "Overflow" for a song that
/// is too long for a file.
SmfFile MidiOfDocument(const Core::TabFile& file, const MidiExportOptions& options);

/// Wheel and vibrato as the settings have them.
MidiExportOptions MidiOptionsOfSettings();

/// Writes the open document, all or nothing. Raises what MidiOfDocument and the file system raise.
void ExportMidi(const std::filesystem::path& path);

}  // namespace Quillon::Exchange
