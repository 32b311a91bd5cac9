// The page: how many bars share a row, how wide each is, where its columns stand, and what a point of the view means.
//
// All measures are whole pixels of the document view at 96 to the inch. Only the current track is laid out; the
// numbers land in the bars' places (Bar::Place). Doubles are worked out in the written order and rounded once, halves
// to even, where they are stored. Horizontal sums are 16-bit and trapped, vertical ones 32-bit.
#pragma once

#include <cstdint>

#include "core/mod_TabFileManipulation.h"
#include "core/mod_TabFileStructure.h"

namespace Quillon::Drawing {

/// Space above each staff; the one named value that all staff arithmetic shares.
constexpr int StaffHeadroom = 28;
/// Gap between two pages in the view.
constexpr int PageGap = 35;
constexpr int PaperSizeCount = 14;  ///< entries of the paper list

struct PageSetup {
    std::int16_t PageWidth = 795;
    std::int16_t PageHeight = 1124;
    std::int16_t PageRulerStep = 7;    ///< 7 for centimetres, 5 for inches; read when the page frame is drawn
    std::int16_t PageLeftMargin = 50;  ///< left and right margin
    std::int16_t PageTopMargin = 210;  ///< from the top of every page to its first row
    bool IsLandscape = false;
    std::int16_t PaperSizeIndex = 0;  ///< index into the paper list
    std::int16_t PageScaleIndex = 0;  ///< 0 centimetres, 1 inches
    std::int16_t MinTabX = 28;        ///< lowest spacing at which another bar may join a row
    std::int16_t MaxTabX = 80;        ///< ceiling of a bar's stored step
    bool ClefOnEveryRow = false;      ///< rows that change nothing show their clef and key too, left of the first bar
    bool AutoPageStretch = false;     ///< pages take the size of the window
    std::uint8_t LayoutDirty = 1;     ///< a full layout pass is due
};

/// The picture box that shows the document, as the layout sees it: its size in document pixels and its scroll bars.
struct DocumentView {
    int ScaleWidth = 1000;
    int ScaleHeight = 800;
    int VScroll = 0;  ///< in units of 8 pixels
    int VScrollMax = 0;
    int HScroll = 0;  ///< in units of 10 pixels
    int HScrollMax = 0;
    bool CompletePass = false;       ///< asked for by printing and exports
    bool Playing = false;            ///< the play timer runs: the document stands still, the view does not follow it
    bool FollowCursor = true;        ///< scroll so that the cursor stays in view
    std::int32_t Ground = 0xA49E9A;  ///< colour that the pages lie on, packed as the documents' colours
};

extern PageSetup Page;
extern DocumentView View;

/// Text of an entry of the paper list, 0 to 13.
const char* PaperSizeName(int index);
/// Sets PageWidth and PageHeight from PaperSizeIndex and IsLandscape. From entry 7 on each entry takes the size of
/// the row before the one that its text says; existing documents are laid out so.
void ApplyPaperSize(PageSetup& page);
/// Sets the page's size from the view's: height less 60 but at least three rows, width less 60 but at least 400.
void StretchPage(PageSetup& page, const DocumentView& view, int rowHeight);
/// Millimetres of a sheet: those of the paper that the size comes from, else those of its pixels.
struct PaperSize {
    double Width = 0;
    double Height = 0;
};
PaperSize PaperMillimetres(const PageSetup& page);

/// Strings that the tab shows, 1 to 7 whatever a file says.
int StringsShown(const Core::Track& track);
int RowHeight(const Core::Track& track);
/// True when the rows show the staff of the track whose lyrics they borrow.
bool ShowsStaffOfOther(const Core::TabFile& file, const Core::Track& track);
/// From the row's Y to the top of the tab's first figure cell; the top line stands 6 lower.
int TabOffset(const Core::Track& track);
/// From a head's height above the bass reference to the row: 81 below a treble staff, -42 without one.
int NotationBaseOffset(const Core::Track& track);
/// From the bar's left edge to its first column: 49 with figures, else 9.
int BarStartOffset(const Core::Bar& bar);

/// Pixels that a strum gets if these bars share a row. Lifts lastBar to firstBar when it is below.
std::int16_t CommonSpacing(const PageSetup& page, const Core::Track& track, int firstBar, int& lastBar);
std::int16_t BarPixelWidth(const Core::Bar& bar, int spacing);

/// X of the page's left edge in view coordinates.
int PageLeftX(const PageSetup& page, const DocumentView& view);
/// Y of the first page's top in view coordinates.
int TopOfPage0(const DocumentView& view);

std::int16_t RowsPerPage(const PageSetup& page, int rowHeight, int rowSpacing);
struct PageCount {
    int LastPage = 0;           ///< index of the last page, 0 for one page
    bool TooSmall = false;      ///< no row fits on the page; LastPage is 0 then
    bool FlagsChanged = false;  ///< the walk measured with figures that it then changed: walk again for the final count
};
/// Walks the rows and settles ShowTimeSig and RowOnPage of every bar.
PageCount NumberOfPages(const PageSetup& page, const Core::TabFile& file, int track);
/// The same, walked again when the first walk changed figures.
PageCount SettledPageCount(const PageSetup& page, const Core::TabFile& file, int track);
/// Exact for pages 0 and 1; used to find pages in view, never to place bars. The running height is not cleared
/// between pages and the top margin does not enter: this is meant.
int FirstBarOfPage(const PageSetup& page, const Core::TabFile& file, int track, int wantedPage);

/// Where the first page's left edge and top stand.
struct PageOrigin {
    int LeftX = 0;
    int TopY = 0;
    bool operator==(const PageOrigin&) const = default;
};
/// Lays out every row of the track on pages 0 to lastPage: the places of all bars are written, those of their columns
/// too. Bars that find no page have Page -1.
void LayOutTrack(const PageSetup& page, const PageOrigin& origin, const Core::TabFile& file, int track, int lastPage);
/// Counts the calls of LayOutTrack: while it stands still, so do the bars.
std::uint64_t LayoutPasses();
/// Columns of a bar placed already, by musical time.
void PlaceStrums(const Core::TabFile& file, int track, int bar);

/// What a point of the view stands for.
struct Hit {
    bool OnBar = false;
    bool PastLastBar = false;  ///< in the last bar's band, at or right of its hit width
    std::int16_t Bar = 0;
    std::int16_t Strum = 0;
    enum class Place { Neither, OnString, OnPitch, OnLane } On = Place::Neither;
    std::int16_t String = 0;  ///< on a drum track's staff: the lane
    std::int16_t Pitch = 0;   ///< MIDI note number
};
/// The bar whose band holds the point, its width being that at its stored step, and what lies there.
Hit HitTest(const Core::TabFile& file, int track, int x, int y);

/// The bar of a drag that has left all bars: of the row nearest to the point, the nearest one. -1 when none is placed.
int NearestBar(const Core::Track& track, int x, int y);

/// The string of a figure cell `y` pixels below the tab's offset, -1 when none lies there.
int StringFromY(int y, int strings);

}  // namespace Quillon::Drawing
