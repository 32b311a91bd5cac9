#include "drawing/mod_HighLevelDrawing.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "drawing/PageFurniture.h"
#include "drawing/mod_NotationDrawing.h"
#include "drawing/mod_TabDrawing.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"

namespace Quillon::Drawing {

using Core::Bar;
using Core::LanguageText;
using Core::Open;
using Core::TabFile;
using Core::Track;

namespace {

/// All that a layout depends on beside the document. When it differs from that of the last full pass, the stored
/// positions belong to another view.
struct LayoutKey {
    int Track = -1;
    std::int16_t PageWidth = 0;
    std::int16_t PageHeight = 0;
    std::int16_t MinTabX = 0;
    std::int16_t MaxTabX = 0;
    PageOrigin Origin;
    bool operator==(const LayoutKey&) const = default;
};

struct LastLayout {
    LayoutKey Key;
    PageCount Count;
    bool TooSmallShown = false;  ///< one message for one page size, not one a repaint
    std::string PageText;
    std::optional<RowLook> Look;  ///< none until measured
};
LastLayout Last;

LayoutKey KeyNow() {
    return {Open.CurTrack, Page.PageWidth, Page.PageHeight,
            Page.MinTabX,  Page.MaxTabX,   {PageLeftX(Page, View), TopOfPage0(View)}};
}

void SetScrollRanges() {
    const int pages = Last.Count.LastPage;
    View.VScrollMax = std::max(0, Core::CLng(((Page.PageHeight + PageGap) * (pages + 1.0) - View.ScaleHeight) / 8));
    View.HScrollMax = std::max(0, Core::CLng((Page.PageWidth - View.ScaleWidth + 80) / 10.0));
    View.VScroll = std::clamp(View.VScroll, 0, View.VScrollMax);
    View.HScroll = std::clamp(View.HScroll, 0, View.HScrollMax);
}

/// While a song plays the document stands still: a scroll moves its rows, and nothing needs to be laid out anew. False
/// when something other than the scroll changed.
bool MoveRows() {
    const LayoutKey now = KeyNow();
    const std::int64_t down = std::int64_t{now.Origin.TopY} - Last.Key.Origin.TopY;
    LayoutKey moved = Last.Key;
    moved.Origin.TopY = now.Origin.TopY;
    if (moved != now) return false;
    for (const Bar& bar : Open.TabFile.Tracks[Open.CurTrack].Bars) {
        if (bar.Place.Page >= 0) bar.Place.BarY = Core::ToInt32(bar.Place.BarY + down);
    }
    Last.Key = now;
    return true;
}

/// Lays out what is due. The stored positions then stand for the view as it is.
void LayOutView() {
    const TabFile& file = Open.TabFile;
    Page.AutoPageStretch ? StretchPage(Page, View, RowHeight(file.Tracks[Open.CurTrack])) : ApplyPaperSize(Page);
    if (View.VScroll == 0) Page.LayoutDirty = 1;
    const bool due = View.CompletePass || Page.LayoutDirty == 1;
    if (!due && (KeyNow() == Last.Key || (View.Playing && MoveRows()))) return;
    Last.Count = SettledPageCount(Page, file, Open.CurTrack);
    Last.PageText = LanguageText("str_Pages") + std::to_string(Last.Count.LastPage + 1);
    if (Last.Count.TooSmall) {
        TellPageTooSmall();
    } else {
        Last.TooSmallShown = false;
    }
    SetScrollRanges();
    Last.Key = KeyNow();
    LayOutTrack(Page, Last.Key.Origin, file, Open.CurTrack, Last.Count.TooSmall ? -1 : Last.Count.LastPage);
    Last.Look.reset();
    if (!View.CompletePass) Page.LayoutDirty = 0;
}

/// The track whose lyrics stand under a track's rows: its own, or another that exists.
int LyricsTrackOf(const TabFile& file, int track) {
    const Track& own = file.Tracks[track];
    const bool ofOther =
        own.LyricsOfOtherTrack == 1 && own.LyricsTrack >= 0 && own.LyricsTrack <= file.Tracks.UpperBound();
    return ofOther ? own.LyricsTrack : track;
}

/// The first bar whose row may reach into the view. Rows follow each other downward, so the bars can be bisected.
int FirstBarInView(const Track& track, int above) {
    int low = 0;
    int high = track.Bars.Count();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (track.Bars[middle].Place.BarY > above) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    return low;
}

void DrawBarsInView(Picture& picture) {
    const Track& track = Open.TabFile.Tracks[Open.CurTrack];
    if (!Last.Look) Last.Look = LookOfRows(picture, Open.TabFile, Open.CurTrack);
    const int above = -(RowHeight(track) + 40);
    for (int bar = FirstBarInView(track, above); bar <= track.Bars.UpperBound(); ++bar) {
        const Core::BarPlace& place = track.Bars[bar].Place;
        // Signs and chord charts of a row just below the view still reach into it.
        if (place.Page < 0 || place.BarY - 90 >= View.ScaleHeight) break;
        DrawBar(picture, place.BarX, place.BarY, Open.TabFile, Open.CurTrack, bar, place.BarWidth, *Last.Look);
    }
}

void DrawPagesInView(Picture& picture) {
    const int pageStep = Page.PageHeight + PageGap;
    const PageOrigin origin{PageLeftX(Page, View), TopOfPage0(View)};
    const int from = std::max(0, (-origin.TopY - 20) / pageStep);
    for (int page = from; page <= Last.Count.LastPage; ++page) {
        const int top = pageStep * page + origin.TopY;
        if (top - 20 > View.ScaleHeight) break;
        DrawPageFrame(picture, Page, origin.LeftX, top);
        DrawPageFurniture(picture, Page, Open.TabFile, Open.CurTrack, origin.LeftX, top, page, Last.Count.LastPage + 1);
    }
}

constexpr Color CursorColor = PackColor(0x2A, 0x6F, 0xDB);
constexpr Color CurrentBarColor = PackColor(0xEE, 0xF4, 0xFE);

void DrawOutline(Picture& picture, int left, int top, int width, int height) {
    picture.Box(left, top, width, 1, CursorColor);
    picture.Box(left, top + height - 1, width, 1, CursorColor);
    picture.Box(left, top, 1, height, CursorColor);
    picture.Box(left + width - 1, top, 1, height, CursorColor);
}

const Bar* CursorBar() {
    const Track& track = Open.TabFile.Tracks[Open.CurTrack];
    if (Open.CurBar < 0 || Open.CurBar > track.Bars.UpperBound()) return nullptr;
    const Bar& bar = track.Bars[Open.CurBar];
    return bar.Place.Page >= 0 && Open.CurStrum >= 0 && Open.CurStrum <= bar.Place.StrumX.UpperBound() ? &bar : nullptr;
}

/// A tint under the current bar, so that it is found at a glance and no ink is hidden.
void DrawCursorGround(Picture& picture) {
    const Bar* bar = CursorBar();
    if (!bar) return;
    const int height = RowHeight(Open.TabFile.Tracks[Open.CurTrack]);
    picture.Box(bar->Place.BarX + 1, bar->Place.BarY - 3, bar->Place.BarWidth - 1, height + 6, CurrentBarColor);
}

void DrawCursor(Picture& picture) {
    const Bar* bar = CursorBar();
    if (!bar) return;
    const Track& track = Open.TabFile.Tracks[Open.CurTrack];
    const int x = bar->Place.StrumX[Open.CurStrum];
    const int y = bar->Place.BarY;
    if (Open.InputMode == Core::TabInput && track.ShowTab) {
        DrawOutline(picture, x - 9, y + TabOffset(track) + 10 * Open.CurString, 19, 12);
    } else if (track.IsDrum && (track.ShowTreble || track.ShowBass)) {
        DrawOutline(picture, x - 8, y + DrumLaneY(Open.CurPitch) - 5, 17, 10);
    } else if (track.ShowTreble || track.ShowBass) {
        const int pitch = Open.CurPitch + OctaveShift(track);
        const bool lower = track.ShowBass && (!track.ShowTreble || pitch < LowestOnTreble);
        const int base = lower ? NotationBaseOffset(track) : 0;
        DrawOutline(picture, x - 8, y + base + PitchToStaffY(pitch, KeyUsesFlats(bar->Key)) + 2, 17, 10);
    }
}

}  // namespace

void TellPageTooSmall() {
    if (Last.TooSmallShown || !Services.Messages) return;
    Last.TooSmallShown = true;
    Services.Messages->Show(LanguageText("str_PageTooSmall"), LanguageText("str_TitleError"), Buttons::Ok,
                            BoxIcon::Critical);
}

RowLook LookOfRows(Picture& picture, const TabFile& file, int track) {
    RowLook look = LookOfLyrics(file, track, LyricsTrackOf(file, track));
    constexpr int least = 4, overhang = 6;  // into the margin
    const int edge = std::max(least, Page.PageLeftMargin - overhang);
    look.PaperLeft = edge - Page.PageLeftMargin;
    look.PaperRight = Page.PageWidth - Page.PageLeftMargin - edge;
    look.TopMargin = Page.PageTopMargin;
    const HeaderEdges header = MeasureHeader(picture, Page, file, track);
    look.HeaderLeft = header.Left - Page.PageLeftMargin;
    look.HeaderRight = header.Right - Page.PageLeftMargin;
    if (Page.ClefOnEveryRow) look.RowHeadRoom = std::max(0, Page.PageLeftMargin - 4);
    return look;
}

void DrawBar(Picture& picture, int x, int y, const TabFile& file, int track, int bar, int width, const RowLook& look) {
    const BarContext context{file, track, bar, x, y, width, look};
    DrawBarFrame(picture, context);
    DrawBarStrums(picture, context);
    DrawBarMarks(picture, context);
    DrawLyrics(picture, context, LyricsTrackOf(file, track));
}

void DrawDocument(Picture& picture) {
    LayOutView();
    if (!View.Playing && View.FollowCursor) {
        if (Open.CurBar > 0) SetScrolls(Open.CurBar);
        LayOutView();  // a scroll moves every position
    }
    picture.Box(0, 0, View.ScaleWidth, View.ScaleHeight, View.Ground);
    DrawPagesInView(picture);
    DrawCursorGround(picture);
    DrawBarsInView(picture);
    DrawCursor(picture);
}

void SetScrolls(int wanted) {
    const Track& track = Open.TabFile.Tracks[Open.CurTrack];
    if (wanted < 0 || wanted > track.Bars.UpperBound()) return;
    const Bar& bar = track.Bars[wanted];
    if (bar.Place.Page < 0) return;
    const int below = bar.Place.BarY + RowHeight(track) + 40 - View.ScaleHeight;
    if (below > 0) {
        const int rowStep = bar.Place.BarY - track.Bars[std::max(0, wanted - 1)].Place.BarY;
        // On by a row while the cursor walks; all that is missing when it went out of sight, or when the view shrank
        // around the row that it stands in.
        int units = Core::CLng((rowStep + 20) / 8.0);
        if (bar.Place.BarY - 50 >= View.ScaleHeight) units = std::max(units, (below + 7) / 8);
        if (rowStep == 0) units = std::max(units, std::min(below + 7, bar.Place.BarY - 40) / 8);
        View.VScroll = std::min(View.VScroll + units, View.VScrollMax);
    } else if (bar.Place.BarY < 40 && View.VScroll > 0) {
        View.VScroll = std::max(0, View.VScroll - (120 - bar.Place.BarY + 7) / 8);
    }
}

void ScrollAcross(int wanted) {
    constexpr int Beside = 20;
    constexpr double Unit = 10;
    const Track& track = Open.TabFile.Tracks[Open.CurTrack];
    if (wanted < 0 || wanted > track.Bars.UpperBound() || track.Bars[wanted].Place.Page < 0) return;
    const Core::BarPlace& place = track.Bars[wanted].Place;
    const int left = place.BarX - Beside;
    const int right = place.BarX + place.BarWidth + Beside - View.ScaleWidth;
    if (left >= 0 && right <= 0) return;
    // A bar wider than the view shows its beginning.
    const double units = std::min(std::ceil(right / Unit), std::floor(left / Unit));
    View.HScroll = std::clamp(View.HScroll + static_cast<int>(units), 0, View.HScrollMax);
}

const std::string& PageCountText() { return Last.PageText; }

int LastPage() { return Last.Count.LastPage; }

}  // namespace Quillon::Drawing
