#include "exchange/AsciiImport.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "exchange/AsciiText.h"
#include "exchange/NoteValues.h"

namespace Quillon::Exchange {

using Core::TabFile;
using Core::Track;

namespace {

constexpr std::int32_t SixtyFourth = 6;

std::optional<int> WholeNumber(std::string_view text) {
    text = Core::TrimBlanks(text);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return number;
}

/// Position of a text in any case of ASCII letters; npos for none. `lower` is the text in lower case.
std::size_t FindIn(const std::string& lower, std::string_view what) { return lower.find(Core::LowerAscii(what)); }

/// Titles and names that stand behind keywords, each to the end of its line.
class Details {
public:
    explicit Details(const std::string& of) : text(of), lower(Core::LowerAscii(of)) {}

    /// Behind the first of the keywords that the text holds.
    std::string Find(std::initializer_list<std::string_view> keywords, const char* otherwise) const {
        for (const std::string_view keyword : keywords) {
            const std::size_t at = FindIn(lower, keyword);
            if (at == std::string::npos) continue;
            const std::size_t from = at + keyword.size();
            const std::size_t end = text.find_first_of("\r\n", from);
            // On a last line without a line end nothing is found.
            return end == std::string::npos ? "" : Core::FromWindows1252(text.substr(from, end - from));
        }
        return otherwise;
    }

private:
    const std::string& text;
    std::string lower;
};

void FillDetails(TabFile& file, const std::string& text) {
    const Details details(text);
    file.Artist = details.Find({"Artist:", "Author/Artist:", "Band:"}, "Unknown Artist");
    file.Author = details.Find({"Author:", "Author/Artist:", "Artist:", "Band:"}, "Unknown Author");
    file.Title = details.Find({"Title:", "Song:"}, "Unknown");
    file.Album = details.Find({"Album:"}, "Unknown Album");
    file.TabbedBy = details.Find({"Transcribed:", "Transcribed by:", "By:"}, "Anonymous");
    file.Notes = "Tabber Email: " + details.Find({"Email:", "E-Mail:", "E Mail:"}, "");
}

/// One bar with one strum of a 64th, and rests behind it up to the time signature. What the strum holds stays.
void ClearTrack(TabFile& file, int track) {
    Track& cleared = file.Tracks[track];
    cleared.Bars.Resize(1);
    auto& strums = cleared.Bars.Edit(0).EditStrums();
    strums.Resize(1);
    strums[0].Length = SixtyFourth;
    Editing::FixBar(file, track, 0);
}

/// One more bar for each track, whatever their numbers of bars are.
void AppendBar(TabFile& file) {
    for (Track& track : file.Tracks) {
        const Core::Bar& last = track.Bars[track.Bars.UpperBound()];
        Core::Bar bar = EmptyBar();
        bar.Key = last.Key;
        bar.KeyIsMinor = last.KeyIsMinor;
        Core::ToInt16(track.Bars.Count());
        track.Bars.Add(bar);
    }
    Core::BarInfo info;
    const Core::BarInfo& last = file.BarInfos[file.BarInfos.UpperBound()];
    info.TimeSigTop = last.TimeSigTop;
    info.TimeSigBottom = last.TimeSigBottom;
    file.BarInfos.Add(info);
}

/// Empty bars behind the tracks that have fewer than others.
void EvenOut(TabFile& file) {
    int bars = 0;
    for (const Track& track : file.Tracks) bars = std::max(bars, track.Bars.Count());
    file.BarInfos.Resize(bars);
    for (Track& track : file.Tracks) {
        while (track.Bars.Count() < bars) track.Bars.Add(EmptyBar());
    }
}

/// Reads systems column by column. Positions count from 1, as the rules of the systems do.
class ColumnReader {
public:
    ColumnReader(TabFile& into, int track, std::string systems, const AsciiImportOptions& how)
        : file(into), target(track), text(std::move(systems)), options(how) {}

    bool Read(const ImportProgress& progress) {
        std::size_t position = 0;
        std::size_t held = 0;
        for (;;) {
            const std::vector<std::size_t> lines = LinesAt(position + 1);
            ReadSystem(lines);
            const std::size_t next = Behind('B', lines.back());
            if (next == None || next <= held) return true;
            position = held = next;
            if (progress && !progress(static_cast<int>(66 + 33 * position / text.size()))) return false;
        }
    }

private:
    static constexpr std::size_t None = 0;
    static constexpr std::size_t MostLines = Core::StringCount;

    /// The first such character behind a position.
    std::size_t Behind(char what, std::size_t position) const {
        const std::size_t at = text.find(what, position);
        return at == std::string::npos ? None : at + 1;
    }
    /// Where the lines of a system stand: each a character before its first one.
    std::vector<std::size_t> LinesAt(std::size_t first) const {
        std::vector<std::size_t> lines{first};
        const std::size_t end = Behind('B', first);
        while (lines.size() < MostLines) {
            const std::size_t next = Behind('S', lines.back());
            if (next == None || end == None || next > end) break;
            lines.push_back(next);
        }
        return lines;
    }
    /// Columns of the shortest line, -1 when the system has no end.
    std::ptrdiff_t WidthOf(const std::vector<std::size_t>& lines) const {
        std::ptrdiff_t width = static_cast<std::ptrdiff_t>(text.size());
        for (const std::size_t line : lines) {
            if (Behind('B', line) == None) return -1;
            const std::size_t end = text.find_first_of("SB", line);
            width = std::min(width, static_cast<std::ptrdiff_t>(end + 1 - line));
        }
        return width;
    }
    std::string_view At(std::size_t position, std::size_t count) const {
        return position <= text.size() ? std::string_view(text).substr(position - 1, count) : std::string_view();
    }

    void ReadSystem(const std::vector<std::size_t>& lines) {
        const std::ptrdiff_t width = WidthOf(lines);
        int gap = 0;
        for (std::ptrdiff_t column = 0; column <= width;) {
            std::ptrdiff_t step = 1;
            bool digits = false;
            for (std::size_t string = 0; string < lines.size(); ++string) {
                ReadCharacter(static_cast<int>(string), lines[string] + static_cast<std::size_t>(column) + 1, step,
                              digits);
            }
            if (digits) {
                FinishStrum(gap);
                gap = -1;
            }
            ++gap;
            column += step;
            if (lines.size() > MostLines - 1) break;  // too many lines for a guitar: its first column is all
        }
    }

    void ReadCharacter(int string, std::size_t position, std::ptrdiff_t& step, bool& digits) {
        const std::string_view pair = At(position, 2);
        const auto isDigit = [&](std::size_t i) { return i < pair.size() && pair[i] >= '0' && pair[i] <= '9'; };
        if (!isDigit(0)) return;
        constexpr int highestPair = 28;
        const int two = isDigit(1) ? (pair[0] - '0') * 10 + (pair[1] - '0') : 0;
        const bool both = two > 9 && two <= highestPair;
        // The last line with a digit decides the step, not the widest fret.
        step = both ? 2 : 1;
        digits = true;
        Bar().EditStrums()[strum].Notes.Edit(string).Fret = pair.substr(0, both ? 2 : 1);
    }

    std::int32_t LengthOf(int gap) const {
        if (options.SameLength) return options.Dash;
        const int room = gap * (64 >> options.Dash);
        std::int32_t length = options.Dash;
        for (const auto& [least, code] : {std::pair{2, 5}, {4, 4}, {8, 3}, {16, 2}, {32, 1}, {64, 0}}) {
            if (room >= least) length = code;
        }
        return length;
    }

    void FinishStrum(int gap) {
        Bar().EditStrums()[strum].Length = LengthOf(gap);
        if (Editing::BarFullness(file, target, bar) == Editing::Fullness::Under) {
            auto& strums = Bar().EditStrums();
            strum = Core::ToInt16(strums.Count());
            strums.Resize(strum + 1);
        } else if (bar == file.Tracks[0].Bars.UpperBound()) {
            AppendBar(file);
            ++bar;
            strum = 0;
            Bar().EditStrums().Resize(1);
        }
        // Else a track shorter than the first one is full: the next column writes into the same strum.
    }

    Core::Bar& Bar() { return file.Tracks[target].Bars.Edit(bar); }

    TabFile& file;
    int target;
    std::string text;
    const AsciiImportOptions& options;
    int bar = 0;
    int strum = 0;
};

}  // namespace

std::optional<TimeSignature> ParseTiming(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return {};
    const auto top = WholeNumber(text.substr(0, colon));
    const auto bottom = WholeNumber(text.substr(colon + 1));
    constexpr int Most = 32;
    if (!top || !bottom || *top < 1 || *top > Most || *bottom < 1 || *bottom > Most || (*bottom & (*bottom - 1)) != 0) {
        return {};
    }
    return TimeSignature{*top, *bottom};
}

std::string TextOfBytes(std::string_view bytes) {
    std::string text = Core::IsUtf8(bytes) ? Core::ToWindows1252(bytes) : std::string(bytes);
    ReplaceAll(text, "\r\n", "\n");
    ReplaceAll(text, "\n", "\r\n");
    return text;
}

std::string MarkedText(std::string_view text, std::string_view marker) {
    const std::size_t at = FindIn(Core::LowerAscii(text), marker);
    if (at == std::string::npos) return "";
    const std::size_t from = at + marker.size();
    const std::size_t end = text.find('\'', from);
    return end == std::string_view::npos ? "" : Core::FromWindows1252(text.substr(from, end - from));
}

bool ImportTextTab(TabFile& file, int track, std::string text, const AsciiImportOptions& options,
                   const ImportProgress& progress) {
    ClearTrack(file, track);
    if (options.Timing) {
        for (int bar = 0; bar <= file.BarInfos.UpperBound(); ++bar) {
            file.BarInfos.Edit(bar).TimeSigTop = options.Timing->Top;
            file.BarInfos.Edit(bar).TimeSigBottom = options.Timing->Bottom;
        }
        ClearTrack(file, track);  // to the new time signature
    }
    if (options.Details) FillDetails(file, text);
    file.RT = MarkedText(text, "<ql_res_text='");
    file.RA = MarkedText(text, "<ql_res_addr='");
    StripTechniqueMarks(text);
    // What is left of blanks that don't break, in pages.
    ReplaceAll(text, ";&n", "---");
    ReplaceAll(text, "&n", "--");
    RemoveTags(text);
    if (progress && !progress(33)) return false;
    FilterCharacters(text, options.AcceptedChars);
    if (progress && !progress(66)) return false;
    RemoveNumberLines(text);
    RemoveDashLines(text);
    const bool done = ColumnReader(file, track, SystemText(text), options).Read(progress);
    EvenOut(file);
    return done;
}

}  // namespace Quillon::Exchange
