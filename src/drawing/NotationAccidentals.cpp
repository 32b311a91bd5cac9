// Accidentals: which heads carry one, and where they stand so that none prints over another.
#include <algorithm>
#include <array>
#include <map>

#include "core/mod_TabFileManipulation.h"
#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr double SignHalf = 2.8;  ///< of its width
constexpr double SignStep = 5.9;  ///< from one column of accidentals to the next
constexpr double HeadGap = 1.2;
constexpr double GraceWidth = 8.5;
constexpr double HeadReach = 4.6, RestReach = 5.5;

Accidental SignOf(int alteration) {
    return alteration > 0 ? Accidental::Sharp : alteration < 0 ? Accidental::Flat : Accidental::Natural;
}

struct Height {
    double Top, Bottom;
};
Height HeightOf(const StaffNote& note) {
    const double above = note.Sign == Accidental::Flat ? 11.5 : 8;
    return {note.Y - above, note.Y + (note.Sign == Accidental::Flat ? 5 : 8)};
}

/// Pitches that a tie of the bar before holds on each string, -1 without one.
std::array<int, Core::StringCount> HeldPitches(const StaffBar& bar) {
    std::array<int, Core::StringCount> held;
    held.fill(-1);
    if (bar.Context.Bar == 0) return held;
    const auto& strums = bar.Track.Bars[bar.Context.Bar - 1].Strums();
    for (int string = 0; string < Core::StringCount; ++string) {
        for (int s = strums.UpperBound(); s >= 0; --s) {
            const Core::Note& note = strums[s].Notes[string];
            if (note.Fret.empty()) continue;
            if (note.Tied) held[static_cast<std::size_t>(string)] = WrittenPitch(bar.Track, string, note);
            break;
        }
    }
    return held;
}

/// Gives its sign to each head that differs from the key and from what stood on its place in the bar before.
void ChooseSigns(StaffBar& bar) {
    auto held = HeldPitches(bar);
    std::map<int, int> altered;  // by place of the staff
    for (int s = 0; s < bar.Count(); ++s) {
        for (StaffNote& note : bar.Column(s).Notes) {
            int& holds = held[static_cast<std::size_t>(note.String)];
            const bool tiedOver = holds == note.Pitch;
            holds = -1;
            if (tiedOver || note.Cross) continue;
            const auto known = altered.find(note.Step);
            const int before =
                known != altered.end() ? known->second : KeyAlteration(bar.Bar.Key, note.Step, bar.Place.Clef);
            if (note.Alteration == before) continue;
            altered[note.Step] = note.Alteration;
            note.Sign = SignOf(note.Alteration);
        }
    }
}

/// The topmost sign nearest to the heads, then the lowest, and so on inward; each in the first column where it is free.
void PlaceSigns(StaffColumn& column) {
    std::vector<StaffNote*> signs;
    for (StaffNote& note : column.Notes) {
        if (note.Sign != Accidental::None) signs.push_back(&note);
    }
    std::sort(signs.begin(), signs.end(), [](auto* a, auto* b) { return a->Y < b->Y; });
    std::vector<std::vector<Height>> columns;
    const double first = column.X - HeadReach - HeadGap - SignHalf;
    for (std::size_t low = 0, high = signs.size(), turn = 0; low < high; ++turn) {
        StaffNote& note = *(turn % 2 == 0 ? signs[low++] : signs[--high]);
        const Height height = HeightOf(note);
        const auto isFree = [&](const std::vector<Height>& taken) {
            return std::none_of(taken.begin(), taken.end(), [&](const Height& other) {
                return height.Top < other.Bottom && other.Top < height.Bottom;
            });
        };
        std::size_t at = 0;
        while (at < columns.size() && !isFree(columns[at])) ++at;
        if (at == columns.size()) columns.emplace_back();
        columns[at].push_back(height);
        note.SignX = first - SignStep * static_cast<double>(at);
        column.Left = std::min(column.Left, note.SignX - SignHalf);
    }
}

bool HasGraceHere(const StaffBar& bar, int strum) {
    return std::any_of(bar.Column(strum).Notes.begin(), bar.Column(strum).Notes.end(), [&](const StaffNote& note) {
        const Core::Note& own = bar.Strum(strum).Notes[note.String];
        return own.HasGrace && !own.GraceFret.empty();
    });
}

void Move(StaffColumn& column, double by) {
    column.X += by;
    column.Left += by;
    column.GraceX += by;
    for (StaffNote& note : column.Notes) {
        note.X += by;
        note.SignX += by;
    }
}

/// Where what stands before a column may begin.
double LeftLimit(const StaffBar& bar, int strum) {
    constexpr double line = 2, dots = 10.5, timeRight = 41;
    const BarContext& context = bar.Context;
    if (strum == 0) {
        if (context.ItsBar().Place.ShowTimeSig) return context.X + timeRight + SignatureOverhang(context);
        return context.X + (context.Info().RepeatOpen ? dots : line);
    }
    const StaffColumn& before = bar.Column(strum - 1);
    const double dotted = bar.Strum(strum - 1).Dotted ? 5.5 : 0;
    return before.X + HeadReach + (before.Displaced ? 6 : 0) + dotted + 0.5;
}

}  // namespace

void PlaceAccidentals(StaffBar& bar) {
    if (!bar.IsDrum()) ChooseSigns(bar);
    for (int s = 0; s < bar.Count(); ++s) {
        StaffColumn& column = bar.Column(s);
        column.Left = column.X - (column.Rest ? RestReach : HeadReach);
        PlaceSigns(column);
        if (HasGraceHere(bar, s)) {
            column.GraceX = column.Left - 3.5;
            column.Left -= GraceWidth;
        }
    }
}

void MakeRoomBefore(std::vector<StaffBar>& staves) {
    constexpr double most = 0.5;  // of the way to the next column
    // The staves of one track move together; that of another track has columns of its own.
    for (const bool ofOther : {false, true}) {
        std::vector<StaffBar*> related;
        for (StaffBar& bar : staves) {
            if (bar.Place.OfOther == ofOther) related.push_back(&bar);
        }
        for (int s = 0; !related.empty() && s < related.front()->Count(); ++s) {
            double by = 0;
            for (const StaffBar* bar : related) {
                const StaffColumn& column = bar->Column(s);
                if (!column.Sounds() && !column.Rest) continue;
                const double wanted = LeftLimit(*bar, s) - column.Left;
                by = std::max(by, std::min(wanted, most * (bar->NextX(s) - column.X)));
            }
            for (StaffBar* bar : related) {
                if (by > 0) Move(bar->Column(s), by);
            }
        }
    }
}

}  // namespace Quillon::Drawing
