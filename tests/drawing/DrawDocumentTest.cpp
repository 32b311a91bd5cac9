#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PrintedPages.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/headless/PictureLog.h"
#include "tests/support/CountingBox.h"

using namespace Quillon;
using namespace Quillon::Drawing;
using Core::Open;

namespace {

class DrawDocumentTest : public testing::Test {
protected:
    void SetUp() override {
        Open = {};
        Page = {};
        View = {};
        Services.Messages = &box;
        Core::Track& track = Open.TabFile.Tracks[0];
        track.ShowTreble = false;
        track.Bars.Resize(200);
        Open.TabFile.BarInfos.Resize(200);
        for (int bar = 0; bar < 200; ++bar) {
            Core::SetBarStrums(track.Bars.Edit(bar), 3);
            for (Core::Strum& strum : track.Bars.Edit(bar).EditStrums()) strum.Length = 2;
            track.Bars.Edit(bar).EditStrums()[0].Notes.Edit(bar % 6).Fret = std::to_string(bar % 25);
        }
    }
    void TearDown() override { Services.Messages = nullptr; }

    static std::string Draw() {
        PictureLog log;
        DrawDocument(log);
        return log.Text();
    }
    static bool CursorRowInView() {
        const Core::BarPlace& place = Core::ReadBar(0, Open.CurBar).Place;
        return place.BarY >= 0 && place.BarY + RowHeight(Open.TabFile.Tracks[0]) <= View.ScaleHeight;
    }

    Testing::CountingBox box;
};

}  // namespace

TEST_F(DrawDocumentTest, TheFastPassPaintsWhatTheFullPassPaints) {
    View.VScroll = 60;
    View.FollowCursor = false;
    Page.LayoutDirty = 1;
    const std::string full = Draw();
    EXPECT_EQ(Page.LayoutDirty, 0);
    EXPECT_EQ(Draw(), full);
    Page.LayoutDirty = 1;
    EXPECT_EQ(Draw(), full);
}

TEST_F(DrawDocumentTest, ASongThatPlaysScrollsToWhatAFullPassPaints) {
    Draw();
    View.Playing = true;
    const std::int16_t width = Core::ReadBar(0, 7).Place.BarWidth;
    Core::ReadBar(0, 7).Place.BarWidth = 1;  // a pass that lays out anew would put it right
    for (const int scroll : {40, 300, 7}) {
        View.VScroll = scroll;
        Draw();
        EXPECT_EQ(Core::ReadBar(0, 7).Place.BarWidth, 1) << "a scroll alone moves the rows";
    }
    Core::ReadBar(0, 7).Place.BarWidth = width;
    const std::string scrolled = Draw();
    Page.LayoutDirty = 1;
    EXPECT_EQ(Draw(), scrolled);
    EXPECT_EQ(Core::ReadBar(0, 7).Place.BarWidth, width);
}

TEST_F(DrawDocumentTest, ScrollingFollowsTheCursorDownAndUp) {
    Draw();
    for (const std::int16_t bar : std::initializer_list<std::int16_t>{20, 60, 199, 120, 3}) {
        Open.CurBar = bar;
        Draw();
        EXPECT_TRUE(CursorRowInView()) << bar << " at " << Core::ReadBar(0, bar).Place.BarY;
    }
    EXPECT_LE(View.VScroll, View.VScrollMax);
    View.FollowCursor = false;
    View.VScroll = View.VScrollMax;
    Draw();
    EXPECT_EQ(View.VScroll, View.VScrollMax);
    EXPECT_FALSE(CursorRowInView());
}

TEST_F(DrawDocumentTest, WalkingOntoARowThatIsCutOffScrollsOnByThatRow) {
    View.ScaleHeight = 760;
    Draw();
    const Core::Track& track = Open.TabFile.Tracks[0];
    std::int16_t bar = 1;
    while (track.Bars[bar].Place.BarY + RowHeight(track) + 40 <= View.ScaleHeight) ++bar;
    const int rowStep = track.Bars[bar].Place.BarY - track.Bars[bar - 1].Place.BarY;
    ASSERT_LT(track.Bars[bar].Place.BarY, View.ScaleHeight);
    Open.CurBar = bar;
    Draw();
    EXPECT_EQ(View.VScroll, Core::CLng((rowStep + 20) / 8.0));
}

TEST_F(DrawDocumentTest, AViewThatShrankShowsTheRowOfItsCursorAtOnce) {
    Open.CurBar = 1;
    Draw();
    const int y = Core::ReadBar(0, 1).Place.BarY;
    ASSERT_EQ(y, Core::ReadBar(0, 0).Place.BarY);
    View.ScaleHeight = y + 20;
    Draw();
    EXPECT_TRUE(CursorRowInView()) << Core::ReadBar(0, 1).Place.BarY;
}

TEST_F(DrawDocumentTest, ABarThatPlaysIsBroughtIntoANarrowView) {
    View.FollowCursor = false;
    View.VScroll = 2;
    View.ScaleWidth = 400;
    Draw();
    for (const int bar : {0, 1, 2, 3, 4, 0}) {
        ScrollAcross(bar);
        Draw();
        const Core::BarPlace& place = Core::ReadBar(0, bar).Place;
        EXPECT_GE(place.BarX, 10) << bar;
        EXPECT_LE(place.BarX + place.BarWidth, View.ScaleWidth - 10) << bar;
    }
    View.ScaleWidth = 100;
    Draw();
    ScrollAcross(2);
    Draw();
    EXPECT_GE(Core::ReadBar(0, 2).Place.BarX, 10) << "too wide a bar shows its beginning";
    EXPECT_LT(Core::ReadBar(0, 2).Place.BarX, 40);
    View.ScaleWidth = 1000;
    Draw();
    const int scroll = View.HScroll;
    ScrollAcross(4);
    EXPECT_EQ(View.HScroll, scroll);
}

TEST_F(DrawDocumentTest, AnotherTrackOrAnotherViewIsLaidOutAfresh) {
    Open.TabFile.Tracks.Add(Open.TabFile.Tracks[0]);
    Open.TabFile.Tracks[1].Bars.Edit(0).EditStrums().Resize(1);
    View.VScroll = 2;
    Draw();
    const int x = Core::ReadBar(0, 0).Place.BarX;
    Open.CurTrack = 1;
    Draw();
    EXPECT_NE(Core::ReadBar(1, 0).Place.BarWidth, Core::ReadBar(0, 0).Place.BarWidth);
    Open.CurTrack = 0;
    View.ScaleWidth += 200;
    Draw();
    EXPECT_EQ(Core::ReadBar(0, 0).Place.BarX, x + 100);
}

TEST_F(DrawDocumentTest, EveryBarStandsOnOnePage) {
    const int pages = CountPages(0);
    EXPECT_GT(pages, 1);
    int bars = 0;
    for (int page = 0; page < pages; ++page) {
        PictureLog log;
        DrawPage(log, 0, page);
        for (const Core::Bar& bar : Open.TabFile.Tracks[0].Bars) bars += bar.Place.Page == page ? 1 : 0;
    }
    EXPECT_EQ(bars, 200);
    EXPECT_EQ(Page.LayoutDirty, 1);
}

TEST_F(DrawDocumentTest, APageTooSmallIsToldOnceAndDrawnEmpty) {
    Open.TabFile.RowSpacing = 2000;
    Draw();
    Draw();
    EXPECT_EQ(box.Shown, 1);
    EXPECT_EQ(LastPage(), 0);
    EXPECT_EQ(Core::ReadBar(0, 0).Place.Page, -1);
    Open.TabFile.RowSpacing = 100;
    Draw();
    EXPECT_EQ(Core::ReadBar(0, 0).Place.Page, 0);
}

TEST_F(DrawDocumentTest, AColumnPast32767Overflows) {
    Core::SetBarStrums(Open.TabFile.Tracks[0].Bars.Edit(0), 9999);
    for (Core::Strum& strum : Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()) strum.Length = 0;
    EXPECT_THROW(Draw(), RunTimeError);
}
