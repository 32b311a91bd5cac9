// Chords moved along the neck, and told as text.
#include <algorithm>

#include "library/ChordNaming.h"
#include "library/mod_Chords.h"

namespace Quillon::Library {

namespace {

constexpr int Octave = 12;

std::string Padded(std::string text, std::size_t width) {
    // Bytes that continue a letter take no room of their own.
    const auto letters = static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
    if (letters < width) text.append(width - letters, ' ');
    return text;
}

}  // namespace

std::optional<ChordRec> TransposedChord(const ChordRec& chord, int semitones) {
    int lowest = MostNeckFret + 1, highest = -1;
    for (int string = 0; string < chord.NumStrings; ++string) {
        const auto fret = AbsoluteFret(chord, string);
        if (!fret) continue;
        lowest = std::min(lowest, *fret);
        highest = std::max(highest, *fret);
    }
    if (highest < 0) return {};
    int step = semitones;
    while (lowest + step < 0) step += Octave;
    while (highest + step > MostNeckFret) step -= Octave;
    if (lowest + step < 0) return {};
    Row<std::string, StringCount> frets;
    for (int string = 0; string < StringCount; ++string) {
        const auto fret = AbsoluteFret(chord, string);
        frets[string] = fret ? std::to_string(*fret + step) : chord.Frets[string];
    }
    ChordRec moved = MakeChord(chord.NumStrings, chord.ChordFlag, frets);
    moved.Tuning = chord.Tuning;
    const bool hand = step == 0 || (lowest > 0 && lowest + step > 0);
    if (hand) moved.Fingers = chord.Fingers;
    return moved;
}

std::string ChordsAsText(ChordLibrary& library, const std::vector<std::string>& names) {
    std::size_t width = 0;
    for (const std::string& name : names) width = std::max(width, name.size());
    std::string text;
    for (const std::string& name : names) {
        const ChordRec* const chord = library.Find(name);
        if (!chord) continue;
        std::string frets, notes;
        for (int string = chord->NumStrings - 1; string >= 0; --string) {
            const auto fret = AbsoluteFret(*chord, string);
            const auto pitch = PitchOn(*chord, string);
            constexpr std::size_t Column = 3;
            frets += Padded(fret ? std::to_string(*fret) : IsMuted(*chord, string) ? "x" : "-", Column);
            notes += Padded(pitch ? PitchClassName(*pitch, PrefersFlats(name)) : "-", Column);
        }
        std::string line = Padded(name, width + 2) + Padded(frets, 3U * StringCount + 1) + notes;
        while (line.ends_with(' ')) line.pop_back();
        text += line + "\r\n";
    }
    return text;
}

}  // namespace Quillon::Library
