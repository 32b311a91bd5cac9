// Chord names and charts above their strums.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "core/mod_Common.h"
#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

constexpr int Step = 5;         ///< between strings and between frets
constexpr int FretRows = 5;     ///< of a chart
constexpr int ChartTop = 67;    ///< above the row
constexpr int NameMiddle = 78;  ///< above the row
constexpr int NameAlone = 34;   ///< of a name without a chart
constexpr double DotRadius = 1.9;
constexpr double NameStep = 4;  ///< from one try to the next of a name that finds its place taken
constexpr double NameGap = 3;   ///< behind a name
const Font NameFont{.Name = "Arial", .Size = 7.5, .Bold = true};

struct Chart {
    int Strings = 0;
    int FirstFret = 1;   ///< of the top row
    int LowestFret = 0;  ///< that a finger holds; a barre lies here
    enum : int { Muted = -1, Unused = -2 };
    std::array<int, Core::StringCount> Frets{};  ///< absolute; 0 open

    bool Has(int fret) const {
        return std::any_of(Frets.begin(), Frets.begin() + Strings, [&](int f) { return f == fret; });
    }
};

/// The chart of a strum's chord; without strings when it has none. A strum's frets are those to be played: its base
/// fret, ChordValueA, is counted in, unlike in a chord of the library. ChordValueB is its number of strings.
Chart ChartOf(const Core::Strum& strum) {
    Chart chart;
    const auto& frets = strum.ChordFrets.Read();
    int lowest = 0, highest = 0;
    for (int string = 0; string < Core::StringCount; ++string) {
        const std::string text(Core::TrimBlanks(frets[string]));
        int fret = Chart::Unused;
        int number = 0;
        if (text == "x" || text == "X") {
            fret = Chart::Muted;
        } else if (FretNumber(text, number) && number >= 0 && number <= 36) {
            fret = number;
        }
        chart.Frets[static_cast<std::size_t>(string)] = fret;
        if (fret != Chart::Unused) chart.Strings = string + 1;
        if (fret > 0 && (lowest == 0 || fret < lowest)) lowest = fret;
        highest = std::max(highest, fret);
    }
    if (chart.Strings == 0) return chart;
    chart.Strings = strum.ChordValueB >= 4 && strum.ChordValueB <= Core::StringCount
                        ? strum.ChordValueB
                        : std::max(chart.Strings, std::min(6, Core::StringCount));
    chart.LowestFret = lowest;
    if (highest > FretRows) chart.FirstFret = lowest;
    return chart;
}

void DrawChart(Picture& picture, const TabBar& bar, const Chart& chart, double middle, int top, bool barre) {
    const int strings = chart.Strings;
    const int width = (strings - 1) * Step;
    const int left = static_cast<int>(middle) - width / 2;
    const int right = left + width;
    const auto stringX = [&](int string) { return right - string * Step; };  // string 0 at the right
    picture.SetColor(bar.Context.File.LineColor);
    for (int row = 0; row <= FretRows; ++row) picture.Line(left, top + row * Step, right, top + row * Step);
    for (int string = 0; string < strings; ++string) {
        picture.Line(stringX(string), top, stringX(string), top + FretRows * Step);
    }
    picture.SetColor(bar.Ink());
    if (chart.FirstFret == 1) {
        picture.Line(left, top - 1, right, top - 1);  // with the line below it a nut of 2
    } else {
        Print(picture, SmallFont, right + 3, top + 5, std::to_string(chart.FirstFret), Anchor::Left);
    }
    int firstOnBarre = -1, lastOnBarre = -1;
    for (int string = 0; string < strings; ++string) {
        const int fret = chart.Frets[static_cast<std::size_t>(string)];
        const double x = stringX(string);
        if (fret == 0) {
            picture.Circle(x, top - 4, 1.5, 0.8);
        } else if (fret == Chart::Muted) {
            picture.Line(x - 1.5, top - 5.5, x + 1.5, top - 2.5, 0.9);
            picture.Line(x - 1.5, top - 2.5, x + 1.5, top - 5.5, 0.9);
        } else if (fret >= chart.FirstFret && fret < chart.FirstFret + FretRows) {
            picture.Disc(x, top + (fret - chart.FirstFret) * Step + Step / 2.0, DotRadius);
            if (fret == chart.LowestFret) {
                if (firstOnBarre < 0) firstOnBarre = string;
                lastOnBarre = string;
            }
        }
    }
    if (barre && lastOnBarre > firstOnBarre) {
        const double y = top + (chart.LowestFret - chart.FirstFret) * Step + Step / 2.0;
        picture.Line(stringX(lastOnBarre), y, stringX(firstOnBarre), y, 2);
    }
}

/// How far a chart, from its rings down to its last fret, must rise to stand clear of high notes and signs; 0 when
/// nothing helps.
int LiftOf(const TabBar& bar, double left, double right, int top) {
    constexpr int step = 3, most = 36;
    for (int lift = 0; lift <= most && (lift == 0 || top - lift - 7.0 >= bar.Around.Ceiling()); lift += step) {
        if (bar.Around.IsFree({left, top - lift - 7.0, right, top - lift + FretRows * Step + 1.0})) return lift;
    }
    return 0;
}

double HalfWidth(const Chart& chart) { return (chart.Strings - 1) * Step / 2.0 + 3; }

struct NamePlace {
    std::string Text;
    double Left, Right;
};
/// A chord's name over its column, inside the paper. Leaves its font in use.
NamePlace PlaceName(Picture& picture, const TabBar& bar, const Core::Strum& strum, double x) {
    picture.SetFont(NameFont);
    const std::string text = FitToPaper(picture, bar, strum.ChordName);
    const double width = picture.TextWidth(text);
    const double left = LeftOnPaper(bar, x - width / 2, width);
    return {text, left, left + width};
}

/// What the chords of the row's earlier bars have taken: their names, and the right end of their last chart.
double TakeChordsBefore(Picture& picture, TabBar& bar) {
    const bool charts = bar.Context.File.AlwaysCharts;
    double free = bar.Context.X - 10000.0;
    Room names;
    for (int index = FirstOfRow(bar); index < bar.Context.Bar; ++index) {
        const Core::Bar& before = bar.Track.Bars[index];
        const int moved = bar.Context.X - bar.Bar.Place.BarX;
        std::vector<double> heads;
        if (bar.OnStaff && std::ranges::any_of(before.Strums(), &Core::Strum::HasChord)) {
            const BarContext context{bar.Context.File,          bar.Context.Track, index,
                                     before.Place.BarX + moved, bar.Context.Y,     before.Place.BarWidth,
                                     bar.Context.Look};
            heads = HeadColumns(StaffBarsOf(context).front());
        }
        for (int at = 0; at < std::min(before.Strums().Count(), before.Place.StrumX.Count()); ++at) {
            const Core::Strum& strum = before.Strums()[at];
            if (!strum.HasChord) continue;
            const double x = heads.empty() ? before.Place.StrumX[at] + moved : heads[static_cast<std::size_t>(at)];
            if (charts) {
                const Chart chart = ChartOf(strum);
                const double half = HalfWidth(chart);
                if (chart.Strings > 0 && x - half >= free) free = x + half;
            }
            if (strum.ChordName.empty()) continue;
            const NamePlace name = PlaceName(picture, bar, strum, x);
            const double first = bar.Context.Y - (charts ? NameMiddle - bar.Context.Look.ChartDrop : NameAlone);
            const double middle = names.TakeLevel(name.Left, name.Right, name.Right, first, NameStep);
            constexpr double half = 3.5;
            // One that ends before this bar may still meet a wide name that stands in the middle over its first column.
            bar.Around.Take({name.Left, middle - half, name.Right, middle + half});
        }
    }
    return free;
}

}  // namespace

void DrawChords(Picture& picture, TabBar& bar) {
    const bool charts = bar.Context.File.AlwaysCharts;
    const auto hasChord = [&](int at) { return bar.Strum(at).HasChord; };
    int first = 0;
    while (first < bar.StrumCount() && !hasChord(first)) ++first;
    if (first == bar.StrumCount()) return;
    double free = TakeChordsBefore(picture, bar);  // right end of the last chart
    for (int at = first; at < bar.StrumCount(); ++at) {
        const Core::Strum& strum = bar.Strum(at);
        if (!strum.HasChord) continue;
        const double x = bar.MarkX(at);
        Chart chart;
        if (charts) chart = ChartOf(strum);
        const double half = HalfWidth(chart);
        const bool charted = chart.Strings > 0 && x - half >= free;
        int top = bar.Context.Y - ChartTop + bar.Context.Look.ChartDrop;
        if (charted) {
            top -= LiftOf(bar, x - half, x + half + (chart.FirstFret > 1 ? 5 : 0), top);
            DrawChart(picture, bar, chart, x, top, strum.ChordFlag);
            free = x + half;
            bar.Around.Take({x - half, top - 7.0, x + half + 5, top + FretRows * Step + 1.0});
        }
        if (strum.ChordName.empty()) continue;
        picture.SetColor(bar.Ink());
        const NamePlace name = PlaceName(picture, bar, strum, x);
        const double nearest = charts ? top - (NameMiddle - ChartTop) : bar.Context.Y - NameAlone;
        const double right = name.Right + NameGap;
        const double middle = bar.Around.TakeLevel(name.Left, right, right, nearest, NameStep);
        const double drop = 0.36 * NameFont.Pixels();
        picture.Print((name.Left + name.Right) / 2, std::round(middle + drop), name.Text, Anchor::Center);
    }
    picture.SetColor(bar.Ink());
}

}  // namespace Quillon::Drawing
