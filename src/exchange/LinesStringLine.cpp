// Whether a line of a text is a string.
#include <algorithm>
#include <initializer_list>

#include "core/mod_Common.h"
#include "exchange/LinesEndings.h"
#include "exchange/LinesSystems.h"

namespace Quillon::Exchange {

namespace {

constexpr auto None = std::string::npos;
/// What may stand on a string beside dashes, frets and bar lines.
constexpr std::string_view Signs = "hHpPbBrRsStTxXvVwWmM~/\\^().<>*:oO+'`\"[]{}gfn\x01\x02";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsDash(char c) { return c == '-' || c == '=' || c == '_'; }

/// A column of a line, a blank behind its end.
class Cursor {
public:
    Cursor(const std::string& of, std::size_t from) : columns(of), at(from) {}
    char operator*() const { return at < columns.size() ? columns[at] : ' '; }
    char Next() const { return at + 1 < columns.size() ? columns[at + 1] : ' '; }
    Cursor& operator++() {
        ++at;
        return *this;
    }
    void SkipBlanks(std::size_t most) {
        for (; most > 0 && at < columns.size() && columns[at] == ' '; --most) ++at;
    }
    bool Ended() const { return at >= columns.size(); }
    std::size_t At() const { return at; }

private:
    const std::string& columns;
    std::size_t at;
};

/// Reads a label and what parts it from the string; false when none stands there.
bool ReadLabel(const std::string& columns, std::size_t from, StringLine& line) {
    Cursor cursor(columns, from);
    const char first = *cursor;
    const bool note = (first >= 'A' && first <= 'G') || (first >= 'a' && first <= 'g');
    if (!note && (first < '1' || first > '7')) return false;
    ++cursor;
    const auto parts = [](char c) { return c == '|' || c == ':' || c == ')' || c == ']'; };
    if (note) {
        if (*cursor == '#' || *cursor == 'b') ++cursor;
        if (IsDigit(*cursor) && (parts(cursor.Next()) || cursor.Next() == ' ')) ++cursor;
    }
    const std::size_t end = cursor.At();
    constexpr std::size_t mostBlanks = 4;
    cursor.SkipBlanks(mostBlanks);
    if (!parts(*cursor) && !(note && IsDash(*cursor))) return false;
    line.Label = columns.substr(from, end - from);
    if (parts(*cursor)) {
        const bool bar = *cursor == '|';
        ++cursor;
        if (!bar) cursor.SkipBlanks(mostBlanks);
        while (*cursor == '|') ++cursor;
    }
    line.Body = static_cast<int>(std::min(cursor.At(), columns.size()));
    return true;
}

/// A label behind other words: "Gtr 1: e|---".
bool ReadLabelBehindWords(const std::string& columns, std::size_t first, StringLine& line) {
    constexpr std::size_t furthest = 24;
    const std::size_t bar = columns.find('|', first);
    if (bar == None || bar > furthest || bar < first + 2) return false;
    if (columns.substr(first, bar - first).find("--") != None) return false;
    std::size_t from = bar;
    while (from > first && columns[from - 1] == ' ') --from;
    while (from > first && columns[from - 1] != ' ' && columns[from - 1] != ':' && columns[from - 1] != ')') --from;
    return from > first && ReadLabel(columns, from, line);
}

/// "PM-----|" is no string, and neither is "let ring---" nor the bracket of an ending.
bool IsRemark(const std::string& columns, std::size_t first) {
    const std::string upper = Core::UpperAscii(columns.substr(first, 8));
    const bool named =
        std::ranges::any_of(std::initializer_list<std::string_view>{"P.M", "PM", "LET R", "N.H", "A.H", "NH-", "AH-",
                                                                    "8VA", "8VB", "15MA", "HOLD", "W/", "RAKE", "TREM"},
                            [&](std::string_view start) { return upper.starts_with(start); });
    return named || !EndingsOf(columns).empty();
}

std::size_t EndOf(const std::string& columns) {
    std::size_t last = columns.find_last_of("-|=_");
    if (last == None) return 0;
    if (columns[last] != '|') {
        while (last + 1 < columns.size() &&
               (IsDigit(columns[last + 1]) || Signs.find(columns[last + 1]) != std::string_view::npos)) {
            ++last;
        }
    }
    return last + 1;
}

/// A few columns of dashes and frets alone, of which there is at least one.
bool IsStub(std::string_view body) {
    constexpr std::size_t longest = 6;
    return !body.empty() && body.size() <= longest &&
           std::ranges::all_of(body, [](char c) { return IsDash(c) || IsDigit(c) || c == 'x' || c == 'X'; });
}

bool LooksLikeString(std::string_view body, bool labelled, bool startsWithBar) {
    int dashes = 0, digits = 0, bars = startsWithBar ? 1 : 0, blanks = 0, signs = 0, others = 0;
    for (const char c : body) {
        if (IsDash(c) || (labelled && c == '~')) {
            ++dashes;
        } else if (IsDigit(c)) {
            ++digits;
        } else if (c == '|') {
            ++bars;
        } else if (c == ' ') {
            ++blanks;
        } else if (Signs.find(c) != std::string_view::npos) {
            ++signs;
        } else {
            ++others;
        }
    }
    const int seen = dashes + digits + bars + signs + others;
    if (dashes >= (labelled ? 2 : 3)) {
        return 8 * others <= seen && 2 * (dashes + digits + bars) >= seen && (labelled || 3 * blanks <= seen + blanks);
    }
    // Blanks for dashes, then, between bar lines.
    return (labelled || startsWithBar) && bars >= 2 && others == 0 && signs <= digits + 2 && blanks + digits >= 3;
}

/// Behind a label and its bar line something that may be a string full of signs or words.
bool MayBeString(std::string_view body) {
    int cells = 0, frets = 0;
    for (const char c : body) {
        if (IsDash(c) || c == '~' || c == '|') ++cells;
        if (IsDigit(c)) ++frets;
    }
    return cells >= 3 && 3 * (cells + frets) >= static_cast<int>(body.size());
}

}  // namespace

std::optional<StringLine> StringLineOf(const TextColumns& text) {
    const std::string& columns = text.Columns;
    const std::size_t first = columns.find_first_not_of(' ');
    if (first == None) return {};
    StringLine line;
    if (!ReadLabel(columns, first, line)) {
        if (IsRemark(columns, first)) return {};
        if (!ReadLabelBehindWords(columns, first, line)) {
            line.Body = static_cast<int>(std::min(columns.find_first_not_of('|', first), columns.size()));
        }
    }
    std::size_t end = EndOf(columns);
    const auto body = static_cast<std::size_t>(line.Body);
    const bool startsWithBar = body > 0 && columns[body - 1] == '|';
    // Some stop writing a string behind its last note, or at once: "A|-", "E|3".
    const bool stub = !line.Label.empty() && startsWithBar && IsStub(std::string_view(columns).substr(body));
    if (stub) end = columns.size();
    if (end <= body) return {};
    line.End = static_cast<int>(end);
    if (stub) return line;
    const std::string_view view = std::string_view(columns).substr(body, end - body);
    if (!LooksLikeString(view, !line.Label.empty(), startsWithBar)) {
        const std::size_t label = first + line.Label.size();
        if (line.Label.empty() || columns[label] != '|' || !MayBeString(view)) return {};
        line.Doubtful = true;
    }
    return line;
}

}  // namespace Quillon::Exchange
