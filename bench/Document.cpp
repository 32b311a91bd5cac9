// The document in memory: what a copy costs, and an edit after it.
#include "bench/Measure.h"
#include "bench/SongS.h"

using namespace Quillon::Bench;
using Quillon::Core::TabFile;

int main() {
    const double before = ResidentBytes();
    TabFile song = SongS();
    Row("Resident memory of the document alone", (ResidentBytes() - before) / 1e6, "MB");

    TabFile copy;
    const double seconds = MedianSeconds(
        101, [&] { copy = song; }, [&] { copy = {}; });
    Row("Copy of the document", seconds * 1e6, 200, "us");

    copy = song;
    const auto live = LiveBytes();
    song.Tracks[3].Bars.Edit(500).EditStrums()[4].Notes.Edit(0).Fret = "12";
    Row("New memory after editing one note beside a copy", static_cast<double>(LiveBytes() - live) / 1024, 64, "KiB");
    return Status();
}
