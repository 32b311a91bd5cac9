// The rescue copy: what a tick of its timer costs while a person types.
#include "shell/Recovery.h"
#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_TabFileManipulation.h"

using namespace Quillon;
using namespace Quillon::Bench;

int main() {
    const Setting setting;
    Core::Open.TabFile = SongS(SongBars);
    Core::Open.FileChanged = true;
    std::int64_t now = 0;
    int edits = 0;
    const auto edit = [&] { Core::EditStrum(0, SongBars / 2, 0).Notes.Edit(0).Fret = std::to_string(++edits % 20); };
    const auto tick = [&] { Shell::tmrRecovery_Timer(now += Shell::RecoveryPause); };
    tick();
    if (!Shell::Recovery.Written) Fail("no rescue copy was written");
    Row("Rescue copy: Song S unchanged", MedianSeconds(99, tick) * 1e6, 100, "us");
    Row("Rescue copy: Song S after an edit, flushed to disk", MedianSeconds(9, tick, edit), 0.2, "s");
    Shell::EndRecovery();
    return Status();
}
