// Columns that step aside: for what stands before them, and for what other parts of the page have printed already.
#include <algorithm>
#include <cmath>
#include <string>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

constexpr double DotsRight = 69.5;  ///< of the dots of a repeat behind the figures, from the bar's left edge
constexpr double NearDots = 85;     ///< columns left of here may meet them

void Move(StaffColumn& column, double by) {
    column.X += by;
    column.Left += by;
    column.GraceX += by;
    column.StrokeX += by;
    for (StaffNote& note : column.Notes) {
        note.X += by;
        note.SignX += by;
    }
}

/// Where what stands before a column may begin.
double LeftLimit(const StaffBar& bar, int strum) {
    constexpr double line = 3, dots = 10.5, timeRight = 41, clearOfTime = 42.5, usual = 4.6;
    const BarContext& context = bar.Context;
    if (strum == 0) {
        if (context.ItsBar().Place.ShowTimeSig) {
            return context.X + (bar.ShowsHands() ? clearOfTime : timeRight) + SignatureOverhang(context);
        }
        return context.X + (context.Info().RepeatOpen ? dots : line);
    }
    const StaffColumn& before = bar.Column(strum - 1);
    double right = before.X + usual * before.Scale();
    for (const StaffNote& note : before.Notes) right = std::max(right, note.X + HeadReach(bar, strum - 1, note));
    return right + (bar.Strum(strum - 1).Dotted ? 5.5 * before.Scale() : 0) + 0.5;
}

/// The dots of a repeat that stand on the staff behind its figures.
std::vector<Area> PrintedBefore(const StaffBar& bar) {
    constexpr double dotsLeft = 64.5, dotsTop = 7.5, dotsBottom = 20;
    const BarContext& context = bar.Context;
    if (!context.Info().RepeatOpen || !context.ItsBar().Place.ShowTimeSig) return {};
    return {{context.X + dotsLeft, bar.Place.Top + dotsTop, context.X + DotsRight, bar.Place.Top + dotsBottom}};
}

}  // namespace

std::vector<Area> AreasOf(const StaffBar& bar, int strum) {
    constexpr double half = 3.4, ledger = 7.5, dot = 10, graceStem = 16;
    const StaffColumn& column = bar.Column(strum);
    std::vector<Area> areas;
    if (column.Rest) areas.push_back({column.Left, bar.Place.Top + 3.0, column.X + 5, bar.Place.Top + 25.0});
    for (const StaffNote& note : column.Notes) {
        const double reach = HeadReach(bar, strum, note);
        const double right = bar.Strum(strum).Dotted ? dot : reach;
        areas.push_back({note.X - reach, note.Y - half, note.X + right, note.Y + half});
        if (note.Step >= 10) {
            areas.push_back({note.X - ledger, note.Y - half, note.X + ledger, bar.Place.Top - 6.0});
        }
        if (note.Sign != Accidental::None) areas.push_back(SignArea(column, note));
        const Core::Note& own = bar.Strum(strum).Notes[note.String];
        if (own.HasGrace) areas.push_back({column.Left, note.Y - graceStem, column.X, note.Y});
    }
    return areas;
}

namespace {

bool StemUpAhead(const StaffBar& bar, int strum) {
    const auto group = std::ranges::find_if(bar.Groups, [&](const BeamGroup& at) { return at.Last >= strum; });
    return group != bar.Groups.end() && group->StemUp;
}

}  // namespace

double StemXAhead(const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    return column.X + (column.Displaced ? 3 : StemUpAhead(bar, strum) ? HeadHalf : -HeadHalf) * column.Scale();
}

namespace {

/// Where the stem of a column is going to stand, as far as it matters to what is printed before it.
Area StemArea(const StaffBar& bar, int strum) {
    constexpr double half = 1.5;
    const StaffColumn& column = bar.Column(strum);
    const bool up = StemUpAhead(bar, strum);
    const double x = StemXAhead(bar, strum);
    return {x - half, column.Highest() - (up ? OctaveLong : 0), x + half, column.Lowest() + (up ? 0 : OctaveLong)};
}

/// How far a column must step so that it prints over nothing; `by` when that is further than `most`.
double ClearOfPrinted(const StaffBar& bar, int strum, double by, double most) {
    double clear = by;
    std::vector<Area> areas = AreasOf(bar, strum);
    if (!bar.Column(strum).Notes.empty() && bar.Strum(strum).Length > 0) areas.push_back(StemArea(bar, strum));
    for (const Area& printed : PrintedBefore(bar)) {
        for (const Area& area : areas) {
            const bool meets = area.Left + clear < printed.Right && printed.Left < area.Right + clear &&
                               area.Top < printed.Bottom && printed.Top < area.Bottom;
            if (meets) clear = std::max(clear, printed.Right - area.Left);
        }
    }
    return clear <= most ? clear : by;
}

/// How far a first column must step behind the dots of a repeat; only a tab, whose first figures stand left of them,
/// holds it before them.
double BehindDots(const StaffBar& bar) {
    const BarContext& context = bar.Context;
    if (!bar.ShowsHands() || !context.Info().RepeatOpen || !context.ItsBar().Place.ShowTimeSig) return 0;
    return context.X + DotsRight - bar.Column(0).Left;
}

/// How far what stands before a column must step to print over nothing, at most `furthest`. Accidentals that find no
/// room at their full size become small.
double StepAside(StaffBar& bar, int strum, double furthest) {
    StaffColumn& column = bar.Column(strum);
    if (LeftLimit(bar, strum) - column.Left > furthest && !column.SignsAreSmall()) {
        column.Crowded = true;
        PlaceBefore(bar, strum);
    }
    return std::min(LeftLimit(bar, strum) - column.Left, furthest);
}

bool HasAlteredGrace(const StaffBar& bar, int strum) {
    return std::ranges::any_of(GraceHeads(bar, strum),
                               [](const GraceHead& head) { return head.Sign != Accidental::None; });
}

}  // namespace

void MakeRoomBefore(std::vector<StaffBar>& staves) {
    // Of the way to the next column; pixels from the tab figure of the same strum, and where no tab shows. The first
    // column may have to pass a crowded key and the time signature; nothing is worse than printing over those.
    constexpr double most = 0.5, besideTab = 6, alone = 12, firstAlone = 40, behindFigures = 12, graceBehind = 36;
    // The staves of one track move together; that of another track has columns of its own.
    for (const bool ofOther : {false, true}) {
        std::vector<StaffBar*> related;
        for (StaffBar& bar : staves) {
            if (bar.Place.OfOther == ofOther) related.push_back(&bar);
        }
        for (int s = 0; !related.empty() && s < related.front()->Count(); ++s) {
            double by = 0;
            for (StaffBar* bar : related) {
                const StaffColumn& column = bar->Column(s);
                if (!column.Sounds() && !column.Rest) continue;
                const double halfWay = std::max(0.0, most * (bar->NextX(s) - column.X));
                const bool tab = bar->Context.ItsTrack().ShowTab, first = s == 0;
                double furthest = tab ? besideTab : first ? firstAlone : alone;
                if (tab && first && HasAlteredGrace(*bar, s)) furthest = alone;
                if (tab && first && bar->Context.ItsBar().Place.ShowTimeSig) {
                    furthest = GraceHeads(*bar, s).empty() ? behindFigures : graceBehind;
                }
                furthest = std::min(furthest, halfWay);
                by = std::max(by, StepAside(*bar, s, furthest));
                if (column.X < bar->Context.X + NearDots) by = ClearOfPrinted(*bar, s, by, furthest);
                if (s == 0 && BehindDots(*bar) <= halfWay) by = std::max(by, BehindDots(*bar));
            }
            for (StaffBar* bar : related) {
                if (by > 0) Move(bar->Column(s), std::ceil(by));  // by whole pixels, as stems stand
            }
        }
    }
}

}  // namespace Quillon::Drawing
