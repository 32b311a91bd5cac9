// The marks above the tab, stacked upward in steps of 10, and those below it.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "core/mod_TabFileManipulation.h"
#include "drawing/TabParts.h"

namespace Quillon::Drawing {

namespace {

constexpr double SmallDrop = 3;  ///< from the middle of a small text to its baseline
constexpr double ColumnGap = 6;  ///< that a run keeps from the next column

class MarkPainter {
public:
    MarkPainter(Picture& target, TabBar& where) : picture(target), bar(where) {}

    /// The middle of the lowest free place above the tab.
    double Above(double left, double right, double labelRight, int firstLevel = 0) {
        return bar.Around.TakeLevel(left, right, labelRight, bar.Top - MarkStep * (1 + firstLevel), MarkStep);
    }
    double Above(double left, double right) { return Above(left, right, right); }

    void Centered(int strum, const Font& font, const std::string& text, double drop = SmallDrop) {
        picture.SetFont(font);
        const double half = picture.TextWidth(text) / 2;
        const double x = bar.MarkX(strum);
        picture.Print(x, Above(x - half, x + half) + drop, text, Anchor::Center);
    }

    /// A row of strums of this bar that share a mark.
    struct Run {
        int First = 0, Last = 0;
        bool ComesIn = false;  ///< from the bar before
        bool GoesOn = false;   ///< in the bar behind
        int Level = 0;         ///< first level at which the run may stand in all its bars
    };

    /// For every run of strums that `has` it, over bar lines too.
    template <class Has, class Paint>
    void Runs(Has has, Paint paint) {
        for (int first = 0; first < bar.StrumCount(); ++first) {
            if (!has(bar.Strum(first))) continue;
            int last = first;
            while (last + 1 < bar.StrumCount() && has(bar.Strum(last + 1))) ++last;
            const Core::Bar* before = first == 0 ? bar.Beside(-1) : nullptr;
            const Core::Bar* behind = last + 1 == bar.StrumCount() ? bar.Beside(1) : nullptr;
            Run run{first, last, before && has(before->Strums()[before->Strums().UpperBound()]),
                    behind && has(behind->Strums()[0])};
            if (run.ComesIn || run.GoesOn) run.Level = LevelOfRun(has, run);
            paint(run);
            first = last;
        }
    }

    /// The single marks under a run that crosses bar lines, at its fullest column on this row: it keeps one height.
    template <class Has>
    int LevelOfRun(Has has, const Run& run) {
        int level = 0;
        const auto walk = [&](int barIndex, int strum, int step) {
            for (; barIndex >= 0 && barIndex <= bar.Track.Bars.UpperBound(); barIndex += step) {
                const Core::Bar& at = bar.Track.Bars[barIndex];
                if (at.Place.BarY != bar.Bar.Place.BarY) return;
                if (strum < 0) strum = step > 0 ? 0 : at.Strums().UpperBound();
                for (; strum >= 0 && strum < at.Strums().Count(); strum += step) {
                    if (!has(at.Strums()[strum])) return;
                    level = std::max(level, SingleMarks(at.Strums()[strum]));
                }
                strum = -1;
            }
        };
        walk(bar.Context.Bar, run.First, 1);
        walk(bar.Context.Bar, run.Last, -1);
        return level;
    }

    int SingleMarks(const Core::Strum& strum) const {
        bool accent = false, staccato = false, harmonic = false;
        for (int string = 0; string < bar.Strings; ++string) {
            const Core::Note& note = strum.Notes[string];
            if (note.Fret.empty()) continue;
            accent = accent || note.Accentuate;
            staccato = staccato || note.Technique == Core::Staccato;
            harmonic = harmonic || note.Harmonic != Core::NoHarmonic;
        }
        return accent + staccato + harmonic;
    }

    /// A label, dashes to the end of the run, a closing tick.
    void DashedRun(const std::string& label, const Run& run) {
        const auto& [first, last, comesIn, goesOn, level] = run;
        constexpr double dash = 3, gap = 3, tick = 4;
        picture.SetFont(SmallFont);
        const double left = comesIn ? bar.Context.X : bar.MarkX(first) - 4;
        const double labelRight = comesIn ? left : left + picture.TextWidth(label);
        const double end = goesOn ? bar.Right() : std::max(bar.MarkX(last) + 5, labelRight);
        const double middle = Above(left, end, labelRight, level);
        if (!comesIn) picture.Print(left, middle + SmallDrop, label, Anchor::Left);
        if (first == last && !comesIn && !goesOn) return;
        for (const Point& piece : bar.Around.Pieces(std::ceil(labelRight + gap), end, middle)) {
            for (double x = std::ceil(piece.X); x + dash - 1 <= piece.Y; x += dash + gap) {
                picture.Line(x, middle, std::min(x + dash - 1, piece.Y), middle);
            }
        }
        if (!goesOn) picture.Line(std::round(end), middle, std::round(end), middle + tick);
    }

    void WaveRun(double amplitude, const Run& run) {
        constexpr double lead = 3;
        const auto& [first, last, comesIn, goesOn, level] = run;
        const double left = comesIn ? bar.Context.X : bar.MarkX(first) - lead;
        const double right = goesOn ? bar.Right() : bar.NextMarkX(last) - ColumnGap;
        const double middle = Above(left, std::max(right, left + 8), left, level);
        for (const Point& piece : bar.Around.Pieces(left, std::max(right, left + 8), middle)) {
            DrawWave(picture, piece.X, piece.Y, middle, amplitude);
        }
    }

    void Trill(int strum) {
        const Font font{.Name = "Times New Roman", .Size = 7, .Bold = true, .Italic = true};
        picture.SetFont(font);
        const double left = bar.MarkX(strum) - 3;
        const double wave = left + picture.TextWidth("tr") + 2;
        const double right = std::max(bar.NextMarkX(strum) - ColumnGap, wave + 6);
        const double middle = Above(left, right);
        picture.Print(left, middle + SmallDrop, "tr", Anchor::Left);
        DrawWave(picture, wave, right, middle, 1.4);
    }

    void FadeIn(int strum) {
        constexpr double half = 3;
        const double left = bar.MarkX(strum) - 3;
        const double right = std::max(std::min(bar.NextMarkX(strum) - ColumnGap, left + 26), left + 12);
        const double middle = Above(left, right);
        picture.Polyline({{right, middle - half}, {left, middle}, {right, middle + half}});
    }

    void TremoloBar(int strum);

    Picture& picture;
    TabBar& bar;
};

void MarkPainter::TremoloBar(int strum) {
    constexpr double half = 6, depth = 3, textGap = 2;
    const Core::Strum& column = bar.Strum(strum);
    const auto& points = column.TremPoints.Read();
    const auto [lowest, highest] = std::minmax_element(points.begin(), points.end());
    const bool dips = -*lowest >= *highest;
    const double extreme = dips ? *lowest : *highest;
    // A bar that is not let back shows one stroke, a dip and return both.
    const bool returns = std::abs(points[Core::TremPointCount - 1]) < std::abs(extreme) / 2 || extreme == 0;
    std::string label = column.TremRange.empty() ? BendLabel(std::abs(extreme)) : column.TremRange;
    label = (dips ? "-" : "+") + label;

    picture.SetFont(SmallFont);
    const double x = bar.MarkX(strum);
    const double middle = Above(x - half, x + half + textGap + picture.TextWidth(label));
    const double outer = middle + (dips ? -depth : depth);
    const double inner = middle + (dips ? depth : -depth);
    if (returns) {
        picture.Polyline({{x - half, outer}, {x, inner}, {x + half, outer}}, 1.1);
    } else {
        picture.Polyline({{x - half, outer}, {x, inner}, {x + half, inner}}, 1.1);
    }
    picture.Print(x + half + textGap, middle + SmallDrop, label, Anchor::Left);
}

template <class Has>
bool AnyNote(const TabBar& bar, const Core::Strum& strum, Has has) {
    for (int string = 0; string < bar.Strings; ++string) {
        const Core::Note& note = strum.Notes[string];
        if (!note.Fret.empty() && has(note)) return true;
    }
    return false;
}

const char* HarmonicLabel(std::int32_t kind) {
    static constexpr std::array<const char*, 8> labels = {"",       "N.H.", "A.H.5", "A.H.7",
                                                          "A.H.12", "T.H.", "P.H.",  "S.H."};
    return kind > 0 && kind < 8 ? labels[static_cast<std::size_t>(kind)] : "";
}

}  // namespace

void DrawMarks(Picture& picture, TabBar& bar) {
    MarkPainter marks(picture, bar);
    const auto eachStrum = [&](auto&& paint) {
        for (int strum = 0; strum < bar.StrumCount(); ++strum) paint(strum, bar.Strum(strum));
    };
    const auto technique = [](std::int32_t kind) {
        return [kind](const Core::Strum& strum) { return strum.Technique == kind && Core::HasNotes(strum); };
    };

    eachStrum([&](int at, const Core::Strum& strum) {
        if (AnyNote(bar, strum, [](const Core::Note& note) { return note.Accentuate; })) {
            marks.Centered(at, AccentFont, ">", 3.3);
        }
        if (AnyNote(bar, strum, [](const Core::Note& note) { return note.Technique == Core::Staccato; }) &&
            !bar.OnStaff) {
            const double x = bar.MarkX(at);
            // Alone it stands near the figures, else just above the accent.
            picture.Disc(x, bar.Around.TakeLevel(x - 2, x + 2, x + 2, bar.Top - 7, MarkStep), 1.3);
        }
    });
    eachStrum([&](int at, const Core::Strum& strum) {
        for (int string = 0; string < bar.Strings; ++string) {
            const Core::Note& note = strum.Notes[string];
            if (note.Fret.empty() || *HarmonicLabel(note.Harmonic) == 0) continue;
            marks.Centered(at, SmallFont, HarmonicLabel(note.Harmonic));
            break;
        }
    });
    marks.Runs(technique(Core::PalmMute), [&](const auto& run) { marks.DashedRun("P.M.", run); });
    marks.Runs(
        [&](const Core::Strum& strum) {
            return AnyNote(bar, strum, [](const Core::Note& note) { return note.LetRing; });
        },
        [&](const auto& run) { marks.DashedRun("let ring", run); });
    marks.Runs(technique(Core::Vibrato), [&](const auto& run) { marks.WaveRun(1.6, run); });
    marks.Runs(technique(Core::WideVibrato), [&](const auto& run) { marks.WaveRun(2.6, run); });
    eachStrum([&](int at, const Core::Strum& strum) {
        if (AnyNote(bar, strum, [](const Core::Note& note) { return note.HasTrill; })) marks.Trill(at);
        if (technique(Core::Tapping)(strum)) marks.Centered(at, SmallFont, "T");
        if (technique(Core::Slapping)(strum)) marks.Centered(at, SmallFont, "S");
        if (technique(Core::Popping)(strum)) marks.Centered(at, SmallFont, "P");
        if (technique(Core::FadeIn)(strum)) marks.FadeIn(at);
        if (strum.HasTrem) marks.TremoloBar(at);
    });
}

namespace {

/// 0 for PPP to 7 for FFF.
int Loudness(std::int32_t dynamic) {
    static constexpr std::array<int, 8> loudness = {4, 5, 6, 7, 3, 2, 1, 0};
    return dynamic >= 0 && dynamic < 8 ? loudness[static_cast<std::size_t>(dynamic)] : 4;
}

/// Of the loudest note, -1 without notes.
int Loudness(const Core::Strum& strum) {
    int loudest = -1;
    for (int string = 0; string < Core::StringCount; ++string) {
        const Core::Note& note = strum.Notes[string];
        if (!note.Fret.empty()) loudest = std::max(loudest, Loudness(note.Dynamic));
    }
    return loudest;
}

/// Of the last notes before a bar; the unmarked dynamic at the track's start.
int LoudnessBefore(const Core::Track& track, int bar) {
    for (int b = bar - 1; b >= 0; --b) {
        const auto& strums = track.Bars[b].Strums();
        for (int s = strums.UpperBound(); s >= 0; --s) {
            const int loudness = Loudness(strums[s]);
            if (loudness >= 0) return loudness;
        }
    }
    return Loudness(0);
}

/// One to three short beams, as through the stem of a tremolo.
void DrawTremoloStrokes(Picture& picture, double x, double middle, int count) {
    constexpr double half = 4, rise = 1.5, step = 3;
    for (int i = 0; i < count; ++i) {
        const double y = middle + step * (i - (count - 1) / 2.0);
        picture.Polygon({{x - half, y + rise - 0.8},
                         {x + half, y - rise - 0.8},
                         {x + half, y - rise + 0.8},
                         {x - half, y + rise + 0.8}});
    }
}

/// Finger letters of a strum from the lowest string up.
std::string Fingers(const TabBar& bar, const Core::Strum& strum, std::int32_t Core::Note::*finger,
                    std::string_view letters) {
    std::string text;
    for (int string = bar.Strings - 1; string >= 0; --string) {
        const Core::Note& note = strum.Notes[string];
        const std::int32_t at = note.*finger;
        if (!note.Fret.empty() && at >= 1 && at <= 5) text += letters[static_cast<std::size_t>(at) - 1];
    }
    return text;
}

bool HasRight(const TabBar& bar, const Core::Strum& strum) {
    return AnyNote(bar, strum, [](const Core::Note& note) { return note.RightFinger != 0; });
}

}  // namespace

std::vector<int> MarkLinesBelow(const TabBar& bar) {
    std::vector<int> lines(static_cast<std::size_t>(bar.StrumCount()), 0);
    int loudness = -1;
    for (int at = 0; at < bar.StrumCount(); ++at) {
        const Core::Strum& strum = bar.Strum(at);
        const int own = Loudness(strum);
        if (own < 0) continue;
        if (loudness < 0) loudness = LoudnessBefore(bar.Track, bar.Context.Bar);
        const bool left = AnyNote(bar, strum, [](const Core::Note& note) { return note.LeftFinger != 0; });
        lines[static_cast<std::size_t>(at)] = left + HasRight(bar, strum) + (own != loudness);
        loudness = own;
    }
    return lines;
}

void DrawMarksBelow(Picture& picture, TabBar& bar) {
    static constexpr std::array<const char*, 8> dynamics = {"ppp", "pp", "p", "mp", "mf", "f", "ff", "fff"};
    const Font dynamicFont{.Name = "Times New Roman", .Size = 8, .Bold = true, .Italic = true};
    const auto below = [&](double left, double right) {
        return bar.Around.TakeLevel(left, right, right, bar.Bottom + MarkStep, -(MarkStep - 2));
    };
    const auto centered = [&](int strum, const Font& font, const std::string& text, double drop) {
        if (text.empty()) return;
        picture.SetFont(font);
        const double half = picture.TextWidth(text) / 2;
        const double x = bar.MarkX(strum);
        picture.Print(x, below(x - half, x + half) + drop, text, Anchor::Center);
    };
    // The letters of a dynamic are taller than a small mark: what stands above them is left a little further off.
    const auto dynamic = [&](int strum, const std::string& text) {
        constexpr double ascent = 2;
        picture.SetFont(dynamicFont);
        const double half = picture.TextWidth(text) / 2;
        const double x = bar.MarkX(strum);
        const double first = bar.Bottom + MarkStep;
        double middle = first;
        while (middle < first + 10 * MarkStep &&
               !bar.Around.IsFree({x - half, middle - 3.5 - (middle > first ? ascent : 0), x + half, middle + 3.5})) {
            middle += 2;
        }
        bar.Around.Take({x - half, middle - 3.5, x + half, middle + 3.5});
        picture.Print(x, middle + SmallDrop, text, Anchor::Center);
    };
    Font rightFont = SmallFont;
    rightFont.Italic = true;
    bool leftHand = false;
    for (const Core::Strum& strum : bar.Bar.Strums()) {
        leftHand = leftHand || AnyNote(bar, strum, [](const Core::Note& note) { return note.LeftFinger != 0; });
    }
    int loudness = -1;
    for (int at = 0; at < bar.StrumCount(); ++at) {
        const Core::Strum& strum = bar.Strum(at);
        const int own = Loudness(strum);
        if (own < 0) continue;
        int strokes = 0;
        for (int string = 0; string < bar.Strings; ++string) {
            const Core::Note& note = strum.Notes[string];
            if (!note.Fret.empty() && note.Technique >= Core::TremoloPicking8ths &&
                note.Technique <= Core::TremoloPicking32nds) {
                strokes = std::max(strokes, note.Technique - Core::TremoloPicking8ths + 1);
            }
        }
        const double x = bar.MarkX(at);
        if (strokes > 0 && !bar.OnStaff) DrawTremoloStrokes(picture, x, below(x - 4, x + 4), strokes);
        const std::string left = Fingers(bar, strum, &Core::Note::LeftFinger, "T1234");
        centered(at, SmallFont, left, SmallDrop);
        // The right hand keeps its own line under the left hand's.
        if (left.empty() && leftHand && HasRight(bar, strum))
            bar.Around.Take({x - 3, bar.Bottom + 6.5, x + 3, bar.Bottom + 13.5});
        centered(at, rightFont, Fingers(bar, strum, &Core::Note::RightFinger, "TIMAO"), SmallDrop);
        if (loudness < 0) loudness = LoudnessBefore(bar.Track, bar.Context.Bar);
        if (own != loudness) dynamic(at, dynamics[static_cast<std::size_t>(own)]);
        loudness = own;
    }
}

}  // namespace Quillon::Drawing
