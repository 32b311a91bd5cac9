// The frame of a bar: number, staves, figures of the time signature, repeats, bar lines.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

/// From the edge between two bars: a thick line over it, a gap of 2, a thin line, then the dots.
constexpr int ThinLine = 4;
constexpr int DotsInset = 7;
constexpr int DotsInsetWithFigures = 67;
constexpr int LettersInset = 12;  ///< of the middle of "T", "A", "B"

/// Tops and bottoms of what a row shows.
struct Staves {
    std::vector<StaffPlace> Places;  ///< the row's own first, then that of the track whose lyrics it shows
    bool Tab;
    int TabTop, TabBottom;
    int Top, Bottom;

    bool Shown() const { return Tab || (!Places.empty() && !Places.front().OfOther); }
};

Staves StavesOf(const BarContext& bar) {
    const TabBar tab(bar);
    Staves staves{StaffPlacesOf(bar), bar.ItsTrack().ShowTab, tab.Top, tab.Bottom, tab.Top, tab.Bottom};
    for (const StaffPlace& staff : staves.Places) {
        if (!staff.OfOther) staves.Top = std::min(staves.Top, staff.Top);
    }
    return staves;
}

/// `half` is the way from the middle of the staff to that of a figure.
void DrawTimeSignature(Picture& picture, const BarContext& bar, double middle, double half, bool onStaff = false) {
    // Right-aligned, so that two digits clear the first column.
    const double right = 40 + (onStaff ? SignatureOverhang(bar) : 0);
    const std::string top = std::to_string(bar.Info().TimeSigTop), bottom = std::to_string(bar.Info().TimeSigBottom);
    // On a staff a figure fills its two spaces; two digits side by side must leave the key its room.
    const bool large = onStaff && top.size() == 1 && bottom.size() == 1;
    const Font font{.Name = "Arial", .Size = half * (large ? 1.75 : onStaff ? 1.28 : 1.45), .Bold = true};
    const double drop = 0.358 * font.Pixels();  // half the height of a digit
    picture.SetColor(bar.File.NoteFontColor);
    Print(picture, font, bar.X + right, middle - half + drop, top, Anchor::Right);
    Print(picture, font, bar.X + right, middle + half + drop, bottom, Anchor::Right);
}

void DrawTabLetters(Picture& picture, const BarContext& bar, double x, int top, int strings) {
    constexpr int step = 11, ascent = 10;
    const Font font{.Name = "Arial", .Size = 8, .Bold = true};
    picture.SetColor(bar.File.NoteFontColor);
    int y = top + strings * StringStep / 2 - 22;
    for (const char* letter : {"T", "A", "B"}) {
        Print(picture, font, x, y + ascent, letter);
        y += step;
    }
}

/// The strum whose figures a dot at x would touch, null without one.
const Core::Strum* StrumAt(const BarContext& bar, double x) {
    constexpr double reach = 7;
    const auto& columns = bar.ItsBar().Place.StrumX;
    const auto& strums = bar.ItsBar().Strums();
    for (int s = 0; s < std::min(columns.Count(), strums.Count()); ++s) {
        const double column = columns[s] + (bar.X - bar.ItsBar().Place.BarX);
        if (std::abs(column - x) < reach) return &strums[s];
    }
    return nullptr;
}

/// Two gaps between the strings for the dots of a repeat, counted from the top: as far apart and as near the middle as
/// the figures of `beside` leave them room.
std::pair<int, int> RepeatDotGaps(int strings, const Core::Strum* beside) {
    const int gaps = strings - 1;
    const int wanted = strings % 2 == 0 ? 2 : 1;  // of an even number of strings the middle gap stays free
    const auto hasFigure = [&](int string) { return beside && !beside->Notes[string].Fret.empty(); };
    std::pair<int, int> best;
    int least = std::numeric_limits<int>::max();
    for (int upper = 0; upper + 1 < gaps; ++upper) {
        for (int lower = upper + 1; lower < gaps; ++lower) {
            int cost = 3 * std::abs(upper + lower - (gaps - 1)) + std::abs(lower - upper - wanted);
            for (const int gap : {upper, lower}) cost += 100 * (hasFigure(gap) + hasFigure(gap + 1));
            if (cost >= least) continue;
            least = cost;
            best = {upper, lower};
        }
    }
    return best;
}

void DrawTabRepeatDots(Picture& picture, const BarContext& bar, double x, const Staves& staves, int strings) {
    constexpr double radius = 1.6, half = StringStep / 2.0;
    double upper = (staves.TabTop + staves.TabBottom) / 2.0 - half;
    double lower = upper + StringStep;
    if (strings > 2) {
        const auto [first, second] = RepeatDotGaps(strings, StrumAt(bar, x));
        upper = staves.TabTop + first * StringStep + half;
        lower = staves.TabTop + second * StringStep + half;
    }
    picture.Disc(x, upper, radius);
    picture.Disc(x, lower, radius);
}

void DrawBarLines(Picture& picture, const BarContext& bar, const Staves& staves) {
    const auto upright = [&](int x, int width) {
        int top = staves.Top, bottom = staves.Bottom;
        if (top == bottom) {  // a single string
            top -= StringStep / 2;
            bottom += StringStep / 2;
        }
        if (staves.Shown()) picture.Line(x, top, x, bottom, width);
        for (const StaffPlace& staff : staves.Places) {
            if (staff.OfOther) picture.Line(x, staff.Top, x, staff.Top + StaffLineSpan, width);
        }
    };
    const int right = bar.X + bar.Width;
    const bool opens = bar.Info().RepeatOpen;
    const bool closes = bar.Info().RepeatClose > 0;
    const bool ends = bar.Bar == bar.ItsTrack().Bars.UpperBound();
    picture.SetColor(bar.File.LineColor);
    const int head = static_cast<int>(std::ceil(RowHeadWidth(bar)));
    if (head > 0) upright(bar.X - head, 1);
    if (opens || head == 0) upright(bar.X, opens ? 3 : 1);
    if (opens) upright(bar.X + ThinLine, 1);
    if (closes || ends) {
        upright(right, 3);
        upright(right - ThinLine, 1);
    } else if (!TabBar(bar).Beside(1)) {
        upright(right, 1);  // the next bar of the row draws its own
    }
}

void DrawRepeats(Picture& picture, const BarContext& bar, const Staves& staves, int strings) {
    constexpr int drop = 10;
    picture.SetColor(bar.File.LineColor);
    const auto dots = [&](int x) {
        for (const StaffPlace& staff : staves.Places) DrawRepeatDots(picture, x, staff.Top + drop);
        if (staves.Tab) DrawTabRepeatDots(picture, bar, x, staves, strings);
    };
    // Behind the figures the dots stand this far in, right of the first column: existing files look so.
    const int inset = bar.ItsBar().Place.ShowTimeSig ? DotsInsetWithFigures : DotsInset;
    if (bar.Info().RepeatOpen) dots(bar.X + inset);
    if (bar.Info().RepeatClose > 0) dots(bar.X + bar.Width - DotsInset);
}

void PrintSmall(Picture& picture, const Label& label, Anchor anchor) {
    constexpr int ascent = 7;
    picture.SetColor(HighlightColor);
    Print(picture, SmallFont, label.X, label.Y + ascent, label.Text, anchor);
}

}  // namespace

int RepeatCountRight(const TabBar& bar) { return bar.Context.X + bar.Context.Width - (bar.Beside(1) ? 7 : 4); }

Label BarNumberLabel(const Core::Bar& bar, int index, int x, int y) {
    return {std::to_string(index + 1), bar.Place.ShowTimeSig ? x + 62 : x - 4, y - 12};
}

void SetFont(Picture& picture, std::string_view name, double size, bool bold, bool italic, bool strike, Color color) {
    picture.SetFont({std::string(name), size, bold, italic, false, strike});
    picture.SetColor(color);
}

void MoveTo(Picture& picture, double x, double y) {
    picture.CurrentX = x;
    picture.CurrentY = y;
}

void DrawStaffLines(Picture& picture, int x1, int x2, int y, int lines, int step) {
    for (int line = 0; line < lines; ++line) picture.Line(x1, y + line * step, x2, y + line * step);
}

void DrawRepeatDots(Picture& picture, double x, double y) {
    constexpr double radius = 1.8;
    picture.Disc(x, y, radius);
    picture.Disc(x, y + StaffStep, radius);
}

void DrawBarFrame(Picture& picture, const BarContext& bar) {
    const Staves staves = StavesOf(bar);
    const Core::Track& track = bar.ItsTrack();
    const int strings = StringsShown(track);
    const bool figures = bar.ItsBar().Place.ShowTimeSig;
    const int right = bar.X + bar.Width;

    const Label number = PlacedBarNumber(bar);
    if (staves.Tab && staves.Top == staves.TabTop) {  // a bow from the bar before may pass here
        picture.SetFont(SmallFont);
        picture.Box(number.X - 1, number.Y + 1, std::ceil(picture.TextWidth(number.Text)) + 2, 7, White);
    }
    PrintSmall(picture, number, Anchor::Left);
    picture.SetColor(bar.File.LineColor);
    const int head = static_cast<int>(std::ceil(RowHeadWidth(bar)));
    const int left = bar.X - head;
    for (const StaffPlace& staff : staves.Places) DrawStaffLines(picture, left, right, staff.Top, 5, StaffStep);
    if (staves.Tab) DrawStaffLines(picture, left, right, staves.TabTop, strings, StringStep);
    if (head > 0) {
        for (const StaffPlace& staff : staves.Places) DrawRowHead(picture, bar, staff);
        if (staves.Tab) DrawTabLetters(picture, bar, left + 8, staves.TabTop, strings);
    }
    if (figures) {
        constexpr double onStaff = 7, onTab = 9;
        for (const StaffPlace& staff : staves.Places) {
            DrawSignatures(picture, bar, staff);
            DrawTimeSignature(picture, bar, staff.Top + StaffLineSpan / 2, onStaff, true);
        }
        if (staves.Tab) {
            DrawTabLetters(picture, bar, bar.X + LettersInset, staves.TabTop, strings);
            if (staves.Places.empty() || staves.Places.front().OfOther) {
                DrawTimeSignature(picture, bar, (staves.TabTop + staves.TabBottom) / 2.0, onTab);
            }
        }
    }
    DrawRepeats(picture, bar, staves, strings);
    DrawBarLines(picture, bar, staves);
    if (bar.Info().RepeatClose > 0) {
        PrintSmall(picture, {std::to_string(bar.Info().RepeatClose) + "x", RepeatCountRight(TabBar(bar)), bar.Y - 12},
                   Anchor::Right);
    }
}

}  // namespace Quillon::Drawing
