#include "library/BuiltInTables.h"

#include <algorithm>

#include "platform/RunTimeError.h"

namespace Quillon::Library {

namespace {

std::vector<std::string_view> Split(std::string_view text, char at) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(at);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

}  // namespace

std::vector<std::vector<std::string_view>> TableRows(std::string_view name) {
    const auto tables = BuiltInTables();
    const auto found = std::ranges::find(tables, name, &BuiltInTable::Name);
    if (found == tables.end()) RaiseSubscriptOutOfRange();
    std::vector<std::vector<std::string_view>> rows;
    for (const std::string_view line : Split(found->Bytes, '\n')) {
        if (!line.empty()) rows.push_back(Split(line, '\t'));
    }
    rows.erase(rows.begin());
    return rows;
}

}  // namespace Quillon::Library
