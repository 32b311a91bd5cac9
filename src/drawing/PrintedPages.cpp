#include "drawing/mod_PrintedPages.h"

#include "core/mod_TabFileStructure.h"
#include "drawing/PageFurniture.h"
#include "drawing/mod_HighLevelDrawing.h"

namespace Quillon::Drawing {

using Core::Open;
using Core::TabFile;

PrintedTrack::PrintedTrack(int printed) : track(printed), count(SettledPageCount(Page, Open.TabFile, printed)) {}

void PrintedTrack::LayOut() {
    if (pass == LayoutPasses()) return;
    count = SettledPageCount(Page, Open.TabFile, track);
    LayOutTrack(Page, {}, Open.TabFile, track, count.TooSmall ? -1 : count.LastPage);
    pass = LayoutPasses();
}

void PrintedTrack::Draw(Picture& picture, int page, const RunningTexts* texts) {
    const TabFile& file = Open.TabFile;
    LayOut();
    Page.LayoutDirty = 1;
    picture.Box(0, 0, Page.PageWidth, Page.PageHeight, White);
    DrawPageFurniture(picture, Page, file, track, 0, 0, page, Pages(), texts);
    if (count.TooSmall) return TellPageTooSmall();
    if (!look) {
        look = LookOfRows(picture, file, track);
        look->Printed = true;
    }
    const auto& bars = file.Tracks[track].Bars;
    int bar = 0;
    for (int end = bars.Count(); bar < end;) {  // the pages' bars follow each other
        const int middle = (bar + end) / 2;
        const int at = bars[middle].Place.Page;
        (at < page && at >= 0 ? bar : end) = at < page && at >= 0 ? middle + 1 : middle;
    }
    const int top = (Page.PageHeight + PageGap) * page;
    for (; bar < bars.Count() && bars[bar].Place.Page == page; ++bar) {
        const Core::BarPlace& place = bars[bar].Place;
        DrawBar(picture, place.BarX, place.BarY - top, file, track, bar, place.BarWidth, *look);
    }
}

int CountPages(int track) { return PrintedTrack(track).Pages(); }

void DrawPage(Picture& picture, int track, int page) { PrintedTrack(track).Draw(picture, page); }

}  // namespace Quillon::Drawing
