// The lyric lines of another track under a row.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "core/mod_TabFileManipulation.h"
#include "drawing/LyricWords.h"
#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"

namespace Quillon::Drawing {

namespace {

constexpr double LineHeight = 1.15;  ///< of a line of text, in ems
constexpr double Ascent = 0.9;       ///< from a line's top to its baseline, in ems
constexpr double SmallestSize = 6;
constexpr double SmallestOfRow = 7;    ///< of a row whose words stand close: long words are cut before they get smaller
constexpr double SmallestOfCrowd = 4;  ///< of a row that finds no room for the short ones
constexpr int NumberZone = 14;         ///< above a row, of its bar numbers
constexpr int MostDrop = 36;           ///< of the lyrics under a staff whose notes reach far down
constexpr std::size_t LettersKept = 4;  ///< of a word that is cut

using Words = std::array<LyricLine, Core::LyricLines>;

/// The bars that share a row, and the paper that its words may use, in the layout's coordinates.
struct Row {
    int First = 0, Last = 0;
    LyricRoom Room{};
};

Row RowOf(const BarContext& bar) {
    const TabBar tab(bar);
    Row row{FirstOfRow(tab), LastOfRow(tab)};
    if (bar.Look.PaperRight == 0) return row;
    const int left = bar.ItsTrack().Bars[row.First].Place.BarX;
    row.Room = {static_cast<double>(left) + bar.Look.PaperLeft, static_cast<double>(left) + bar.Look.PaperRight};
    return row;
}

/// The words of a bar by lines. Their columns stand by musical time in the frame of the bar above, unrounded, so that
/// both tracks' notes meet their words.
void AddWords(Words& lines, const BarContext& context, int lyricsTrack, int bar) {
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

/// The widths of all words in the font in use.
void Measure(Picture& picture, LyricLine& line) {
    constexpr double worthIt = 0.8;
    for (LyricWord& word : line) {
        word.Width = word.Least = picture.TextWidth(word.Text);
        std::size_t letters = 0, bytes = 0;
        while (bytes < word.Text.size() && letters < LettersKept) {
            do ++bytes;
            while (bytes < word.Text.size() && (static_cast<unsigned char>(word.Text[bytes]) & 0xC0) == 0x80);
            ++letters;
        }
        const double cut = picture.TextWidth(word.Text.substr(0, bytes) + "...");
        if (cut < worthIt * word.Width) word.Least = cut;
    }
}

bool PlaceAll(Words& lines, const LyricRoom& room, double scale, bool cut) {
    bool placed = true;
    for (LyricLine& line : lines) placed = PlaceWords(line, room, scale, cut) && placed;
    return placed;
}

/// The size at which a row's words, measured at `size`, find their places.
double SizeOfRow(Words& lines, const LyricRoom& room, double size) {
    constexpr double step = 0.5;
    const double least = std::min(SmallestOfRow, size);
    for (double tried = size; tried > least; tried -= step) {
        if (PlaceAll(lines, room, tried / size, false)) return tried;
    }
    for (double tried = least; tried > SmallestOfCrowd; tried -= step) {
        if (PlaceAll(lines, room, tried / size, true)) return tried;
    }
    return SmallestOfCrowd;
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

int LinesHeight(double points, int lines) { return lines * static_cast<int>(std::ceil(points * 4 / 3 * LineHeight)); }

/// y of the lowest ink of a bar's last staff, and of the marks under it.
double LowestOf(const BarContext& bar, const StaffPlace& place) {
    constexpr double headHalf = 3.5, beamHalf = 1.5;
    StaffBar staff(bar, place);
    PlaceStems(staff);
    PlaceBeams(staff);
    std::vector<int> marks;
    if (!place.OfOther) marks = MarkLinesBelow(TabBar(bar));
    double lowest = staff.Bottom();
    for (std::size_t at = 0; at < staff.Columns.size(); ++at) {
        const StaffColumn& column = staff.Columns[at];
        double low = staff.Bottom();
        if (column.Sounds()) low = std::max(low, column.Lowest() + headHalf);
        if (column.Sounds() && column.HasStem) low = std::max(low, column.StemEnd + beamHalf);
        lowest = std::max(lowest, low + (at < marks.size() ? marks[at] * MarkStep : 0));
    }
    return lowest;
}

/// True when a word stands over a chord chart of the next row of the page.
bool MeetsCharts(const BarContext& bar, const Row& row, const Words& lines) {
    constexpr double half = 17;
    const Core::Track& track = bar.ItsTrack();
    if (!bar.File.AlwaysCharts || row.Last >= track.Bars.UpperBound()) return false;
    const Core::BarPlace& next = track.Bars[row.Last + 1].Place;
    const auto isOver = [&lines](double x) {
        return std::ranges::any_of(lines, [x](const LyricLine& line) {
            return std::ranges::any_of(
                line, [x](const LyricWord& word) { return word.Left < x + half && word.Left + word.Shown > x - half; });
        });
    };
    if (next.Page != bar.ItsBar().Place.Page) return false;
    for (int index = row.Last + 1; index <= track.Bars.UpperBound(); ++index) {
        const Core::Bar& below = track.Bars[index];
        if (below.Place.BarY != next.BarY) break;
        for (int at = 0; at < std::min(below.Strums().Count(), below.Place.StrumX.Count()); ++at) {
            if (below.Strums()[at].HasChord && isOver(below.Place.StrumX[at])) return true;
        }
    }
    return false;
}

/// How much lower than usual the lyrics stand under a staff whose notes reach far down: words crossed by a stem are
/// read more easily than words in a chart.
double DropBelowStaff(const BarContext& bar, const Row& row, const Words& lines) {
    constexpr double gap = 3;
    if (bar.ItsTrack().ShowTab && !ShowsStaffOfOther(bar.File, bar.ItsTrack())) return 0;
    const double usual = bar.Y + RowHeight(bar.ItsTrack()) + StaffHeadroom;
    double lowest = usual - gap;
    for (int index = row.First; index <= row.Last; ++index) {
        const Core::BarPlace& place = bar.ItsTrack().Bars[index].Place;
        const BarContext context{bar.File, bar.Track, index, place.BarX, bar.Y, place.BarWidth, bar.Look};
        const std::vector<StaffPlace> staves = StaffPlacesOf(context);
        if (!staves.empty()) lowest = std::max(lowest, LowestOf(context, staves.back()));
    }
    int most = bar.Look.LyricsDrop;
    if (!MeetsCharts(bar, row, lines)) {
        most = std::clamp(bar.File.RowSpacing - StaffHeadroom - NumberZone - bar.Look.LyricsHeight, most, MostDrop);
    }
    return std::min<double>(most, lowest + gap - usual);
}

/// The most that the lyrics of any row may stand lower than usual: that of the track's lowest note, its stem down.
int MostDropBelowStaff(const Core::TabFile& file, int track) {
    constexpr double ofBeam = 4.5;
    const BarContext row{file, track, 0, 0, 0, 0};
    const std::vector<StaffPlace> staves = StaffPlacesOf(row);
    if (staves.empty() || (file.Tracks[track].ShowTab && !staves.back().OfOther)) return 0;
    const StaffPlace& place = staves.back();
    if (place.Clef == Clef::Percussion) return 0;
    int lowest = LowestOnTreble + 60;
    for (const Core::Bar& bar : place.Track.Bars) {
        for (const Core::Strum& strum : bar.Strums()) {
            for (int string = 0; string < StringsShown(place.Track); ++string) {
                if (strum.Notes[string].Fret.empty()) continue;
                const int pitch = WrittenPitch(place.Track, string, strum.Notes[string]);
                if (Takes(place, pitch)) lowest = std::min(lowest, pitch);
            }
        }
    }
    const double head = place.Top + StaffLineSpan - HalfStep * SpellPitch(lowest, false, place.Clef).Step;
    const double missing = head + OctaveLong + ofBeam - RowHeight(row.ItsTrack()) - StaffHeadroom;
    return std::clamp(static_cast<int>(std::ceil(missing)), 0, MostDrop);
}

}  // namespace

RowLook LookOfLyrics(const Core::TabFile& file, int track, int lyricsTrack) {
    constexpr int chartZone = 87, mostDrop = 28;
    constexpr double leastForRoom = 7;
    const int lines = LinesInUse(file, lyricsTrack);
    if (lines == 0) return {};
    const double full = std::clamp(file.FontSize - 1.0, SmallestSize, LargestFontSize);
    RowLook look{.LyricsSize = full};
    const bool charts = HasCharts(file, track);
    const int zone = charts ? chartZone : NumberZone;
    const int free = file.RowSpacing - StaffHeadroom - zone;
    const int gap = free - MostDropBelowStaff(file, track);
    look.LyricsHeight = LinesHeight(full, lines);
    const int missing = look.LyricsHeight - gap;
    if (missing > 0 && charts) look.ChartDrop = std::min(mostDrop, missing);
    while (look.LyricsSize > leastForRoom && look.LyricsHeight > gap + look.ChartDrop) {
        look.LyricsSize -= 1;
        look.LyricsHeight = LinesHeight(look.LyricsSize, lines);
    }
    look.LyricsDrop = std::clamp(free + look.ChartDrop - look.LyricsHeight, 0, MostDrop);
    return look;
}

void DrawLyrics(Picture& picture, const BarContext& bar, int lyricsTrack) {
    const Core::TabFile& file = bar.File;
    Words lines;
    AddWords(lines, bar, lyricsTrack, bar.Bar);
    if (std::ranges::all_of(lines, [](const LyricLine& line) { return line.empty(); })) return;
    const Row row = RowOf(bar);
    lines = {};
    for (int index = row.First; index <= row.Last; ++index) AddWords(lines, bar, lyricsTrack, index);
    Font font = LyricsFont(file, std::max(SmallestSize, bar.Look.LyricsSize));
    picture.SetFont(font);
    for (LyricLine& line : lines) {
        // A bar too full for its time reaches into the next one.
        std::ranges::stable_sort(line, {}, &LyricWord::Column);
        Measure(picture, line);
    }
    const double size = SizeOfRow(lines, row.Room, font.Size);
    if (size != font.Size) {
        font.Size = size;
        picture.SetFont(font);
        for (LyricLine& line : lines) Measure(picture, line);
    }
    PlaceAll(lines, row.Room, 1, true);
    picture.SetColor(file.FontColor);
    const double height = std::ceil(font.Pixels() * LineHeight), ascent = Ascent * font.Pixels();
    const double top = bar.Y + RowHeight(bar.ItsTrack()) + StaffHeadroom + DropBelowStaff(bar, row, lines);
    const int moved = bar.X - bar.ItsBar().Place.BarX;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const double baseline = std::round(top + static_cast<double>(at) * height + ascent);
        for (const LyricWord& word : lines[at]) {
            if (word.Bar != bar.Bar || word.Left + word.Shown > row.Room.Right + 1) continue;
            const bool whole = word.Shown >= word.Width;
            picture.Print(word.Left + moved, baseline, whole ? word.Text : CutToFit(picture, word.Text, word.Shown));
        }
    }
}

}  // namespace Quillon::Drawing
