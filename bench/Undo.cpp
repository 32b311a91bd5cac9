// Undo on Song S: what a step costs in time and memory, and what keys cost on a short song.
#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_Settings.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Undo.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

void OpenSong(int bars) {
    Core::Open.TabFile = SongS(bars);
    Editing::ResetCursor(Core::Open);
    Editing::ClearUndo();
    Core::Open.CurBar = static_cast<std::int16_t>(bars / 2);
}

void Key(int code) { Editing::picDocument_KeyDown(code, 0); }

/// 100 digits, each in a bar of its own, as the ring holds them.
double BytesOf100Steps() {
    const auto before = LiveBytes();
    for (int step = 0; step < 100; ++step) {
        Core::Open.CurBar = static_cast<std::int16_t>(step * 9);
        Key('7');
    }
    return static_cast<double>(LiveBytes() - before);
}

}  // namespace

int main() {
    const Setting setting;
    OpenSong(SongBars);
    const double step = MedianSeconds(999, [] { Key('7'); });
    Row("A digit typed, its undo step taken", step * 1e6, 1000, "us");
    const double undone = MedianSeconds(
        999, [] { Editing::mnuEditUndo_Click(); }, [] { Key('7'); });
    Row("A step undone", undone * 1e6, 1000, "us");
    const double moved = MedianSeconds(999, [] { Key(Editing::KeyDown); });
    Row("A key that only moves the cursor", moved * 1e6, "us");

    OpenSong(SongBars);
    const double bytes = BytesOf100Steps();
    Row("Memory of 100 steps in 100 bars", bytes / 1e6, 20, "MB");
    Row("Memory of one step", bytes / 100 / 1024, "KiB");

    constexpr int keys = 100'000;
    OpenSong(16);
    const double many = MedianSeconds(3, [] {
        for (int key = 0; key < keys; ++key) Key(key % 4 == 3 ? Editing::KeyDown : '1' + key % 9);
    });
    Row("100,000 keys on a song of 16 bars", many, 2, "s");
    return Status();
}
