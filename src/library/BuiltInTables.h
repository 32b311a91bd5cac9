// The shapes and patterns that the libraries are made from, as tables of the program: a line of column names, then a
// row a line, the columns parted by tabs.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace Quillon::Library {

struct BuiltInTable {
    std::string_view Name;  ///< "Chords" or "Scales"
    std::string_view Bytes;
};
std::span<const BuiltInTable> BuiltInTables();

/// The rows of a table without its first line, each with all its columns. Raises "Subscript out of range" for a table
/// that is not there.
std::vector<std::vector<std::string_view>> TableRows(std::string_view name);

}  // namespace Quillon::Library
