// What joins heads: ties, bows, slides.
#include <algorithm>
#include <cmath>
#include <string>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

constexpr double BowAway = 5;  ///< from a head's middle to a bow's end above or below it
constexpr double BeforeSign = 6.5;

struct Target {
    double X = 0, Y = 0;  ///< of the other head's middle
    double Left = 0;      ///< where its signs begin
    bool SameRow = true;
    bool Found = false;
    int Pitch = 0;
    bool InNextBar = false;
};

/// The first head on a string from a column of a bar on; `there` tells whether the string has a note, if on the other
/// staff.
Target HeadFrom(const StaffBar& bar, int strum, int string, bool& there) {
    there = false;
    for (int next = strum; next < bar.Count(); ++next) {
        if (bar.Strum(next).Notes[string].Fret.empty()) continue;
        there = true;
        for (const StaffNote& other : bar.Column(next).Notes) {
            if (other.String != string) continue;
            double left = other.Sign == Accidental::None ? other.X - 4.6 : other.SignX - 2.8;
            const bool struck = bar.Strum(next).Stroke != 0 && bar.ShowsHands();
            if (struck || bar.Strum(next).Notes[string].HasGrace) left = bar.Column(next).Left;
            return {other.X, other.Y, left, true, true, other.Pitch, false};
        }
        break;
    }
    return {};
}

/// Hands the same staff of the next bar of the row, as that bar is going to draw it, to `use`.
template <typename Use>
void WithNextBar(const StaffBar& bar, const Use& use) {
    const BarContext& here = bar.Context;
    const int width = here.ItsTrack().Bars[here.Bar + 1].Place.BarWidth;
    const BarContext next{here.File, here.Track, here.Bar + 1, here.X + here.Width, here.Y, width, here.Look};
    for (const StaffBar& staff : StaffBarsOf(next)) {
        if (!staff.Place.OfOther && staff.Place.Top == bar.Place.Top) use(staff);
    }
}

/// Where a bow to the next row ends: in the margin. That of a bar that is too full stays in it.
double RowEnd(const StaffBar& bar) {
    return bar.Right() + (bar.Count() < bar.All() || TabBar(bar.Context).Beside(1) ? -2 : 7);
}

/// The next head on a note's string, in this bar or the next one.
Target NextHead(const StaffBar& bar, int strum, const StaffNote& note) {
    bool there = false;
    if (const Target target = HeadFrom(bar, strum + 1, note.String, there); there) return target;
    if (bar.Place.OfOther) return {};
    Partner partner;
    for (int next = bar.Count(); next < bar.All() && !partner.Note; ++next) {
        const Core::Note& other = bar.Strum(next).Notes[note.String];  // of a bar that is too full
        if (!other.Fret.empty()) partner.Note = &other;
    }
    if (!partner.Note) partner = NextOnString(TabBar(bar.Context), bar.All() - 1, note.String);
    if (!partner.Note) return {};
    if (partner.SameRow) {
        Target target;
        WithNextBar(bar, [&](const StaffBar& next) { target = HeadFrom(next, 0, note.String, there); });
        target.InNextBar = true;
        return target;
    }
    Target target{RowEnd(bar), note.Y, RowEnd(bar), false, true, 0, false};
    if (!bar.IsDrum()) {
        target.Pitch = WrittenPitch(bar.Track, note.String, *partner.Note);
        if (!Takes(bar.Place, target.Pitch)) return {};
    }
    target.Y = bar.YOf(SpellNote(bar, note.String, partner.Note->Fret).Step);
    return target;
}

/// Bows of the upper heads of a chord lie above them, those of the lower heads below; that of a single head on the side
/// away from its stem.
bool BowsUp(const StaffColumn& column, const StaffNote& note) {
    if (column.Notes.size() < 2) return !column.StemUp;
    const double middle = (column.Highest() + column.Lowest()) / 2;
    return note.Y == middle ? !column.StemUp : note.Y < middle;
}

/// A tie joins heads of one pitch; before another one its note rings on.
bool IsHeldBy(const StaffBar& bar, const StaffNote& note, const Target& target) {
    return bar.IsDrum() ? target.Y == note.Y : target.Pitch == note.Pitch;
}

void DrawBowTo(Picture& picture, const StaffBar& bar, int strum, const StaffNote& note, const Target& target) {
    const StaffColumn& column = bar.Column(strum);
    const bool up = BowsUp(column, note);
    const double outward = up ? -1 : 1;
    const bool inChord = column.Notes.size() > 1;
    // Beside the heads of a chord, above or below a single one.
    const double away = inChord ? 2 : BowAway, inset = inChord ? 5.5 : 2;
    const double dots = inChord && bar.Strum(strum).Dotted ? 5 : 0;
    const double from = note.X + inset + dots;
    double to = target.SameRow ? target.X - inset : RowEnd(bar);
    if (inChord && target.SameRow) to = std::min(to, target.Left - 1);
    if (to - from < 4) to = from + 4;
    const double fall = target.SameRow ? target.Y - note.Y : 0;
    const double rise = std::min(6.5, 2.5 + (to - from) / 16);
    DrawBow(picture, from, to, note.Y + outward * away, -outward * rise, fall);
}

bool MeetsHeads(const StaffBar& bar, const Area& letter) {
    for (int s = 0; s < bar.Count(); ++s) {
        for (const Area& area : AreasOf(bar, s)) {
            if (area.Left < letter.Right && letter.Left < area.Right && area.Top < letter.Bottom &&
                letter.Top < area.Bottom) {
                return true;
            }
        }
    }
    return false;
}

void DrawLegato(Picture& picture, const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    const StaffNote* outermost = nullptr;
    for (const StaffNote& note : column.Notes) {
        if (bar.Strum(strum).Notes[note.String].Technique != Core::HammerOnPullOff) continue;
        if (!outermost || (column.StemUp ? note.Y > outermost->Y : note.Y < outermost->Y)) outermost = &note;
    }
    if (!outermost) return;
    const Target target = NextHead(bar, strum, *outermost);
    if (!target.Found) return;
    // One bow for all notes of the strum, over or under the outermost.
    const double outward = column.StemUp ? 1 : -1;
    const double from = outermost->X + 1, to = target.SameRow ? target.X - 1 : RowEnd(bar);
    const double fall = target.SameRow ? target.Y - outermost->Y : 0;
    const double rise = std::min(7.0, 3 + (to - from) / 16);
    const double y = outermost->Y + outward * (BowAway + 0.5);
    DrawBow(picture, from, std::max(to, from + 5), y, -outward * rise, fall);
    if (!bar.ShowsHands() || target.Pitch == outermost->Pitch) return;
    const char* letter = target.Pitch > outermost->Pitch ? "H" : "P";
    // Beyond the bow, and beyond the heads of other strings there.
    constexpr double half = 2.5, height = 6, farthest = 40;
    const double x = std::round((from + to) / 2);
    const double nearest = std::round(y + fall / 2 + outward * (rise + (outward < 0 ? 2.5 : 8.5)));
    double baseline = nearest;
    const auto clear = [&](const StaffBar& staff) {
        while (std::abs(baseline - nearest) < farthest &&
               MeetsHeads(staff, {x - half, baseline - height, x + half, baseline})) {
            baseline += outward;
        }
    };
    clear(bar);
    if (target.InNextBar && x + half > bar.Right()) WithNextBar(bar, clear);
    Print(picture, SmallFont, x, baseline, letter);
}

void DrawSlideTo(Picture& picture, const StaffBar& bar, int strum, const StaffNote& note) {
    const Target target = NextHead(bar, strum, note);
    const bool dotted = bar.Strum(strum).Dotted;
    const double from = note.X + BeforeSign + (dotted ? 5 : 0);
    if (!target.Found || !target.SameRow) {
        const double to = target.Found ? bar.Right() - 2 : from + 9;
        return picture.Line(from, note.Y + 2.5, std::max(to, from + 5), note.Y - 2.5, 1.2);
    }
    const double to = std::max(target.Left - 2, from + 4);
    const double slant = target.Y < note.Y ? 1 : target.Y > note.Y ? -1 : target.Pitch < note.Pitch ? -2 : 2;
    picture.Line(from, note.Y + slant * 0.7, to, target.Y - slant * 0.7, 1.2);
}

}  // namespace

void DrawStaffLinks(Picture& picture, const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    DrawLegato(picture, bar, strum);
    for (const StaffNote& note : column.Notes) {
        const Core::Note& own = bar.Strum(strum).Notes[note.String];
        if (own.Technique == Core::LegatoSlide) DrawSlideTo(picture, bar, strum, note);
        bool rings = own.LetRing;
        if (own.Tied) {
            if (const Target target = NextHead(bar, strum, note); target.Found) {
                if (IsHeldBy(bar, note, target)) {
                    DrawBowTo(picture, bar, strum, note, target);
                    continue;
                }
                rings = rings || own.Technique != Core::HammerOnPullOff;
            }
        }
        if (!rings) continue;
        constexpr double longest = 12, shortest = 7;
        const bool up = BowsUp(column, note);
        const double from = note.X + (column.Notes.size() > 1 ? 5.5 : 3) + (bar.Strum(strum).Dotted ? 5 : 0);
        const double next = strum + 1 < bar.Count() ? bar.Column(strum + 1).Left - 1.5 : bar.Right() - 2;
        const double length = std::min(longest, next - from);
        if (length < shortest) continue;
        const double away = column.Notes.size() > 1 ? 2 : 4;
        DrawBow(picture, from, from + length, note.Y + (up ? -away : away), up ? 2.5 : -2.5);
    }
}

void DrawStaffLinksFromLastRow(Picture& picture, const StaffBar& bar) {
    constexpr double reach = 14, margin = 6, afterFigures = 43;
    const BarContext& context = bar.Context;
    if (bar.Place.OfOther || context.Bar == 0 || bar.Count() == 0 || TabBar(context).Beside(-1)) return;
    const auto& before = bar.Track.Bars[context.Bar - 1].Strums();
    const auto lastOn = [&](int string) -> const Core::Note& {
        int at = before.UpperBound();
        while (at > 0 && before[at].Notes[string].Fret.empty()) --at;
        return before[at].Notes[string];
    };
    const StaffColumn& column = bar.Column(0);
    // In the margin again, unless clefs stand there or in the bar.
    const bool figures = context.ItsBar().Place.ShowTimeSig;
    const double begin = context.X + (figures ? afterFigures : RowHeadWidth(context) > 0 ? 1 : -margin);
    for (const StaffNote& note : column.Notes) {
        const Core::Note& from = lastOn(note.String);
        const bool held = from.Tied && (bar.IsDrum() ? SpellNote(bar, note.String, from.Fret).Step == note.Step
                                                     : WrittenPitch(bar.Track, note.String, from) == note.Pitch);
        if (from.Fret.empty() || (!held && from.Technique != Core::HammerOnPullOff)) continue;
        const bool up = BowsUp(column, note), inChord = column.Notes.size() > 1;
        double right = note.X - (inChord ? 5.5 : 2);
        if (inChord && note.Sign != Accidental::None) right = std::min(right, note.SignX - 3.8);
        const double left = std::max(right - reach, begin);
        const double away = inChord ? 2 : BowAway;
        DrawBow(picture, left, std::max(right, left + 4), note.Y + (up ? -away : away), up ? 3 : -3);
    }
}

}  // namespace Quillon::Drawing
