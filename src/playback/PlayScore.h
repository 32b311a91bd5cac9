// Reading the score as the player does: an index outside gives nothing, and what needed it is skipped.
#pragma once

#include <cstdint>
#include <string>

#include "core/mod_TabFileManipulation.h"
#include "platform/RunTimeError.h"

namespace Quillon::Playback {

/// A strum in the score, all counted from 0.
struct StrumPlace {
    int Track = 0;
    int Bar = 0;
    int Strum = 0;
};

/// What stands at a place; nullptr outside the track.
const Core::Bar* FindBar(const Core::TabFile& file, int track, int bar);
const Core::Strum* FindStrum(const Core::TabFile& file, const StrumPlace& place);
const Core::BarInfo* FindBarInfo(const Core::TabFile& file, int bar);
/// The strum before, and the one behind, as they stand on the paper; also over a bar line. nullptr when there is none.
const Core::Strum* PreviousStrum(const Core::TabFile& file, const StrumPlace& place);
const Core::Strum* NextStrum(const Core::TabFile& file, const StrumPlace& place);

/// Strings that sound: those in use, 0 to 7 whatever a file says.
int StringsInUse(const Core::Track& track);

/// True for a text that is a number as a whole.
bool IsNumeric(const std::string& text);
/// The value of a text that is a number; 0 for others.
double ValueOf(const std::string& text);
/// A whole number as text.
std::string TextOf(double number);

/// The pitch of a note before any octave shift as text: open pitch plus tuning plus fret; "" for a fret that is no
/// number.
std::string PitchText(const Core::Track& track, const Core::Note& note, int string);

/// Runs one statement of the player. What it raises skips the rest of it alone.
template <class Statement>
void Skipping(const Statement& statement) {
    try {
        statement();
    } catch (const RunTimeError&) {
    }
}

}  // namespace Quillon::Playback
