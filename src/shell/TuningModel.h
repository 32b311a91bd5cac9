// The strings of the current track and their tuning, and what becomes of its notes.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Retune.h"
#include "library/mod_Tunings.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

/// A tuning that many use.
struct CommonTuning {
    std::string_view Text;  ///< text key of its name
    std::int16_t Strings = 6;
    std::int16_t Pitches[Core::StringCount] = {};  ///< open MIDI pitches, string 0 first
};
std::span<const CommonTuning> CommonTunings();

struct TuningModel : DialogModel {
    int Track = 0;
    std::int16_t Strings = 6;
    Core::Row<std::string, Core::StringCount> OpenNotes;  ///< as typed: "E4", or semitones from the standard: "-2"
    std::int16_t Capo = 0;
    std::int16_t Keep = 0;  ///< 0 the frets, 1 the pitches
    std::int16_t Lost = 0;  ///< an Editing::LostNotes

    static constexpr int MostCapo = 24;
    void Load();
    void Choose(const CommonTuning& tuning);
    /// The same with one of the library.
    void Take(const Library::TuningRec& tuning);
    /// Semitones from the string's standard pitch, "+2"; "" for none, or for what is no pitch.
    std::string OffsetText(int string) const;
    /// Index of the common tuning that stands here, -1 for none.
    int Chosen() const;
    /// Notes on strings that go.
    int LostNotes() const;
    std::string_view Validate() const;
    /// The sentence of a complaint of Validate.
    std::string ComplaintText(std::string_view key) const;
    bool Apply() const;

private:
    Editing::Retuning Wanted() const;
};

}  // namespace Quillon::Shell
