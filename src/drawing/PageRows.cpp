// Rows: how high they are, how many bars share one, and how many pages they fill.
#include <algorithm>
#include <string>

#include "core/mod_Common.h"
#include "drawing/mod_PageLayout.h"
#include "platform/RunTimeError.h"

namespace Quillon::Drawing {

using Core::Bar;
using Core::TabFile;
using Core::Track;

int StringsShown(const Track& track) { return std::clamp<int>(track.Strings, 1, Core::StringCount); }

int RowHeight(const Track& track) {
    int height = 0;
    if (track.ShowTreble) height = track.ShowTab || track.ShowBass ? StaffHeadroom + 95 : StaffHeadroom;
    if (track.ShowBass) height += StaffHeadroom + (track.ShowTab ? 80 : 0);
    if (track.ShowTab) height += (StringsShown(track) - 1) * 10;
    if (track.ShowStaff && track.LyricsOfOtherTrack == 1) height += StaffHeadroom + 95;
    return height;
}

int TabOffset(const Track& track) {
    if (track.ShowBass && track.ShowTreble) return 2 * StaffHeadroom + 175 - 6;
    if (track.ShowBass) return StaffHeadroom + 80 - 6;
    if (track.ShowTreble) return StaffHeadroom + 95 - 6;
    return -6;
}

int NotationBaseOffset(const Track& track) { return track.ShowTreble ? 95 - 14 : -StaffHeadroom - 14; }

bool ShowsStaffOfOther(const TabFile& file, const Track& track) {
    return track.ShowStaff && track.LyricsOfOtherTrack == 1 && track.LyricsTrack >= 0 &&
           track.LyricsTrack <= file.Tracks.UpperBound();
}

int BarStartOffset(const Bar& bar) { return bar.Place.ShowTimeSig ? 49 : 9; }

namespace {

int StrumCount(const Bar& bar) { return bar.Strums().Count(); }

/// What the bars of a row leave to their strums, as it grows bar by bar.
struct RowRoom {
    int Remaining;
    int Cells = 0;

    explicit RowRoom(const PageSetup& page) : Remaining(page.PageWidth - 2 * page.PageLeftMargin) {}
    void Take(const Bar& bar) {
        Remaining = Core::ToInt16(Remaining - (bar.Place.ShowTimeSig ? 69 : 9));
        Cells = Core::ToInt16(Cells + StrumCount(bar));
    }
    std::int16_t Spacing() const { return Core::CInt(static_cast<double>(Remaining) / Cells); }
};

bool NeedsFigures(const TabFile& file, const Track& track, int bar) {
    if (bar == 0) return true;
    const Core::BarInfo& info = file.BarInfos[bar];
    const Core::BarInfo& before = file.BarInfos[bar - 1];
    return info.TimeSigTop != before.TimeSigTop || info.TimeSigBottom != before.TimeSigBottom ||
           track.Bars[bar].Key != track.Bars[bar - 1].Key;
}

/// Works on a bar; an overflow then says on which, by the track's name, or its number, and the bar's number.
template <typename Work>
void Naming(const TabFile& file, const Track& track, const int& bar, const Work& work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        constexpr int overflow = 6;
        if (error.Number != overflow) throw;
        int index = 0;
        while (index < file.Tracks.UpperBound() && &file.Tracks[index] != &track) ++index;
        const std::string name = track.Name.empty() ? std::to_string(index + 1) : "\"" + track.Name + "\"";
        throw RunTimeError(overflow, error.Description() + " in bar " + std::to_string(bar + 1) + " of track " + name);
    }
}

struct FilledRow {
    int End = 0;  ///< last bar
    std::int16_t Spacing = 0;
    bool FlagsChanged = false;
};

/// The bars that share a row from `first` on. They are measured with the figures of the last layout, then get their
/// new ones, and the spacing is that with the new ones.
FilledRow FillRow(const PageSetup& page, const TabFile& file, const Track& track, int first) {
    const int lastBar = track.Bars.UpperBound();
    int candidate = first;
    std::int16_t spacing = 0;
    Naming(file, track, candidate, [&] {
        RowRoom room(page);
        room.Take(track.Bars[candidate]);
        spacing = room.Spacing();
        while (spacing >= page.MinTabX && candidate < lastBar) {
            room.Take(track.Bars[++candidate]);
            spacing = room.Spacing();
        }
    });
    FilledRow row;
    row.End = std::max(first, spacing < page.MinTabX ? candidate - 1 : candidate);  // too wide: alone on its row
    for (int bar = first; bar <= row.End; ++bar) {
        const bool figures = NeedsFigures(file, track, bar);
        Core::BarPlace& place = track.Bars[bar].Place;
        row.FlagsChanged |= place.ShowTimeSig != figures;
        place.ShowTimeSig = figures;
    }
    Naming(file, track, row.End, [&] { row.Spacing = CommonSpacing(page, track, first, row.End); });
    return row;
}

}  // namespace

std::int16_t CommonSpacing(const PageSetup& page, const Track& track, int firstBar, int& lastBar) {
    lastBar = std::max(lastBar, firstBar);
    RowRoom room(page);
    for (int bar = firstBar; bar <= lastBar; ++bar) room.Take(track.Bars[bar]);
    return room.Spacing();
}

std::int16_t BarPixelWidth(const Bar& bar, int spacing) {
    // 61 here and 69 above are meant to differ: a bar with figures leaves 8 pixels of slack at its row's end.
    return Core::ToInt16(StrumCount(bar) * spacing + (bar.Place.ShowTimeSig ? 61 : 9));
}

std::int16_t RowsPerPage(const PageSetup& page, int rowHeight, int rowSpacing) {
    const int step = rowHeight + rowSpacing;
    if (step == 0) return 0;  // rows without any height: as good as no room for one
    return Core::CInt(static_cast<double>(page.PageHeight - page.PageTopMargin - 50) / step);
}

PageCount NumberOfPages(const PageSetup& page, const TabFile& file, int track) {
    const Track& walked = file.Tracks[track];
    const int rowsPerPage = RowsPerPage(page, RowHeight(walked), file.RowSpacing);
    PageCount count;
    int rows = 0;
    for (int first = 0; first <= walked.Bars.UpperBound(); ++rows) {
        const FilledRow row = FillRow(page, file, walked, first);
        count.FlagsChanged |= row.FlagsChanged;
        const int rowOnPage = rowsPerPage > 0 ? rows % rowsPerPage : rows;
        for (int bar = first; bar <= row.End; ++bar) walked.Bars[bar].Place.RowOnPage = Core::ToInt16(rowOnPage);
        first = row.End + 1;
    }
    count.TooSmall = rowsPerPage <= 0;
    // An exact multiple of the rows that fit adds no empty page.
    if (!count.TooSmall) count.LastPage = (rows - 1) / rowsPerPage;
    return count;
}

PageCount SettledPageCount(const PageSetup& page, const TabFile& file, int track) {
    const PageCount count = NumberOfPages(page, file, track);
    return count.FlagsChanged ? NumberOfPages(page, file, track) : count;  // it measured with outdated figures
}

int FirstBarOfPage(const PageSetup& page, const TabFile& file, int track, int wantedPage) {
    const Track& walked = file.Tracks[track];
    const int step = RowHeight(walked) + file.RowSpacing;
    std::int64_t height = 0;
    int bar = 0;
    for (int before = 0; before < wantedPage; ++before) {
        bar = 0;
        while (height + step <= page.PageHeight - 50 && bar <= walked.Bars.UpperBound()) {
            bar = FillRow(page, file, walked, bar).End + 1;
            height += step;
        }
    }
    return bar;
}

namespace {

void PlaceBar(const PageSetup& page, const TabFile& file, int track, int bar, int x, int y, const FilledRow& row) {
    const Bar& placed = file.Tracks[track].Bars[bar];
    Core::BarPlace& place = placed.Place;
    place.BarX = Core::ToInt16(x);
    place.BarY = y;
    place.BarWidth = BarPixelWidth(placed, row.Spacing);
    const int inside = place.BarWidth - 9 - (place.ShowTimeSig ? 48 : 0);
    const int strums = StrumCount(placed);
    const int step = (inside >= 0 ? inside / strums : -((-inside + strums - 1) / strums)) - 1;  // Int is the floor
    place.BarStep = Core::ToInt16(std::min<int>(step, page.MaxTabX));
    PlaceStrums(file, track, bar);
}

}  // namespace

void PlaceStrums(const TabFile& file, int track, int bar) {
    const Track& owner = file.Tracks[track];
    const Bar& placed = owner.Bars[bar];
    Core::BarPlace& place = placed.Place;
    const Core::List<Core::Strum>& strums = placed.Strums();
    const int start = BarStartOffset(placed);
    const int usable = place.BarWidth - start - 5;
    const double total = Core::BarLengthIn64ths(file, bar);
    const bool exact = ShowsStaffOfOther(file, owner);
    place.StrumX.Resize(strums.Count());
    double elapsed = 0;
    for (int s = 0; s <= strums.UpperBound(); ++s) {
        // A bar without a length of its own spreads its strums evenly.
        const double part = total != 0 ? elapsed / total : static_cast<double>(s) / strums.Count();
        place.StrumX[s] = Core::CInt(place.BarX + start + part * usable);
        elapsed += Core::StrumLength(strums[s]);
        if (!exact) elapsed = Core::RoundHalfEven(elapsed);
    }
}

namespace {
std::uint64_t Passes = 0;
}

std::uint64_t LayoutPasses() { return Passes; }

void LayOutTrack(const PageSetup& page, const PageOrigin& origin, const TabFile& file, int track, int lastPage) {
    ++Passes;
    const Track& laid = file.Tracks[track];
    const int rowHeight = RowHeight(laid);
    const int rowsPerPage = RowsPerPage(page, rowHeight, file.RowSpacing);
    const int lastBar = laid.Bars.UpperBound();
    for (const Bar& bar : laid.Bars) bar.Place.Page = -1;
    int first = 0;
    for (int p = 0; p <= lastPage && first <= lastBar; ++p) {
        std::int64_t y = static_cast<std::int64_t>(page.PageHeight + PageGap) * p + origin.TopY + page.PageTopMargin;
        for (int rowIndex = 0; rowIndex < rowsPerPage && first <= lastBar; ++rowIndex) {
            const FilledRow row = FillRow(page, file, laid, first);
            int x = page.PageLeftMargin + origin.LeftX;
            for (int bar = first; bar <= row.End; ++bar) {
                Naming(file, laid, bar, [&] {
                    PlaceBar(page, file, track, bar, x, Core::ToInt32(y), row);
                    Core::BarPlace& place = laid.Bars[bar].Place;
                    place.RowOnPage = Core::ToInt16(rowIndex);
                    place.Page = p;
                    x = Core::ToInt16(x + place.BarWidth);
                });
            }
            y += rowHeight + file.RowSpacing;
            first = row.End + 1;
        }
    }
}

}  // namespace Quillon::Drawing
