// What a person who types waits for: from the key's event to the finished repaint of the real window, and what the
// window itself adds to a key that only moves the cursor. Song S, and a page of treble, bass and tab in 16ths, in a
// window of 1,600 by 1,000 pixels.
#include <QKeyEvent>
#include <random>
#include <string>

#include "bench/EditorWindow.h"
#include "bench/Measure.h"
#include "bench/SongS.h"
#include "forms/frmMain.h"
#include "forms/picDocument.h"
#include "shell/mod_Shell.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

constexpr int Keys = 1'000;

/// Presses a key and runs what it posted, until the window has been painted and flushed.
void Press(Forms::frmMain& window, int key, const char* text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&window.Document(), &press);
    QApplication::processEvents();
}

/// Puts the cursor on a bar somewhere in the song, in view.
void GoSomewhere(std::mt19937& random) {
    Core::Open.CurBar = static_cast<std::int16_t>(std::uniform_int_distribution<int>(0, SongBars - 1)(random));
    Core::Open.CurStrum = 0;
    Core::Open.CurString = static_cast<std::int16_t>(std::uniform_int_distribution<int>(0, 5)(random));
    Shell::Program.View->DrawDocument();
    QApplication::processEvents();
}

void Measure(Forms::frmMain& window, const std::string& where) {
    std::mt19937 random(20);
    Times digits;
    Times moves;
    for (int key = 0; key < Keys; ++key) {
        GoSomewhere(random);
        const char digit[] = {static_cast<char>('3' + key % 7), '\0'};
        digits.Take([&] { Press(window, digit[0], digit); });
        if (!Core::Open.FileChanged) Fail("the digit was not typed");
        Core::Open.FileChanged = false;
        moves.Take([&] { Press(window, Qt::Key_Down, ""); });
        if (Core::Open.FileChanged) Fail("a key that moves the cursor wrote");
    }
    const std::string digit = "A digit" + where + ", from key event to finished repaint, ";
    Row((digit + "median").c_str(), digits.Part(0.5), 8, "ms");
    Row((digit + "99th percentile").c_str(), digits.Part(0.99), 16, "ms");
    Row((digit + "worst").c_str(), digits.Part(1), "ms");
    Row(("A cursor key" + where + ", likewise, median").c_str(), moves.Part(0.5), "ms");
    Row(("A cursor key" + where + ", likewise, 99th percentile").c_str(), moves.Part(0.99), "ms");
}

}  // namespace

int main(int argc, char** argv) {
    EditorWindow editor(argc, argv, 1600, 1000);
    editor.Show(SongS());
    Measure(editor.Window(), "");
    editor.Show(Sixteenths(SongBars));
    Measure(editor.Window(), " on three staves in 16ths");
    return Status();
}
