// Opening and saving a music file: how long, and how both grow with the song.
#include <cmath>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_MusicFile.h"
#include "platform/Services.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

struct FileTimes {
    double Open, Save;
};

FileTimes Measured(int bars, int runs) {
    const auto path = Services.BaseFolder / "song.qlm";
    Core::Open.TabFile = SongS(bars);
    FileTimes times{};
    times.Save = MedianSeconds(runs, [&] { Core::ForceSaveFile(path); });
    times.Open = MedianSeconds(runs, [&] { Core::ForceOpenFile(path); });
    if (!(Core::Open.TabFile == SongS(bars))) Fail("the song does not come back as it was saved");
    return times;
}

/// The power of the number of bars with which a time grew: 1 is linear.
double Exponent(double before, double after, double times) { return std::log(after / before) / std::log(times); }

}  // namespace

int main() {
    const Setting setting;
    const FileTimes at1000 = Measured(SongBars, 9);
    Row("Open Song S: decipher and parse", at1000.Open, 0.2, "s");
    Row("Save Song S, flushed to disk", at1000.Save, 0.2, "s");
    const FileTimes at10000 = Measured(10 * SongBars, 3);
    Row("Open, exponent of growth to 10,000 bars", Exponent(at1000.Open, at10000.Open, 10), 1.2, "");
    Row("Save, exponent of growth to 10,000 bars", Exponent(at1000.Save, at10000.Save, 10), 1.2, "");
    return Status();
}
