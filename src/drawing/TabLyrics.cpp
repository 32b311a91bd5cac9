// The lyric lines of another track under a row.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "core/mod_TabFileManipulation.h"
#include "drawing/TabParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr double LineHeight = 1.15;  ///< of a line of text, in ems
constexpr double Ascent = 0.9;       ///< from a line's top to its baseline, in ems
constexpr double SmallestSize = 6;
constexpr double Gap = 3;  ///< between two syllables

struct Syllable {
    double X = 0;
    double Room = 0;  ///< to the next syllable of the line
    int Line = 0;
    const std::string* Text = nullptr;
};

/// Columns by musical time in the frame of the bar above, unrounded, so that both tracks' notes meet their words.
std::vector<Syllable> SyllablesOf(const Core::TabFile& file, const Core::Bar& frame, int lyricsTrack, int bar) {
    std::vector<Syllable> syllables;
    const auto& strums = file.Tracks[lyricsTrack].Bars[bar].Strums();
    const double start = BarStartOffset(frame);
    const double usable = frame.Place.BarWidth - start - 5;
    const double total = Core::BarLengthIn64ths(file, bar);
    double elapsed = 0;
    std::array<int, Core::LyricLines> lastOfLine;
    lastOfLine.fill(-1);
    for (const Core::Strum& strum : strums) {
        const double x = frame.Place.BarX + start + (total > 0 ? elapsed / total : 0) * usable;
        elapsed += Core::StrumLength(strum);
        for (int line = 0; line < Core::LyricLines; ++line) {
            const std::string& text = strum.Syllables.Read()[line];
            if (text.empty()) continue;
            int& last = lastOfLine[static_cast<std::size_t>(line)];
            if (last >= 0) {
                Syllable& before = syllables[static_cast<std::size_t>(last)];
                before.Room = x - before.X;
            }
            last = static_cast<int>(syllables.size());
            syllables.push_back({x, frame.Place.BarX + frame.Place.BarWidth + start - x, line, &text});
        }
    }
    return syllables;
}

/// How much smaller a bar's syllables must be to stand clear of each other, 1 when they fit.
double Fit(Picture& picture, const std::vector<Syllable>& syllables) {
    double fit = 1;
    for (const Syllable& syllable : syllables) {
        const double width = picture.TextWidth(*syllable.Text);
        if (width + Gap > syllable.Room) fit = std::min(fit, std::max(0.1, syllable.Room - Gap) / width);
    }
    return fit;
}

Font LyricsFont(const Core::TabFile& file, double size) {
    return {file.FontName, size, file.FontBold, file.FontItalic, file.FontUnderline, file.FontStrike};
}

}  // namespace

namespace {

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

RowLook LookOfLyrics(Picture& picture, const Core::TabFile& file, int track, int lyricsTrack) {
    constexpr int numberZone = 14, chartZone = 87, mostDrop = 28;
    constexpr double leastForRoom = 9;
    const int lines = LinesInUse(file, lyricsTrack);
    if (lines == 0) return {};
    const double full = std::clamp(file.FontSize - 1.0, SmallestSize, LargestFontSize);
    picture.SetFont(LyricsFont(file, full));
    double fit = 1;
    const Core::Track& frame = file.Tracks[track];
    for (int bar = 0; bar <= frame.Bars.UpperBound(); ++bar) {
        if (frame.Bars[bar].Place.Page < 0) continue;
        fit = std::min(fit, Fit(picture, SyllablesOf(file, frame.Bars[bar], lyricsTrack, bar)));
    }
    RowLook look{.LyricsSize = std::max(SmallestSize, std::floor(full * fit))};
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
    const Core::Bar& own = bar.ItsBar();
    const std::vector<Syllable> syllables = SyllablesOf(file, own, lyricsTrack, bar.Bar);
    if (syllables.empty()) return;
    const Font font = LyricsFont(file, std::max(SmallestSize, bar.Look.LyricsSize));
    picture.SetFont(font);
    picture.SetColor(file.FontColor);
    const double height = std::ceil(font.Pixels() * LineHeight);
    const double top = bar.Y + RowHeight(bar.ItsTrack()) + StaffHeadroom;
    for (const Syllable& syllable : syllables) {
        const double x = syllable.X + (bar.X - own.Place.BarX);
        picture.Print(x, std::round(top + syllable.Line * height + Ascent * font.Pixels()), *syllable.Text,
                      Anchor::Left);
    }
}

}  // namespace Quillon::Drawing
