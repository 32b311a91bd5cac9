// A bar, or a beat, on a sheet of its own: the page's ink, and the page untouched.
#include "drawing/mod_Excerpt.h"

#include <gtest/gtest.h>

#include "drawing/mod_PageLayout.h"
#include "platform/headless/PictureLog.h"

using namespace Quillon;
using namespace Quillon::Drawing;

namespace {

/// Three bars of eight eighths; the first string's frets count up from 0.
Core::TabFile Song() {
    Core::TabFile file;
    file.BarInfos.Resize(3);
    file.Tracks[0].Bars.Resize(3);
    int fret = 0;
    for (int bar = 0; bar < 3; ++bar) {
        auto& strums = file.Tracks[0].Bars.Edit(bar).EditStrums();
        strums.Resize(8);
        for (auto& strum : strums) {
            strum.Length = 3;
            strum.Notes.Edit(0).Fret = std::to_string(fret++);
        }
    }
    return file;
}

struct Ink : PictureLog {
    double Left = 0;  ///< of the figure looked for
    double TintMiddle = -1;
    std::string Wanted;
    void Print(double x, double baseline, std::string_view text, Anchor anchor) override {
        if (text == Wanted) Left = x;
        PictureLog::Print(x, baseline, text, anchor);
    }
    void Box(double x, double y, double width, double height, Color fill) override {
        if (fill != White) TintMiddle = x + (width - 1) / 2;
        PictureLog::Box(x, y, width, height, fill);
    }
};

TEST(ExcerptTest, ABeatStandsInTheMiddleOnItsTintAndAtTheRowsEndsNearIt) {
    struct {
        int Bar, Strum;
        const char* Figure;
        double Least, Most;  ///< of the tint's middle on a sheet of 300
    } const table[] = {{1, 4, "12", 149, 151}, {0, 0, "0", 20, 100}, {2, 7, "23", 240, 280}};
    for (const auto& row : table) {
        const Excerpt excerpt(Song(), {.Bar = row.Bar, .Strum = row.Strum, .TabAlone = true});
        Ink ink;
        ink.Wanted = row.Figure;
        excerpt.Draw(ink, 300, 126);
        EXPECT_GE(ink.TintMiddle, row.Least) << row.Figure;
        EXPECT_LE(ink.TintMiddle, row.Most) << row.Figure;
        EXPECT_NEAR(ink.Left, ink.TintMiddle - 4, 3) << row.Figure;
    }
}

TEST(ExcerptTest, TheDocumentKeepsItsPlaces) {
    const Core::TabFile song = Song();
    LayOutTrack({}, {}, song, 0, 0);
    const Core::BarPlace before = song.Tracks[0].Bars[1].Place;
    const Excerpt excerpt(song, {.Bar = 1, .Figures = true});
    PictureLog log;
    excerpt.Draw(log, 500, 200);
    const Core::BarPlace& after = song.Tracks[0].Bars[1].Place;
    EXPECT_EQ(after.BarX, before.BarX);
    EXPECT_EQ(after.BarY, before.BarY);
    EXPECT_EQ(after.ShowTimeSig, before.ShowTimeSig);
    EXPECT_TRUE(after.StrumX == before.StrumX);
}

TEST(ExcerptTest, AWholeBarFitsItsSheetAndOneOutsideShowsAnEmptyOne) {
    const Excerpt bar(Song(), {.Bar = 1});
    EXPECT_EQ(bar.ScaleFor(2000, 1000), 2);
    const double scale = bar.ScaleFor(240, 1000);
    EXPECT_NEAR(240 / scale, 8 * 24 + 9 + 28, 1);
    for (const ExcerptOf& what : {ExcerptOf{.Track = 1}, ExcerptOf{.Bar = 3}, ExcerptOf{.Bar = -1}}) {
        PictureLog log;
        Excerpt(Song(), what).Draw(log, 100, 50);
        PictureLog blank;
        blank.Box(0, 0, 100, 50, White);
        EXPECT_EQ(log.Text(), blank.Text());
    }
}

}  // namespace
