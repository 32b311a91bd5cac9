// How long the programs take to start, as a user sees it: from the call to the end of the first work.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_MusicFile.h"
#include "platform/Services.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

/// Runs a program to its end, its output thrown away. Its largest resident memory in bytes.
double RunToItsEnd(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int failure = posix_spawn(&child, arguments[0], &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    int status = 1;
    rusage usage{};
    if (failure != 0 || wait4(child, &status, 0, &usage) != child || status != 0)
        Fail(words[0] + " failed; run it by hand to see why");
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

}  // namespace

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
