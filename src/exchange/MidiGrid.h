// Where the notes of a MIDI file stand in bars and beats: the one grid that all its tracks share.
//
// A place is worked out from the tick alone, never from the note before, so that what is rounded off here is not
// missing there and no track moves against another. Each beat of a part is divided as its notes ask for: the simplest
// division that meets them all where they were entered in steps, the likeliest where they were played by hand.
#pragma once

#include <cstdint>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/MidiScore.h"

namespace Quillon::Exchange {

/// Places of the grid are counted in these: every note value, tuplet and dot is a whole number of them.
constexpr std::int64_t UnitsPer64th = 360360;
constexpr std::int64_t UnitsPerBeat = 16 * UnitsPer64th;

struct GridBar {
    std::int64_t Start = 0;
    std::int64_t Length = 0;
    int Top = 4;
    int Bottom = 4;
    std::int64_t End() const { return Start + Length; }
};

struct GridNote {
    std::int64_t Start = 0;
    std::int64_t End = 0;  ///< above Start
    int Key = 0;
    int Velocity = 0;
    int Index = 0;  ///< into the part's notes
};

/// How fast the grid goes by from a place on.
struct GridTempo {
    std::int64_t Start = 0;
    double UnitsPerMillisecond = 0;
};

class MidiGrid {
public:
    /// Raises "Overflow" for a song too long for a document of so many tracks.
    MidiGrid(const MidiScore& score, int tracks);

    /// There is at least one. A time signature in the middle of a bar ends it there.
    const std::vector<GridBar>& Bars() const { return bars; }
    /// Places of the beats: quarters from the start of each bar, the rest of it in eighths, 16ths or 32nds; the end of
    /// the last bar behind them.
    const std::vector<std::int64_t>& Beats() const { return beats; }
    /// The bar, and the beat, that holds a place; the last one for those behind.
    int BarAt(std::int64_t place) const;
    std::size_t BeatAt(std::int64_t place) const;
    /// Bars whose time signature is made up, as another one cut them short.
    int BarsCut() const { return barsCut; }

    /// Where a tick stands, off the grid.
    std::int64_t PlaceOf(std::int64_t tick) const;
    /// A part's notes on the grid, by start.
    std::vector<GridNote> NotesOf(const MidiPart& part) const;

private:
    void AddBar(std::int64_t length, const MidiScore::Signature& signature);
    void FillTo(std::int64_t place, const MidiScore::Signature& signature);
    std::int64_t Snap(std::int64_t place, std::size_t beat, int division) const;
    double Within(std::int64_t place) const;  ///< its beat, in 64ths

    std::vector<GridBar> bars;
    std::vector<std::int64_t> beats;
    std::vector<GridTempo> tempos;
    int ticksPerQuarter;
    int mostBars = 0;
    int barsCut = 0;
};

}  // namespace Quillon::Exchange
