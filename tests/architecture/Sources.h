// The files that the tests of the tree itself read.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace Quillon::Testing {

/// The folder of the project.
std::filesystem::path SourceDir();
/// Every .cpp and .h file below a folder of the project, sorted; none when the folder is missing.
std::vector<std::filesystem::path> SourcesBelow(std::string_view folder);

}  // namespace Quillon::Testing
