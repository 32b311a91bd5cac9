#include <algorithm>
#include <cstdlib>
#include <limits>
#include <vector>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_NotationDrawing.h"
#include "editing/mod_BarClipboard.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Transpose.h"

namespace Quillon::Editing {

using Core::Note;
using Core::StringCount;
using Core::Strum;
using Core::Track;

namespace {

constexpr int Octave = 12;

int PitchClass(int pitch) { return ((pitch % Octave) + Octave) % Octave; }

bool OnNeck(int fret) { return fret >= 0 && fret <= HighestFret; }

/// Ties and slurs go on to the next note on the same string.
bool LinksOn(const Note& note) {
    return note.Tied || note.Technique == Core::LegatoSlide || note.Technique == Core::HammerOnPullOff;
}

/// Finds strings for the notes of one strum: all ways are tried, the ones near the old strings first.
class Placing {
public:
    Placing(const Track& itsTrack, const Strum& itsStrum, int bySemitones, const StringsTo& wishes)
        : track(itsTrack), strum(itsStrum), semitones(bySemitones), wished(wishes) {
        for (int s = 0; s <= LastString(track); ++s) {
            const std::string& fret = strum.Notes[s].Fret;
            if (fret.empty()) continue;
            if (FretNumber(fret) >= 0) {
                moving.push_back(s);
            } else {
                taken[static_cast<std::size_t>(s)] = true;
            }
        }
        now.fill(NoString);
        Place(0, 0);
    }

    bool Found() const { return bestCost < std::numeric_limits<int>::max(); }
    const std::vector<int>& Moving() const { return moving; }
    int To(int string) const { return best[static_cast<std::size_t>(string)]; }
    /// How far the frets move with a note from one string to another.
    int FretStep(int from, int to) const {
        return Core::OpenPitch(track, from) + semitones - Core::OpenPitch(track, to);
    }

private:
    bool Playable(const Note& note, int step) const {
        if (!OnNeck(FretNumber(note.Fret) + step)) return false;
        const int grace = note.HasGrace ? FretNumber(note.GraceFret) : -1;
        if (grace >= 0 && !OnNeck(grace + step)) return false;
        return !note.HasTrill || OnNeck(note.TrillFret + step);
    }
    int Cost(int from, int to) const {
        constexpr int BrokenLink = 100;
        const int wish = wished[static_cast<std::size_t>(from)];
        return std::abs(to - from) + (wish != NoString && wish != to ? BrokenLink : 0);
    }
    void Place(std::size_t index, int cost) {
        if (cost >= bestCost) return;
        if (index == moving.size()) {
            bestCost = cost;
            best = now;
            return;
        }
        const int from = moving[index];
        const int last = LastString(track);
        for (int away = 0; away <= last; ++away) {
            for (const int to : {from - away, from + away}) {
                if (to < 0 || to > last || (away == 0 && to != from)) continue;
                bool& used = taken[static_cast<std::size_t>(to)];
                if (used || !Playable(strum.Notes[from], FretStep(from, to))) continue;
                used = true;
                now[static_cast<std::size_t>(from)] = to;
                Place(index + 1, cost + Cost(from, to));
                used = false;
                if (away == 0) break;
            }
        }
    }

    const Track& track;
    const Strum& strum;
    int semitones;
    const StringsTo& wished;
    std::vector<int> moving;
    std::array<bool, StringCount> taken{};
    StringsTo now{};
    StringsTo best{};
    int bestCost = std::numeric_limits<int>::max();
};

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
    const Placing placing(track, strum, semitones, links);
    const auto chord = strum.HasChord ? ChordStep(strum, semitones) : std::optional<int>(semitones);
    if (!placing.Found() || !chord) return false;
    if (strum.HasChord) MoveChord(strum, semitones, *chord, flats);
    std::vector<Note> notes;
    for (const int from : placing.Moving()) {
        notes.push_back(strum.Notes[from]);
        strum.Notes.Clear(from);
    }
    links.fill(NoString);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const int from = placing.Moving()[i];
        const int to = placing.To(from);
        const int step = placing.FretStep(from, to);
        Note& note = notes[i];
        if (LinksOn(note)) links[static_cast<std::size_t>(from)] = to;
        note.Fret = std::to_string(FretNumber(note.Fret) + step);
        const int grace = note.HasGrace ? FretNumber(note.GraceFret) : -1;
        if (grace >= 0) note.GraceFret = std::to_string(grace + step);
        if (note.HasTrill) note.TrillFret = Core::ToInt16(note.TrillFret + step);
        strum.Notes.Edit(to) = std::move(note);
    }
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
