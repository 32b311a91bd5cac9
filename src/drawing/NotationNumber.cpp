// Small texts over a bar's staff: its number, and how much of it found no place on the paper. Each stands as near its
// place as the notes under it let it.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

/// Paints nothing, and keeps the heights at which ink stands in an upright strip of the paper.
class Strip : public Picture {
public:
    Strip(double leftEdge, double rightEdge) : left(leftEdge), right(rightEdge) {}

    bool IsFree(double top, double bottom) const {
        return std::ranges::none_of(taken, [&](const Span& at) { return at.Top < bottom && top < at.Bottom; });
    }

    void SetColor(Color) override {}
    void SetFont(const Font& font) override { em = font.Pixels(); }
    void Line(double x1, double y1, double x2, double y2, double width) override {
        Take(std::array<Point, 2>{{{x1, y1}, {x2, y2}}}, {}, width / 2);
    }
    void Polyline(std::span<const Point> points, double width) override { Take(points, {}, width / 2); }
    void Polygon(std::span<const Point> points) override { Take(points, {}, 0); }
    void Stamp(const Shape& shape, double x, double y) override {
        constexpr double widest = 24;
        if (x < left - widest || x > right + widest) return;
        for (const std::vector<Point>& part : shape.Parts) Take(part, {x, y}, 0);
    }
    void Box(double x, double y, double width, double height, Color) override { Take(x, y, x + width, y + height); }
    void Circle(double x, double y, double radius, double width) override { Disc(x, y, radius + width / 2); }
    void Disc(double x, double y, double radius) override { Take(x - radius, y - radius, x + radius, y + radius); }
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override {
        constexpr double ascent = 0.75, descent = 0.05;
        const double width = TextWidth(text);
        const double begin = x - (anchor == Anchor::Center ? width / 2 : anchor == Anchor::Right ? width : 0);
        Take(begin, baseline - ascent * em, begin + width, baseline + descent * em);
    }
    double TextWidth(std::string_view text) override {
        constexpr double digit = 0.556;
        return digit * em * static_cast<double>(text.size());
    }

private:
    struct Span {
        double Top = std::numeric_limits<double>::max();
        double Bottom = std::numeric_limits<double>::lowest();
    };

    void Take(double from, double top, double to, double bottom) {
        if (from < right && left < to) taken.push_back({top, bottom});
    }
    /// The part of a run of strokes that stands in the strip.
    void Take(std::span<const Point> points, Point anchor, double half) {
        Span span;
        for (std::size_t i = 0; i + 1 < points.size(); ++i) {
            Point a{anchor.X + points[i].X, anchor.Y + points[i].Y};
            Point b{anchor.X + points[i + 1].X, anchor.Y + points[i + 1].Y};
            if (a.X > b.X) std::swap(a, b);
            if (b.X < left - half || a.X > right + half) continue;
            const double slope = b.X - a.X > 0.01 ? (b.Y - a.Y) / (b.X - a.X) : 0;
            if (slope != 0) {
                const Point begin = a;
                if (a.X < left) a = {left, begin.Y + slope * (left - begin.X)};
                if (b.X > right) b = {right, begin.Y + slope * (right - begin.X)};
            }
            span.Top = std::min({span.Top, a.Y - half, b.Y - half});
            span.Bottom = std::max({span.Bottom, a.Y + half, b.Y + half});
        }
        if (span.Top <= span.Bottom) taken.push_back(span);
    }

    const double left, right;
    double em = 0;
    std::vector<Span> taken;
};

constexpr double Digit = 4.45;  ///< width of one in the small font

constexpr int LowestNear = 62;  ///< written pitch of a head that reaches up to a number over a treble staff

/// True when a note, its bow or what else stands with it may reach over the staff.
bool ReachesUp(const Core::Track& track, const Core::Strum& strum, int string) {
    const Core::Note& note = strum.Notes[string];
    if (note.Fret.empty()) return false;
    if (!track.ShowTreble || track.IsDrum) return true;  // clefs whose staff takes other pitches
    return note.HasGrace || note.HasBend || note.Technique != 0 || strum.Stroke != 0 ||
           WrittenPitch(track, string, note) >= LowestNear;
}

int StringsInUse(const Core::Track& track) { return std::clamp<int>(track.Strings, 0, Core::StringCount); }

/// True when some note of a bar may stand over the staff near x, or a bow that goes on into the next bar.
bool MayMeet(const BarContext& bar, double x, bool isBefore) {
    constexpr int near = 32;
    const Core::Track& track = bar.ItsTrack();
    const auto& columns = bar.ItsBar().Place.StrumX;
    const auto& strums = bar.ItsBar().Strums();
    std::array<bool, Core::StringCount> later{};
    for (int s = std::min(columns.Count(), strums.Count()) - 1; s >= 0; --s) {
        const bool isNear = std::abs(columns[s] + (bar.X - bar.ItsBar().Place.BarX) - x) <= near;
        for (int string = 0; string < StringsInUse(track); ++string) {
            const Core::Note& note = strums[s].Notes[string];
            if (note.Fret.empty()) continue;
            bool& there = later[static_cast<std::size_t>(string)];
            const bool goesOn = isBefore && !there && (note.Tied || note.Technique != 0);
            there = true;
            if ((isNear || goesOn) && ReachesUp(track, strums[s], string)) return true;
        }
    }
    return false;
}

void TakeUppermostStaff(Strip& strip, const BarContext& bar) {
    for (const StaffBar& staff : StaffBarsOf(bar)) {
        if (staff.Place.Top == bar.Y) DrawStaff(strip, staff);
    }
}

bool HasFigures(const TabBar& bar, int strum) {
    const auto& notes = bar.Strum(strum).Notes;
    for (int string = 0; string < StringsInUse(bar.Track); ++string) {
        if (!notes[string].Fret.empty()) return true;
    }
    return false;
}

/// True when a small text stands free after it rose as many pixels as it needs, but not too far.
bool Rises(const Strip& strip, Label& label) {
    constexpr double top = 1, bottom = 7.2;
    constexpr int farthest = 20;
    for (int rise = 0; rise <= farthest; ++rise) {
        if (!strip.IsFree(label.Y - rise + top, label.Y - rise + bottom)) continue;
        label.Y -= rise;
        return true;
    }
    return false;
}

/// Finds the nearest free place for a text of digits: over its own, or a little aside of what reaches too high.
/// `paint` paints what stands near it.
template <class Paint>
void Place(Label& label, const Paint& paint) {
    for (const int aside : {0, -7, 9, -14, 16, -21, -28}) {
        Label moved = label;
        moved.X += aside;
        Strip strip(moved.X - 1.0, moved.X + Digit * static_cast<double>(label.Text.size()) + 1);
        paint(strip);
        if (!Rises(strip, moved)) continue;
        label = moved;
        return;
    }
}

Label FindNumberPlace(const BarContext& bar) {
    Label number = BarNumberLabel(bar.ItsBar(), bar.Bar, bar.X, bar.Y);
    const Core::Track& track = bar.ItsTrack();
    if (!track.ShowTreble && !track.ShowBass) return number;
    const bool own = MayMeet(bar, number.X, false);
    const Core::Bar* before = TabBar(bar).Beside(-1);
    const int width = before ? before->Place.BarWidth : 0;
    const BarContext left{bar.File, bar.Track, bar.Bar - 1, bar.X - width, bar.Y, width, bar.Look};
    const bool ofBefore = before && MayMeet(left, number.X, true);
    if (!own && !ofBefore) return number;
    Place(number, [&](Strip& strip) {
        if (own) TakeUppermostStaff(strip, bar);
        if (ofBefore) TakeUppermostStaff(strip, left);
        DrawBarMarks(strip, bar);
    });
    return number;
}

}  // namespace

Label PlacedBarNumber(const BarContext& bar) {
    if (!bar.Number) bar.Number = FindNumberPlace(bar);
    return *bar.Number;
}

Label LeftOutLabel(const TabBar& bar, const StaffBar* staff) {
    constexpr int over = 12, inset = 8, gap = 4;
    const BarContext& context = bar.Context;
    int count = 0;
    for (int s = 0; context.Look.Printed && s < (staff ? staff->All() : bar.Bar.Strums().Count()); ++s) {
        if (staff ? staff->HasNotes(s) && IsLeftOut(*staff, s) : HasFigures(bar, s) && IsLeftOut(bar, s)) ++count;
    }
    if (count == 0) return {};
    Label label{"+" + std::to_string(count), 0, (staff ? staff->Place.Top : context.Y) - over};
    const int repeats = context.Info().RepeatClose;
    const double behind = repeats > 0 ? Digit * static_cast<double>(std::to_string(repeats).size() + 1) + gap : 0;
    const double width = Digit * static_cast<double>(label.Text.size());
    const double right = std::min(bar.Right() - inset, PaperRight(bar)) - behind;
    label.X = static_cast<int>(std::floor(right - width));
    Place(label, [&](Strip& strip) {
        if (staff) DrawStaff(strip, *staff);
    });
    return label;
}

}  // namespace Quillon::Drawing
