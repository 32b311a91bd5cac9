// What joins a note to the next one on its string: hammer-ons, pull-offs, ties, slides.
#include <algorithm>
#include <cmath>
#include <string>

#include "drawing/TabParts.h"

namespace Quillon::Drawing {

namespace {

constexpr double BowClearance = 5;    ///< from a string's line up to a bow's ends
constexpr double StrokeLength = 9;    ///< of a slide into or out of a note
constexpr double SlideSlant = 3;      ///< of a slide's ends off the string
constexpr double FigureMargin = 1.5;  ///< between a figure and a stroke

bool IsBowed(const Core::Note& note) { return note.Tied || note.Technique == Core::HammerOnPullOff; }

/// 1 when the second fret is higher, -1 when lower, 0 when equal or no number.
int Direction(const Core::Note& from, const Core::Note& to) {
    int first = 0, second = 0;
    if (!FretNumber(from.Fret, first) || !FretNumber(to.Fret, second)) return 0;
    return (second > first) - (second < first);
}

const char* BowLetter(const Core::Note& from, const Core::Note& to) {
    if (from.Technique != Core::HammerOnPullOff) return "";
    const int direction = Direction(from, to);
    return direction > 0 ? "H" : direction < 0 ? "P" : "";
}

/// The letter that the next higher string's bow between the same columns bears, null without a bow there.
const char* LetterAbove(const TabBar& bar, int strum, int string, const Partner& partner) {
    if (string == 0) return nullptr;
    const Core::Note& note = bar.Strum(strum).Notes[string - 1];
    if (note.Fret.empty() || !IsBowed(note)) return nullptr;
    const Partner other = NextOnString(bar, strum, string - 1);
    return other.Note && other.X == partner.X ? BowLetter(note, *other.Note) : nullptr;
}

void DrawBowTo(Picture& picture, TabBar& bar, int strum, int string, const Partner& partner) {
    constexpr double inset = 2.5, letterGap = 2, letterHalf = 3, letterHeight = 7;
    const double from = bar.Column(strum) + inset;
    const double to = partner.SameRow ? partner.X - inset : partner.X;
    const double y = bar.LineY(string) - BowClearance;
    // Not as high as the next string, so that bows of a chord stay apart.
    const double rise = std::min(4.5, 2.5 + (to - from) / 20);
    DrawBow(picture, from, to, y, rise);
    bar.Around.Take({from, y - rise - 1, to, y});

    const std::string letter = BowLetter(bar.Strum(strum).Notes[string], *partner.Note);
    const char* above = LetterAbove(bar, strum, string, partner);
    if (letter.empty() || (above && letter == above)) return;
    const double middle = std::round((from + to) / 2);
    const double baseline = std::floor(y - rise - letterGap);
    if (above) {  // another letter's bow runs here
        picture.Box(middle - letterHalf, baseline - letterHeight + 1, 2 * letterHalf, letterHeight, White);
    }
    Print(picture, SmallFont, middle, baseline, letter);
    bar.Around.Take({middle - letterHalf, baseline - letterHeight, middle + letterHalf, baseline + 1});
}

void DrawSlide(Picture& picture, TabBar& bar, int strum, int string) {
    const Core::Note& note = bar.Strum(strum).Notes[string];
    const Extent extent = FigureExtent(picture, bar, strum, string);
    const double right = extent.Right + FigureMargin, left = extent.Left + FigureMargin;
    const double x = bar.Column(strum);
    const double y = bar.LineY(string);
    const auto behind = [&](int direction) {
        picture.Line(x + right, y + direction * SlideSlant, x + right + StrokeLength, y - direction * SlideSlant, 1.2);
    };
    const auto before = [&](int direction) {
        // A first column stands near the bar line: the stroke gets shorter, not longer than its room.
        const double length = std::clamp(x - left - bar.Context.X - 1, 4.0, StrokeLength);
        picture.Line(x - left - length, y + direction * SlideSlant, x - left, y - direction * SlideSlant, 1.2);
    };
    switch (note.Technique) {
        case Core::SlideUp:
            return behind(1);
        case Core::SlideDown:
            return behind(-1);
        case Core::SlideIntoUp:
            return before(1);
        case Core::SlideIntoDown:
            return before(-1);
        case Core::LegatoSlide: {
            const Partner partner = NextOnString(bar, strum, string);
            if (!partner.Note || !partner.Adjacent) return behind(1);  // it slides away
            const int direction = Direction(note, *partner.Note);
            const double other =
                partner.SameRow ? FigureExtent(picture, bar, string, *partner.Note).Left + FigureMargin : 0;
            // A thin stroke along the string would not be seen: between equal frets it rises a little all the same.
            const double slant = direction == 0 ? 1 : direction * SlideSlant;
            picture.Line(x + right, y + slant, partner.X - other, y - slant, 1.2);
            return;
        }
        default:
            return;
    }
}

}  // namespace

void DrawLinks(Picture& picture, TabBar& bar, int strum) {
    for (int string = 0; string < bar.Strings; ++string) {
        const Core::Note& note = bar.Strum(strum).Notes[string];
        if (note.Fret.empty()) continue;
        if (IsBowed(note)) {
            const Partner partner = NextOnString(bar, strum, string);
            if (partner.Note) DrawBowTo(picture, bar, strum, string, partner);
        }
        if (note.Technique >= Core::SlideUp && note.Technique <= Core::SlideIntoDown) {
            DrawSlide(picture, bar, strum, string);
        }
    }
}

void DrawLinksFromLastRow(Picture& picture, TabBar& bar) {
    constexpr double reach = 13, inset = 2.5, rise = 3;
    if (bar.Context.Bar == 0 || bar.Beside(-1)) return;
    const Core::Bar& before = bar.Track.Bars[bar.Context.Bar - 1];
    const Core::Strum& last = before.Strums()[before.Strums().UpperBound()];
    for (int string = 0; string < bar.Strings; ++string) {
        const Core::Note& from = last.Notes[string];
        const Core::Note& to = bar.Strum(0).Notes[string];
        if (from.Fret.empty() || to.Fret.empty()) continue;
        const double x = bar.Column(0);
        const double y = bar.LineY(string);
        if (IsBowed(from))
            DrawBow(picture, std::max(x - reach, bar.Context.X + 2.0), x - inset, y - BowClearance, rise);
        if (from.Technique == Core::LegatoSlide) {
            const int direction = Direction(from, to);
            const double right = x - FigureExtent(picture, bar, 0, string).Left - FigureMargin;
            const double slant = direction == 0 ? 1 : direction * SlideSlant;
            picture.Line(std::max(right - StrokeLength, bar.Context.X + 1.0), y + slant, right, y - slant, 1.2);
        }
    }
}

}  // namespace Quillon::Drawing
