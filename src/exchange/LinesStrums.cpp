#include "exchange/LinesStrums.h"

#include <algorithm>
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Bends.h"

namespace Quillon::Exchange {

namespace {

/// Gives a note of the text to its strum; false when its string holds one.
bool Give(const TabNote& from, Core::Strum& strum) {
    if (!strum.Notes[from.String].Fret.empty()) return false;
    Core::Note& note = strum.Notes.Edit(from.String);
    note.Fret = from.Fret == TabNote::Dead ? "x" : std::to_string(from.Fret);
    note.Technique = from.Technique;
    note.Harmonic = from.Harmonic;
    note.Ghost = from.Ghost;
    note.Accentuate = from.Accent;
    note.LetRing = from.LetRing;
    if (from.Beat != 0) strum.Technique = from.Beat;
    if (from.Bend > 0) Editing::GiveBend(note, from.Bend, from.Release);
    if (from.Trill >= 0) {
        note.HasTrill = true;
        note.TrillFret = from.Trill;
        note.TrillPeriod = 1;
    }
    return true;
}

class BarWriter {
public:
    explicit BarWriter(const TabBar& from) : bar(from) {}

    /// The notes of one column begin a strum, which lasts the value given; rests fill the rest of `length`.
    void AddNotes(int column, const NoteValue& value) {
        Add(column, value);
        for (; next < bar.Notes.size() && bar.Notes[next].Column == column; ++next) {
            if (Give(bar.Notes[next], written.Strums.back())) {
                ++written.Kept;
            } else {
                ++written.Lost;
            }
        }
    }
    void AddRests(int column, double length, double unit) {
        while (length > 1e-6) {
            const NoteValue& value = LargestValue(length, unit);
            Add(column, value);
            length -= value.Length;
        }
    }
    void Add(int column, const NoteValue& value) {
        Core::ToInt16(static_cast<std::int64_t>(written.Strums.size()));
        value.Give(written.Strums.emplace_back());
        written.Columns.push_back(column);
        filled += value.Length;
    }
    double Filled() const { return filled; }
    TimedBar Take() { return std::move(written); }
    TimedBar& Written() { return written; }

private:
    const TabBar& bar;
    std::size_t next = 0;
    double filled = 0;
    TimedBar written;
};

TimedBar ByColumns(const TabBar& bar, double barLength, const BarMargins& margins) {
    BarColumns columns{bar.Width, NoteColumns(bar)};
    const BarTimes times = TimesOf(columns, barLength, margins);
    BarWriter writer(bar);
    if (columns.Columns.empty()) {
        writer.AddRests(0, barLength, 1);
        return writer.Take();
    }
    writer.AddRests(0, times.Slots.front() * times.Unit, times.Unit);
    const int filled = std::max(static_cast<int>(std::lround(barLength / times.Unit)), times.Slots.back() + 1);
    const int end = times.End > 0 ? times.End : filled;
    for (std::size_t i = 0; i < times.Slots.size(); ++i) {
        const int to = i + 1 < times.Slots.size() ? times.Slots[i + 1] : end;
        const double room = (to - times.Slots[i]) * times.Unit;
        const NoteValue& value = LargestValue(room, times.Unit);
        writer.AddNotes(columns.Columns[i], value);
        writer.AddRests(columns.Columns[i], room - value.Length, times.Unit);
    }
    if (times.End > 0) writer.AddRests(columns.Columns.back(), barLength - end * times.Unit, times.Unit / 2);
    return writer.Take();
}

/// The value of a length above, as close as the ladder has it.
NoteValue ValueOf(const LengthAbove& length) {
    constexpr double dotted = 1.5, triplet = 2.0 / 3;
    double lasts = Core::LengthCodeIn64ths(length.Code);
    if (length.Dotted) lasts *= dotted;
    if (length.Triplet) lasts *= triplet;
    return LargestValue(lasts);
}

TimedBar ByLengths(const TabBar& bar, double barLength, const std::vector<LengthAbove>& lengths) {
    BarWriter writer(bar);
    const std::vector<int> columns = NoteColumns(bar);
    std::size_t length = 0;
    NoteValue value = LargestValue(16);
    for (const int column : columns) {
        constexpr int reach = 1;
        for (; length < lengths.size() && lengths[length].Column < column - reach; ++length) {
            value = ValueOf(lengths[length]);
            writer.Add(lengths[length].Column, value);  // above no note: a rest
        }
        if (length < lengths.size() && lengths[length].Column <= column + reach) value = ValueOf(lengths[length++]);
        writer.AddNotes(column, value);
    }
    for (; length < lengths.size(); ++length) writer.Add(lengths[length].Column, ValueOf(lengths[length]));
    if (barLength - writer.Filled() > 1e-3) {
        const auto last = writer.Written().Columns.empty() ? 0 : writer.Written().Columns.back();
        double left = barLength - writer.Filled();
        while (left > 0.1) {  // shorter than the shortest value
            const NoteValue& rest = LargestValue(left);
            if (rest.Length > left + 1e-6) break;
            writer.Add(last, rest);
            left -= rest.Length;
        }
    }
    return writer.Take();
}

}  // namespace

std::vector<int> NoteColumns(const TabBar& bar) {
    std::vector<int> columns;
    for (const TabNote& note : bar.Notes) {
        if (columns.empty() || columns.back() != note.Column) columns.push_back(note.Column);
    }
    return columns;
}

TimedBar StrumsOf(const TabBar& bar, double barLength, const BarMargins& margins,
                  const std::vector<LengthAbove>& lengths) {
    TimedBar timed = lengths.empty() ? ByColumns(bar, barLength, margins) : ByLengths(bar, barLength, lengths);
    double filled = 0;
    for (const Core::Strum& strum : timed.Strums) filled += Core::StrumLength(strum);
    timed.TooLong = filled > barLength + 1e-3;
    return timed;
}

std::vector<TabBar> CutByTime(const TabBar& all, double columnLength, double barLength) {
    std::vector<TabBar> bars;
    const int perBar = std::max(static_cast<int>(std::lround(barLength / columnLength)), 1);
    const int first = all.Notes.empty() ? 0 : all.Notes.front().Column;
    for (const TabNote& note : all.Notes) {
        const int at = note.Column - first;
        while (bars.empty() || at >= static_cast<int>(bars.size()) * perBar) {
            TabBar& bar = bars.emplace_back();
            bar.Width = perBar;
            bar.Origin = all.Origin + first + (static_cast<int>(bars.size()) - 1) * perBar;
        }
        bars.back().Notes.push_back(note);
        bars.back().Notes.back().Column = at % perBar;
    }
    if (bars.empty()) bars.push_back(all);
    bars.front().Opens = all.Opens;
    bars.back().Closes = all.Closes;
    return bars;
}

}  // namespace Quillon::Exchange
