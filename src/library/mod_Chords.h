// The chord library: a folder of chord files, the default chords it is made of, and what is looked up in it.
//
// String 0 is the highest.
#pragma once

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

/// A chord file's content.
struct ChordRec {
    bool ChordFlag = false;
    std::int16_t BaseFret = 0;    ///< of the box's top line; 20 when no string is fretted
    std::int16_t NumStrings = 6;  ///< 4 to 7
    Row<std::int16_t, StringCount> Tuning = {64, 59, 55, 50, 45, 40, 35};  ///< MIDI pitches
    Row<std::int16_t, StringCount> Fingers;                                ///< 0 none, 1 to 4, 5 the thumb
    Row<std::string, StringCount> Frets;  ///< relative to BaseFret, "x" for a muted string, "" or " " for none
    bool operator==(const ChordRec&) const = default;
};

/// Fret from the nut; nothing for a string that is muted, unused, or not there.
std::optional<int> AbsoluteFret(const ChordRec& chord, int string);
/// True for a string that the chord mutes.
bool IsMuted(const ChordRec& chord, int string);
/// Its pitch; nothing as for AbsoluteFret.
std::optional<int> PitchOn(const ChordRec& chord, int string);
/// MIDI pitches from the lowest string to the highest.
std::vector<int> PitchesOf(const ChordRec& chord);
/// "T" for the thumb, "" for none.
std::string FingerText(const ChordRec& chord, int string);

/// Makes a chord of frets from the nut, highest string first: "x" is muted, "" unused, and any other text a number.
/// Raises "Type mismatch" for what is none.
ChordRec MakeChord(int strings, bool flag, const Row<std::string, StringCount>& frets);

/// The shape so many frets further up the neck, or down; by octaves more or less where it would leave the frets 0 to
/// MostNeckFret. Nothing where no octave helps, or for one without frets. What was open is held then, by other fingers.
std::optional<ChordRec> TransposedChord(const ChordRec& chord, int semitones);
constexpr int MostNeckFret = 24;

/// The 24 lines of a chord file.
std::string WriteChord(const ChordRec& chord);
/// Nothing for bytes that are no chord. Missing last lines are taken for unused strings in standard tuning.
std::optional<ChordRec> ReadChord(std::string_view bytes);

using ChordLibrary = FolderLibrary<ChordRec>;
extern ChordLibrary Chords;

/// A chord's name as a file may be called: without the characters that no file name can hold, and cut where it is too
/// long; "" when nothing is left.
std::string FileNameOf(std::string_view name);

/// Writes a chord under its name, in the place of one that has it.
void SaveChord(const std::string& name, const ChordRec& chord);

/// Chords as a text for people, a line each: name, frets and notes from the lowest string on. Those that can't be read
/// are left out.
std::string ChordsAsText(ChordLibrary& library, const std::vector<std::string>& names);

/// The default library, 1,555 chords in the order that they are made.
std::vector<NamedBytes> DefaultChords();
/// Makes the folder of the default library anew: whatever else was in it goes.
void CreateAllChords();
/// Makes it where it is missing.
void EnsureChords();

/// What of the library is shown.
struct ChordFilter {
    enum class Kind : std::uint8_t { All, Name, Tab, Strings, InTrack };
    Kind By = Kind::All;
    std::string Text{};                   ///< of a name, in any case of letters, blanks in names optional
    Row<std::string, StringCount> Tab{};  ///< relative frets, lowest string first; "" passes any
    int Strings = 6;
};
/// Names of the chords that pass, in the library's order, as of its last Refresh. The current track of `open` is the
/// one whose diagrams count. Chords that can't be read pass by name alone.
std::vector<std::string> FilteredChords(ChordLibrary& library, const ChordFilter& filter,
                                        const Core::OpenDocument& open);

}  // namespace Quillon::Library
