#include "exchange/MidiStrokes.h"

#include <algorithm>
#include <cstdlib>

namespace Quillon::Exchange {

namespace {

constexpr double UsualUnitsPerMillisecond = 120.0 * UnitsPerBeat / 60'000;
constexpr double MostGap = 28;      ///< milliseconds from string to string
constexpr double MostSpread = 120;  ///< and for all of them
constexpr std::size_t LeastNotes = 3;

class Gatherer {
public:
    Gatherer(std::vector<GridNote>& of, const std::vector<GridTempo>& by) : notes(of), tempos(by) {}

    void Run() {
        for (std::size_t first = 0; first < notes.size();) {
            const std::size_t behind = BehindStroke(first);
            if (behind - first >= LeastNotes) Gather(first, behind);
            first = behind;
        }
    }

private:
    double UnitsPerMillisecondAt(std::int64_t place) const {
        const auto behind = std::ranges::upper_bound(tempos, place, {}, &GridTempo::Start);
        return behind == tempos.begin() ? UsualUnitsPerMillisecond : std::prev(behind)->UnitsPerMillisecond;
    }

    /// The first note that a stroke from `first` does not reach.
    std::size_t BehindStroke(std::size_t first) const {
        const std::int64_t start = notes[first].Start;
        const double perMillisecond = UnitsPerMillisecondAt(start);
        int way = 0;  // up or down, once that is known
        std::int64_t leastEnd = notes[first].End;
        std::size_t behind = first + 1;
        for (; behind < notes.size(); ++behind) {
            const GridNote& before = notes[behind - 1];
            const GridNote& note = notes[behind];
            const auto gap = static_cast<double>(note.Start - before.Start);
            if (gap > MostGap * perMillisecond) break;
            if (static_cast<double>(note.Start - start) > MostSpread * perMillisecond) break;
            const int step = note.Start == before.Start ? 0 : note.Key > before.Key ? 1 : -1;
            if (step != 0 && way != 0 && step != way) break;
            if (step != 0) way = step;
            // One note after the other is a run, not a chord.
            leastEnd = std::min(leastEnd, note.End);
            if (static_cast<double>(leastEnd - note.Start) <= gap) break;
        }
        return behind;
    }

    /// The chord stands where one of its notes is nearest to a 16th.
    void Gather(std::size_t first, std::size_t behind) {
        constexpr std::int64_t Sixteenth = UnitsPerBeat / 4;
        const auto away = [](std::int64_t place) {
            const std::int64_t within = place % Sixteenth;
            return std::min(within, Sixteenth - within);
        };
        std::int64_t start = notes[first].Start;
        for (std::size_t note = first; note < behind; ++note) {
            if (away(notes[note].Start) < away(start)) start = notes[note].Start;
        }
        for (std::size_t note = first; note < behind; ++note) notes[note].Start = start;
    }

    std::vector<GridNote>& notes;
    const std::vector<GridTempo>& tempos;
};

}  // namespace

void GatherStrokes(std::vector<GridNote>& notes, const std::vector<GridTempo>& tempos) {
    Gatherer(notes, tempos).Run();
}

}  // namespace Quillon::Exchange
