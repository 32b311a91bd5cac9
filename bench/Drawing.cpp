// DrawDocument on Song S, painted into an image of the size of a window.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PrintedPages.h"
#include "platform/headless/NoPicture.h"
#include "platform/qt/PainterPicture.h"

using namespace Quillon;
using namespace Quillon::Bench;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QImage image(1600, 1000, QImage::Format_RGB32);
    Core::Open.TabFile = SongS();
    Drawing::View.ScaleWidth = image.width();
    Drawing::View.ScaleHeight = image.height();
    Drawing::View.FollowCursor = false;
    const auto draw = [&] {
        QPainter painter(&image);
        PainterPicture picture(painter);
        Drawing::DrawDocument(picture);
    };

    const double full = MedianSeconds(51, draw, [] { Drawing::Page.LayoutDirty = 1; });
    Row("DrawDocument, full pass", full * 1e3, 10, "ms");

    // At the very top every pass is a full one; half way down the song it is not.
    Drawing::View.VScroll = Drawing::View.VScrollMax / 2;
    const double fast = MedianSeconds(51, draw);
    if (Drawing::Page.LayoutDirty != 0) Fail("no fast pass was made");
    Row("DrawDocument, fast pass, a page in view", fast * 1e3, 4, "ms");

    Core::Open = {};
    Core::Open.TabFile = Sixteenths(200);
    Drawing::View.VScroll = 0;
    const double staves = MedianSeconds(51, draw, [] { Drawing::Page.LayoutDirty = 1; });
    Row("DrawDocument, treble, bass and tab in 16ths, full pass", staves * 1e3, 12, "ms");

    // Laying out, and painting every page where nobody looks: twice the bars must cost twice the time.
    const auto measure = [](int bars, const auto& work) {
        Core::Open = {};
        Core::Open.TabFile = Sixteenths(bars);
        return MedianSeconds(bars > 1000 ? 3 : 15, work, [] { Drawing::Page.LayoutDirty = 1; });
    };
    const auto layOut = [] {
        NoPicture nowhere;
        Drawing::DrawDocument(nowhere);
    };
    const auto paint = [] {
        NoPicture nowhere;
        Drawing::PrintedTrack pages(0);
        for (int page = 0; page < pages.Pages(); ++page) pages.Draw(nowhere, page);
    };
    const double least = 100, most = 10000;
    const auto exponent = [&](double few, double many) { return std::log(many / few) / std::log(most / least); };
    const double layoutGrowth = exponent(measure(100, layOut), measure(10000, layOut));
    // A long song no longer fits the caches of the processor: a bar of 10,000 takes twice as long as one of 1,000.
    Row("Growth of a full pass from 100 to 10,000 bars", layoutGrowth, 1.25, "exponent");
    const double few = measure(100, paint), many = measure(10000, paint);
    Row("Every page of 10,000 bars laid out and drawn", many * 1e3, "ms");
    Row("Growth of that from 100 bars", exponent(few, many), 1.1, "exponent");
    return Status();
}
