// What the window does while a song plays, on the thread that effect timers share: a repaint when the rows scroll, and
// the marker's and status bar's part of a tick. Song S, in a window's size, as the editor shows it.
#include "bench/EditorWindow.h"
#include "bench/Measure.h"
#include "bench/SongS.h"
#include "core/mod_Settings.h"
#include "drawing/mod_PageLayout.h"
#include "forms/frmMain.h"
#include "forms/picDocument.h"
#include "playback/mod_TabPlayer.h"
#include "shell/mod_Sound.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

void MeasurePlaying(Forms::frmMain& window, VirtualClock& clock) {
    constexpr int Ticks = 64 * 60;  // of 60 bars, some 20 rows
    Playback::PlayTab(0, SongBars - 1);
    QApplication::processEvents();
    Times ticks;
    Times scrolls;
    Times full;
    bool layOut = false;
    int scroll = Drawing::View.VScroll;
    for (int tick = 0; tick < Ticks; ++tick) {
        ticks.Take([&] {
            clock.Step(1'000'000);
            Shell::PlayPlaceChanged();
        });
        const bool scrolled = Drawing::View.VScroll != scroll;
        scroll = Drawing::View.VScroll;
        if (!scrolled) {
            QApplication::processEvents();
            continue;
        }
        layOut = !layOut;  // every other one, to tell what is spared
        Drawing::Page.LayoutDirty = layOut ? 1 : 0;
        (layOut ? full : scrolls).Take([&] { window.Document().Settle(); });
        QApplication::processEvents();
    }
    Playback::StopTab();
    Row("A tick with marker and place, median", ticks.Part(0.5) * 1e3, "us");
    Row("A tick with marker and place, 99.9th percentile", ticks.Part(0.999), 3, "ms");
    Row("Repaint of a scroll while playing, median", scrolls.Part(0.5), 5, "ms");
    Row("Repaint of a scroll while playing, worst", scrolls.Part(1), "ms");
    Row("The same with all bars laid out anew, median", full.Part(0.5), "ms");
}

}  // namespace

int main(int argc, char** argv) {
    EditorWindow editor(argc, argv, 1100, 820);
    Core::Settings.FollowTabPlayback = true;
    editor.Show(SongS());
    MeasurePlaying(editor.Window(), editor.Clock);
    return Status();
}
