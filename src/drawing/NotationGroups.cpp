#include <algorithm>
#include <charconv>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_NotationDrawing.h"

namespace Quillon::Drawing {

using Core::Bar;
using Core::Note;
using Core::Strum;
using Core::Track;

namespace {

int FretNumber(const std::string& fret) {
    int number = 0;
    const auto [end, problem] = std::from_chars(fret.data(), fret.data() + fret.size(), number);
    return problem == std::errc{} && end == fret.data() + fret.size() ? std::clamp(number, -99, 99) : 0;
}

int StringsInUse(const Track& track) { return std::clamp<int>(track.Strings, 0, Core::StringCount); }

bool IsBeamable(const Strum& strum) { return strum.Length > 2; }

/// A beat as a fraction of a whole note; 0 for a denominator that sets none.
double BeatOf(std::int32_t bottom) {
    switch (bottom) {
        case 1:
        case 2:
        case 4:
        case 8:
        case 16:
        case 32:
            return 1.0 / bottom;
        default:
            return 0;
    }
}

double LengthFraction(const Strum& strum) { return Core::StrumLength(strum) / 64; }

/// Last strum of the group that starts at `first` and holds one beat.
int EndOfBeat(const Core::List<Strum>& strums, int first, double beat) {
    constexpr double tolerance = 1e-9;  // of sums of thirds, fifths and the like
    double running = 0;
    int next = first;
    while (next < strums.Count() && running < beat - tolerance && IsBeamable(strums[next])) {
        running += LengthFraction(strums[next++]);
    }
    if (running > beat + tolerance) --next;
    return std::max(first, next - 1);  // what is no part of a beat stands alone, and the walk goes on
}

}  // namespace

int OctaveShift(const Track& track) { return (track.OctaveUp ? 12 : 0) - (track.OctaveDown ? 12 : 0); }

int WrittenPitch(const Track& track, int string, const Note& note) {
    const int sounds =
        track.IsDrum ? DrumKey(track, string, note) : Core::OpenPitch(track, string) + FretNumber(note.Fret);
    return sounds + OctaveShift(track);
}

std::vector<Head> StrumHeads(const Track& track, const Strum& strum, bool useFlats) {
    if (track.IsDrum && track.ShowTreble) return DrumHeads(track, strum);
    std::vector<Head> heads;
    std::vector<int> pitches;
    for (int s = 0; s < StringsInUse(track); ++s) {
        if (strum.Notes[s].Fret.empty()) continue;
        const int pitch = WrittenPitch(track, s, strum.Notes[s]);
        heads.push_back({s, PitchToStaffY(pitch, useFlats), 0});
        pitches.push_back(pitch);
    }
    bool displaced = false;
    for (std::size_t i = 0; i < heads.size(); ++i) {
        for (std::size_t other = 0; other < heads.size(); ++other) {
            if (other == i || std::abs(pitches[i] - pitches[other]) > 2) continue;
            displaced = !displaced;
            break;
        }
        heads[i].DX = displaced ? 6 : 0;
    }
    return heads;
}

bool StemUp(int highestPitch, bool anyHash) { return !anyHash && highestPitch < 53; }

std::vector<BeamGroup> BeamGroups(const Track& track, const Bar& bar, const Core::BarInfo& info) {
    const Core::List<Strum>& strums = bar.Strums();
    const double beat = BeatOf(info.TimeSigBottom);
    std::vector<BeamGroup> groups;
    for (int first = 0; first < strums.Count();) {
        BeamGroup group{first, 0};
        const bool lastBeat = static_cast<std::int64_t>(groups.size()) == info.TimeSigTop - std::int64_t{1};
        group.Last = lastBeat ? strums.UpperBound() : EndOfBeat(strums, first, beat);
        int highest = -200;
        bool anyHash = false;
        for (int s = group.First; s <= group.Last; ++s) {
            anyHash |= strums[s].Hash != 0;
            for (int string = 0; string < StringsInUse(track); ++string) {
                const Note& note = strums[s].Notes[string];
                if (!note.Fret.empty()) highest = std::max(highest, WrittenPitch(track, string, note));
            }
        }
        group.StemUp = track.IsDrum ? !anyHash : StemUp(highest, anyHash);
        group.Drawn = highest > -200;
        groups.push_back(group);
        first = group.Last + 1;
    }
    return groups;
}

int TupletNumber(std::int32_t kind) {
    static constexpr int figures[] = {3, 5, 6, 7, 9, 10, 11, 12, 13};
    return kind >= 0 && kind <= 8 ? figures[kind] : 0;
}

int TupletCount(std::int32_t kind, bool flag) {
    return flag ? Core::CInt(TupletNumber(kind) * 4 / 3.0) : TupletNumber(kind);
}

std::vector<TupletMark> Tuplets(const Bar& bar) {
    const Core::List<Strum>& strums = bar.Strums();
    std::vector<TupletMark> marks;
    for (int first = 0; first < strums.Count();) {
        const Strum& opening = strums[first];
        int last = first;
        if (opening.HasTuplet) {
            const int reach = TupletCount(opening.Tuplet, opening.Dotted);
            const auto belongs = [&](const Strum& strum) {
                return strum.HasTuplet && strum.Length == opening.Length && strum.Tuplet == opening.Tuplet &&
                       strum.Dotted == opening.Dotted;
            };
            while (last + 1 < strums.Count() && last + 1 - first < reach && belongs(strums[last + 1])) ++last;
            marks.push_back({first, last, TupletNumber(opening.Tuplet)});
        }
        first = last + 1;
    }
    return marks;
}

}  // namespace Quillon::Drawing
