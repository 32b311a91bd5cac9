#include "exchange/AsciiImport.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "exchange/AsciiText.h"
#include "exchange/NoteValues.h"
#include "exchange/TrackBars.h"
#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

using Core::TabFile;
using Core::Track;

namespace {

constexpr std::int32_t SixtyFourth = 6;

/// "4", and "4.0" too.
std::optional<int> WholeNumber(std::string_view text) {
    try {
        const double number = Core::ParseDouble(text);
        const std::int32_t whole = Core::CLng(number);
        if (whole == number) return whole;
    } catch (const RunTimeError&) {  // no number at all, or a huge one
    }
    return {};
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

/// Reads systems column by column. Positions count from 1, as the rules of the systems do.
class ColumnReader {
public:
    ColumnReader(TabFile& into, int track, std::string systems, const AsciiImportOptions& how, ImportReport& tells)
        : file(into), target(track), text(std::move(systems)), options(how), report(tells), taken(text.size() + 1) {}

    bool Read(const ImportProgress& progress) {
        std::size_t position = 0;
        std::size_t held = 0;
        for (;;) {
            const std::vector<std::size_t> lines = LinesAt(position + 1);
            const int keptBefore = report.NotesKept;
            ReadSystem(lines);
            const std::size_t next = Behind('B', lines.back());
            Tell(lines, NotesIn(position, next == None ? text.size() : next), report.NotesKept - keptBefore);
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

    /// How many digits the fret at a position has, 0 for none.
    std::size_t FretWidthAt(std::size_t position) const {
        const std::string_view pair = At(position, 2);
        const auto isDigit = [&](std::size_t i) { return i < pair.size() && pair[i] >= '0' && pair[i] <= '9'; };
        if (!isDigit(0)) return 0;
        constexpr int highestPair = 28;
        const int two = isDigit(1) ? (pair[0] - '0') * 10 + (pair[1] - '0') : 0;
        return two > 9 && two <= highestPair ? 2 : 1;
    }

    void ReadCharacter(int string, std::size_t position, std::ptrdiff_t& step, bool& digits) {
        const std::size_t width = FretWidthAt(position);
        if (width == 0) return;
        // The last line with a digit decides the step, not the widest fret.
        step = static_cast<std::ptrdiff_t>(width);
        digits = true;
        std::string& fret = Bar().EditStrums()[strum].Notes.Edit(string).Fret;
        fret = At(position, width);
        if (stays) return;
        // What hangs over the end of a line, and the second digit of a fret above a short step, are met again.
        if (taken[position - 1]) {
            ++again;
        } else {
            ++report.NotesKept;
        }
        std::fill_n(taken.begin() + static_cast<std::ptrdiff_t>(position) - 1, width, true);
    }

    /// Frets behind one position, up to another.
    int NotesIn(std::size_t position, std::size_t end) const {
        int notes = 0;
        for (std::size_t at = position + 1; at <= end;) {
            const std::size_t width = FretWidthAt(at);
            if (width > 0) ++notes;
            at += std::max<std::size_t>(width, 1);
        }
        return notes;
    }
    void Tell(const std::vector<std::size_t>& lines, int found, int kept) {
        if (found == 0) return;
        ++report.Systems;
        ImportRemark remark;
        if (again > 0) {
            remark.Fate = ImportFate::Moved;
            remark.Notes = 0;
            remark.Key = "str_ImportReadTwice";
            remark.Fields = {std::to_string(report.Systems), std::to_string(again)};
            report.Add(std::exchange(remark, {}));
            again = 0;
        }
        const int lost = found - kept;
        if (lost <= 0) return;
        remark.Notes = lost;
        remark.Key = "str_ImportColumnsLost";
        if (lines.size() > MostLines - 1) remark.Key = "str_ImportSevenLines";
        if (WidthOf(lines) < 0) remark.Key = "str_ImportNotClosed";
        remark.Fields = {std::to_string(report.Systems), std::to_string(lost)};
        report.Add(std::move(remark));
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
        auto& strums = Bar().EditStrums();
        strums[strum].Length = LengthOf(gap);
        const bool isLast = strum == strums.UpperBound();  // the first bar begins with rests behind its first strum
        const double filled = isLast ? used + Core::StrumLength(strums[strum]) : Core::BarLength64ths(Bar());
        if (Editing::FullnessOf(filled, Core::BarLengthIn64ths(file, bar)) == Editing::Fullness::Under) {
            used = filled;
            if (--strumsLeft < 0) RaiseOverflow();
            strum = Core::ToInt16(strums.Count());
            strums.Resize(strum + 1);
            stays = false;
        } else if (bar == file.Tracks[0].Bars.UpperBound()) {
            AppendBar(file);
            ++bar;
            strum = 0;
            used = 0;
            Bar().EditStrums().Resize(1);
            stays = false;
        } else {
            stays = true;  // a track shorter than the first one is full: the next column writes into the same strum
        }
    }

    Core::Bar& Bar() { return file.Tracks[target].Bars.Edit(bar); }

    TabFile& file;
    int target;
    std::string text;
    const AsciiImportOptions& options;
    ImportReport& report;
    int bar = 0;
    int strum = 0;
    int strumsLeft = MostImportedStrums;
    double used = 0;  ///< 64ths of the bar before its last strum
    bool stays = false;
    std::vector<bool> taken;  ///< by position: digits that were read
    int again = 0;            ///< frets read once more, of this system
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

namespace {

bool Import(TabFile& file, int track, std::string text, const AsciiImportOptions& options,
            const ImportProgress& progress, ImportReport* report) {
    ImportReport told;
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
    if (const int marks = StripTechniqueMarks(text); marks > 0) {
        ImportRemark remark;
        remark.Notes = 0;
        remark.Key = "str_ImportMarksLost";
        remark.Fields = {std::to_string(marks)};
        told.Add(std::move(remark));
    }
    // What is left of blanks that don't break, in pages.
    ReplaceAll(text, ";&n", "---");
    ReplaceAll(text, "&n", "--");
    RemoveTags(text);
    if (progress && !progress(33)) return false;
    FilterCharacters(text, options.AcceptedChars);
    if (progress && !progress(66)) return false;
    RemoveNumberLines(text);
    RemoveDashLines(text);
    const bool done = ColumnReader(file, track, SystemText(text), options, told).Read(progress);
    if (!EvenOutBars(file, false, done ? progress : ImportProgress())) return false;
    told.Tracks = 1;
    told.Bars = file.Tracks[track].Bars.Count();
    told.NotesFound = told.NotesKept + told.NotesLost;
    if (report) *report = std::move(told);
    return done;
}

}  // namespace

bool ImportTextTab(TabFile& file, int track, std::string text, const AsciiImportOptions& options,
                   const ImportProgress& progress, ImportReport* report) {
    try {
        return Import(file, track, std::move(text), options, progress, report);
    } catch (const RunTimeError&) {
        EvenOutBars(file, false);  // who keeps what was done so far keeps a document
        throw;
    }
}

}  // namespace Quillon::Exchange
