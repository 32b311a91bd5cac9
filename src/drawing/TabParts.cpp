#include "drawing/TabParts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {
constexpr double FigureReach = 6;  ///< from a column to the end of its figures
}

void Room::Take(const Area& area) {
    // A bar from a damaged file may hold thousands of strums on one spot; their marks need not make room for each
    // other.
    constexpr std::size_t enough = 600;
    if (taken.size() < enough) taken.push_back(area);
}

bool Room::IsFree(const Area& area, bool passNumbers) const {
    return std::none_of(taken.begin(), taken.end(), [&](const Area& other) {
        return !(passNumbers && other.IsBarNumber) && area.Left < other.Right && other.Left < area.Right &&
               area.Top < other.Bottom && other.Top < area.Bottom;
    });
}

double Room::TakeLevel(double left, double right, double labelRight, double firstMiddle, double step) {
    constexpr double half = 3.5;
    constexpr int enough = 40;
    double middle = firstMiddle;  // where nothing is free, as good a place as any
    for (int level = 0; level < enough; ++level) {
        const double at = firstMiddle - step * level, label = std::min(right, labelRight);
        if (at - half < ceiling) break;
        if ((label <= left || IsFree({left, at - half, label, at + half})) &&
            IsFree({left, at - half, right, at + half}, true)) {
            middle = at;
            break;
        }
    }
    Take({left, middle - half, right, middle + half});
    return middle;
}

std::vector<Point> Room::Pieces(double left, double right, double middle) const {
    constexpr double margin = 2, half = 2;  // a wave swings this far
    std::vector<Point> pieces{{left, right}};
    for (const Area& area : taken) {
        if (!area.IsBarNumber || middle + half < area.Top || middle - half > area.Bottom) continue;
        std::vector<Point> cut;
        for (const Point& piece : pieces) {
            const double end = std::min(piece.Y, area.Left - margin);
            const double begin = std::max(piece.X, area.Right + margin);
            if (end > piece.X) cut.push_back({piece.X, end});
            if (begin < piece.Y) cut.push_back({begin, piece.Y});
        }
        pieces = std::move(cut);
    }
    return pieces;
}

TabBar::TabBar(const BarContext& bar)
    : Context(bar),
      Track(bar.ItsTrack()),
      Bar(bar.ItsBar()),
      Strings(StringsShown(Track)),
      Top(bar.Y + TabOffset(Track) + FirstLineDrop),
      Bottom(Top + StringStep * (Strings - 1)),
      OnStaff(!Track.ShowTab && (Track.ShowTreble || Track.ShowBass)),
      Shown(Bar.Strums().Count()),
      OnRowTop(Top == bar.Y) {
    const double inBar = Right() - OverfullReach;
    if (Shown > 1 && Bar.Place.StrumX.Count() >= Shown && Column(Shown - 1) > inBar) {
        const bool inside = Beside(1) || (OnStaff && HasWidth(bar));
        const double limit = inside ? inBar : PaperRight(*this) - FigureReach;
        while (Shown > 1 && Column(Shown - 1) > limit) --Shown;
    }
    if (!OnStaff) return;
    const std::vector<StaffPlace> staves = StaffPlacesOf(bar);
    const std::size_t lowest = Track.ShowTreble && Track.ShowBass ? 1 : 0;
    Top = staves.front().Top;
    Bottom = staves[lowest].Top + StaffLineSpan;
    OnRowTop = true;
}

bool IsLeftOut(const TabBar& bar, int strum) {
    return bar.Context.Look.Printed && bar.Column(strum) > PaperRight(bar) - FigureReach;
}

double TabBar::Column(int strum) const { return Bar.Place.StrumX[strum] + (Context.X - Bar.Place.BarX); }

double TabBar::NextColumn(int strum) const { return strum + 1 < StrumCount() ? Column(strum + 1) : Right(); }

const Core::Bar* TabBar::Beside(int step) const {
    const int other = Context.Bar + step;
    if (other < 0 || other > Track.Bars.UpperBound()) return nullptr;
    const Core::Bar& bar = Track.Bars[other];
    const Core::BarPlace& place = bar.Place;
    if (place.BarY != Bar.Place.BarY || place.StrumX.Count() < bar.Strums().Count()) return nullptr;
    // Places of an older layout may lie anywhere; only a bar that joins without a gap counts.
    const bool joins =
        step > 0 ? place.BarX == Bar.Place.BarX + Bar.Place.BarWidth : place.BarX + place.BarWidth == Bar.Place.BarX;
    return joins ? &bar : nullptr;
}

Partner NextOnString(const TabBar& bar, int strum, int string) {
    constexpr double past = 2, leastBow = 10;
    // Of a strum that stands past the bar line already.
    const double end = std::max(bar.Right() + past, strum >= 0 ? bar.Column(strum) + leastBow : 0);
    for (int next = strum + 1; next < bar.StrumCount(); ++next) {
        const Core::Note& note = bar.Strum(next).Notes[string];
        if (!note.Fret.empty()) return {&note, bar.Column(next), true, next == strum + 1};
    }
    for (int next = bar.StrumCount(); next < bar.Bar.Strums().Count(); ++next) {
        const Core::Note& note = bar.Strum(next).Notes[string];
        if (!note.Fret.empty()) return {&note, end, false, false};
    }
    const int following = bar.Context.Bar + 1;
    if (following > bar.Track.Bars.UpperBound()) return {};
    const Core::Bar& nextBar = bar.Track.Bars[following];
    const bool sameRow = bar.Beside(1) != nullptr;
    for (int next = 0; next < nextBar.Strums().Count(); ++next) {
        const Core::Note& note = nextBar.Strums()[next].Notes[string];
        if (note.Fret.empty()) continue;
        const double x = sameRow ? nextBar.Place.StrumX[next] + (bar.Context.X - bar.Bar.Place.BarX) : end;
        return {&note, x, sameRow, next == 0 && strum + 1 == bar.StrumCount()};
    }
    return {};
}

Font NoteFont(const Core::TabFile& file) {
    return {file.NoteFontName,      std::clamp<double>(file.NoteFontSize, 1, LargestFontSize),
            file.NoteFontBold,      file.NoteFontItalic,
            file.NoteFontUnderline, file.NoteFontStrike};
}

Extent FigureExtent(Picture& picture, const TabBar& bar, int string, const Core::Note& note) {
    std::string core;
    const std::string text = Figure(bar.Track, string, note, &core);
    if (text.empty()) return {};
    picture.SetFont(NoteFont(bar.Context.File));
    const double width = picture.TextWidth(text);
    const double half = (core == text ? width : picture.TextWidth(core)) / 2;
    return {half, width - half};
}

bool FretNumber(const std::string& fret, int& number) {
    const auto [end, error] = std::from_chars(fret.data(), fret.data() + fret.size(), number);
    return error == std::errc{} && end == fret.data() + fret.size();
}

void Print(Picture& picture, const Font& font, double x, double baseline, std::string_view text, Anchor anchor) {
    picture.SetFont(font);
    MoveTo(picture, x, baseline);
    picture.Print(text, anchor);
}

void DrawBow(Picture& picture, double left, double right, double y, double rise, double fall) {
    constexpr int segments = 12;
    constexpr double ends = 0.4, middle = 0.9;  // half the thickness
    std::array<Point, 2 * (segments + 1)> outline;
    for (int i = 0; i <= segments; ++i) {
        const double u = static_cast<double>(i) / segments;
        // Flatter than a parabola, so that a long bow does not look like a tent.
        const double height = rise * (1 - std::pow(std::abs(2 * u - 1), 2.4));
        const double half = ends + (middle - ends) * std::sin(u * std::numbers::pi);
        const double x = left + u * (right - left);
        const double at = y - height + u * fall;
        outline[static_cast<std::size_t>(i)] = {x, at - half};
        outline[static_cast<std::size_t>(2 * segments + 1 - i)] = {x, at + half};
    }
    picture.Polygon(outline);
}

void DrawWave(Picture& picture, double left, double right, double middle, double amplitude) {
    constexpr double step = 2.5;
    // The top and bottom of each swing are a little flat, which reads as a wave and not as a saw.
    std::vector<Point> points;
    int side = 1;
    for (double x = left; x + step <= right + 0.01; x += step, side = -side) {
        points.push_back({x + 0.3 * step, middle - side * amplitude});
        points.push_back({x + 0.7 * step, middle - side * amplitude});
    }
    if (points.size() > 1) picture.Polyline(points, 1.1);
}

void DrawArrowhead(Picture& picture, double x, double y, int direction, double size) {
    const double half = size / 2;
    picture.Polygon({{x, y}, {x - half, y - direction * size}, {x + half, y - direction * size}});
}

}  // namespace Quillon::Drawing
