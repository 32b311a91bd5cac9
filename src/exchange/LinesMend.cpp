// What the way of a text through mail did to it: marks of quoting, lines broken in two.
#include <algorithm>
#include <utility>

#include "exchange/LinesSystems.h"

namespace Quillon::Exchange {

namespace {

constexpr auto None = std::string::npos;

bool IsQuoted(const TextColumns& line) { return line.Columns.starts_with('>'); }

/// Blanks for "> > ", so that every column stays where it is.
void Unquote(TextColumns& line) {
    const std::size_t end = line.Columns.find_first_not_of("> ");
    if (end == None) {
        line = {};
        return;
    }
    // Other signs that look like ">" have more bytes.
    if (!line.Text.empty()) line.Text = std::string(end, ' ') + line.Between(end, line.Columns.size());
    line.Columns.replace(0, end, end, ' ');
}

struct Broken {
    std::size_t Pairs = 0;
    std::size_t Width = 0;  ///< columns at which all of them were broken
};

/// Labelled lines of one width, each with the rest of it below: how many there are from a line on.
Broken BrokenFrom(const std::vector<TextColumns>& lines, std::size_t from) {
    constexpr std::size_t narrowest = 30;
    Broken broken;
    for (std::size_t at = from; at + 1 < lines.size(); at += 2) {
        const std::size_t width = lines[at].Columns.size();
        if (width < narrowest || (broken.Pairs > 0 && width != broken.Width)) break;
        if (lines[at + 1].Columns.size() > width) break;
        const auto first = StringLineOf(lines[at]);
        const auto second = StringLineOf(lines[at + 1]);
        if (!first || first->Label.empty() || !second || !second->Label.empty()) break;
        if (lines[at].Columns.back() == '|' && lines[at + 1].Columns.front() == '|') break;  // whole by itself
        broken.Width = width;
        ++broken.Pairs;
    }
    return broken;
}

void Join(TextColumns& line, const TextColumns& rest) {
    if (!line.Text.empty() || !rest.Text.empty()) {
        line.Text = line.Between(0, line.Columns.size()) + rest.Between(0, rest.Columns.size());
    }
    line.Columns += rest.Columns;
}

}  // namespace

void UnquoteLines(std::vector<TextColumns>& lines) {
    constexpr std::size_t fewest = 3;
    for (std::size_t from = 0; from < lines.size(); ++from) {
        std::size_t to = from;
        while (to < lines.size() && IsQuoted(lines[to])) ++to;
        if (to - from >= fewest) {
            for (std::size_t i = from; i < to; ++i) Unquote(lines[i]);
        }
        from = to;
    }
}

int JoinBrokenLines(std::vector<TextColumns>& lines) {
    int joined = 0;
    for (std::size_t from = 0; from < lines.size(); ++from) {
        const Broken broken = BrokenFrom(lines, from);
        if (broken.Pairs < FewestStrings) continue;
        for (std::size_t i = 0; i < broken.Pairs; ++i) {
            TextColumns line = std::exchange(lines[from + 2 * i], {});
            Join(line, std::exchange(lines[from + 2 * i + 1], {}));
            lines[from + i] = std::move(line);
        }
        joined += static_cast<int>(broken.Pairs);
        from += 2 * broken.Pairs - 1;
    }
    return joined;
}

}  // namespace Quillon::Exchange
