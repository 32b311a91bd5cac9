#include "exchange/LinesBars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>

namespace Quillon::Exchange {

namespace {

constexpr auto None = std::string_view::npos;

struct Span {
    std::size_t From = 0;
    std::size_t To = 0;
    std::size_t Width() const { return To - From; }
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsRepeatSign(char c) { return c == ':' || c == '*' || c == 'o' || c == 'O'; }
bool IsDash(char c) { return c == '-' || c == ' ' || c == '=' || c == '_'; }

/// A bar between two bar lines that has room for something. One column is a double bar line drawn wide.
bool IsBar(std::string_view body, Span span) {
    if (span.Width() == 0) return false;
    const auto text = body.substr(span.From, span.Width());
    const bool holds = std::ranges::any_of(text, [](char c) { return IsDigit(c) || c == 'x' || c == 'X'; });
    if (holds) return true;
    return span.Width() > 1 && !std::ranges::all_of(text, IsRepeatSign);
}

std::vector<Span> SpansOf(std::string_view body) {
    std::vector<Span> spans;
    for (std::size_t from = 0; from <= body.size();) {
        const std::size_t bar = std::min(body.find('|', from), body.size());
        if (const Span span{from, bar}; IsBar(body, span)) spans.push_back(span);
        from = bar + 1;
    }
    return spans;
}

class SystemReader {
public:
    SystemReader(const std::vector<TextColumns>& lines, const TabSystem& of) {
        for (std::size_t s = 0; s < of.Strings.size(); ++s) {
            const StringLine& string = of.Strings[s];
            if (string.Line < 0) continue;
            const std::string_view columns = lines[static_cast<std::size_t>(string.Line)].Columns;
            const auto body = static_cast<std::size_t>(string.Body);
            const auto end = static_cast<std::size_t>(string.End);
            strings.push_back({static_cast<int>(s), columns.substr(body, end - body), string.Body, {}});
            times = std::max(times, TimesIn(columns.substr(end)));
        }
    }

    SystemBars Read() {
        FindSpans();
        const std::size_t bars = strings.empty() ? 0 : strings.front().Spans.size();
        for (std::size_t b = 0; b < bars; ++b) read.Bars.push_back(BarAt(b));
        if (times > 1 && !read.Bars.empty()) {
            read.Bars.back().Closes = times - 1;
            const bool opened = std::ranges::any_of(read.Bars, [](const TabBar& bar) { return bar.Opens; });
            if (!opened) read.Bars.front().Opens = true;
        }
        return std::move(read);
    }

private:
    struct String {
        int Number;  ///< from 0
        std::string_view Body;
        int Column;  ///< of its line, where the body begins
        std::vector<Span> Spans;
    };

    /// By the count of bars, when all strings have the same, so that lines which slipped stay together; else by the
    /// columns in which most strings have a bar line.
    void FindSpans() {
        bool same = true;
        for (String& string : strings) {
            string.Spans = SpansOf(string.Body);
            same = same && string.Spans.size() == strings.front().Spans.size();
            read.HasBarLines = read.HasBarLines || string.Body.find('|') != None;
        }
        if (!same) FindSpansByColumns();
    }

    void FindSpansByColumns() {
        std::size_t width = 0;
        for (const String& string : strings) width = std::max(width, string.Body.size());
        std::vector<std::uint8_t> bars(width + 1);
        for (const String& string : strings) {
            for (std::size_t at = string.Body.find('|'); at != None; at = string.Body.find('|', at + 1)) ++bars[at];
        }
        std::vector<Span> common;
        const auto isLine = [&](std::size_t at) { return 2U * bars[at] >= strings.size(); };
        for (std::size_t from = 0; from < width;) {
            std::size_t to = from;
            while (to < width && !isLine(to)) ++to;
            const Span span{from, to};
            const bool isBar = std::ranges::any_of(strings, [&](const String& string) {
                const std::size_t end = std::min(to, string.Body.size());
                return from < end && IsBar(string.Body, {from, end});
            });
            if (isBar) common.push_back(span);
            from = to + 1;
        }
        for (String& string : strings) string.Spans = common;
    }

    static std::string CellsOf(const String& string, std::size_t bar) {
        const Span span = string.Spans[bar];
        return span.From < string.Body.size() ? std::string(string.Body.substr(span.From, span.Width())) : "";
    }

    /// Takes the signs of a repeat off both ends.
    static void TakeRepeats(std::string& cells, TabBar& bar) {
        const auto isDash = [&](std::size_t at) { return at >= cells.size() || IsDash(cells[at]); };
        if (!cells.empty() && IsRepeatSign(cells.front()) && (cells.front() == ':' || isDash(1))) {
            bar.Opens = true;
            cells.front() = '-';
        }
        if (cells.size() > 1 && IsRepeatSign(cells.back()) && (cells.back() == ':' || isDash(cells.size() - 2))) {
            bar.Closes = 1;
            cells.back() = '-';
        }
    }

    TabNote* LastOn(int string) {
        if (read.Bars.empty()) return nullptr;
        auto& notes = read.Bars.back().Notes;
        const auto last = std::find_if(notes.rbegin(), notes.rend(), [&](const auto& n) { return n.String == string; });
        return last == notes.rend() ? nullptr : &*last;
    }

    int CommonWidth(std::size_t bar) const {
        std::map<std::size_t, int> counts;
        for (const String& string : strings) ++counts[string.Spans[bar].Width()];
        const auto most = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; });
        return static_cast<int>(most->first);
    }

    TabBar BarAt(std::size_t b) {
        TabBar bar;
        bar.Width = CommonWidth(b);
        bar.Origin = strings.front().Column + static_cast<int>(strings.front().Spans[b].From);
        for (const String& string : strings) {
            std::string cells = CellsOf(string, b);
            const int width = static_cast<int>(cells.size());
            TakeRepeats(cells, bar);
            std::vector<TabNote> notes = NotesOf(cells, string.Number, LastOn(string.Number), read.Lost);
            // A longer line usually has frets of two figures where a dash should have gone.
            int excess = width - bar.Width;
            int shift = 0;
            for (TabNote& note : notes) {
                note.Column = std::max(note.Column - shift, 0);
                if (note.Width == 2 && shift < excess) ++shift;
            }
            bar.Notes.insert(bar.Notes.end(), notes.begin(), notes.end());
        }
        MergeColumns(bar);
        std::ranges::sort(bar.Notes, {}, [](const TabNote& note) { return std::tuple(note.Column, note.String); });
        return bar;
    }

    /// Frets of one beat need not begin in one column: 9 stands under the 0 of 10 and the 5 of (5) under that of -5-.
    static void MergeColumns(TabBar& bar) {
        int most = 0;
        for (const TabNote& note : bar.Notes) most = std::max(most, note.Column);
        struct Starts {
            std::uint8_t All = 0, Wide = 0, Plain = 0;  ///< strings as bits
        };
        std::vector<Starts> starts(static_cast<std::size_t>(most) + 1);
        const auto bit = [](const TabNote& note) { return static_cast<std::uint8_t>(1U << note.String); };
        const auto at = [&](int column) { return starts[static_cast<std::size_t>(column)]; };
        for (const TabNote& note : bar.Notes) {
            Starts& here = starts[static_cast<std::size_t>(note.Column)];
            here.All |= bit(note);
            if (note.Width == 2) here.Wide |= bit(note);
            if (note.Prefix == 0) here.Plain |= bit(note);
        }
        for (TabNote& note : bar.Notes) {
            const int column = note.Column;
            const int before = column - note.Prefix;
            if (note.Width == 1 && column > 0 && at(column - 1).Wide != 0 && !(at(column - 1).All & bit(note))) {
                --note.Column;
            } else if (note.Prefix > 0 && before >= 0 && at(before).All != 0 && at(column).Plain == 0 &&
                       !(at(before).All & bit(note))) {
                note.Column = before;
            }
        }
    }

    std::vector<String> strings;
    SystemBars read;
    int times = 0;
};

}  // namespace

int TimesIn(std::string_view words) {
    for (std::size_t at = words.find_first_of("0123456789"); at != None;) {
        std::size_t end = at;
        while (end < words.size() && IsDigit(words[end])) ++end;
        const auto isTimes = [](char c) { return c == 'x' || c == 'X'; };
        std::size_t before = at;
        while (before > 0 && words[before - 1] == ' ') --before;
        std::size_t behind = end;
        while (behind < words.size() && words[behind] == ' ') ++behind;
        const bool said =
            (before > 0 && isTimes(words[before - 1])) ||
            (behind < words.size() && (isTimes(words[behind]) || words.substr(behind).starts_with("time")));
        int times = 0;
        const auto error = std::from_chars(words.data() + at, words.data() + end, times).ec;
        constexpr int mostTimes = 99;
        if (said && error == std::errc() && times > 0 && times <= mostTimes) return times;
        at = words.find_first_of("0123456789", end);
    }
    return 0;
}

SystemBars BarsOf(const std::vector<TextColumns>& lines, const TabSystem& system) {
    return SystemReader(lines, system).Read();
}

}  // namespace Quillon::Exchange
