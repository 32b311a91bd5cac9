// The tuning library: a folder of tuning files and the default tunings.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "library/FolderLibrary.h"

namespace Quillon::Library {

/// A tuning file's content.
struct TuningRec {
    std::int16_t NumStrings = 6;                        ///< 1 to 7
    Core::Row<std::int16_t, Core::StringCount> Tuning;  ///< semitones from standard, string 0, the highest, first
    bool operator==(const TuningRec&) const = default;
};

/// The eight lines of a tuning file: the strings, then the value of each from the lowest, 12 being standard.
std::string WriteTuning(const TuningRec& tuning);
/// Nothing for bytes that are no tuning. Missing last lines are taken for standard pitch.
std::optional<TuningRec> ReadTuning(std::string_view bytes);

using TuningLibrary = FolderLibrary<TuningRec>;
extern TuningLibrary Tunings;

/// The 22 default tunings. Of two rows of one name the later counts.
std::vector<NamedBytes> DefaultTunings();
/// Makes the folder of the default tunings, or writes them anew into the one that is there: a person's own stay.
void CreateAllTunings();
/// Makes it where it is missing.
void EnsureTunings();
/// Writes a tuning under its name, in the place of one that has it.
void SaveTuning(const std::string& name, const TuningRec& tuning);

}  // namespace Quillon::Library
