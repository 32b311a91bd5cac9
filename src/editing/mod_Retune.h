// A track on other strings: fewer or more of them, tuned otherwise.
#pragma once

#include <cstdint>
#include <optional>

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Transpose.h"

namespace Quillon::Editing {

/// What becomes of the notes on strings that go.
enum class LostNotes : std::uint8_t {
    Move,   ///< other strings play them at their pitch
    Remove  ///< they go with their strings
};

struct Retuning {
    Core::Row<std::int16_t, Core::StringCount> Tuning;  ///< semitones from the standard pitch, string 0 first
    std::int16_t Strings = 6;                           ///< 1 to 7; it is the lowest ones that come and go
    bool KeepPitches = false;                           ///< notes sound as before; else they keep their frets
    LostNotes OnLostStrings = LostNotes::Move;
};

/// Gives a track its new strings. What can't be played on them is told, and then nothing has changed. Chord diagrams
/// bring their own tuning and stay. Letters of drums never change strings: those on strings that go, go with them.
std::optional<UnplayableBeat> Retune(Core::TabFile& file, int track, const Retuning& wanted);

/// Notes on strings that go when so many stay.
int NotesOnLostStrings(const Core::Track& track, int strings);

}  // namespace Quillon::Editing
