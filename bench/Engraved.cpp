// The drawn PDF of Song S, one track: how long the command takes, how large a page is, and how both grow.
#include <cmath>
#include <cstdlib>
#include <string>

#include "bench/Measure.h"
#include "bench/RunProgram.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_MusicFile.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

}  // namespace

/// Takes the folder of the programs.
int main(int argc, char** argv) {
    if (argc != 2) Fail("give the folder of the programs");
    const Setting setting;
    const std::string base = Services.BaseFolder.string();
    setenv("QUILLON_BASE", base.c_str(), 1);
    setenv("SOURCE_DATE_EPOCH", "1", 1);
    const auto song = [&](int bars) { return base + "/" + std::to_string(bars) + ".qlm"; };
    for (const int bars : {100, SongBars, 10000}) {
        Core::Open.TabFile = SongS(bars);
        // Of the other tracks reading alone would be measured.
        Core::Open.TabFile.Tracks.Resize(1);
        Core::ForceSaveFile(song(bars));
    }
    const auto write = [&](int bars, const std::string& name) {
        RunToItsEnd({std::string(argv[1]) + "/quillon-cli", "convert", song(bars), base + name, "--engraved"});
    };
    const double seconds = MedianSeconds(11, [&] { write(SongBars, "/a.pdf"); });
    write(SongBars, "/b.pdf");
    const std::string bytes = Services.Files->Read(base + "/a.pdf");
    if (bytes != Services.Files->Read(base + "/b.pdf")) Fail("the same song made two files");
    const auto pages = static_cast<double>(Count(bytes, "/Type/Page/"));
    Row("Engraved PDF of Song S, one track", seconds, 0.5, "s");
    Row("Its pages", pages, "pages");
    Row("Bytes of a page", static_cast<double>(bytes.size()) / pages / 1e3, 60, "KB");

    const double few = MedianSeconds(5, [&] { write(100, "/c.pdf"); });
    const double many = MedianSeconds(3, [&] { write(10000, "/d.pdf"); });
    Row("Engraved PDF of 10,000 bars", many, "s");
    // From the song to ten times as much: the start of the program is little beside both.
    Row("Exponent of the growth from 100 to 10,000 bars", std::log10(many / few) / 2, 1.1, "");
    return Status();
}
