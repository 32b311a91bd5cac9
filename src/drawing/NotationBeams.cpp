// Beams of all levels, and the figures of tuplets with their brackets.
#include <algorithm>
#include <cmath>
#include <string>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

namespace {

constexpr double Thickness = 3;
constexpr double LevelStep = 5;      ///< from one level to the next, towards the heads
constexpr double ShortestStem = 18;  ///< under a beam, from the head at its side
constexpr double Stub = 6;
constexpr double MostFall = 7, MostSlope = 1.0 / 6;

/// y of a column's head that is nearest to the beam.
double NearHead(const StaffColumn& column) { return column.StemUp ? column.Highest() : column.Lowest(); }

/// The fall of a beam from its first to its last stem.
double FallOf(const StaffBar& bar, const BeamRun& run) {
    const double first = NearHead(bar.Column(run.Strums.front()));
    const double last = NearHead(bar.Column(run.Strums.back()));
    const double width = bar.Column(run.Strums.back()).StemX - bar.Column(run.Strums.front()).StemX;
    for (std::size_t i = 1; i + 1 < run.Strums.size(); ++i) {
        const double inner = NearHead(bar.Column(run.Strums[i]));
        // An inner note nearer to the beam than both ends, or level with the nearer one, holds it flat.
        if (run.Up ? inner <= std::min(first, last) : inner >= std::max(first, last)) return 0;
    }
    const double most = std::min(MostFall, MostSlope * width);
    return std::clamp((last - first) / 2, -most, most);
}

void PlaceRun(StaffBar& bar, BeamRun& run) {
    const double outward = run.Up ? -1 : 1;
    const double firstX = bar.Column(run.Strums.front()).StemX;
    const double width = std::max(1.0, bar.Column(run.Strums.back()).StemX - firstX);
    double fall = FallOf(bar, run);
    const double firstHead = NearHead(bar.Column(run.Strums.front()));
    const double lastHead = NearHead(bar.Column(run.Strums.back()));
    run.Start = (firstHead + lastHead - fall) / 2 + outward * (OctaveLong - Thickness / 2);
    run.Slope = fall / width;
    const double middle = bar.Place.Top + 2.0 * StaffStep;
    double missing = 0;
    for (const int strum : run.Strums) {
        const StaffColumn& column = bar.Column(strum);
        const double beam = run.Start + run.Slope * (column.StemX - firstX);
        const double least = ShortestStem + LevelStep * std::max(0, column.Hooks - 2) + (column.Hooks > 1 ? 1 : 0);
        missing = std::max(missing, least - outward * (beam - NearHead(column)));
        missing = std::max(missing, outward * (middle - beam));
    }
    run.Start += outward * missing;
    if (run.Slope == 0) run.Start = std::round(run.Start);  // whole pixels of ink
    for (const int strum : run.Strums) {
        StaffColumn& column = bar.Column(strum);
        column.StemEnd = run.Start + run.Slope * (column.StemX - firstX) + outward * (Thickness / 2 - 0.5);
    }
}

/// The strokes of one level: from stem to stem of neighbours that have it, and stubs of those that have it alone.
void AddLevel(StaffBar& bar, const BeamRun& run, int level) {
    const double firstX = bar.Column(run.Strums.front()).StemX;
    const double inward = (run.Up ? 1 : -1) * LevelStep * (level - 1);
    const auto add = [&](double from, double to) {
        bar.Beams.push_back({from, run.Start + run.Slope * (from - firstX) + inward, to,
                             run.Start + run.Slope * (to - firstX) + inward});
    };
    const auto has = [&](std::size_t i) { return bar.Column(run.Strums[i]).Hooks >= level; };
    const auto x = [&](std::size_t i) { return bar.Column(run.Strums[i]).StemX; };
    for (std::size_t first = 0; first < run.Strums.size(); ++first) {
        if (!has(first)) continue;
        std::size_t last = first;
        // Shorter notes on the two sides of a rest are joined by the main beam alone.
        while (last + 1 < run.Strums.size() && has(last + 1) &&
               (level == 1 || run.Strums[last + 1] == run.Strums[last] + 1)) {
            ++last;
        }
        if (last > first) {
            add(x(first), x(last));
        } else if (first == 0) {
            add(x(0), x(0) + std::min(Stub, (x(1) - x(0)) / 2));
        } else {
            add(x(first) - std::min(Stub, (x(first) - x(first - 1)) / 2), x(first));
        }
        first = last;
    }
}

/// A rest that a beam passes steps away from it by whole spaces.
void ClearRests(StaffBar& bar, const BeamRun& run, int levels) {
    constexpr double gap = 1.5;
    static constexpr double tops[] = {7, 7, 1, 0},
                            bottoms[] = {21, 28, 28, 35};  // of an eighth's rest and shorter ones
    const double firstX = bar.Column(run.Strums.front()).StemX;
    for (int s = run.Strums.front() + 1; s < run.Strums.back(); ++s) {
        StaffColumn& column = bar.Column(s);
        if (!column.Rest || column.Hooks == 0) continue;
        const double inward = run.Up ? 1 : -1;
        const double edge =
            run.Start + run.Slope * (column.X - firstX) + inward * (LevelStep * (levels - 1) + Thickness / 2 + gap);
        const auto kind = static_cast<std::size_t>(column.Hooks - 1);
        const double over = run.Up ? edge - (bar.Place.Top + tops[kind]) : bar.Place.Top + bottoms[kind] - edge;
        if (over > 0) column.RestDrop = inward * StaffStep * std::ceil(over / StaffStep);
    }
}

void FinishRun(StaffBar& bar, BeamRun& run) {
    if (run.Strums.size() > 1) {
        int levels = 0;
        for (const int strum : run.Strums) {
            bar.Column(strum).Beamed = true;
            levels = std::max(levels, bar.Column(strum).Hooks);
        }
        PlaceRun(bar, run);
        for (int level = 1; level <= levels; ++level) AddLevel(bar, run, level);
        ClearRests(bar, run, levels);
        bar.Runs.push_back(run);
    }
    run.Strums.clear();
}

}  // namespace

void PlaceBeams(StaffBar& bar) {
    for (const BeamGroup& group : bar.Groups) {
        BeamRun run;
        for (int s = group.First; s <= group.Last; ++s) {
            const StaffColumn& column = bar.Column(s);
            run.Up = column.StemUp;
            if (column.Hooks == 0) {
                FinishRun(bar, run);  // a quarter or longer has no beam, and none passes it
            } else if (column.Sounds() && !column.Slash) {
                run.Strums.push_back(s);
            }
        }
        FinishRun(bar, run);
    }
}

void DrawBeams(Picture& picture, const StaffBar& bar) {
    constexpr double half = Thickness / 2, stemHalf = 0.5;
    for (const BeamStroke& beam : bar.Beams) {
        const double left = beam.X1 - stemHalf, right = beam.X2 + stemHalf;
        if (beam.Y1 == beam.Y2) {
            picture.Box(left + 0.5, beam.Y1 - half + 0.5, right - left, Thickness, bar.Ink());
        } else {
            picture.Polygon(
                {{left, beam.Y1 - half}, {right, beam.Y2 - half}, {right, beam.Y2 + half}, {left, beam.Y1 + half}});
        }
    }
}

namespace {

struct Edges {
    double Top, Bottom;
};

/// What a column reaches up and down to, stems and rests with it.
Edges EdgesOf(const StaffBar& bar, int strum) {
    const StaffColumn& column = bar.Column(strum);
    const double top = bar.Place.Top;
    if (!column.Sounds()) return {top + 3.5, top + 24.5};
    Edges edges{column.Highest() - 4, column.Lowest() + 4};
    if (column.HasStem) {
        edges.Top = std::min(edges.Top, column.StemEnd);
        edges.Bottom = std::max(edges.Bottom, column.StemEnd);
    }
    return edges;
}

/// True when one beam joins exactly these strums.
const BeamRun* RunOf(const StaffBar& bar, const TupletMark& mark) {
    const auto run = std::find_if(bar.Runs.begin(), bar.Runs.end(), [&](const BeamRun& at) {
        return at.Strums.front() == mark.First && at.Strums.back() == mark.Last;
    });
    return run == bar.Runs.end() ? nullptr : &*run;
}

void DrawTuplet(Picture& picture, const StaffBar& bar, const TupletMark& mark) {
    static const Font font{.Name = "Times New Roman", .Size = 7.5, .Bold = true, .Italic = true};
    constexpr double away = 7, drop = 3.4, hook = 4, overhang = 5;
    bool shown = false, up = true, settled = false;
    for (int s = mark.First; s <= mark.Last; ++s) {
        shown = shown || bar.Column(s).Sounds() || bar.Column(s).Rest;
        if (!settled && bar.Column(s).Sounds()) {
            up = bar.Column(s).StemUp;
            settled = true;
        }
    }
    if (!shown || mark.Figure == 0) return;
    const std::string figure = std::to_string(mark.Figure);
    // Brackets side by side keep apart.
    const auto reach = [&](int inner, int outer) {
        if (outer < 0 || outer >= bar.Count()) return overhang;
        return std::min(overhang, std::abs(bar.Column(outer).X - bar.Column(inner).X) / 2 - 1.5);
    };
    double left = bar.Column(mark.First).X - reach(mark.First, mark.First - 1);
    double right = bar.Column(mark.Last).X + reach(mark.Last, mark.Last + 1);
    const double outward = up ? -1 : 1;
    if (const BeamRun* run = RunOf(bar, mark)) {
        left = bar.Column(mark.First).StemX;
        right = bar.Column(mark.Last).StemX;
        const double y = run->Start + run->Slope * (right - left) / 2 + outward * (away + 0.5);
        return Print(picture, font, (left + right) / 2, y + drop, figure);
    }
    double y = up ? bar.Place.Top - 2.0 : bar.Bottom() + 2.0;
    for (int s = mark.First; s <= mark.Last; ++s) {
        const Edges edges = EdgesOf(bar, s);
        y = up ? std::min(y, edges.Top) : std::max(y, edges.Bottom);
    }
    y = std::round(y + outward * away);
    const double middle = (left + right) / 2;
    Print(picture, font, middle, y + drop, figure);
    // A figure alone keeps its hooks where there is room, so that "5" and "9" side by side are no 59.
    constexpr double leastReach = 4.5;
    if (mark.First == mark.Last && right - left < 2 * leastReach) return;
    picture.SetFont(font);
    const double gap = picture.TextWidth(figure) / 2 + 3;
    const double begin = std::round(left), end = std::round(right);
    picture.Line(begin, y, begin, y - outward * hook);
    picture.Line(end, y, end, y - outward * hook);
    if (middle - gap > begin) {
        picture.Line(begin, y, std::round(middle - gap), y);
        picture.Line(std::round(middle + gap), y, end, y);
    }
}

}  // namespace

void DrawTuplets(Picture& picture, const StaffBar& bar) {
    for (TupletMark mark : Tuplets(bar.Bar)) {
        mark.Last = std::min(mark.Last, bar.Count() - 1);
        if (mark.First <= mark.Last) DrawTuplet(picture, bar, mark);
    }
}

}  // namespace Quillon::Drawing
