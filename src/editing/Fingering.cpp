#include "editing/Fingering.h"

#include <array>
#include <cstdlib>
#include <limits>
#include <vector>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"

namespace Quillon::Editing {

using Core::Note;
using Core::StringCount;
using Core::Strum;

namespace {

bool OnNeck(int fret) { return fret >= 0 && fret <= HighestFret; }

/// Ties and slurs go on to the next note on the same string.
bool LinksOn(const Note& note) {
    return note.Tied || note.Technique == Core::LegatoSlide || note.Technique == Core::HammerOnPullOff;
}

/// Finds strings for the notes of one strum: all ways are tried, the ones near the old strings first.
class Placing {
public:
    Placing(const Refingering& how, const Strum& itsStrum, const StringsTo& wishes)
        : wanted(how), strum(itsStrum), last(LastString(how.To)), wished(wishes) {
        const int lastBefore = LastString(wanted.From);
        for (int s = 0; s < StringCount; ++s) {
            const std::string& fret = strum.Notes[s].Fret;
            if (fret.empty()) continue;
            // What a string out of use holds is not heard, and keeps its place.
            const bool lost = s > last && s <= lastBefore;
            const bool stays = s > lastBefore || FretNumber(fret) < 0 || wanted.KeepFrets;
            if (lost ? wanted.DropLost : stays) {
                (lost ? dropped : staying).push_back(s);
                taken[static_cast<std::size_t>(s)] = true;
            } else {
                moving.push_back(s);
            }
        }
        now.fill(NoString);
        Place(0, 0);
    }

    bool Found() const { return bestCost < std::numeric_limits<int>::max(); }
    const std::vector<int>& Moving() const { return moving; }
    const std::vector<int>& Staying() const { return staying; }
    const std::vector<int>& Dropped() const { return dropped; }
    int To(int string) const { return best[static_cast<std::size_t>(string)]; }
    /// How far the frets move with a note from one string to another.
    int FretStep(int from, int to) const {
        return Core::OpenPitch(wanted.From, from) + wanted.Semitones - Core::OpenPitch(wanted.To, to);
    }

private:
    bool Playable(const Note& note, int step) const {
        const int fret = FretNumber(note.Fret);
        if (fret < 0) return true;
        if (!OnNeck(fret + step)) return false;
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
        for (int away = 0; away < StringCount; ++away) {
            for (const int to : {from - away, from + away}) {
                if (to < 0 || to > last) continue;
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

    const Refingering& wanted;
    const Strum& strum;
    int last;
    const StringsTo& wished;
    std::vector<int> moving;
    std::vector<int> staying;
    std::vector<int> dropped;
    std::array<bool, StringCount> taken{};
    StringsTo now{};
    StringsTo best{};
    int bestCost = std::numeric_limits<int>::max();
};

}  // namespace

bool Refinger(const Refingering& wanted, Strum& strum, StringsTo& links) {
    const Placing placing(wanted, strum, links);
    if (!placing.Found()) return false;
    std::vector<Note> notes;
    for (const int from : placing.Moving()) {
        notes.push_back(strum.Notes[from]);
        strum.Notes.Clear(from);
    }
    for (const int lost : placing.Dropped()) strum.Notes.Clear(lost);
    links.fill(NoString);
    for (const int string : placing.Staying()) {
        if (LinksOn(strum.Notes[string])) links[static_cast<std::size_t>(string)] = string;
    }
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const int from = placing.Moving()[i];
        const int to = placing.To(from);
        const int step = placing.FretStep(from, to);
        Note& note = notes[i];
        if (LinksOn(note)) links[static_cast<std::size_t>(from)] = to;
        if (const int fret = FretNumber(note.Fret); fret >= 0) {
            note.Fret = std::to_string(fret + step);
            const int grace = note.HasGrace ? FretNumber(note.GraceFret) : -1;
            if (grace >= 0) note.GraceFret = std::to_string(grace + step);
            if (note.HasTrill) note.TrillFret = Core::ToInt16(note.TrillFret + step);
        }
        strum.Notes.Edit(to) = std::move(note);
    }
    return true;
}

}  // namespace Quillon::Editing
