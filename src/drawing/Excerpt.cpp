#include "drawing/mod_Excerpt.h"

#include <algorithm>
#include <cmath>

#include "core/mod_Common.h"
#include "drawing/mod_PageLayout.h"
#include "drawing/mod_TabDrawing.h"

namespace Quillon::Drawing {

using Core::Bar;
using Core::BarPlace;

namespace {

constexpr int MarkRoom = 50;    ///< above the row, for texts, signs, and the marks over a tab that stands alone
constexpr int ChartsRoom = 92;  ///< the same for a chord chart with its name
constexpr int RoomBelow = 26;   ///< for fingers and dynamics
constexpr int UsualSpacing = 40;
constexpr int LeastSpacing = 24;
constexpr double LargestScale = 2;
constexpr double Margin = 14;  ///< that the bar keeps from the sheet's edges
constexpr Color BeatColor = PackColor(0xE4, 0xED, 0xFD);

bool HasChart(const Bar& bar) {
    return std::any_of(bar.Strums().begin(), bar.Strums().end(), [](const auto& strum) { return strum.HasChord; });
}

}  // namespace

Excerpt::Excerpt(Core::TabFile document, const ExcerptOf& wanted) : file(std::move(document)), what(wanted) {
    if (what.Track < 0 || what.Track > file.Tracks.UpperBound()) return;
    Core::Track& track = file.Tracks[what.Track];
    if (what.Bar < 0 || what.Bar > std::min(track.Bars.UpperBound(), file.BarInfos.UpperBound())) return;
    if (what.TabAlone && track.ShowTab) track.ShowTreble = track.ShowBass = track.ShowStaff = false;
    const int last = std::min(track.Bars.UpperBound(), file.BarInfos.UpperBound());
    // Places are written without unsharing, so the bars get some of their own. Those past the row's ends lie elsewhere.
    constexpr int elsewhere = -30000;
    for (int bar = std::max(0, what.Bar - 2); bar <= std::min(track.Bars.UpperBound(), what.Bar + 2); ++bar) {
        BarPlace& place = track.Bars.Edit(bar).Place;
        place.Page = -1;
        place.BarY = elsewhere;
        if (std::abs(bar - what.Bar) <= 1 && bar <= last) bars.push_back(bar);
    }
    if (what.Figures) track.Bars[what.Bar].Place.ShowTimeSig = true;
}

int Excerpt::Above() const {
    const bool charts = what.ChartRoom || (file.AlwaysCharts && std::any_of(bars.begin(), bars.end(), [&](int bar) {
                                               return HasChart(ItsTrack().Bars[bar]);
                                           }));
    return charts ? ChartsRoom : MarkRoom;
}

int Excerpt::Height() const { return Above() + RowHeight(ItsTrack()) + RoomBelow; }

/// A bar that is shown as a whole spreads or draws together to fit, if it can.
int Excerpt::Spacing(double width) const {
    const Bar& bar = ItsTrack().Bars[what.Bar];
    if (what.Strum >= 0) return UsualSpacing;
    const double room = width - 2 * Margin - BarPixelWidth(bar, 0);
    return std::clamp(static_cast<int>(room / bar.Strums().Count()), LeastSpacing, UsualSpacing);
}

double Excerpt::ScaleFor(double width, double height) const {
    if (bars.empty()) return 1;
    double scale = std::min(LargestScale, height / Height());
    if (what.Strum < 0) {
        constexpr double least = 0.5;
        const double narrowest = BarPixelWidth(ItsTrack().Bars[what.Bar], LeastSpacing) + 2 * Margin;
        scale = std::max(std::min(scale, width / narrowest), std::min(scale, least));
    }
    return std::max(scale, 0.1);
}

Excerpt::Placed Excerpt::LayOut(int spacing, int x, int y) const {
    Placed placed;
    for (const int index : bars) {
        const Bar& bar = ItsTrack().Bars[index];
        BarPlace& place = bar.Place;
        place.BarX = Core::ToInt16(x);
        place.BarY = y;
        place.BarWidth = BarPixelWidth(bar, spacing);
        place.BarStep = Core::ToInt16(spacing);
        place.Page = 0;
        PlaceStrums(file, what.Track, index);
        x += place.BarWidth;
        if (index != what.Bar) continue;
        placed = {place.BarX, x};
        if (what.Strum >= 0 && what.Strum <= place.StrumX.UpperBound()) {
            placed.Left = placed.Right = place.StrumX[what.Strum];
        }
    }
    return placed;
}

void Excerpt::Draw(Picture& picture, double width, double height) const {
    picture.Box(0, 0, width, height, White);
    if (bars.empty()) return;
    const int spacing = Spacing(width);
    const int y = static_cast<int>(std::floor((height - Height()) / 2)) + Above();
    const Placed at = LayOut(spacing, 0, y);
    // The middle of what is shown goes to the middle of the sheet, unless the row would leave an end of it empty.
    const BarPlace& last = ItsTrack().Bars[bars.back()].Place;
    const double rowEnd = last.BarX + last.BarWidth;
    double left = (at.Left + at.Right) / 2.0 - width / 2;
    left = rowEnd + 2 * Margin <= width ? (rowEnd - width) / 2 : std::clamp(left, -Margin, rowEnd + Margin - width);
    LayOut(spacing, -static_cast<int>(std::lround(left)), y);

    const BarPlace& own = ItsTrack().Bars[what.Bar].Place;
    if (what.Strum >= 0 && what.Strum <= own.StrumX.UpperBound()) {
        constexpr int half = 11, overhang = 5;
        picture.Box(own.StrumX[what.Strum] - half, y - overhang, 2 * half + 1, RowHeight(ItsTrack()) + 2 * overhang + 1,
                    BeatColor);
    }
    for (const int bar : bars) {
        const BarPlace& place = ItsTrack().Bars[bar].Place;
        const BarContext context{file, what.Track, bar, place.BarX, y, place.BarWidth};
        DrawBarFrame(picture, context);
        DrawBarStrums(picture, context);
        DrawBarMarks(picture, context);
    }
}

}  // namespace Quillon::Drawing
