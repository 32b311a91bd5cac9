#include "exchange/LinesEndings.h"

#include <algorithm>
#include <string_view>

#include "core/mod_Common.h"

namespace Quillon::Exchange {

namespace {

constexpr auto None = std::string::npos;

/// "1.", "1.2.", "1,2.", "2)", "1st": a bare number may be a fret.
bool IsNumber(std::string_view word) {
    if (word.front() < '1' || word.front() > '9') return false;
    const std::string behind = Core::LowerAscii(word.substr(1));
    constexpr std::string_view ordinals[] = {"st", "nd", "rd", "th"};
    const bool ordinal = std::ranges::any_of(ordinals, [&](std::string_view end) { return behind == end; });
    return ordinal || (behind.find_first_of(".)") != None && behind.find_first_not_of("123456789.,)") == None);
}

}  // namespace

std::vector<EndingAbove> EndingsOf(const std::string& columns) {
    constexpr std::size_t longest = 400, longestNumber = 4;
    constexpr std::string_view between = " |_-";
    std::vector<EndingAbove> endings;
    if (columns.size() > longest) return endings;
    char before = '0';
    for (std::size_t at = columns.find_first_not_of(between); at != None;) {
        const std::size_t end = std::min(columns.find_first_of(between, at), columns.size());
        const std::string word = columns.substr(at, end - at);
        const std::string lower = Core::LowerAscii(word);
        if (!endings.empty() && (lower == "time" || lower == "ending")) {
            endings.back().Text += " " + word;
        } else if (word.size() <= longestNumber && IsNumber(word) && word.front() > before) {
            endings.push_back({static_cast<int>(at), word});
            before = word.front();
        } else {
            return {};
        }
        at = columns.find_first_not_of(between, end);
    }
    const bool drawn = endings.size() > 1 || columns.find_first_of("|_-") != None;
    // The first of all may have stood over the system before.
    const bool begins = !endings.empty() && endings.front().Text.front() <= '3';
    if (!drawn || !begins) endings.clear();
    return endings;
}

}  // namespace Quillon::Exchange
