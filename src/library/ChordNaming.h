// The names of what is played: from a shape's notes to chord symbols, and back.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon::Library {

/// Name of a pitch class, 0 being C: "F#", or "Gb" with flats. Any pitch is taken as its class.
std::string PitchClassName(int pitch, bool flats = false);
/// The pitch class of a name such as "F#" or "gb"; -1 for what is none.
int PitchClassOf(std::string_view name);

/// Names for notes that sound together, the most usual first: "C", "Am7/C", "E5". `pitches` are MIDI numbers in any
/// order; the lowest is the bass. Empty when no name fits.
std::vector<std::string> ChordNames(std::span<const int> pitches, bool flats = false);

/// What a chord symbol asks for, as pitch classes.
struct ChordTones {
    int Root = 0;
    int Bass = 0;               ///< the root, but for "C/E"
    std::vector<int> Needed;    ///< without the bass
    std::vector<int> Optional;  ///< that a voicing may leave out: the fifth, and what high chords stack below their top
};
/// Reads "Cm7", "C m7", "F#7sus4/B", and the chord library's names, where "-" stands for "/" and an alias may follow:
/// "G-Gmaj (2)". False for a symbol that is not known.
bool ParseChordSymbol(std::string_view symbol, ChordTones& tones);

/// Whether a chord's notes are better told with flats: where its name or the usual key of its root has them, as "Bb",
/// "F7" or "Cm7". False for a symbol that is not known.
bool PrefersFlats(std::string_view symbol);

/// A symbol, or a name of the chord library, with every note in it so many semitones on: "G-Gmaj (2)" two up is
/// "A-Amaj (2)". A note that was written with a flat stays one, also with `flats`; what is no note stays.
std::string TransposedName(std::string_view name, int semitones, bool flats = false);
/// The name without the number of its voicing: "G-Gmaj" of "G-Gmaj (2)".
std::string_view VoicingBase(std::string_view name);

}  // namespace Quillon::Library
