#include "exchange/AsciiText.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

namespace {

constexpr std::string_view LineEnd = "\r\n";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes the first "<" with the first ">" behind it, removes that very text everywhere, and begins again, until no "<"
/// has a ">" behind it.
///
/// The text lies cut behind each ">". What is to be removed is then always the end of a piece, and pieces are found by
/// their innermost tags: a page with thousands of tags takes one walk and not a walk for each.
class TagRemover {
public:
    explicit TagRemover(std::string_view text) {
        for (;;) {
            const std::size_t end = text.find('>');
            pieces.emplace_back(text.substr(0, end == std::string_view::npos ? end : end + 1));
            if (end == std::string_view::npos) break;
            text.remove_prefix(end + 1);
        }
        for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
            next.push_back(piece + 1);
            gone.push_back(false);
            Note(piece);
        }
    }

    std::string Run() {
        const std::size_t last = pieces.size() - 1;  // no ">" ends it
        for (std::size_t piece = 0; piece < last; piece = next[piece]) {
            for (std::size_t open; !gone[piece] && (open = pieces[piece].find('<')) != std::string::npos;) {
                RemoveEverywhere(pieces[piece].substr(open));
            }
        }
        std::string left;
        for (std::size_t piece = 0; piece <= last; ++piece) left += pieces[piece];
        return left;
    }

private:
    void Note(std::size_t piece) {
        const std::size_t open = pieces[piece].rfind('<');
        if (open != std::string::npos && piece + 1 < pieces.size()) byTag[pieces[piece].substr(open)].push_back(piece);
    }

    void RemoveEverywhere(const std::string& tag) {
        auto& known = byTag[tag.substr(tag.rfind('<'))];
        std::vector<std::size_t> found;
        for (const std::size_t piece : known) {
            Work(tag.size());
            if (!gone[piece] && pieces[piece].ends_with(tag)) found.push_back(piece);
        }
        std::erase_if(known, [this](std::size_t piece) { return gone[piece]; });
        std::ranges::sort(found);
        for (const std::size_t piece : found) {
            std::string before = std::move(pieces[piece]);
            before.resize(before.size() - tag.size());
            pieces[piece].clear();
            gone[piece] = true;
            std::size_t& behind = next[piece];
            while (gone[behind]) behind = next[behind];
            constexpr std::size_t faster = 4;  // are bytes moved than tags compared
            Work((before.size() + pieces[behind].size()) / faster);
            const bool hadTag = pieces[behind].find('<') != std::string::npos;
            pieces[behind].insert(0, before);
            if (!hadTag) Note(behind);
        }
    }

    /// Marks heaped up to be slow are no text of anyone's.
    void Work(std::size_t bytes) {
        constexpr std::size_t most = 1'000'000'000;
        work += bytes;
        if (work > most) RaiseOverflow();
    }

    std::vector<std::string> pieces;
    std::vector<std::size_t> next;  ///< the piece behind each, of those that are there
    std::vector<bool> gone;         ///< what was left of these went to the pieces behind them
    std::unordered_map<std::string, std::vector<std::size_t>> byTag;  ///< pieces by their text from the last "<" on
    std::size_t work = 0;
};

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
    constexpr int typeMismatch = 13;
    if (text.find('<') == std::string::npos) return;
    std::string left = TagRemover(text).Run();
    if (left.find('<') != std::string::npos) throw RunTimeError(typeMismatch, "Type mismatch");
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
