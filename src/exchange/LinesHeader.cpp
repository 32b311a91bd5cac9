#include "exchange/LinesHeader.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <string_view>

#include "core/mod_Common.h"

namespace Quillon::Exchange {

namespace {

constexpr auto None = std::string_view::npos;
constexpr std::size_t LongestLine = 200;  ///< columns; what is longer is no header

using Tuning = Core::Row<std::int16_t, Core::StringCount>;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// The first number of a text from a place on.
std::optional<int> NumberIn(std::string_view text, std::size_t from = 0) {
    const std::size_t at = text.find_first_of("0123456789", from);
    if (at == None) return {};
    int number = 0;
    if (std::from_chars(text.data() + at, text.data() + text.size(), number).ec != std::errc()) return {};
    return number;
}

std::optional<TimeSignature> TimingIn(std::string_view text) {
    for (std::size_t slash = text.find('/'); slash != None; slash = text.find('/', slash + 1)) {
        std::size_t from = slash;
        while (from > 0 && IsDigit(text[from - 1])) --from;
        std::size_t to = slash + 1;
        while (to < text.size() && IsDigit(text[to])) ++to;
        const std::string timing =
            std::string(text.substr(from, slash - from)) + ":" + std::string(text.substr(slash + 1, to - slash - 1));
        if (const auto found = ParseTiming(timing)) return found;
    }
    if (text.find("common time") != None) return TimeSignature{4, 4};
    return {};
}

/// Note names of a text from its beginning on: "DADGBE", "D A D G B E", "Eb-Ab-Db".
std::vector<std::string> NotesIn(std::string_view text) {
    std::vector<std::string> notes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == ' ' || c == '-' || c == ',' || c == '|' || c == '/') continue;
        const bool capital = c >= 'A' && c <= 'G';
        const bool small = c >= 'a' && c <= 'g';
        if (!capital && !small) break;
        std::string note(1, c);
        const char next = at + 1 < text.size() ? text[at + 1] : ' ';
        const char second = at + 2 < text.size() ? text[at + 2] : ' ';
        // In "EADGBE" the B is a note, in "eb ab" the b is none.
        if (next == '#' || (next == 'b' && (capital || !IsLetter(second)))) {
            note += next;
            ++at;
        }
        if (at + 1 < text.size() && IsLetter(text[at + 1]) && (text[at + 1] < 'A' || text[at + 1] > 'G') &&
            (text[at + 1] < 'a' || text[at + 1] > 'g')) {
            break;  // a word
        }
        notes.push_back(std::move(note));
    }
    return notes;
}

/// A tuning let down from the standard one, or with its lowest string let down further.
std::optional<Tuning> NamedTuning(const std::string& lower, int strings) {
    const auto says = [&](std::initializer_list<std::string_view> words) {
        return std::ranges::any_of(words, [&](std::string_view word) { return lower.find(word) != None; });
    };
    const auto let = [&](int all, int lowest) {
        Tuning tuning = UsualTuning(strings);
        for (int s = 0; s < strings; ++s) tuning[s] = static_cast<std::int16_t>(tuning[s] - all);
        tuning[strings - 1] = static_cast<std::int16_t>(tuning[strings - 1] + all - lowest);
        return tuning;
    };
    if (says({"drop d", "dropped d", "drop-d"})) return let(0, 2);
    if (says({"drop c#", "drop db"})) return let(1, 3);
    if (says({"drop c"})) return let(2, 4);
    if (says({"drop b"})) return let(3, 5);
    if (says({"half step", "half-step", "1/2 step", "semitone"})) return let(1, 1);
    if (says({"whole step", "whole-step", "full step", "1 step"})) return let(2, 2);
    if (says({"standard"})) return let(0, 0);
    return {};
}

/// A keyword at a line's beginning, then ":" or "=" or "-", then its value.
class HeaderLine {
public:
    explicit HeaderLine(const TextColumns& of) : line(of), lower(Core::LowerAscii(of.Columns)) {}

    /// The value behind one of the words, from its first column that is no blank; nothing when none begins the line.
    std::optional<std::size_t> Behind(std::initializer_list<std::string_view> words, bool bare = false) const {
        const std::size_t first = lower.find_first_not_of(" >#*[(");
        if (first == None) return {};
        for (const std::string_view word : words) {
            if (lower.compare(first, word.size(), word) != 0) continue;
            std::size_t at = first + word.size();
            if (at < lower.size() && IsLetter(lower[at])) continue;
            at = std::min(lower.find_first_not_of(' ', at), lower.size());
            const bool parted = at < lower.size() && (lower[at] == ':' || lower[at] == '=');
            if (!parted && !bare) continue;
            const std::size_t value = lower.find_first_not_of(' ', at + (parted ? 1 : 0));
            if (value != None) return value;
        }
        return {};
    }
    std::string Text(std::size_t from) const {
        std::string text = line.Between(from, line.Columns.size());
        // The signs of a music file's tags can't stand in its texts.
        std::erase_if(text, [](char c) { return c == '<' || c == '>' || (c >= 0 && c < ' '); });
        return text;
    }
    const std::string& Lower() const { return lower; }

private:
    const TextColumns& line;
    std::string lower;
};

class HeaderReader {
public:
    HeaderReader(const std::vector<TextColumns>& of, const FoundSystems& found) : lines(of), systems(found) {}

    TabHeader Read() {
        header.Used.assign(lines.size(), false);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (systems.Used[i] || lines[i].IsBlank() || lines[i].Columns.size() > LongestLine) continue;
            const HeaderLine line(lines[i]);
            header.Used[i] = ReadNames(line) || ReadNumbers(line, static_cast<int>(i)) || ReadTuning(line);
        }
        ReadOwnHead();
        return std::move(header);
    }

private:
    bool ReadNames(const HeaderLine& line) {
        const auto take = [&](std::string& field, std::initializer_list<std::string_view> words) {
            const auto at = line.Behind(words);
            if (!at) return false;
            if (field.empty()) field = line.Text(*at);
            return true;
        };
        return take(header.Title, {"title", "song", "song title", "name", "titel"}) ||
               take(header.Artist, {"artist", "band", "performed by", "interpret", "author/artist"}) ||
               take(header.Author, {"author", "music by", "written by", "composer", "words and music by"}) ||
               take(header.Album, {"album", "from the album"}) ||
               take(header.TabbedBy, {"tabbed by", "transcribed by", "transcribed", "transcriber", "tab by", "tabber"});
    }

    bool ReadNumbers(const HeaderLine& line, int row) {
        if (const auto at = line.Behind({"capo on", "capo at", "capo"}, true)) {
            constexpr int mostCapo = 24;
            const std::string words = line.Lower().substr(*at);
            const auto number = NumberIn(words);
            const bool noCapo = words.starts_with("no");
            if (!number && !noCapo) return false;
            if (!header.Capo && (noCapo || *number <= mostCapo)) header.Capo = noCapo ? 0 : *number;
            return true;
        }
        if (const auto at = line.Behind({"time signature", "time sig", "time", "meter", "timing", "takt"})) {
            return TakeTiming(TimingIn(line.Lower().substr(*at)), row);
        }
        // "6/8" in a line of its own.
        if (line.Lower().find_first_not_of("0123456789/ ") == None) {
            const auto timing = TimingIn(line.Lower());
            return timing && timing->Top > 1 && TakeTiming(timing, row);  // "1/2" is how far a string is bent
        }
        return ReadTempo(line);
    }
    bool TakeTiming(const std::optional<TimeSignature>& timing, int line) {
        if (!timing) return false;
        if (!header.Timing) header.Timing = timing;
        header.Timings.emplace_back(line, *timing);
        return true;
    }

    /// "q = 120", a drawn quarter note for the q: the place of the number.
    static std::optional<std::size_t> BehindQuarter(const std::string& lower) {
        const std::size_t first = lower.find_first_not_of(" ([");
        const std::size_t equals = std::min(lower.find('='), lower.size());
        if (first == None || equals == lower.size()) return {};
        const std::size_t end = lower.find_last_not_of(' ', equals - std::min<std::size_t>(equals, 1)) + 1;
        const std::string beat = lower.substr(first, end - std::min(first, end));
        const bool quarter = beat == "q" || beat == "1/4" || beat == "quarter" || beat == std::string(1, OtherSign);
        const std::size_t number = lower.find_first_not_of(' ', equals + 1);
        return quarter && number != None && IsDigit(lower[number]) ? std::optional(number) : std::nullopt;
    }

    bool ReadTempo(const HeaderLine& line) {
        std::optional<int> tempo;
        if (const auto at = line.Behind({"tempo", "bpm", "speed", "metronome"})) {
            const std::string words = line.Lower().substr(*at);
            const std::size_t equals = words.find('=');  // "1/4 = 120"
            tempo = NumberIn(words, equals == None ? 0 : equals);
        } else if (const auto number = line.Behind({"tempo"}, true); number && IsDigit(line.Lower()[*number])) {
            tempo = NumberIn(line.Lower(), *number);
        } else if (const auto quarter = BehindQuarter(line.Lower())) {
            tempo = NumberIn(line.Lower(), *quarter);
        } else if (const std::size_t bpm = line.Lower().find("bpm"); bpm != None && bpm > 0) {
            std::size_t end = bpm;
            while (end > 0 && line.Lower()[end - 1] == ' ') --end;
            std::size_t from = end;
            while (from > 0 && IsDigit(line.Lower()[from - 1])) --from;
            if (from < end) tempo = NumberIn(line.Lower(), from);
        }
        constexpr int mostTempo = 1000;
        if (!tempo || *tempo < 1 || *tempo > mostTempo) return false;
        if (!header.Tempo) header.Tempo = *tempo;
        return true;
    }

    bool ReadTuning(const HeaderLine& line) {
        const auto at = line.Behind({"tuning", "tuned to", "tune to", "tuned", "stimmung", "guitar tuning"}, true);
        const int strings = systems.Strings > 0 ? systems.Strings : 6;
        const auto tuning = at ? TuningOfWords(line.Text(*at), strings) : TuningWithin(line, strings);
        if (!header.Tuning) header.Tuning = tuning;
        return tuning.has_value();
    }

    /// "Drop D tuning: D A D G B E", "Standard tuning", "DADGAD".
    static std::optional<Tuning> TuningWithin(const HeaderLine& line, int strings) {
        constexpr std::size_t longest = 60;
        const std::string& lower = line.Lower();
        const std::string text = line.Text(0);
        if (lower.size() > longest) return {};
        if (text.find_first_not_of("ABCDEFGb#") == None) {
            const bool enough = std::cmp_equal(NotesIn(text).size(), strings);
            return enough ? TuningOfWords(text, strings) : std::nullopt;
        }
        const std::size_t word = lower.find("tuning");
        if (word == None) return {};
        const std::size_t colon = lower.find(':', word);
        const std::size_t value = colon == None ? None : lower.find_first_not_of(' ', colon + 1);
        const auto told = value == None ? std::nullopt : TuningOfWords(line.Text(value), strings);
        return told ? told : TuningOfWords(lower, strings);
    }

    /// "TITLE - ARTIST" above "Tempo:60" is how this program's own texts begin.
    void ReadOwnHead() {
        for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
            if (lines[i].IsBlank() || systems.Used[i] || !lines[i + 1].Columns.starts_with("Tempo:")) continue;
            const std::size_t dash = lines[i].Columns.find(" - ");
            if (dash == None || !header.Title.empty() || header.Used[i]) return;
            const HeaderLine line(lines[i]);
            header.Title = HeaderLine(TextColumns{lines[i].Between(0, dash), ""}).Text(0);
            if (dash + 3 < lines[i].Columns.size() && header.Artist.empty()) header.Artist = line.Text(dash + 3);
            header.Used[i] = true;
            return;
        }
    }

    const std::vector<TextColumns>& lines;
    const FoundSystems& systems;
    TabHeader header;
};

}  // namespace

std::optional<Tuning> TuningOfWords(const std::string& words, int strings) {
    std::vector<std::string> notes = NotesIn(words);
    if (std::cmp_equal(notes.size(), strings)) {
        std::ranges::reverse(notes);
        if (const auto tuning = TuningOf(notes)) return tuning;
        std::ranges::reverse(notes);  // some begin with the highest
        return TuningOf(notes);
    }
    if (strings < 1 || strings > Core::StringCount) return {};
    const std::string lower = Core::LowerAscii(words);
    if (lower.find("drop") != None || lower.find("standard") != None || lower.find("step") != None) {
        return NamedTuning(lower, strings);
    }
    return {};
}

TabHeader HeaderOf(const std::vector<TextColumns>& lines, const FoundSystems& systems) {
    return HeaderReader(lines, systems).Read();
}

}  // namespace Quillon::Exchange
