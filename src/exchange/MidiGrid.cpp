#include "exchange/MidiGrid.h"

#include <algorithm>
#include <map>

#include "core/mod_Common.h"
#include "exchange/MidiBeats.h"
#include "exchange/MidiImport.h"
#include "exchange/MidiStrokes.h"

namespace Quillon::Exchange {

namespace {

constexpr int SmallestBottom = 32;  ///< that a document knows
constexpr int LargestTop = 32;
constexpr std::int64_t UnitsPer32nd = 2 * UnitsPer64th;

/// The nearest that a document can hold.
MidiScore::Signature Holdable(MidiScore::Signature signature) {
    if (signature.Bottom > SmallestBottom) {
        signature.Top = std::max(signature.Top / 2, 1);
        signature.Bottom = SmallestBottom;
    }
    while (signature.Top > LargestTop && signature.Bottom > 1) {
        signature.Top /= 2;
        signature.Bottom /= 2;
    }
    signature.Top = std::min(signature.Top, LargestTop);
    return signature;
}

std::int64_t LengthOf(const MidiScore::Signature& signature) {
    return signature.Top * (64 / signature.Bottom) * UnitsPer64th;
}

/// A signature for a bar of so many units, as near to `bottom` as can be; its top is 0 when there is none.
MidiScore::Signature SignatureFor(std::int64_t length, int bottom) {
    for (; bottom <= SmallestBottom; bottom *= 2) {
        const std::int64_t beat = 64 / bottom * UnitsPer64th;
        if (length % beat == 0 && length / beat <= LargestTop) return {0, static_cast<int>(length / beat), bottom};
    }
    return {0, 0, 1};
}

}  // namespace

MidiGrid::MidiGrid(const MidiScore& score, int tracks) : ticksPerQuarter(score.TicksPerQuarter) {
    mostBars = std::min<int>(INT16_MAX, MostImportedBars / std::max(tracks, 1));
    std::int64_t lastStart = 0;
    for (const MidiPart& part : score.Parts) {
        if (!part.Notes.empty()) lastStart = std::max(lastStart, part.Notes.back().Start);
    }
    // The end of a track often stands a little behind that of its last bar.
    constexpr std::int64_t Slack = UnitsPerBeat / 4;
    // A note a hair before a bar line means the bar behind it.
    const std::int64_t end = std::max(PlaceOf(lastStart) + UnitsPer64th, PlaceOf(score.End) - Slack);
    MidiScore::Signature now;
    for (const MidiScore::Signature& signature : score.Signatures) {
        const std::int64_t place = PlaceOf(signature.Tick);
        if (place >= end) break;
        FillTo(place, now);
        now = Holdable(signature);
    }
    while (bars.empty() || bars.back().End() < end) AddBar(LengthOf(now), now);
    for (const GridBar& bar : bars) {
        std::int64_t at = bar.Start;
        for (std::int64_t beat = UnitsPerBeat; beat >= UnitsPer32nd; beat /= 2) {
            for (; bar.End() - at >= beat; at += beat) beats.push_back(at);
        }
    }
    beats.push_back(bars.back().End());
    for (const MidiScore::Tempo& tempo : score.Tempos) {
        tempos.push_back({PlaceOf(tempo.Tick), tempo.QuartersPerMinute * UnitsPerBeat / 60'000});
    }
}

void MidiGrid::AddBar(std::int64_t length, const MidiScore::Signature& signature) {
    if (static_cast<int>(bars.size()) >= mostBars) Core::ToInt16(MostImportedBars);
    bars.push_back({bars.empty() ? 0 : bars.back().End(), length, signature.Top, signature.Bottom});
}

void MidiGrid::FillTo(std::int64_t place, const MidiScore::Signature& signature) {
    const auto at = [&] { return bars.empty() ? 0 : bars.back().End(); };
    const std::int64_t length = LengthOf(signature);
    // A signature a hair off a bar line means the line.
    while (place - at() > UnitsPer32nd) {
        if (place - at() >= length - UnitsPer32nd) {
            AddBar(length, signature);
            continue;
        }
        const std::int64_t rest = (place - at() + UnitsPer64th) / UnitsPer32nd * UnitsPer32nd;
        const MidiScore::Signature shorter = SignatureFor(rest, signature.Bottom);
        if (shorter.Top == 0) return AddBar(length, signature);
        AddBar(rest, shorter);
        ++barsCut;
    }
}

int MidiGrid::BarAt(std::int64_t place) const {
    const auto behind = std::ranges::upper_bound(bars, place, {}, &GridBar::Start);
    return behind == bars.begin() ? 0 : static_cast<int>(behind - bars.begin()) - 1;
}

std::int64_t MidiGrid::PlaceOf(std::int64_t tick) const {
    // In parts, as the product may not fit.
    const std::int64_t quarters = tick / ticksPerQuarter;
    const std::int64_t rest = tick % ticksPerQuarter;
    if (quarters > std::int64_t{INT16_MAX} * 64 * 16) Core::ToInt16(quarters);
    return quarters * UnitsPerBeat + rest * UnitsPerBeat / ticksPerQuarter;
}

std::size_t MidiGrid::BeatAt(std::int64_t place) const {
    const auto behind = std::ranges::upper_bound(beats, place);
    const std::ptrdiff_t beat = std::max<std::ptrdiff_t>(behind - beats.begin() - 1, 0);
    return static_cast<std::size_t>(std::min(beat, std::ssize(beats) - 2));
}

std::int64_t MidiGrid::Snap(std::int64_t place, std::size_t beat, int division) const {
    const std::int64_t length = beats[beat + 1] - beats[beat];
    const std::int64_t part = length / division;
    return beats[beat] + (place - beats[beat] + part / 2) / part * part;
}

std::vector<GridNote> MidiGrid::NotesOf(const MidiPart& part) const {
    const double ticksPer64th = ticksPerQuarter / 16.0;
    std::vector<GridNote> notes;
    BeatDivider divider(ticksPer64th);
    for (const MidiNote& note : part.Notes) {
        const GridNote placed{PlaceOf(note.Start), PlaceOf(note.End), note.Key, note.Velocity,
                              static_cast<int>(notes.size())};
        notes.push_back(placed);
    }
    std::ranges::stable_sort(notes, {}, &GridNote::Start);
    const bool endsCount = !part.Fingering.empty();
    if (!endsCount && !part.IsDrum) GatherStrokes(notes, tempos);
    for (const GridNote& note : notes) divider.Meet(Within(note.Start));
    std::vector<int> divisions(beats.size(), 0);
    std::map<std::size_t, std::vector<double>> endsOf;  // by beat
    const auto offset = [&](std::int64_t place, std::size_t beat) {
        return static_cast<double>(place - beats[beat]) / UnitsPer64th;
    };
    for (const GridNote& note : notes) {
        const std::size_t beat = BeatAt(note.End);
        endsOf[beat].push_back(offset(note.End, beat));
    }
    const auto beatLength = [&](std::size_t beat) {
        return static_cast<int>((beats[beat + 1] - beats[beat]) / UnitsPer64th);
    };
    for (std::size_t first = 0; first < notes.size();) {
        const std::size_t beat = BeatAt(notes[first].Start);
        std::vector<double> starts;
        std::size_t behind = first;
        for (; behind < notes.size() && BeatAt(notes[behind].Start) == beat; ++behind) {
            const double start = offset(notes[behind].Start, beat);
            if (starts.empty() || starts.back() != start) starts.push_back(start);
        }
        int division = 0;
        if (endsCount && endsOf.contains(beat)) {
            std::vector<double> both = starts;
            both.insert(both.end(), endsOf[beat].begin(), endsOf[beat].end());
            division = divider.Exact(both, beatLength(beat));
        }
        if (division == 0) division = divider.Choose(starts, beatLength(beat));
        divisions[beat] = division;
        for (; first < behind; ++first) {
            std::int64_t& start = notes[first].Start;
            start = Snap(start, beat, division);
            // No strum begins where the song ends.
            if (start == beats.back()) start -= (beats[beat + 1] - beats[beat]) / division;
        }
    }
    for (GridNote& note : notes) {
        const std::size_t beat = BeatAt(note.End);
        if (divisions[beat] == 0 && endsCount) divisions[beat] = divider.Exact(endsOf[beat], beatLength(beat));
        if (divisions[beat] == 0) divisions[beat] = divider.ChooseForEnds(endsOf[beat], beatLength(beat));
        note.End = Snap(note.End, beat, divisions[beat]);
        if (note.End > note.Start) continue;
        const std::size_t own = BeatAt(note.Start);
        const int division = divisions[own] == 0 ? 1 : divisions[own];
        note.End = note.Start + (beats[own + 1] - beats[own]) / division;
    }
    std::ranges::stable_sort(notes, {}, &GridNote::Start);
    return notes;
}

double MidiGrid::Within(std::int64_t place) const {
    const std::size_t beat = BeatAt(place);
    return static_cast<double>(place - beats[beat]) / UnitsPer64th;
}

}  // namespace Quillon::Exchange
