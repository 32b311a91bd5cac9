// Free text and go-to points above the bar, and the room that is taken before any mark looks for its place.
#include <algorithm>
#include <limits>
#include <string>

#include "drawing/NotationParts.h"
#include "drawing/PageFurniture.h"

namespace Quillon::Drawing {

namespace {

constexpr double TextMiddle = 22;  ///< of a strum's text above the row
constexpr double TextLead = 4;     ///< of a text before its column
constexpr double HalfText = 5;

Font TextFont(const Core::TabFile& file) {
    Font font = NoteFont(file);
    font.Italic = true;
    return font;
}

void TakeNumber(Picture& picture, TabBar& bar, const Label& label) {
    picture.SetFont(SmallFont);
    bar.Around.Take({static_cast<double>(label.X), label.Y + 1.0, label.X + picture.TextWidth(label.Text) + 1.2,
                     label.Y + 8.0, true});
}

/// Over a page's first row stands the header.
void TakeHeader(TabBar& bar) {
    constexpr double wide = 40000, nearest = 20;  // a smaller margin leaves the marks their usual place
    const RowLook& look = bar.Context.Look;
    const Core::BarPlace& place = bar.Bar.Place;
    if (look.TopMargin == 0 || place.Page < 0 || place.RowOnPage != 0) return;
    const double page = bar.Context.Y - look.TopMargin, left = RowLeft(bar);
    const auto take = [&](double from, double to, int bottom) {
        bar.Around.Take({from, page, to, std::min(page + bottom, bar.Context.Y - nearest)});
    };
    if (place.Page > 0 && !bar.Context.File.ShowHeader) return take(left - wide, left + wide, RunningBottom);
    take(left - wide, left + wide, TitlesBottom);
    take(left - wide, left + look.HeaderLeft, HeaderBottom);
    take(left + look.HeaderRight, left + wide, HeaderBottom);
}

/// y of the end of the row above on the page, and of its lyrics; far up for a page's first row.
double CeilingOf(const TabBar& bar, bool withLyrics) {
    constexpr double none = std::numeric_limits<double>::lowest();
    const Core::BarPlace& place = bar.Bar.Place;
    const RowLook& look = bar.Context.Look;
    const int first = FirstOfRow(bar);
    if (first == 0 || place.Page < 0) return none;
    const Core::BarPlace& above = bar.Track.Bars[first - 1].Place;
    if (above.Page != place.Page || above.BarY >= place.BarY) return none;
    const int lyrics = withLyrics && look.LyricsHeight > 0 ? StaffHeadroom + look.LyricsHeight : 0;
    return above.BarY + (bar.Context.Y - place.BarY) + RowHeight(bar.Track) + lyrics;
}

/// A text above a strum, as it is going to stand.
struct PlacedText {
    std::string Text;
    Area Place;
};

/// The lowest free place at or above the band of texts; a text that meets something short steps right of it first. One
/// that finds none is cut until it does.
PlacedText PlaceText(Picture& picture, const TabBar& bar, const std::string& whole, double column, double frame) {
    constexpr double aside = 14, step = 4, shortest = 40;
    constexpr int levels = 40;
    const double ceilings[] = {CeilingOf(bar, true), CeilingOf(bar, false)};  // rather between words than cut
    std::string text = FitToPaper(picture, bar, whole);
    for (double width = picture.TextWidth(text) + frame;;) {
        const double left = LeftOnPaper(bar, column, width);
        const double farthest = std::max(left, std::min(left + aside, PaperRight(bar) - width));
        const auto at = [&](double x, int level) {
            const double middle = bar.Context.Y - TextMiddle - level * step;
            return Area{x, middle - HalfText, x + width, middle + HalfText};
        };
        for (const double ceiling : ceilings) {
            for (int level = 0; level < levels && (level == 0 || at(left, level).Top >= ceiling); ++level) {
                for (double x = left; x <= farthest; x += 2) {
                    if (bar.Around.IsFree(at(x, level))) return {text, at(x, level)};
                }
            }
        }
        if (width <= shortest) return {text, at(left, 0)};
        text = CutToFit(picture, whole, width / 2 - frame);
        width = std::min(width / 2, picture.TextWidth(text) + frame);
    }
}

/// Places a strum's text and its go-to point, and takes their room. `draw` is told each, its font in use.
template <typename Draw>
void PlaceTexts(Picture& picture, TabBar& bar, const Core::Strum& strum, double column, Draw draw) {
    constexpr double gap = 3, frame = 5;
    const auto place = [&](const std::string& text, const Font& font, double beside, bool framed) {
        if (text.empty()) return;
        picture.SetFont(font);
        const PlacedText placed = PlaceText(picture, bar, text, column - TextLead, beside);
        bar.Around.Take(placed.Place);
        draw(placed, framed);
    };
    place(strum.Text, TextFont(bar.Context.File), gap, false);
    place(strum.GotoText, SmallFont, frame, true);
}

/// Signs of the row's other bars, and texts that begin in those before: these are placed anew, in their order.
void TakeOverhang(Picture& picture, TabBar& bar) {
    const int first = FirstOfRow(bar), last = LastOfRow(bar);
    const int moved = bar.Context.X - bar.Bar.Place.BarX;
    for (int index = first; index <= last; ++index) {
        if (index == bar.Context.Bar) continue;
        const Core::BarPlace& place = bar.Track.Bars[index].Place;
        const BarContext other{bar.Context.File, bar.Context.Track, index,           place.BarX + moved,
                               bar.Context.Y,    place.BarWidth,    bar.Context.Look};
        for (const PlacedSign& sign : SignsOf(other)) bar.Around.Take(SignArea(picture, sign));
    }
    for (int index = first; index < bar.Context.Bar; ++index) {
        const Core::Bar& before = bar.Track.Bars[index];
        for (int at = 0; at < std::min(before.Strums().Count(), before.Place.StrumX.Count()); ++at) {
            const double column = before.Place.StrumX[at] + moved;
            PlaceTexts(picture, bar, before.Strums()[at], column, [](const PlacedText&, bool) {});
        }
    }
}

}  // namespace

void TakeRoom(Picture& picture, TabBar& bar) {
    TakeNumber(picture, bar, PlacedBarNumber(bar.Context));
    if (const Core::Bar* next = bar.Beside(1)) {
        const int x = bar.Context.X + bar.Context.Width;
        TakeNumber(picture, bar, BarNumberLabel(*next, bar.Context.Bar + 1, x, bar.Context.Y));
    }
    if (bar.Context.Info().RepeatClose > 0) {
        picture.SetFont(SmallFont);
        const double right = RepeatCountRight(bar);
        const double width = picture.TextWidth(std::to_string(bar.Context.Info().RepeatClose) + "x");
        bar.Around.Take({right - width, bar.Context.Y - 11.0, right, bar.Context.Y - 4.0, true});
    }
    TakeHeader(bar);
    bar.Around.SetCeiling(CeilingOf(bar, false));
    for (const PlacedSign& sign : SignsOf(bar.Context)) bar.Around.Take(SignArea(picture, sign));
    TakeOverhang(picture, bar);
}

void DrawTexts(Picture& picture, TabBar& bar) {
    const auto draw = [&](const PlacedText& placed, bool framed) {
        const Area& area = placed.Place;
        if (!framed) return picture.Print(area.Left, area.Top + HalfText + 4, placed.Text, Anchor::Left);
        const double right = area.Right - 1;
        picture.Print(area.Left + 2, area.Top + HalfText + 3, placed.Text, Anchor::Left);
        picture.Polyline({{area.Left, area.Top},
                          {right, area.Top},
                          {right, area.Bottom},
                          {area.Left, area.Bottom},
                          {area.Left, area.Top}});
    };
    for (int at = 0; at < bar.StrumCount(); ++at) PlaceTexts(picture, bar, bar.Strum(at), bar.Column(at), draw);
}

}  // namespace Quillon::Drawing
