#include "exchange/LinesAbove.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <string_view>

#include "core/mod_Common.h"

namespace Quillon::Exchange {

namespace {

constexpr auto None = std::string_view::npos;

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == OtherSign; }

/// A run of columns without a blank.
struct Word {
    int Column = 0;
    std::string_view Text;
    int End() const { return Column + static_cast<int>(Text.size()); }
};

std::vector<Word> WordsOf(const std::string& columns) {
    std::vector<Word> words;
    for (std::size_t at = columns.find_first_not_of(' '); at != None;) {
        const std::size_t end = std::min(columns.find(' ', at), columns.size());
        words.push_back({static_cast<int>(at), std::string_view(columns).substr(at, end - at)});
        at = columns.find_first_not_of(' ', end);
    }
    return words;
}

/// The place of the column nearest to one, within a reach; nothing for none.
bool IsNear(const std::vector<int>& columns, int column, int reach) {
    const auto at = std::ranges::lower_bound(columns, column - reach);
    return at != columns.end() && *at <= column + reach;
}

std::optional<LengthAbove> LengthOf(const Word& word) {
    constexpr std::string_view letters = "WHQESTX";
    const std::size_t code = letters.find(Core::UpperAscii(word.Text.substr(0, 1)));
    if (code == None) return {};
    LengthAbove length{word.Column, static_cast<std::int8_t>(code), false, false};
    for (const char c : word.Text.substr(1)) {
        if (c == '.') {
            length.Dotted = true;
        } else if (c != '-' && c != '~' && c != '_' && c != '=') {  // it is held, or a beam
            return {};
        }
    }
    return length;
}

/// A bracket such as |-3-| or a bare 3; its columns.
bool IsTripletBracket(std::string_view word) {
    const std::size_t three = word.find('3');
    return three != None && word.find('3', three + 1) == None &&
           std::ranges::all_of(word, [](char c) { return std::string_view("3-|+_`'/\\").find(c) != None; });
}

class AboveReader {
public:
    AboveReader(const std::vector<TextColumns>& of, const TabSystem& below, const std::vector<bool>& usedLines,
                const std::vector<int>& noteColumns)
        : lines(of), system(below), used(usedLines), columns(noteColumns) {}

    AboveSystem Read(int from) {
        constexpr int mostLines = 8;
        int line = system.FirstLine - 1;
        const int last = std::max(from, line - mostLines);
        for (; line >= last && !Line(line).IsBlank(); --line) {
            if (used[At(line)]) {
                if (StringLineOf(Line(line))) break;
                continue;  // a line of the header may stand among them
            }
            if (ReadLine(line)) above.Used.push_back(line);
        }
        // A heading stands apart from what it heads.
        while (line >= last && Line(line).IsBlank()) --line;
        if (line >= last && !used[At(line)] && above.Section.empty() && (ReadSection(line) || ReadTimes(line))) {
            above.Used.push_back(line);
        }
        std::ranges::reverse(above.Lyrics);
        if (above.Lyrics.size() > Core::LyricLines) above.Lyrics.resize(Core::LyricLines);
        MarkTriplets();
        return std::move(above);
    }

private:
    static std::size_t At(int line) { return static_cast<std::size_t>(line); }
    const TextColumns& Line(int line) const { return lines[At(line)]; }

    bool ReadLine(int line) {
        const std::vector<Word> words = WordsOf(Line(line).Columns);
        return ReadBrackets(words) || ReadEndings(line) || ReadLengths(words) || ReadSigns(words) ||
               ReadChords(words, line) || IsCount(words) || ReadSection(line) || ReadTimes(line) ||
               ReadLyrics(words, line);
    }

    bool ReadBrackets(const std::vector<Word>& words) {
        const bool all = std::ranges::all_of(words, [](const Word& word) { return IsTripletBracket(word.Text); });
        if (!all || words.empty()) return false;
        brackets.insert(brackets.end(), words.begin(), words.end());
        return true;
    }

    bool ReadEndings(int line) {
        std::vector<EndingAbove> endings = EndingsOf(Line(line).Columns);
        if (endings.empty()) return false;
        above.Endings = std::move(endings);
        return true;
    }

    /// Letters for lengths stand above nearly every column with notes; names of chords don't.
    bool ReadLengths(const std::vector<Word>& words) {
        if (!above.Lengths.empty()) return false;
        std::vector<LengthAbove> lengths;
        std::vector<Word> threes;
        for (const Word& word : words) {
            if (word.Text == "|") continue;
            if (IsTripletBracket(word.Text)) {
                threes.push_back(word);
                continue;
            }
            const auto length = LengthOf(word);
            if (!length) return false;
            lengths.push_back(*length);
        }
        if (lengths.empty() || columns.empty()) return false;
        std::vector<int> places;
        for (const LengthAbove& length : lengths) places.push_back(length.Column);
        const auto covered = std::ranges::count_if(columns, [&](int column) { return IsNear(places, column, 1); });
        const bool onlyE = std::ranges::all_of(lengths, [](const auto& length) { return length.Code == 3; });
        const auto asked = static_cast<std::ptrdiff_t>(columns.size()) * (onlyE ? 9 : 7);
        if (10 * covered < asked || (onlyE && lengths.size() < 4)) return false;
        above.Lengths = std::move(lengths);
        brackets.insert(brackets.end(), threes.begin(), threes.end());
        return true;
    }

    /// Palm mutes and the like: "PM----|", "let ring---|", "~~~", and single signs above beats.
    bool ReadSigns(const std::vector<Word>& words) {
        std::vector<SignAbove> signs;
        std::vector<TimesAbove> repeats;
        for (std::size_t i = 0; i < words.size(); ++i) {
            const Word& word = words[i];
            const std::string upper = Core::UpperAscii(word.Text);
            const auto isDashed = [&](std::string_view name) {
                return upper.starts_with(name) && upper.find_first_not_of("-|.>~", name.size()) == std::string::npos;
            };
            if (isDashed("P.M") || isDashed("PM") || upper == "M") {
                signs.push_back({word.Column, EndOfDashes(words, i) - 1, Core::PalmMute});
            } else if (upper == "LET" && i + 1 < words.size() &&
                       Core::UpperAscii(words[i + 1].Text).starts_with("RING")) {
                signs.push_back({word.Column, EndOfDashes(words, ++i) - 1, 0});
            } else if (upper.find_first_not_of("~V") == std::string::npos) {
                signs.push_back({word.Column, word.End() - 1, Core::Vibrato});
            } else if (upper == "T." || upper == "T") {
                signs.push_back({word.Column, word.Column, Core::Tapping});
            } else if (upper == "<") {
                signs.push_back({word.Column, word.Column, Core::FadeIn});
            } else if (const int times = TimesOf(upper); times > 1) {
                repeats.push_back({word.Column, times});
            } else if (upper != "^" && upper != "|" && !IsBendHeight(word.Text)) {
                // The tremolo arm has no shape in a text, and the height of a bend stands beside its note too.
                return false;
            }
        }
        above.Signs.insert(above.Signs.end(), signs.begin(), signs.end());
        above.Repeats.insert(above.Repeats.end(), repeats.begin(), repeats.end());
        return true;
    }
    /// The column behind a word and the dashes parted from it: "P.M. - - - -|". Goes on to the last of them.
    static int EndOfDashes(const std::vector<Word>& words, std::size_t& at) {
        while (at + 1 < words.size() && words[at + 1].Text.find_first_not_of("-|") == None) ++at;
        return words[at].End();
    }
    static bool IsBendHeight(std::string_view word) {
        const std::string lower = Core::LowerAscii(word);
        return lower == "full" || lower == "1/2" || lower == "1/4" || lower == "1" || lower == "\x01" ||
               lower == "\x02";
    }
    static int TimesOf(std::string_view word) {
        if (word.ends_with('X'))
            word.remove_suffix(1);
        else if (word.starts_with('X'))
            word.remove_prefix(1);
        else
            return 0;
        int times = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), times);
        constexpr int most = 99;  // more are the frets of a chord's shape
        return error == std::errc() && end == word.data() + word.size() && times <= most ? times : 0;
    }

    bool ReadChords(const std::vector<Word>& words, int line) {
        std::vector<WordAbove> chords;
        for (const Word& word : words) {
            if (word.Text == "|" || word.Text == "-" || word.Text == "/" || word.Text == "%") continue;
            if (!IsChordName(word.Text)) return false;
            chords.push_back({word.Column, Line(line).Between(static_cast<std::size_t>(word.Column),
                                                              static_cast<std::size_t>(word.End()))});
        }
        if (chords.empty()) return false;
        above.Chords.insert(above.Chords.end(), chords.begin(), chords.end());
        return true;
    }

    /// "1 + 2 + 3 e & a": beats that are counted, or numbers of bars.
    static bool IsCount(const std::vector<Word>& words) {
        return std::ranges::all_of(words, [](const Word& word) {
            return word.Text.find_first_not_of("0123456789+&.|") == None || word.Text == "e" || word.Text == "a" ||
                   word.Text == "and";
        });
    }

    bool ReadSection(int line) {
        const TextColumns& text = Line(line);
        std::size_t from = text.Columns.find_first_not_of(' ');
        std::size_t to = text.Columns.size();
        constexpr std::size_t longest = 40;
        if (from == None || to - from > longest) return false;
        const bool bracket = text.Columns[from] == '[' && text.Columns[to - 1] == ']';
        if (bracket) {
            ++from;
            --to;
        } else if (text.Columns[to - 1] == ':') {
            --to;
        }
        const std::string lower = Core::LowerAscii(text.Columns.substr(from, to - from));
        const bool known = std::ranges::any_of(
            std::initializer_list<std::string_view>{
                "intro",     "verse", "chorus", "bridge", "solo",    "outro",   "pre-chorus", "prechorus",
                "interlude", "riff",  "ending", "coda",   "refrain", "strophe", "part ",      "main riff",
                "break",     "fill",  "lead",   "theme",  "gtr",     "guitar",  "bass"},
            [&](std::string_view name) { return lower.starts_with(name); });
        constexpr std::ptrdiff_t mostWords = 4;
        const bool fewWords = std::ranges::count(lower, ' ') < mostWords;
        if (!(bracket || known) || !fewWords || lower.empty()) return false;
        above.Section = text.Between(from, to);
        above.Times = std::max(above.Times, TimesIn(text.Columns));
        std::erase_if(above.Section, [](char c) { return c == '<' || c == '>'; });
        return true;
    }

    /// "Play 3 times", "(repeat 3x)".
    bool ReadTimes(int line) {
        const std::string lower = Core::LowerAscii(Line(line).Columns);
        constexpr std::size_t longest = 40;
        if (lower.find("play") == None && lower.find("repeat") == None) return false;
        const int times = lower.size() > longest ? 0 : TimesIn(lower);
        if (times < 2) return false;
        above.Times = times;
        return true;
    }

    /// Words that stand over the notes, cut into syllables at hyphens.
    bool ReadLyrics(const std::vector<Word>& words, int line) {
        const TextColumns& text = Line(line);
        if (text.Columns.ends_with(':') || !IsSung(words)) return false;
        LyricLine sung;
        sung.Line = line;
        sung.Words = static_cast<int>(words.size());
        const auto isNear = [&](const Word& word) { return IsNear(columns, word.Column, 1); };
        sung.OverNotes = static_cast<int>(std::ranges::count_if(words, isNear));
        const auto string = std::ranges::find_if(system.Strings, [](const StringLine& s) { return s.Line >= 0; });
        sung.Indented = string != system.Strings.end() && words.front().Column >= string->Body;
        std::vector<WordAbove>& syllables = sung.Syllables;
        for (const Word& word : words) {
            for (std::size_t from = 0; from < word.Text.size();) {
                std::size_t to =
                    word.Text.find_first_not_of('-', std::min(word.Text.find('-', from), word.Text.size()));
                to = std::min(to, word.Text.size());
                const std::size_t column = static_cast<std::size_t>(word.Column);
                std::string syllable = text.Between(column + from, column + to);
                while (syllable.ends_with("--")) syllable.pop_back();
                std::erase_if(syllable, [](char c) { return c == '<' || c == '>'; });
                if (syllable != "-" && !syllable.empty()) {
                    syllables.push_back({word.Column + static_cast<int>(from), std::move(syllable)});
                }
                from = to;
            }
        }
        if (syllables.empty()) return false;
        above.Lyrics.push_back(std::move(sung));
        return true;
    }
    /// Remarks to the player are not sung.
    static bool IsSung(const std::vector<Word>& words) {
        const std::string first = Core::LowerAscii(words.front().Text);
        const bool remark = std::ranges::any_of(
            std::initializer_list<std::string_view>{"(",    "[",     "*",      "#",    "gtr", "guitar", "repeat",
                                                    "play", "note:", "tuning", "capo", "w/",  "let",    "{",
                                                    "=",    "+",     "hold",   "x2",   "x3",  "x4"},
            [&](std::string_view start) { return first.starts_with(start); });
        int letters = 0, others = 0;
        for (const Word& word : words) {
            for (const char c : word.Text) ++(IsLetter(c) ? letters : others);
        }
        return !remark && letters > others;
    }

    /// Under a drawn bracket all lengths of its columns; under a bare 3 the three nearest.
    void MarkTriplets() {
        constexpr int reach = 1, bare = 3;
        auto& lengths = above.Lengths;
        const auto from = [&](int column) {
            return std::ranges::lower_bound(lengths, column, {}, &LengthAbove::Column);
        };
        for (const Word& bracket : brackets) {
            const int middle = (bracket.Column + bracket.End() - 1) / 2;
            auto first = from(middle);
            auto last = first;
            if (bracket.Text.size() > bare) {
                first = from(bracket.Column - reach);
                while (last != lengths.end() && last->Column < bracket.End() + reach) ++last;
            }
            while (bracket.Text.size() <= bare && last - first < bare && last - first < std::ssize(lengths)) {
                const bool left = first != lengths.begin() &&
                                  (last == lengths.end() || middle - (first - 1)->Column <= last->Column - middle);
                left ? --first : ++last;
            }
            for (; first < last; ++first) first->Triplet = true;
        }
    }

    const std::vector<TextColumns>& lines;
    const TabSystem& system;
    const std::vector<bool>& used;
    const std::vector<int>& columns;
    AboveSystem above;
    std::vector<Word> brackets;
};

}  // namespace

AboveSystem AboveOf(const std::vector<TextColumns>& lines, const TabSystem& system, int from,
                    const std::vector<bool>& used, const std::vector<int>& columns) {
    return AboveReader(lines, system, used, columns).Read(from);
}

bool IsChordName(std::string_view word) {
    while (word.starts_with('(') || word.starts_with('*')) word.remove_prefix(1);
    while (word.ends_with('*') || (word.ends_with(')') && word.find('(') == None)) word.remove_suffix(1);
    if (word == "N.C." || word == "NC" || word == "N.C" || word == "n.c.") return true;
    if (word.empty() || word.front() < 'A' || word.front() > 'G') return false;
    word.remove_prefix(1);
    if (word.starts_with('#') || (word.starts_with('b') && !word.starts_with("bb"))) word.remove_prefix(1);
    while (!word.empty()) {
        constexpr std::string_view parts[] = {"maj", "min", "dim", "aug", "sus", "add", "dom", "M",  "m",
                                              "+",   "-",   "(",   ")",   "#",   "b",   "o",   ",",  "5",
                                              "6",   "7",   "9",   "11",  "13",  "2",   "4",   "no", "\x7F"};
        if (word.front() == '/') {  // the bass, or a ninth
            word.remove_prefix(1);
            if (word.empty()) return false;
            if (word.front() >= 'A' && word.front() <= 'G') {
                word.remove_prefix(1);
                if (word.starts_with('#') || word.starts_with('b')) word.remove_prefix(1);
                continue;
            }
        }
        const auto* const part = std::ranges::find_if(parts, [&](std::string_view p) { return word.starts_with(p); });
        if (part == std::end(parts)) return false;
        word.remove_prefix(part->size());
    }
    return true;
}

}  // namespace Quillon::Exchange
