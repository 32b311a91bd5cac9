// The one-way streets of src/: which folder may include from which, read from levels.txt.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon::Testing {

/// The rows of levels.txt in their order, with every @x followed to its end.
struct Levels {
    std::vector<std::string> Folders;
    std::map<std::string, std::set<std::string>> MayInclude;  ///< by folder: folders, and "Qt" for the headers of Qt
    std::vector<std::string> Faults;                          ///< rows that name what stands in no row above them

    /// The row that a file of src/ belongs to, the deepest that fits: "platform/qt" for "platform/qt/Screen.cpp".
    /// "" when no row fits.
    std::string RowOf(std::string_view file) const;
};
Levels ReadLevels(std::string_view text);

/// What breaks the rule in one source text, a line each: "core/x.cpp:7 includes forms/frmMain.h". `file` and the
/// names in `known`, all files of src/, are paths from src/. Includes must be written from src/ too.
std::vector<std::string> CheckIncludes(const Levels& levels, const std::set<std::string>& known, std::string_view file,
                                       std::string_view text);

/// Which folders a folder's library links that its row does not name, from the text of src/CMakeLists.txt.
std::vector<std::string> CheckLinks(const Levels& levels, std::string_view cmake);

}  // namespace Quillon::Testing
