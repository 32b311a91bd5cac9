#include "tests/architecture/Sources.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "tests/support/Golden.h"

namespace Quillon::Testing {

namespace fs = std::filesystem;

namespace {

constexpr const char* FoldersOfCode[] = {"src", "tests", "bench", "fuzz"};
constexpr int LongestFile = 750;  ///< lines; past it a file no longer fits one sitting

std::vector<fs::path> AllSources() {
    std::vector<fs::path> all;
    for (const char* folder : FoldersOfCode) std::ranges::copy(SourcesBelow(folder), std::back_inserter(all));
    return all;
}

struct Finished {
    int Status = -1;
    std::string Output;
};

Finished RunCommand(const std::string& command) {
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return {};
    Finished finished;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), pipe)) {
        finished.Output.append(buffer.data(), count);
    }
    finished.Status = pclose(pipe);
    return finished;
}

}  // namespace

fs::path SourceDir() { return QUILLON_SOURCE_DIR; }

std::vector<fs::path> SourcesBelow(std::string_view folder) {
    std::vector<fs::path> found;
    const fs::path top = SourceDir() / folder;
    if (!fs::exists(top)) return found;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
        const auto ending = entry.path().extension();
        if (ending == ".cpp" || ending == ".h") found.push_back(entry.path());
    }
    std::ranges::sort(found);
    return found;
}

TEST(Sources, AreFormatted) {
    // Other versions set some lines differently, so that just the one that the project uses can judge.
    std::string tool;
    for (const char* name : {"clang-format-14", "clang-format"}) {
        const Finished version = RunCommand(std::string(name) + " --version");
        if (version.Status == 0 && version.Output.find("version 14.") != std::string::npos) tool = name;
        if (!tool.empty()) break;
    }
    if (tool.empty()) GTEST_SKIP() << "clang-format 14 is not on this machine: the formatting was NOT checked";
    std::string command = tool + " --dry-run -Werror";
    for (const fs::path& file : AllSources()) command += " '" + file.string() + "'";
    const Finished check = RunCommand(command);
    EXPECT_EQ(check.Status, 0) << "Run clang-format -i on these:\n" << check.Output;
}

TEST(Sources, FitOneSitting) {
    ASSERT_FALSE(AllSources().empty());
    for (const fs::path& file : AllSources()) {
        EXPECT_LE(std::ranges::count(Slurp(file), '\n'), LongestFile) << file << " should be two";
    }
}

}  // namespace Quillon::Testing
