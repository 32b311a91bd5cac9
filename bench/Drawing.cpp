// DrawDocument on Song S, painted into an image of the size of a window.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "drawing/mod_HighLevelDrawing.h"
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
    return Status();
}
