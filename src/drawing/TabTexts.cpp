// Free text and go-to points above the bar, and the room that is taken before any mark looks for its place.
#include <algorithm>
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

/// Texts of the row's other bars that reach over a bar line.
void TakeOverhang(Picture& picture, TabBar& bar) {
    picture.SetFont(TextFont(bar.Context.File));
    for (int index = FirstOfRow(bar); index < bar.Context.Bar; ++index) {
        const Core::Bar& before = bar.Track.Bars[index];
        for (int at = 0; at < std::min(before.Strums().Count(), before.Place.StrumX.Count()); ++at) {
            if (before.Strums()[at].Text.empty()) continue;
            const double width = picture.TextWidth(FitToPaper(picture, bar, before.Strums()[at].Text));
            const double column = before.Place.StrumX[at] + (bar.Context.X - bar.Bar.Place.BarX) - TextLead;
            const double left = LeftOnPaper(bar, column, width + 3), right = left + width;
            // One that the paper's edge moves to the left goes round them all.
            if (right <= bar.Context.X - 8 && PaperRight(bar) > bar.Right() + 200) continue;
            bar.Around.Take(
                {left, bar.Context.Y - TextMiddle - HalfText, right + 3, bar.Context.Y - TextMiddle + HalfText});
        }
    }
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

/// The lowest free place at or above the band of texts; a text that meets something short steps right of it first.
Area TextPlace(const TabBar& bar, double column, double width) {
    constexpr double aside = 14, step = 4;
    const double left = LeftOnPaper(bar, column, width), farthest = std::min(left + aside, PaperRight(bar) - width);
    double middle = bar.Context.Y - TextMiddle;
    const auto at = [&](double x) { return Area{x, middle - HalfText, x + width, middle + HalfText}; };
    for (int level = 0; level < 40; ++level, middle -= step) {
        for (double x = left; x <= std::max(left, farthest); x += 2) {
            if (bar.Around.IsFree(at(x))) return at(x);
        }
    }
    return at(left);
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
    for (const PlacedSign& sign : SignsOf(bar.Context)) bar.Around.Take(SignArea(picture, sign));
    TakeOverhang(picture, bar);
}

void DrawTexts(Picture& picture, TabBar& bar) {
    const Font font = TextFont(bar.Context.File);
    for (int at = 0; at < bar.StrumCount(); ++at) {
        const Core::Strum& strum = bar.Strum(at);
        const double left = bar.Column(at) - TextLead;
        if (!strum.Text.empty()) {
            picture.SetFont(font);
            const std::string text = FitToPaper(picture, bar, strum.Text);
            const Area area = TextPlace(bar, left, picture.TextWidth(text) + 3);
            picture.Print(area.Left, area.Top + HalfText + 4, text, Anchor::Left);
            bar.Around.Take(area);
        }
        if (!strum.GotoText.empty()) {
            picture.SetFont(SmallFont);
            const std::string text = FitToPaper(picture, bar, strum.GotoText);
            const double width = picture.TextWidth(text) + 4;
            const Area area = TextPlace(bar, left, width + 1);
            picture.Print(area.Left + 2, area.Top + HalfText + 3, text, Anchor::Left);
            picture.Polyline({{area.Left, area.Top},
                              {area.Left + width, area.Top},
                              {area.Left + width, area.Bottom},
                              {area.Left, area.Bottom},
                              {area.Left, area.Top}});
            bar.Around.Take(area);
        }
    }
}

}  // namespace Quillon::Drawing
