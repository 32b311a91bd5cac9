// The import of a standard MIDI file, as its dialog shows it: which tracks, by which reader.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/MidiImport.h"
#include "platform/SmfCursor.h"
#include "shell/ImportModel.h"

namespace Quillon::Shell {

struct MidiImportModel : ImportModel {
    bool SingleTrack = false;  ///< one track joins the song; else the song is replaced
    std::filesystem::path File;
    std::vector<std::string> TrackList;  ///< the file's tracks, as the list names them
    std::vector<bool> Chosen;            ///< of them; all at first
    std::int16_t ChosenTrack = 0;        ///< of them, where only one is wanted
    bool Ties = false;
    bool Reverb = false;
    bool Quantize = false;

    /// Reads a file and fills the list. Raises what the file system raises, and "Bad file format" for what is no MIDI
    /// file; then the model is as it was.
    void OpenMIDIFile(const std::filesystem::path& path);
    bool Command2_Click(const Exchange::ImportProgress& progress) override;

    std::string_view OtherName() const override { return "str_ReaderAligned"; }
    std::string_view About(int reader) const override;
    std::string_view Missing() const override;

protected:
    bool Read(int reader, Core::TabFile& file, Exchange::ImportReport& report,
              const Exchange::ImportProgress& progress) const override;
    bool ReplacesSong() const override { return !SingleTrack; }
    int ShownTrack() const override;
    std::string FailureText(const RunTimeError& error) const override;

private:
    Exchange::MidiImportOptions Options() const;

    SmfFile midi;
};

/// Opens a file in the model. A file that can't be read is told in a box, and false.
bool OpenMIDIFile(MidiImportModel& model, const std::filesystem::path& path);

/// Replaces the song by a MIDI file, by the dialog; what would be lost was asked about before. False when that was
/// cancelled or failed; the song is as it was.
bool OpenMidiAsSong(const std::filesystem::path& path);

}  // namespace Quillon::Shell
