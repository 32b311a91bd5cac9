#include <algorithm>
#include <tuple>

#include "library/mod_Scales.h"

namespace Quillon::Library {

namespace {

constexpr int Octave = 12;

int Wrap(int pitch) { return ((pitch % Octave) + Octave) % Octave; }

/// Pitch of the lowest string, where the tonic stands.
int LowestOpen(const ScaleRec& scale) { return scale.Tuning[scale.NumStrings - 1]; }

}  // namespace

int PatternFret(const ScaleRec& scale, int key) { return Wrap(key - LowestOpen(scale)); }

std::vector<int> PatternPitches(const ScaleRec& scale, int key) {
    std::vector<int> pitches;
    const int fret = PatternFret(scale, key);
    for (int string = 0; string < scale.NumStrings; ++string) {
        const auto& positions = scale.Pattern.at(static_cast<std::size_t>(string));
        for (std::size_t position = 0; position < positions.size(); ++position) {
            if (!positions.test(position)) continue;
            pitches.push_back(scale.Tuning[scale.NumStrings - 1 - string] + fret + static_cast<int>(position));
        }
    }
    std::ranges::sort(pitches);
    pitches.erase(std::unique(pitches.begin(), pitches.end()), pitches.end());
    return pitches;
}

PitchClasses ScaleClasses(const ScaleRec& scale, int key) {
    PitchClasses classes;
    for (const int pitch : PatternPitches(scale, key)) classes.set(static_cast<std::size_t>(Wrap(pitch)));
    return classes;
}

std::vector<int> ScaleRun(const ScaleRec& scale, int key, ScaleOctave octave, bool descending) {
    std::vector<int> run = PatternPitches(scale, key);
    const int tonic = LowestOpen(scale) + PatternFret(scale, key);
    const int from = octave == ScaleOctave::High ? tonic + Octave : tonic;
    const int to = octave == ScaleOctave::Low ? tonic + Octave : tonic + 2 * Octave;
    std::erase_if(run, [from, to](int pitch) { return pitch < from || pitch > to; });
    if (descending) std::ranges::reverse(run);
    return run;
}

std::vector<FoundScale> FindScales(ScaleLibrary& library, const PitchClasses& notes, std::optional<int> tonic) {
    std::vector<FoundScale> found;
    if (notes.none()) return found;
    for (const std::string& name : library.Names()) {
        const ScaleRec* const scale = library.Find(name);
        if (!scale) continue;
        for (int key = 0; key < Octave; ++key) {
            const PitchClasses classes = ScaleClasses(*scale, key);
            const int missing = static_cast<int>((notes & ~classes).count());
            if (2 * missing > static_cast<int>(notes.count()) || classes.none()) continue;
            found.push_back({name, key, missing, static_cast<int>((classes & ~notes).count())});
        }
    }
    const auto rank = [tonic](const FoundScale& scale) {
        return std::tuple(scale.Missing, scale.Extra, tonic && scale.Key == *tonic ? 0 : 1);
    };
    std::ranges::stable_sort(found, {}, rank);
    return found;
}

}  // namespace Quillon::Library
