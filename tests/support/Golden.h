// Comparison with text files under tests/golden/. QUILLON_ACCEPT=1 rewrites them; the review reads the difference.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Quillon::Testing {

std::filesystem::path GoldenDir();
/// A file's bytes; fails the test and returns "" when it can't be read.
std::string Slurp(const std::filesystem::path& path);
void Spill(const std::filesystem::path& path, std::string_view bytes);
/// Fails unless tests/golden/`name` holds just these bytes; leaves what came out under tests/actual/.
void CheckGolden(const std::filesystem::path& name, std::string_view actual);
/// A fresh empty folder of this test, removed with the object.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& Path() const { return path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path / name; }

private:
    std::filesystem::path path;
};

}  // namespace Quillon::Testing
