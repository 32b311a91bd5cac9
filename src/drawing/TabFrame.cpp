// The frame of a bar: number, staves, figures of the time signature, repeats, bar lines.
#include <algorithm>
#include <cmath>
#include <string>

#include "drawing/TabParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr int StaffStep = 7;
constexpr int StaffHeight = 4 * StaffStep;
constexpr int LowerStaff = 123;  ///< from a treble staff to the bass staff of the same row
/// From the edge between two bars: a thick line over it, a gap of 2, a thin line, then the dots.
constexpr int ThinLine = 4;
constexpr int DotsInset = 7;
constexpr int DotsInsetWithFigures = 67;

/// Tops and bottoms of the staves that a row shows.
struct Staves {
    bool Treble, Bass, Tab;
    int TrebleY, BassY, TabTop, TabBottom;
    int Top, Bottom;
};

Staves StavesOf(const BarContext& bar) {
    const Core::Track& track = bar.ItsTrack();
    const TabBar tab(bar);
    Staves staves{track.ShowTreble, track.ShowBass, track.ShowTab, bar.Y, 0, tab.Top, tab.Bottom, 0, 0};
    staves.BassY = bar.Y + (track.ShowTreble ? LowerStaff : 0);
    staves.Top = staves.Treble ? staves.TrebleY : staves.Bass ? staves.BassY : staves.TabTop;
    staves.Bottom = staves.Tab ? staves.TabBottom : (staves.Bass ? staves.BassY : staves.TrebleY) + StaffHeight;
    return staves;
}

/// `half` is the way from the middle of the staff to that of a figure.
void DrawTimeSignature(Picture& picture, const BarContext& bar, double middle, double half) {
    // Right-aligned, so that two digits clear the first column.
    constexpr int right = 40;
    const Font font{.Name = "Arial", .Size = half * 1.45, .Bold = true};
    const double drop = 0.358 * font.Pixels();  // half the height of a digit
    picture.SetColor(bar.File.NoteFontColor);
    Print(picture, font, bar.X + right, middle - half + drop, std::to_string(bar.Info().TimeSigTop), Anchor::Right);
    Print(picture, font, bar.X + right, middle + half + drop, std::to_string(bar.Info().TimeSigBottom), Anchor::Right);
}

void DrawTabLetters(Picture& picture, const BarContext& bar, int top, int strings) {
    constexpr int x = 12, step = 11, ascent = 10;
    const Font font{.Name = "Arial", .Size = 8, .Bold = true};
    picture.SetColor(bar.File.NoteFontColor);
    int y = top + strings * StringStep / 2 - 22;
    for (const char* letter : {"T", "A", "B"}) {
        Print(picture, font, bar.X + x, y + ascent, letter);
        y += step;
    }
}

/// Dots of a repeat in the two gaps of the tab that lie the same way off its middle. Where a figure of `beside` stands
/// on one side of a gap, the dot leans to the other.
void DrawTabRepeatDots(Picture& picture, double x, const Staves& staves, int strings, const Core::Strum* beside) {
    constexpr double radius = 1.6, lean = 1;
    const double middle = (staves.TabTop + staves.TabBottom) / 2.0;
    const double away = strings > 3 && strings % 2 == 0 ? StringStep : StringStep / 2.0;
    for (const double y : {middle - away, middle + away}) {
        const int above = static_cast<int>(std::floor((y - staves.TabTop) / StringStep));
        const auto hasFigure = [&](int string) {
            return beside && string >= 0 && string < strings && !beside->Notes[string].Fret.empty();
        };
        picture.Disc(x, y + lean * (hasFigure(above) - hasFigure(above + 1)), radius);
    }
}

void DrawBarLines(Picture& picture, const BarContext& bar, const Staves& staves) {
    const auto upright = [&](int x, int width) {
        int top = staves.Top, bottom = staves.Bottom;
        if (top == bottom) {  // a single string
            top -= StringStep / 2;
            bottom += StringStep / 2;
        }
        picture.Line(x, top, x, bottom, width);
    };
    const int right = bar.X + bar.Width;
    const bool opens = bar.Info().RepeatOpen;
    const bool closes = bar.Info().RepeatClose > 0;
    const bool ends = bar.Bar == bar.ItsTrack().Bars.UpperBound();
    picture.SetColor(bar.File.LineColor);
    upright(bar.X, opens ? 3 : 1);
    if (opens) upright(bar.X + ThinLine, 1);
    if (closes || ends) {
        upright(right, 3);
        upright(right - ThinLine, 1);
    } else if (!TabBar(bar).Beside(1)) {
        upright(right, 1);  // the next bar of the row draws its own
    }
}

void DrawRepeats(Picture& picture, const BarContext& bar, const Staves& staves, int strings) {
    const bool figures = bar.ItsBar().Place.ShowTimeSig;
    picture.SetColor(bar.File.LineColor);
    const auto staffDots = [&](int staffY) {
        constexpr int drop = 10;
        if (bar.Info().RepeatOpen) {
            // Behind the figures the dots stand this far in, right of the first column: existing files look so.
            DrawRepeatDots(picture, bar.X + (figures ? DotsInsetWithFigures : DotsInset), staffY + drop);
        }
        if (bar.Info().RepeatClose > 0) DrawRepeatDots(picture, bar.X + bar.Width - DotsInset, staffY + drop);
    };
    if (staves.Treble) staffDots(staves.TrebleY);
    if (staves.Bass) staffDots(staves.BassY);
    if (!staves.Tab) return;
    const Core::Strum* first = figures ? nullptr : &bar.ItsBar().Strums()[0];
    if (bar.Info().RepeatOpen) DrawTabRepeatDots(picture, bar.X + DotsInset, staves, strings, first);
    if (bar.Info().RepeatClose > 0) {
        DrawTabRepeatDots(picture, bar.X + bar.Width - DotsInset, staves, strings, nullptr);
    }
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
    const int strings = std::clamp<int>(track.Strings, 1, Core::StringCount);
    const bool figures = bar.ItsBar().Place.ShowTimeSig;
    const int right = bar.X + bar.Width;

    const Label number = BarNumberLabel(bar.ItsBar(), bar.Bar, bar.X, bar.Y);
    if (staves.Tab && staves.Top == staves.TabTop) {  // a bow from the bar before may pass here
        picture.SetFont(SmallFont);
        picture.Box(number.X - 1, number.Y + 1, std::ceil(picture.TextWidth(number.Text)) + 2, 7, White);
    }
    PrintSmall(picture, number, Anchor::Left);
    picture.SetColor(bar.File.LineColor);
    if (staves.Treble) DrawStaffLines(picture, bar.X, right, staves.TrebleY, 5, StaffStep);
    if (staves.Bass) DrawStaffLines(picture, bar.X, right, staves.BassY, 5, StaffStep);
    if (staves.Tab) DrawStaffLines(picture, bar.X, right, staves.TabTop, strings, StringStep);
    if (figures) {
        constexpr double onStaff = 7.2, onTab = 9;
        if (staves.Treble) DrawTimeSignature(picture, bar, staves.TrebleY + StaffHeight / 2, onStaff);
        if (staves.Bass) DrawTimeSignature(picture, bar, staves.BassY + StaffHeight / 2, onStaff);
        if (staves.Tab) {
            DrawTabLetters(picture, bar, staves.TabTop, strings);
            if (!staves.Treble && !staves.Bass) {
                DrawTimeSignature(picture, bar, (staves.TabTop + staves.TabBottom) / 2.0, onTab);
            }
        }
    }
    DrawRepeats(picture, bar, staves, strings);
    if (staves.Treble || staves.Bass || staves.Tab) DrawBarLines(picture, bar, staves);
    if (bar.Info().RepeatClose > 0) {
        PrintSmall(picture, {std::to_string(bar.Info().RepeatClose) + "x", RepeatCountRight(TabBar(bar)), bar.Y - 12},
                   Anchor::Right);
    }
}

}  // namespace Quillon::Drawing
