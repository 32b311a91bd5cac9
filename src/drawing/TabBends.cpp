// Bends: the way of a note's pitch as curves with an arrow and the amount at each turn.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "drawing/TabParts.h"

namespace Quillon::Drawing {

namespace {

constexpr double ArrowTip = 8;        ///< from the top line up to an arrow's tip
constexpr double ArrowTipOnTop = 17;  ///< the same where the first string itself is bent, so that its curve is seen
constexpr double LabelLift = 2;       ///< from an arrow's tip up to the baseline of its amount
/// A difference that counts as a turn: half a quarter tone.
constexpr double Turn = BendUnitsPerTone / 8;

/// The values at which the curve starts, turns and ends, flat stretches and small wavering left out.
std::vector<double> TurnsOf(const Core::Row<double, Core::BendPointCount>& points) {
    std::vector<double> turns{points[0]};
    for (int i = 1; i < Core::BendPointCount; ++i) {
        const double value = points[i];
        const double way = turns.size() > 1 ? turns.back() - turns[turns.size() - 2] : 0;
        if (way != 0 && (value - turns.back()) * way >= 0) {
            turns.back() = value;  // goes on the same way
        } else if (std::abs(value - turns.back()) >= Turn) {
            turns.push_back(value);
        }
    }
    return turns;
}

/// A quarter of an ellipse that leaves the first point level and meets the second one upright.
void DrawQuarter(Picture& picture, Point from, Point to) {
    constexpr int segments = 8;
    std::array<Point, segments + 1> points;
    for (int i = 0; i <= segments; ++i) {
        const double angle = i * std::numbers::pi / 2 / segments;
        points[static_cast<std::size_t>(i)] = {from.X + (to.X - from.X) * std::sin(angle),
                                               to.Y + (from.Y - to.Y) * std::cos(angle)};
    }
    picture.Polyline(points);
}

/// Paints the turns of one note, from left to right.
class BendPainter {
public:
    BendPainter(Picture& target, const BendRoom& where)
        : picture(target), room(where), x(where.X), y(where.Low), low(where.Low), high(where.High) {}

    /// A note that is bent before it sounds.
    void Hold(double amount) {
        x += 2;
        picture.Line(x, low - 1, x, high + 4);
        DrawArrowhead(picture, x, high, -1);
        Amount(amount);
        y = high;
    }
    void Rise(double amount) {
        const double next = x + room.Step;
        DrawQuarter(picture, {x, y}, {next, high + 4});
        DrawArrowhead(picture, next, high, -1);
        x = next;
        y = high;
        Amount(amount);
    }
    void Release(double amount) {
        const double next = x + room.Step;
        // A release that stops on the way stops at half the height.
        const double target = amount >= Turn ? (low + high) / 2 : low;
        DrawQuarter(picture, {x, high}, {next, target - 4});
        DrawArrowhead(picture, next, target, 1, 4.5);
        x = next;
        y = target;
    }

private:
    void Amount(double amount) {
        const std::string label = BendLabel(amount);
        const double baseline = std::floor(high - LabelLift);
        picture.SetFont(room.Letters);
        const double half = picture.TextWidth(label) / 2;
        const Area area{x - half, baseline - 9, x + half, high + 5};
        // The strings of a chord that are bent alike share one amount.
        if (!room.Around.IsFree({area.Left + 1, area.Top + 1, area.Right - 1, area.Bottom - 1}, true)) return;
        picture.Print(x, baseline, label, Anchor::Center);
        room.Around.Take(area);
    }

    Picture& picture;
    const BendRoom& room;
    double x, y, low, high;
};

void DrawBend(Picture& picture, TabBar& bar, int strum, int string) {
    const Core::Note& note = bar.Strum(strum).Notes[string];
    const std::vector<double> turns = BendTurns(note);
    if (turns.empty()) return;
    const bool held = IsHeldBend(turns);
    const double start = bar.Column(strum) + FigureExtent(picture, bar, strum, string).Right + 1.5;
    const double room = std::max(8.0, bar.NextColumn(strum) - start - 6);
    const auto curves = static_cast<double>(turns.size() - 1);
    const double step = std::clamp((room - (held ? 2 : 0)) / std::max(1.0, curves), 5.0, 11.0);

    // One height for all strings of a chord, which share the amount.
    const Core::Note& top = bar.Strum(strum).Notes[0];
    const double tip = top.HasBend && !top.Fret.empty() ? ArrowTipOnTop : ArrowTip;
    DrawBendTurns(picture, turns, {start, bar.LineY(string) - 1.0, bar.Top - tip, step, AccentFont, bar.Around});
}

}  // namespace

std::string BendLabel(double value) {
    static constexpr std::array<const char*, 12> labels = {"¼",  "½", "¾",  "1",  "1¼", "1½",
                                                           "1¾", "2", "2¼", "2½", "2¾", "3"};
    const double quarters = std::round(value / BendUnitsPerTone * 4);
    // Written so that a point that is no number, from a damaged file, is no index.
    const double index = quarters >= 1 ? std::min(quarters, 12.0) : 1;
    return labels[static_cast<std::size_t>(index) - 1];
}

std::vector<double> BendTurns(const Core::Note& note) {
    std::vector<double> turns = TurnsOf(note.BendPoints.Read());
    if (turns.size() == 1 && !IsHeldBend(turns)) turns.clear();
    return turns;
}

bool IsHeldBend(const std::vector<double>& turns) { return turns.front() >= Turn; }

void DrawBendTurns(Picture& picture, const std::vector<double>& turns, const BendRoom& room) {
    BendPainter painter(picture, room);
    const bool held = IsHeldBend(turns);
    if (held) painter.Hold(turns.front());
    for (std::size_t i = 1; i < turns.size(); ++i) {
        if (turns[i] > turns[i - 1]) {
            painter.Rise(turns[i]);
        } else if (i > 1 || held) {
            painter.Release(turns[i]);
        }
    }
}

void DrawBends(Picture& picture, TabBar& bar, int strum) {
    for (int string = 0; string < bar.Strings; ++string) {
        const Core::Note& note = bar.Strum(strum).Notes[string];
        if (!note.Fret.empty() && note.HasBend) DrawBend(picture, bar, strum, string);
    }
}

}  // namespace Quillon::Drawing
