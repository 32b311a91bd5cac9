#include "tests/stories/RunCli.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

namespace Quillon::Testing {

namespace fs = std::filesystem;

namespace {

std::string Quoted(const std::string& word) {
    std::string quoted = "'";
    for (char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace

Finished CliStory::Run(const std::vector<std::string>& arguments, const std::string& device) const {
    const ScratchFolder outputs;
    std::string command = "cd " + Quoted(folder.Path().string()) + " && LC_ALL=C QUILLON_BASE=base " +
                          Quoted(QUILLON_BINARY_DIR "/bin/quillon-cli");
    for (const std::string& argument : arguments) command += " " + Quoted(argument);
    const std::string out = device.empty() ? (outputs / "out").string() : device;
    command += " </dev/null >" + Quoted(out) + " 2>" + Quoted((outputs / "err").string());
    const int result = std::system(command.c_str());  // NOLINT(bugprone-command-processor,cert-env33-c)
    return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, device.empty() ? Slurp(out) : "", Slurp(outputs / "err")};
}

void CliStory::Bring(const std::string& golden) const {
    fs::copy_file(GoldenDir() / "qlm" / golden, folder / golden, fs::copy_options::overwrite_existing);
}

std::vector<std::string> CliStory::Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
        if (entry.path().filename() != "base") names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace Quillon::Testing
