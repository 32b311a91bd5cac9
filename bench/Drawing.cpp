// DrawDocument on Song S, painted into an image of the size of a window.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "platform/qt/PainterPicture.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

/// Two staves and the tab, 16ths throughout: three notes a strum, accidentals among them.
Core::TabFile Sixteenths() {
    Core::TabFile file;
    Core::Track& track = file.Tracks[0];
    track.ShowTreble = track.ShowBass = track.ShowTab = true;
    track.Bars.Resize(200);
    file.BarInfos.Resize(200);
    for (int bar = 0; bar < 200; ++bar) {
        Core::SetBarStrums(track.Bars.Edit(bar), 15);
        int at = bar;
        for (Core::Strum& strum : track.Bars.Edit(bar).EditStrums()) {
            strum.Length = 4;
            for (const int string : {0, 2, 5}) strum.Notes.Edit(string).Fret = std::to_string((at + string) % 13);
            at += 5;
        }
    }
    return file;
}

}  // namespace

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
    Core::Open.TabFile = Sixteenths();
    Drawing::View.VScroll = 0;
    const double staves = MedianSeconds(51, draw, [] { Drawing::Page.LayoutDirty = 1; });
    Row("DrawDocument, treble, bass and tab in 16ths, full pass", staves * 1e3, 12, "ms");
    return Status();
}
