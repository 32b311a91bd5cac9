// The scale library: a folder of scale files, the default scales, what is looked up in it, and the notes of a scale.
//
// A scale is a pattern of positions on the strings that slides along the neck. Pattern string 0 is the lowest string,
// and its position 0 is the tonic: E on a guitar in standard tuning with the pattern at the nut.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "library/FolderLibrary.h"

namespace Quillon::Library {

using Core::Row;
using Core::StringCount;

constexpr int PatternFrets = 7;

/// A scale file's content.
struct ScaleRec {
    std::int16_t NumStrings = 6;                                           ///< 1 to 7
    std::array<std::bitset<PatternFrets>, StringCount> Pattern{};          ///< by string from the lowest, then position
    Row<std::int16_t, StringCount> Tuning = {64, 59, 55, 50, 45, 40, 35};  ///< MIDI pitches, the highest string first
    std::string Keywords;                                                  ///< parted by commas and blanks
    bool operator==(const ScaleRec&) const = default;
};

/// A scale from digit texts, a string each from the lowest: "024" marks positions 0, 2 and 4. A digit past 6 marks
/// none.
ScaleRec MakeScale(std::string_view keywords, const std::vector<std::string_view>& digits);

/// The 58 lines of a scale file.
std::string WriteScale(const ScaleRec& scale);
/// Nothing for bytes that are no scale. Missing last lines are taken for standard tuning and no keywords.
std::optional<ScaleRec> ReadScale(std::string_view bytes);

using ScaleLibrary = FolderLibrary<ScaleRec>;
extern ScaleLibrary Scales;

/// The 38 default scales in the order that they are made.
std::vector<NamedBytes> DefaultScales();
/// Makes the folder of the default scales, or writes them anew into the one that is there: a person's own stay.
void CreateAllScales();
/// Makes it where it is missing.
void EnsureScales();
/// Writes a scale under its name, in the place of one that has it.
void SaveScale(const std::string& name, const ScaleRec& scale);

struct ScaleFilter {
    enum class Kind : std::uint8_t { All, Name, Keywords, Strings };
    Kind By = Kind::All;
    std::string Text{};  ///< in any case of letters
    int Strings = 6;
};
/// Names of the scales that pass, in the library's order, as of its last Refresh.
std::vector<std::string> FilteredScales(ScaleLibrary& library, const ScaleFilter& filter);

/// Bit n is pitch class n, C being 0.
using PitchClasses = std::bitset<12>;

/// The fret that the pattern's position 0 comes to in a key, 0 to 11. `key` is a pitch class.
int PatternFret(const ScaleRec& scale, int key);
/// Pitches of the pattern in a key, upwards, each once.
std::vector<int> PatternPitches(const ScaleRec& scale, int key);
PitchClasses ScaleClasses(const ScaleRec& scale, int key);

enum class ScaleOctave : std::uint8_t { Low, High, Both };
/// What is played: from tonic to tonic in the low or the high octave of the pattern, or all of both. A pattern that
/// does not reach the upper tonic ends where it ends.
std::vector<int> ScaleRun(const ScaleRec& scale, int key, ScaleOctave octave, bool descending);

struct FoundScale {
    std::string Name;
    int Key = 0;      ///< pitch class of the tonic
    int Missing = 0;  ///< of the notes, how many the scale lacks
    int Extra = 0;    ///< how many notes the scale has beside them
};
/// The scales of the library that hold the notes, the best first: those that lack the fewest, then those with the
/// fewest other notes, then those whose tonic is `tonic`, then by name. At most half the notes may be missing.
std::vector<FoundScale> FindScales(ScaleLibrary& library, const PitchClasses& notes, std::optional<int> tonic = {});

}  // namespace Quillon::Library
