// What the words right above systems are: sung, or headings.
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "core/mod_Common.h"
#include "exchange/LinesAbove.h"

namespace Quillon::Exchange {

namespace {

bool StandsOverNotes(const LyricLine& line) { return 2 * line.OverNotes >= line.Words; }

/// A line as a heading; "" for one too long.
std::string HeadingOf(const TextColumns& text) {
    constexpr std::size_t longest = 40;
    const std::size_t from = text.Columns.find_first_not_of(' ');
    if (text.Columns.size() - from > longest) return {};
    std::string heading = text.Between(from, text.Columns.size());
    std::erase_if(heading, [](char c) { return c == '<' || c == '>'; });
    return heading;
}

bool IsPlayer(const std::string& heading) {
    const std::string lower = Core::LowerAscii(heading);
    return std::ranges::any_of(std::initializer_list<std::string_view>{"gtr", "guitar", "bass"},
                               [&](std::string_view name) { return lower.starts_with(name); });
}

}  // namespace

void SettleWords(const std::vector<TextColumns>& lines, std::vector<AboveSystem>& above) {
    const auto singing = std::ranges::count_if(
        above, [](const AboveSystem& system) { return std::ranges::any_of(system.Lyrics, StandsOverNotes); });
    for (AboveSystem& system : above) {
        std::vector<LyricLine> sung;
        for (LyricLine& line : system.Lyrics) {
            if (StandsOverNotes(line) && (line.Indented || (singing > 1 && line.Words > 1))) {
                sung.push_back(std::move(line));
                continue;
            }
            std::string heading = HeadingOf(lines[static_cast<std::size_t>(line.Line)]);
            if (system.Section.empty() && !heading.empty()) {
                system.Section = std::move(heading);
            } else {
                std::erase(system.Used, line.Line);
            }
        }
        system.Lyrics = std::move(sung);
    }
}

std::vector<int> OtherPlayers(const std::vector<TabSystem>& systems, const std::vector<AboveSystem>& above) {
    constexpr int mostLines = 4;  // from one system to the other
    std::vector<int> others;
    for (std::size_t s = 1; s < above.size(); ++s) {
        const std::string& player = above[s].Section;
        const std::string& before = above[s - 1].Section;
        const bool close = systems[s].FirstLine - systems[s - 1].LastLine <= mostLines;
        if (close && player != before && IsPlayer(player) && IsPlayer(before)) others.push_back(static_cast<int>(s));
    }
    return others;
}

}  // namespace Quillon::Exchange
