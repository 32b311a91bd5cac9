#include "tests/support/Golden.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace Quillon::Testing {

namespace fs = std::filesystem;

fs::path GoldenDir() { return fs::path(QUILLON_SOURCE_DIR) / "tests" / "golden"; }

std::string Slurp(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        ADD_FAILURE() << "can't read " << path;
        return "";
    }
    return {std::istreambuf_iterator<char>(in), {}};
}

void Spill(const fs::path& path, std::string_view bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

void CheckGolden(const fs::path& name, std::string_view actual) {
    if (std::getenv("QUILLON_ACCEPT")) return Spill(GoldenDir() / name, actual);
    if (fs::exists(GoldenDir() / name) && Slurp(GoldenDir() / name) == actual) return;
    const fs::path actualDir = fs::path(QUILLON_SOURCE_DIR) / "tests" / "actual";
    Spill(actualDir / name, actual);
    ADD_FAILURE() << "compare " << GoldenDir() / name << " with " << actualDir / name;
}

ScratchFolder::ScratchFolder() {
    std::string pattern = (fs::temp_directory_path() / "quillon-test-XXXXXX").string();
    const char* made = mkdtemp(pattern.data());
    if (!made) throw std::runtime_error("can't make a scratch folder");
    path = made;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

}  // namespace Quillon::Testing
