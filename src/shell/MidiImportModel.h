// The dialog that imports a standard MIDI file: which tracks, by which reader, and what would come of it.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/ImportReport.h"
#include "exchange/MidiImport.h"
#include "platform/SmfCursor.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct MidiImportModel : DialogModel {
    enum Reader : std::int16_t { Classic, Aligned };

    /// What a reader makes of the file with the options as they are.
    struct Outcome {
        Core::TabFile File;
        Exchange::ImportReport Report;
        int FirstTrack = 0;   ///< of those that were made
        std::string Failure;  ///< why there is nothing; "" when all is well
    };

    bool SingleTrack = false;  ///< one track joins the song; else the song is replaced
    std::filesystem::path File;
    std::vector<std::string> TrackList;  ///< the file's tracks, as the list names them
    std::vector<bool> Chosen;            ///< of them; all at first
    std::int16_t ChosenTrack = 0;        ///< of them, where only one is wanted
    bool Ties = false;
    bool Reverb = false;
    bool Quantize = false;
    std::int16_t ChosenReader = Classic;

    /// Reads a file and fills the list. Raises what the file system raises, and "Bad file format" for what is no MIDI
    /// file; then the model is as it was.
    void OpenMIDIFile(const std::filesystem::path& path);
    /// Worked out anew when an option that matters to the reader has changed.
    const Outcome& Preview(Reader reader);
    std::string_view Validate() const;
    /// Makes the file the song, or adds its track, on a copy that takes the song's place at the end. False when `goOn`,
    /// asked with percent, ended it; the song is then as it was. Raises "Overflow" for more bars than there can be.
    bool Import(const Exchange::ImportProgress& goOn, Exchange::ImportReport& report);

private:
    Exchange::MidiImportOptions Options() const;
    bool Run(Reader reader, Core::TabFile& into, Exchange::ImportReport& report,
             const Exchange::ImportProgress& goOn) const;

    SmfFile midi;
    struct Kept {
        std::string Options;
        Outcome Made;
    };
    std::array<std::optional<Kept>, 2> previews;
};

/// Opens a file in the model. A file that can't be read is told in a box, and false.
bool OpenMIDIFile(MidiImportModel& model, const std::filesystem::path& path);

/// Replaces the song by a MIDI file, by the dialog; what would be lost was asked about before. False when that was
/// cancelled or failed; the song is as it was.
bool OpenMidiAsSong(const std::filesystem::path& path);

}  // namespace Quillon::Shell
