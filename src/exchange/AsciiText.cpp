#include "exchange/AsciiText.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <vector>

#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

namespace {

constexpr std::string_view LineEnd = "\r\n";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
    std::string replaced;
    std::size_t read = 0;
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, read)) {
        replaced.append(text, read, at - read).append(to);
        read = at + from.size();
    }
    if (read == 0) return;
    replaced.append(text, read);
    text = std::move(replaced);
}

int StripTechniqueMarks(std::string& text) {
    int marks = 0;
    for (const char follower : std::string_view("0123456789-")) {
        for (const char mark : std::string_view("bshp/\\t~^.()r")) {
            for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
                if (at + 1 >= text.size() || text[at + 1] != follower) continue;
                text[at] = '-';
                ++marks;
            }
        }
    }
    return marks;
}

void RemoveTags(std::string& text) {
    constexpr std::size_t longestKept = 4096;  // of the tags that are known again
    std::string left;
    std::vector<std::size_t> open;  // where each "<" without a ">" stands in `left`
    std::unordered_set<std::string> removed;
    for (const char c : text) {
        left += c;
        if (c == '<') open.push_back(left.size() - 1);
        if (c != '>' || open.empty()) continue;
        // One that was removed before goes out of the middle of another too.
        if (open.size() > 1 && removed.contains(left.substr(open.back()))) {
            left.resize(open.back());
            open.pop_back();
            continue;
        }
        if (left.size() - open.front() <= longestKept) removed.insert(left.substr(open.front()));
        left.resize(open.front());
        open.clear();
    }
    constexpr int TypeMismatch = 13;
    if (!open.empty()) throw RunTimeError(TypeMismatch, "Type mismatch");
    text = std::move(left);
}

void FilterCharacters(std::string& text, std::string_view accepted) {
    std::array<bool, 256> stays{};
    for (const char c : accepted) stays[static_cast<unsigned char>(c)] = true;
    for (const char c : LineEnd) stays[static_cast<unsigned char>(c)] = true;
    std::erase_if(text, [&](char c) { return !stays[static_cast<unsigned char>(c)]; });
}

void RemoveNumberLines(std::string& text) {
    std::string left;
    std::size_t read = 0;
    for (;;) {
        const auto first = static_cast<std::size_t>(
            std::find_if(text.begin() + static_cast<std::ptrdiff_t>(read), text.end(), IsDigit) - text.begin());
        const auto behind = static_cast<std::size_t>(
            std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(first), text.end(), IsDigit) - text.begin());
        // A number at the very start ends it all, as one at the very end does.
        if (behind == text.size() || first < LineEnd.size()) break;
        left.append(text, read, first - read);
        const bool alone = text.compare(first - LineEnd.size(), LineEnd.size(), LineEnd) == 0 &&
                           text.compare(behind, LineEnd.size(), LineEnd) == 0;
        if (!alone) left.append(text, first, behind - first);
        read = behind;
    }
    left.append(text, read);
    text = std::move(left);
}

void RemoveDashLines(std::string& text) {
    for (const std::string_view dashes : {"\r\n-\r\n", "\r\n--\r\n", "\r\n---\r\n"}) ReplaceAll(text, dashes, "");
}

std::string SystemText(std::string_view text) {
    constexpr std::size_t Longest = 40;
    constexpr std::size_t Shortest = 3;
    std::string systems;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t ends = 0;
        for (; text.substr(at, LineEnd.size()) == LineEnd; at += LineEnd.size()) ++ends;
        for (; ends >= Longest; ends -= Longest) systems += "BS";
        if (ends >= Shortest) {
            systems += "BS";
        } else {
            systems.append(ends, 'S');
        }
        if (at >= text.size()) break;
        systems += text[at] == '-' ? ' ' : text[at];
        ++at;
    }
    return systems;
}

}  // namespace Quillon::Exchange
