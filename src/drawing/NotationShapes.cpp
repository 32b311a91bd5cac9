#include "drawing/NotationShapes.h"

#include <algorithm>
#include <array>

#include "drawing/ShapeTools.h"

namespace Quillon::Drawing {

namespace {

using Parts = std::vector<Outline>;

Outline Upright(double x, double top, double bottom, double width) {
    return {{x - width / 2, top}, {x + width / 2, top}, {x + width / 2, bottom}, {x - width / 2, bottom}};
}

/// A thick bar that rises to the right.
Outline Rising(double half, double y, double rise, double thickness) {
    const double t = thickness / 2, r = rise / 2;
    return {{-half, y + r - t}, {half, y - r - t}, {half, y - r + t}, {-half, y + r + t}};
}

Outline DiamondOf(double halfWidth, double halfHeight) {
    return {{-halfWidth, 0}, {0, -halfHeight}, {halfWidth, 0}, {0, halfHeight}};
}

Parts SharpParts() {
    return {Upright(-1.35, -6.7, 7.9, 0.95), Upright(1.35, -7.9, 6.7, 0.95), Rising(2.8, -2.5, 1.5, 2.1),
            Rising(2.8, 2.5, 1.5, 2.1)};
}

Parts FlatParts() {
    const Outline bowl = PathOf({-1.9, -0.5})
                             .Arc({-0.4, -3.1}, {3.0, -3.3}, {2.7, -0.3})
                             .Arc({2.5, 1.9}, {0.3, 3.0}, {-1.9, 4.9})
                             .To({-1.9, 3.2})
                             .Arc({-0.5, 1.9}, {0.8, 1.0}, {0.9, -0.5})
                             .Arc({0.9, -1.7}, {-0.7, -1.3}, {-1.9, 0.7});
    return {Upright(-2.0, -11.5, 4.6, 0.95), bowl};
}

Parts NaturalParts() {
    return {Upright(-1.75, -8.3, 4.1, 0.95), Upright(1.75, -4.1, 8.3, 0.95), Rising(2.2, -2.6, 1.1, 2.0),
            Rising(2.2, 2.6, 1.1, 2.0)};
}

Parts FlagParts(bool several) {
    if (several) {
        return {PathOf({-0.4, 0})
                    .Arc({0.5, 3.2}, {7.0, 4.8}, {6.6, 10.4})
                    .Arc({6.5, 12.2}, {5.9, 13.6}, {5.2, 14.8})
                    .Arc({5.8, 10}, {3.6, 6}, {-0.4, 3.7})};
    }
    return {PathOf({-0.4, 0})
                .Arc({0.3, 4.6}, {7.4, 7.2}, {7.2, 13.4})
                .Arc({7.1, 15.8}, {6.2, 18.0}, {5.2, 20.0})
                .Arc({6.5, 14.2}, {4.6, 8.8}, {-0.4, 5.4})};
}

Parts QuarterRest() {
    return {PathOf({-1.9, 3.0})
                .To({2.9, 8.8})
                .Arc({0.7, 10.8}, {0.6, 12.8}, {3.5, 17.0})
                .Arc({0.4, 15.5}, {-1.7, 17.0}, {0.4, 21.4})
                .Arc({-4.6, 18.2}, {-4.0, 13.7}, {0.3, 14.9})
                .To({-3.2, 10.5})
                .Arc({-0.6, 8.3}, {-0.6, 6.4}, {-1.9, 3.0})};
}

/// Hooks of 7 pixels' distance, the topmost in the middle of the space below `top`, on a leaning stick.
Parts HookedRest(int hooks, double top, double bottom) {
    Parts parts;
    const double lean = 3.2 / 14;  // of the stick, per pixel downward
    const double stickTop = top + 0.4;
    const auto stick = [&](double y) { return 3.2 - (y - stickTop) * lean; };
    parts.push_back({{3.7, stickTop}, {stick(bottom) + 0.75, bottom}, {stick(bottom) - 0.65, bottom}, {2.5, stickTop}});
    for (int hook = 0; hook < hooks; ++hook) {
        const double y = top + 7 * hook;
        const double right = stick(y + 0.5);
        const double left = right - 5.6;
        parts.push_back(Ball(left, y + 1.7, 1.75));
        parts.push_back(PathOf({left - 1.0, y + 2.9})
                            .Arc({left + 1.2, y + 4.6}, {right - 1.2, y + 4.2}, {right + 0.3, y + 0.4})
                            .Arc({right - 1.4, y + 2.6}, {left + 2.2, y + 3.4}, {left + 1.0, y + 1.6}));
    }
    return parts;
}

Parts TrebleParts() {
    constexpr double g = 21;  // the line that the curl turns around
    return {
        // The curl, from its inner end around the line and up to the belly.
        PenStroke({{7.6, g + 3.2, 0.8},
                   {5.2, g + 1.2, 1.5},
                   {5.0, g - 2.0, 1.9},
                   {7.4, g - 4.4, 2.0},
                   {10.6, g - 3.6, 2.2},
                   {12.3, g - 0.4, 2.4},
                   {11.6, g + 3.8, 2.1},
                   {8.6, g + 6.5, 1.3},
                   {4.6, g + 5.8, 1.6},
                   {1.6, g + 2.4, 2.3},
                   {0.9, g - 2.0, 2.7},
                   {2.4, g - 7.4, 2.7},
                   {6.0, g - 12.0, 2.4},
                   {9.0, g - 15.6, 2.3},
                   {10.7, g - 20.4, 2.3},
                   {10.4, g - 25.4, 1.7},
                   {9.2, g - 28.2, 0.7}}),
        // Down from the top through the curl to the hook below.
        PenStroke({{9.4, g - 28.4, 0.6},
                   {7.2, g - 25.6, 1.4},
                   {6.1, g - 20.4, 1.6},
                   {6.5, g - 14.0, 1.2},
                   {7.8, g - 5.0, 1.0},
                   {9.3, g + 5.6, 1.0},
                   {9.9, g + 10.6, 1.1},
                   {9.2, g + 14.2, 1.2},
                   {6.6, g + 16.2, 1.2},
                   {3.6, g + 15.0, 1.0},
                   {2.9, g + 12.6, 0.8}}),
        Ball(4.6, g + 12.2, 2.1),
    };
}

Parts BassParts() {
    constexpr double f = 7;
    return {Ball(3.3, f + 0.3, 2.4),
            PenStroke({{1.3, f - 0.4, 1.0},
                       {1.9, f - 4.0, 1.1},
                       {5.2, f - 6.5, 1.5},
                       {8.8, f - 5.2, 2.4},
                       {10.2, f - 0.8, 3.2},
                       {9.1, f + 4.8, 2.6},
                       {5.8, f + 9.8, 1.5},
                       {0.8, f + 14.0, 0.6}}),
            Ball(14.0, f - 3.6, 1.35), Ball(14.0, f + 3.4, 1.35)};
}

Parts PercussionParts() { return {Upright(4.5, 7, 21, 2.6), Upright(9.5, 7, 21, 2.6)}; }

}  // namespace

double ScaleOf(HeadSize size) {
    static constexpr std::array<double, 3> scales = {1, 0.8, 0.62};
    return scales[static_cast<std::size_t>(size)];
}

namespace {

Parts HeadParts(HeadKind kind) {
    switch (kind) {
        case HeadKind::Whole:
            return {WithHole(Ellipse(0, 0, 5.4, 3.45), Ellipse(0, 0, 2.9, 1.75, -55))};
        case HeadKind::Half:
            return {WithHole(Ellipse(0, 0, 4.6, 3.2, 24), Ellipse(0, 0, 3.75, 1.3, 31))};
        case HeadKind::Filled:
            return {Ellipse(0, 0, 4.6, 3.2, 24)};
        case HeadKind::DiamondOpen:
            return {WithHole(DiamondOf(4.4, 4.1), DiamondOf(2.7, 2.5))};
        case HeadKind::Diamond:
            return {DiamondOf(4.4, 4.1)};
        case HeadKind::Slash:
            return {{{-4.6, 7}, {2.0, -7}, {4.6, -7}, {-2.0, 7}}};
    }
    return {};
}

}  // namespace

const Shape& HeadShape(HeadKind kind, HeadSize size) {
    static constexpr std::array<std::array<std::string_view, 6>, 3> names = {
        {{"whole-head", "half-head", "head", "open-diamond", "diamond", "slash"},
         {"small-whole-head", "small-half-head", "small-head", "small-open-diamond", "small-diamond", "small-slash"},
         {"tiny-whole-head", "tiny-half-head", "tiny-head", "tiny-open-diamond", "tiny-diamond", "tiny-slash"}}};
    static const auto shapes = [] {
        std::array<std::array<Shape, 6>, 3> made;
        for (std::size_t s = 0; s < made.size(); ++s) {
            const double scale = ScaleOf(static_cast<HeadSize>(s));
            for (std::size_t k = 0; k < made[s].size(); ++k) {
                made[s][k] = {names[s][k], Scaled(HeadParts(static_cast<HeadKind>(k)), scale, scale)};
            }
        }
        return made;
    }();
    return shapes[static_cast<std::size_t>(size)][static_cast<std::size_t>(kind)];
}

const Shape& GraceHeadShape() {
    static const Shape shape{"grace-head", {Ellipse(0, 0, 2.9, 2.0, 24)}};
    return shape;
}

const Shape& AccidentalShape(Accidental kind, bool small) {
    constexpr double reduced = 0.7;
    static const std::array<Shape, 6> shapes = {{{"sharp", SharpParts()},
                                                 {"flat", FlatParts()},
                                                 {"natural", NaturalParts()},
                                                 {"small-sharp", Scaled(SharpParts(), reduced, reduced)},
                                                 {"small-flat", Scaled(FlatParts(), reduced, reduced)},
                                                 {"small-natural", Scaled(NaturalParts(), reduced, reduced)}}};
    const int index = std::max(0, static_cast<int>(kind) - 1) + (small ? 3 : 0);
    return shapes[static_cast<std::size_t>(index)];
}

const Shape& FlagShape(bool stemUp, bool several) {
    static const std::array<Shape, 4> shapes = {{{"flag-up", FlagParts(false)},
                                                 {"flags-up", FlagParts(true)},
                                                 {"flag-down", Scaled(FlagParts(false), 1, -1)},
                                                 {"flags-down", Scaled(FlagParts(true), 1, -1)}}};
    return shapes[(stemUp ? 0u : 2u) + (several ? 1u : 0u)];
}

const Shape& GraceFlagShape() {
    constexpr double reduced = 0.62;
    static const Shape shape{"grace-flag", Scaled(FlagParts(false), reduced, reduced)};
    return shape;
}

namespace {

Parts RestParts(int length) {
    switch (length) {
        case 0:
            return {{{-4.5, 7}, {4.5, 7}, {4.5, 10.5}, {-4.5, 10.5}}};
        case 1:
            return {{{-4.5, 10.5}, {4.5, 10.5}, {4.5, 14}, {-4.5, 14}}};
        case 2:
            return QuarterRest();
        case 3:
            return HookedRest(1, 8, 21);
        case 4:
            return HookedRest(2, 8, 28);
        case 5:
            return HookedRest(3, 1, 28);
        default:
            return HookedRest(4, 1, 35);
    }
}

/// Smaller about the staff's middle line.
Parts RestParts(int length, HeadSize size) {
    constexpr double middle = 14;
    const double scale = ScaleOf(size);
    Parts parts = RestParts(length);
    for (Outline& part : parts) {
        for (Point& point : part) point = {point.X * scale, middle + (point.Y - middle) * scale};
    }
    return parts;
}

}  // namespace

const Shape& RestShape(int length, HeadSize size) {
    static constexpr std::array<std::array<std::string_view, 7>, 3> names = {
        {{"whole-rest", "half-rest", "quarter-rest", "8th-rest", "16th-rest", "32nd-rest", "64th-rest"},
         {"small-whole-rest", "small-half-rest", "small-quarter-rest", "small-8th-rest", "small-16th-rest",
          "small-32nd-rest", "small-64th-rest"},
         {"tiny-whole-rest", "tiny-half-rest", "tiny-quarter-rest", "tiny-8th-rest", "tiny-16th-rest", "tiny-32nd-rest",
          "tiny-64th-rest"}}};
    static const auto shapes = [] {
        std::array<std::array<Shape, 7>, 3> made;
        for (std::size_t s = 0; s < made.size(); ++s) {
            for (std::size_t l = 0; l < made[s].size(); ++l) {
                made[s][l] = {names[s][l], RestParts(static_cast<int>(l), static_cast<HeadSize>(s))};
            }
        }
        return made;
    }();
    return shapes[static_cast<std::size_t>(size)][static_cast<std::size_t>(std::clamp(length, 0, 6))];
}

const Shape& ClefShape(Clef clef) {
    static const std::array<Shape, 3> shapes = {
        {{"treble-clef", TrebleParts()}, {"bass-clef", BassParts()}, {"percussion-clef", PercussionParts()}}};
    return shapes[static_cast<std::size_t>(clef)];
}

const Shape& ParenthesesShape() {
    static const Shape shape{
        "parentheses",
        {PathOf({-6.0, -4.6}).Arc({-8.6, -2}, {-8.6, 2}, {-6.0, 4.6}).Arc({-7.2, 2}, {-7.2, -2}, {-6.0, -4.6}),
         PathOf({6.0, -4.6}).Arc({8.6, -2}, {8.6, 2}, {6.0, 4.6}).Arc({7.2, 2}, {7.2, -2}, {6.0, -4.6})}};
    return shape;
}

}  // namespace Quillon::Drawing
