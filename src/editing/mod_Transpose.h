// Music moved up or down by semitones, on strings that can play it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Selection.h"

namespace Quillon::Editing {

/// For the note on each string the string that it should go to, or has gone to; NoString for any.
using StringsTo = std::array<int, Core::StringCount>;
constexpr int NoString = -1;

/// Moves the notes of a strum, grace notes and trills with them, and its chord symbol. A note keeps its string where
/// its new fret is from 0 to HighestFret; else the notes are put on other strings in use, as few and as near as can be.
/// Dead notes stay. A chord's frets move along the neck, by octaves more where it would end.
/// `links` holds where the notes should go for the sake of those before that they are tied or slurred to, and comes
/// back with the same for the strum behind. False when there is no such place; then nothing has changed.
bool TransposeStrum(const Core::Track& track, Core::Strum& strum, int semitones, bool flats, StringsTo& links);

/// The key of the list that many semitones on; 0, for none, and numbers outside the list stay.
std::int32_t TransposeKey(std::int32_t key, int semitones);

/// A chord's name with its root, and the bass behind a "/", moved: "Am7/G" two up is "Bm7/A". What does not begin with
/// a note stays.
std::string TransposeChordName(const std::string& name, int semitones, bool flats);

/// A beat that can't be played at its new pitches; all from 0.
struct UnplayableBeat {
    int Track = 0;
    int Bar = 0;
    int Strum = 0;
};

/// Moves the bars of a track, or of AllTracks, and with `keys` their key signatures. What can't be played is told, and
/// then nothing has changed. Drum tracks have no pitch: their notes stay.
std::optional<UnplayableBeat> Transpose(Core::TabFile& file, int track, BarRange bars, int semitones, bool keys);

}  // namespace Quillon::Editing
