#include "bench/RunProgram.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/Setting.h"

namespace Quillon::Bench {

double RunToItsEnd(std::vector<std::string> words, const std::string& output) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    constexpr int Writable = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, output.c_str(), Writable, 0600);
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

}  // namespace Quillon::Bench
