#include "platform/FontStandIns.h"

#include <algorithm>
#include <array>

namespace Quillon {

namespace {

using Families = std::span<const std::string_view>;

constexpr std::array<std::string_view, 5> Sans = {"Arial", "Liberation Sans", "Arimo", "Helvetica", "DejaVu Sans"};
constexpr std::array<std::string_view, 5> Serif = {"Times New Roman", "Liberation Serif", "Tinos", "Times",
                                                   "DejaVu Serif"};
constexpr std::array<std::string_view, 5> Mono = {"Courier New", "Liberation Mono", "Cousine", "Courier",
                                                  "DejaVu Sans Mono"};
constexpr std::array<std::string_view, 6> Tahoma = {"Tahoma", Sans[0], Sans[1], Sans[2], Sans[3], Sans[4]};
constexpr std::array<std::string_view, 6> Verdana = {"Verdana", Sans[0], Sans[1], Sans[2], Sans[3], Sans[4]};

struct Entry {
    std::string_view Name;
    Families StandIns;
};
constexpr Entry Table[] = {
    {"arial", Sans},     {"helvetica", Sans},   {"ms sans serif", Sans}, {"small fonts", Sans},
    {"tahoma", Tahoma},  {"verdana", Verdana},  {"times", Serif},        {"times new roman", Serif},
    {"ms serif", Serif}, {"courier new", Mono}, {"courier", Mono},
};

bool SameName(std::string_view small, std::string_view name) {
    return std::ranges::equal(small, name, [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b + 32 : b); });
}

}  // namespace

Families FontStandIns(std::string_view name) {
    const auto* const found =
        std::ranges::find_if(Table, [&](const Entry& entry) { return SameName(entry.Name, name); });
    return found == std::end(Table) ? Families() : found->StandIns;
}

}  // namespace Quillon
