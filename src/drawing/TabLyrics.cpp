// The lyric lines of another track under a row.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "core/mod_TabFileManipulation.h"
#include "drawing/TabParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr double LineHeight = 1.15;  ///< of a line of text, in ems
constexpr double Ascent = 0.9;       ///< from a line's top to its baseline, in ems
constexpr double SmallestSize = 6;
constexpr double SmallestOfRow = 7;  ///< of a row whose words stand close: smaller ones are hard to sing from
constexpr double Gap = 3;            ///< between two words

/// A word, or a syllable of one, under a row.
struct Word {
    int Bar = 0;
    double Column = 0;  ///< where it begins when nothing is in its way
    std::string Text;
    double Left = 0;  ///< where it begins
    double Width = 0;
};
using Line = std::vector<Word>;

/// The bars that share a row, and the paper that its words may use, in the layout's coordinates.
struct Row {
    int First = 0, Last = 0;
    double Left = std::numeric_limits<double>::lowest();
    double Right = std::numeric_limits<double>::max();
};

Row RowOf(const BarContext& bar) {
    const TabBar tab(bar);
    Row row{FirstOfRow(tab), LastOfRow(tab)};
    if (bar.Look.PaperRight == 0) return row;
    const int left = bar.ItsTrack().Bars[row.First].Place.BarX;
    row.Left = left + bar.Look.PaperLeft;
    row.Right = left + bar.Look.PaperRight;
    return row;
}

/// The words of a bar by lines. Their columns stand by musical time in the frame of the bar above, unrounded, so that
/// both tracks' notes meet their words.
void AddWords(std::array<Line, Core::LyricLines>& lines, const BarContext& context, int lyricsTrack, int bar) {
    const Core::Bar& frame = context.ItsTrack().Bars[bar];
    const double start = BarStartOffset(frame);
    const double usable = frame.Place.BarWidth - start - 5;
    const double total = Core::BarLengthIn64ths(context.File, bar);
    double elapsed = 0;
    for (const Core::Strum& strum : context.File.Tracks[lyricsTrack].Bars[bar].Strums()) {
        const double x = frame.Place.BarX + start + (total > 0 ? elapsed / total : 0) * usable;
        elapsed += Core::StrumLength(strum);
        for (std::size_t line = 0; line < lines.size(); ++line) {
            const std::string& text = strum.Syllables.Read()[static_cast<int>(line)];
            if (!text.empty()) lines[line].push_back({bar, x, text});
        }
    }
}

void Measure(Picture& picture, Line& line) {
    for (Word& word : line) word.Width = picture.TextWidth(word.Text);
}

/// How much smaller a line's words must be to stand clear of each other on the paper, 1 when they fit. Only the last
/// one may step aside, from the paper's edge.
double Fit(const Line& line, const Row& row) {
    double fit = 1;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Word& word = line[i];
        if (word.Width <= 0) continue;
        const bool last = i + 1 == line.size();
        fit = std::min(fit, (last ? row.Right - row.Left : line[i + 1].Column - word.Column - Gap) / word.Width);
        if (last && i > 0) {
            fit = std::min(fit, (row.Right - Gap - line[i - 1].Column) / (line[i - 1].Width + word.Width));
        }
    }
    return fit;
}

/// Places a line's words: at their columns where they fit there, a little aside where that helps, and cut where nothing
/// does.
void PlaceWords(Picture& picture, Line& line, const Row& row) {
    constexpr double aside = 12;
    double limit = row.Right;
    for (std::size_t i = line.size(); i-- > 0; limit = line[i].Left - Gap) {
        Word& word = line[i];
        word.Left = std::min(word.Column, limit - word.Width);
        word.Left = std::max(word.Left, i + 1 == line.size() ? row.Left : word.Column - aside);
    }
    double free = row.Left;
    for (std::size_t i = 0; i < line.size(); ++i) {
        Word& word = line[i];
        word.Left = std::max(word.Left, free);
        const double end = i + 1 < line.size() ? std::min(row.Right, line[i + 1].Column + aside - Gap) : row.Right;
        if (word.Left + word.Width > end) {
            word.Text = CutToFit(picture, word.Text, end - word.Left);
            word.Width = picture.TextWidth(word.Text);
            if (word.Width > end - word.Left) word = {word.Bar, word.Column, "", word.Left, 0};
        }
        if (!word.Text.empty()) free = word.Left + word.Width + Gap;
    }
}

Font LyricsFont(const Core::TabFile& file, double size) {
    return {file.FontName, size, file.FontBold, file.FontItalic, file.FontUnderline, file.FontStrike};
}

/// Lines of lyrics in use, 0 without any.
int LinesInUse(const Core::TabFile& file, int lyricsTrack) {
    int lines = 0;
    for (const Core::Bar& bar : file.Tracks[lyricsTrack].Bars) {
        for (const Core::Strum& strum : bar.Strums()) {
            for (int line = lines; line < Core::LyricLines; ++line) {
                if (!strum.Syllables.Read()[line].empty()) lines = line + 1;
            }
        }
    }
    return lines;
}

bool HasCharts(const Core::TabFile& file, int track) {
    if (!file.AlwaysCharts) return false;
    for (const Core::Bar& bar : file.Tracks[track].Bars) {
        for (const Core::Strum& strum : bar.Strums()) {
            if (strum.HasChord) return true;
        }
    }
    return false;
}

double LinesHeight(double points, int lines) { return lines * std::ceil(points * 4 / 3 * LineHeight); }

}  // namespace

RowLook LookOfLyrics(const Core::TabFile& file, int track, int lyricsTrack) {
    constexpr int numberZone = 14, chartZone = 87, mostDrop = 28;
    constexpr double leastForRoom = 9;
    const int lines = LinesInUse(file, lyricsTrack);
    if (lines == 0) return {};
    const double full = std::clamp(file.FontSize - 1.0, SmallestSize, LargestFontSize);
    RowLook look{.LyricsSize = full};
    const bool charts = HasCharts(file, track);
    const int gap = file.RowSpacing - StaffHeadroom - (charts ? chartZone : numberZone);
    const double missing = LinesHeight(look.LyricsSize, lines) - gap;
    if (missing <= 0) return look;
    look.ChartDrop = charts ? std::min(mostDrop, static_cast<int>(std::ceil(missing))) : 0;
    while (look.LyricsSize > leastForRoom && LinesHeight(look.LyricsSize, lines) > gap + look.ChartDrop) {
        look.LyricsSize -= 1;
    }
    return look;
}

void DrawLyrics(Picture& picture, const BarContext& bar, int lyricsTrack) {
    const Core::TabFile& file = bar.File;
    std::array<Line, Core::LyricLines> lines;
    AddWords(lines, bar, lyricsTrack, bar.Bar);
    if (std::ranges::all_of(lines, [](const Line& line) { return line.empty(); })) return;
    const Row row = RowOf(bar);
    lines = {};
    for (int index = row.First; index <= row.Last; ++index) AddWords(lines, bar, lyricsTrack, index);
    Font font = LyricsFont(file, std::max(SmallestSize, bar.Look.LyricsSize));
    const double height = std::ceil(font.Pixels() * LineHeight), ascent = Ascent * font.Pixels();
    picture.SetFont(font);
    double fit = 1;
    for (Line& line : lines) {
        // A bar too full for its time reaches into the next one.
        std::ranges::stable_sort(line, {}, &Word::Column);
        Measure(picture, line);
        fit = std::min(fit, Fit(line, row));
    }
    if (fit < 1) {
        font.Size = std::clamp(std::floor(2 * font.Size * fit) / 2, std::min(SmallestOfRow, font.Size), font.Size);
        picture.SetFont(font);
        for (Line& line : lines) Measure(picture, line);
    }
    picture.SetColor(file.FontColor);
    const double top = bar.Y + RowHeight(bar.ItsTrack()) + StaffHeadroom;
    const int moved = bar.X - bar.ItsBar().Place.BarX;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        PlaceWords(picture, lines[at], row);
        const double baseline = std::round(top + static_cast<double>(at) * height + ascent);
        for (const Word& word : lines[at]) {
            if (word.Bar == bar.Bar && !word.Text.empty()) picture.Print(word.Left + moved, baseline, word.Text);
        }
    }
}

}  // namespace Quillon::Drawing
