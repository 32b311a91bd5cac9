// How long the programs take to start, as a user sees it: from the call to the end of the first work.
#include <cstdlib>
#include <string>

#include "bench/Measure.h"
#include "bench/RunProgram.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_MusicFile.h"
#include "platform/Services.h"

using namespace Quillon;
using namespace Quillon::Bench;

/// Takes the folder of the programs.
int main(int argc, char** argv) {
    if (argc != 2) Fail("give the folder of the programs");
    const Setting setting;
    const std::string folder = argv[1];
    const std::string base = Services.BaseFolder.string();
    setenv("QUILLON_BASE", base.c_str(), 1);
    // A window of a real display when there is one, else one in memory.
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 1);

    const double twin = MedianSeconds(20, [&] { RunToItsEnd({folder + "/quillon-cli", "--version"}); });
    Row("quillon-cli --version", twin * 1e3, 20, "ms");
    const double editor = MedianSeconds(20, [&] { RunToItsEnd({folder + "/quillon", "--quit-after-paint"}); });
    Row("The editor to its first painted window, and out", editor, 0.2, "s");

    const std::string song = base + "/song.qlm";
    Core::Open.TabFile = SongS();
    Core::ForceSaveFile(song);
    const double memory = RunToItsEnd({folder + "/quillon", "--quit-after-paint", song});
    Row("Largest memory of the editor opening Song S", memory / 1e6, 120, "MB");
    return Status();
}
