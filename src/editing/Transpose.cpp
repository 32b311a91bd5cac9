#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_NotationDrawing.h"
#include "editing/Fingering.h"
#include "editing/mod_BarClipboard.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Transpose.h"

namespace Quillon::Editing {

using Core::StringCount;
using Core::Strum;
using Core::Track;

namespace {

constexpr int Octave = 12;

int PitchClass(int pitch) { return ((pitch % Octave) + Octave) % Octave; }

/// How far a chord's frets move along the neck: the semitones, or octaves more or less where they would leave it.
std::optional<int> ChordStep(const Strum& strum, int semitones) {
    int lowest = HighestFret, highest = 0;
    for (int s = 0; s < StringCount; ++s) {
        const int fret = FretNumber(Core::TrimBlanks(strum.ChordFrets.Read()[s]));
        if (fret < 0) continue;
        lowest = std::min(lowest, fret);
        highest = std::max(highest, fret);
    }
    if (highest < lowest) return semitones;  // no diagram
    int step = semitones;
    while (lowest + step < 0) step += Octave;
    while (highest + step > HighestFret) step -= Octave;
    if (lowest + step < 0) return {};
    return step;
}

void MoveChord(Strum& strum, int semitones, int step, bool flats) {
    strum.ChordName = TransposeChordName(strum.ChordName, semitones, flats);
    for (int s = 0; s < StringCount; ++s) {
        const int fret = FretNumber(Core::TrimBlanks(strum.ChordFrets.Read()[s]));
        if (fret >= 0) strum.ChordFrets.Edit()[s] = std::to_string(fret + step);
    }
    // The base fret is counted in with the frets.
    if (strum.ChordValueA > 0) strum.ChordValueA = Core::ToInt16(std::max(0, strum.ChordValueA + step));
}

}  // namespace

bool TransposeStrum(const Track& track, Strum& strum, int semitones, bool flats, StringsTo& links) {
    const auto chord = strum.HasChord ? ChordStep(strum, semitones) : std::optional<int>(semitones);
    if (!chord || !Refinger({track, track, semitones}, strum, links)) return false;
    if (strum.HasChord) MoveChord(strum, semitones, *chord, flats);
    return true;
}

std::int32_t TransposeKey(std::int32_t key, int semitones) {
    // Pitch class of each key's major tonic, and the key on each pitch class. C# and F# fall together with Db and Gb.
    static constexpr int tonics[] = {0, 0, 7, 2, 9, 4, 11, 6, 1, 5, 10, 3, 8, 1};
    static constexpr std::int32_t keys[] = {1, 13, 3, 11, 5, 9, 7, 2, 12, 4, 10, 6};
    constexpr std::int32_t count = std::size(tonics);
    if (key <= 0 || key >= count || semitones % Octave == 0) return key;
    return keys[PitchClass(tonics[key] + semitones)];
}

std::string TransposeChordName(const std::string& name, int semitones, bool flats) {
    static constexpr const char* sharp[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    static constexpr const char* flat[] = {"C", "Db", "D", "Eb", "E", "F", "Gb", "G", "Ab", "A", "Bb", "B"};
    static constexpr int naturals[] = {9, 11, 0, 2, 4, 5, 7};  // A to G
    const auto isNote = [](char c) { return c >= 'A' && c <= 'G'; };
    std::string moved;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (!isNote(name[i]) || (i > 0 && name[i - 1] != '/')) {
            moved += name[i];
            continue;
        }
        int pitch = naturals[name[i] - 'A'] + semitones;
        bool asFlat = flats;
        const char sign = i + 1 < name.size() ? name[i + 1] : ' ';
        if (sign == '#' || sign == 'b') {
            pitch += sign == '#' ? 1 : -1;
            asFlat = flats || sign == 'b';
            ++i;
        }
        moved += (asFlat ? flat : sharp)[PitchClass(pitch)];
    }
    return moved;
}

std::optional<UnplayableBeat> Transpose(Core::TabFile& file, int track, BarRange bars, int semitones, bool keys) {
    const bool noTrack = track != AllTracks && (track < 0 || track > file.Tracks.UpperBound());
    if (noTrack || bars.From < 0 || bars.From > bars.To) RaiseSubscriptOutOfRange();
    Core::TabFile moved = file;
    for (int t = 0; t < moved.Tracks.Count(); ++t) {
        if (track != AllTracks && t != track) continue;
        Track& music = moved.Tracks[t];
        StringsTo links;
        links.fill(NoString);
        for (int b = bars.From; b <= bars.To; ++b) {
            if (keys) music.Bars.Edit(b).Key = TransposeKey(music.Bars[b].Key, semitones);
            if (music.IsDrum) continue;
            const bool flats = Drawing::KeyUsesFlats(music.Bars[b].Key);
            auto& strums = music.Bars.Edit(b).EditStrums();
            for (int s = 0; s < strums.Count(); ++s) {
                if (!TransposeStrum(music, strums[s], semitones, flats, links)) return UnplayableBeat{t, b, s};
            }
        }
    }
    file = std::move(moved);
    return {};
}

}  // namespace Quillon::Editing
