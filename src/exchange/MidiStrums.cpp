#include "exchange/MidiStrums.h"

#include <algorithm>

#include "core/mod_Common.h"

namespace Quillon::Exchange {

namespace {

class StrumMaker {
public:
    StrumMaker(const MidiGrid& on, const std::vector<GridNote>& of, NoteEnds how) : grid(on), notes(of), ends(how) {}

    std::vector<StrumPiece> Run() {
        const std::int64_t songEnd = grid.Beats().back();
        std::size_t note = 0;
        for (std::int64_t at = 0; at < songEnd;) {
            std::vector<int> struck;
            for (; note < notes.size() && notes[note].Start == at; ++note) struck.push_back(static_cast<int>(note));
            const std::int64_t next = note < notes.size() ? notes[note].Start : songEnd;
            Stretch(at, next, struck);
            at = next;
        }
        return std::move(pieces);
    }

private:
    std::int64_t EndOf(int note) const { return notes[static_cast<std::size_t>(note)].End; }

    /// From one start to the next.
    void Stretch(std::int64_t at, std::int64_t next, const std::vector<int>& struck) {
        std::int64_t soundEnd = at;
        for (const int note : struck) soundEnd = std::max(soundEnd, EndOf(note));
        for (const int note : sounding) soundEnd = std::max(soundEnd, EndOf(note));
        soundEnd = std::min(soundEnd, next);
        if (ends == NoteEnds::Drums && !struck.empty()) {
            soundEnd = next - at <= UnitsPerBeat ? next : std::min(next, grid.Beats()[grid.BeatAt(at) + 1]);
        }
        if (ends == NoteEnds::Played && soundEnd > at && !IsRest(next - soundEnd, next - at)) soundEnd = next;
        Fill(at, soundEnd, struck);
        if (soundEnd == next) return;
        sounding.clear();
        Fill(soundEnd, next, {});
    }

    static bool IsRest(std::int64_t gap, std::int64_t stretch) {
        constexpr std::int64_t Eighth = 8 * UnitsPer64th;
        constexpr std::int64_t Quarter = 16 * UnitsPer64th;
        return gap >= Quarter || (gap >= Eighth && gap * 2 >= stretch);
    }

    void Fill(std::int64_t from, std::int64_t to, std::vector<int> struck) {
        while (from < to) {
            const int bar = grid.BarAt(from);
            const std::int64_t end = std::min(to, grid.Bars()[static_cast<std::size_t>(bar)].End());
            std::int64_t at = from;
            for (const NoteValue& value : ValuesBetween(grid, from, end)) {
                const auto length = static_cast<std::int64_t>(Core::RoundHalfEven(value.Length * UnitsPer64th));
                // What sounds through half of it is tied to it.
                std::erase_if(sounding, [&](int note) { return EndOf(note) < at + length / 2 + 1; });
                pieces.push_back({bar, at, value, struck, sounding});
                if (ends != NoteEnds::Drums) sounding.insert(sounding.end(), struck.begin(), struck.end());
                struck.clear();
                // More can't be played anyway, and a file may leave all its notes sounding.
                constexpr std::ptrdiff_t MostSounding = 12;
                if (std::ssize(sounding) > MostSounding)
                    sounding.erase(sounding.begin(), sounding.end() - MostSounding);
                at += length;
            }
            from = end;
        }
    }

    const MidiGrid& grid;
    const std::vector<GridNote>& notes;
    NoteEnds ends;
    std::vector<int> sounding;
    std::vector<StrumPiece> pieces;
};

}  // namespace

std::vector<StrumPiece> StrumsOf(const MidiGrid& grid, const std::vector<GridNote>& notes, NoteEnds ends) {
    return StrumMaker(grid, notes, ends).Run();
}

}  // namespace Quillon::Exchange
