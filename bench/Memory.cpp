// Memory of a process that has opened Song S from its file, and has done nothing else before.
#include <sys/wait.h>
#include <unistd.h>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_MusicFile.h"
#include "platform/Services.h"

using namespace Quillon;
using namespace Quillon::Bench;

int main() {
    const Setting setting;
    const auto path = Services.BaseFolder / "song.qlm";
    const pid_t writer = fork();  // writing leaves nothing behind in this process
    if (writer == 0) {
        Core::Open.TabFile = SongS();
        _exit(Core::ForceSaveFile(path) ? 0 : 1);
    }
    int status = 1;
    if (waitpid(writer, &status, 0) != writer || status != 0) Fail("the song could not be written");

    Core::ForceOpenFile(path);
    Row("Resident memory with Song S open, without windows", ResidentBytes() / 1e6, 120, "MB");
    if (!(Core::Open.TabFile == SongS())) Fail("the song does not come back as it was saved");
    return Status();
}
