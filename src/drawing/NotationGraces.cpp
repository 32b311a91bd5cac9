// Grace notes: their heads, and the bow to the head that they lead to.
#include <algorithm>
#include <cmath>

#include "drawing/NotationParts.h"

namespace Quillon::Drawing {

std::vector<GraceHead> GraceHeads(const StaffBar& bar, int strum) {
    constexpr double beside = 4.8, signAway = 6, signStep = 4.4;
    constexpr int signReach = 4;  // steps between signs that stand over each other
    std::vector<GraceHead> heads;
    for (const StaffNote& note : bar.Column(strum).Notes) {
        const Core::Note& own = bar.Strum(strum).Notes[note.String];
        if (!own.HasGrace || own.GraceFret.empty()) continue;
        const bool cross = own.GraceFret == "x" || own.GraceFret == "X";
        const Spelling spelling = SpellNote(bar, note.String, own.GraceFret);
        const GraceHead head{spelling.Step, 0, note.GraceSign, 0, cross};
        const bool there = std::any_of(heads.begin(), heads.end(), [&](const GraceHead& other) {
            return other.Step == head.Step && other.Sign == head.Sign && other.Cross == head.Cross;
        });
        if (!there) heads.push_back(head);
    }
    std::stable_sort(heads.begin(), heads.end(), [](auto& a, auto& b) { return a.Step > b.Step; });
    for (std::size_t i = 1; i < heads.size(); ++i) {
        const GraceHead& above = heads[i - 1];
        if (above.Step - heads[i].Step <= 1 && above.DX == 0) heads[i].DX = beside;
    }
    // Of heads beside each other the upper one stands at the right.
    for (std::size_t i = 1; i < heads.size(); ++i) {
        if (heads[i].DX != 0) std::swap(heads[i - 1].DX, heads[i].DX);
    }
    const GraceHead* before = nullptr;
    for (GraceHead& head : heads) {
        if (head.Sign == Accidental::None) continue;
        const bool near = before && before->Step - head.Step <= signReach && before->SignDX == -signAway;
        head.SignDX = -signAway - (near ? signStep : 0);
        before = &head;
    }
    return heads;
}

void DrawGraceNotes(Picture& picture, const StaffBar& bar, int strum) {
    constexpr double stemLong = 15, stemRight = 2.4, ledger = 4;
    const StaffColumn& column = bar.Column(strum);
    const std::vector<GraceHead> heads = GraceHeads(bar, strum);
    if (heads.empty()) return;
    for (const GraceHead& head : heads) {
        const double x = column.GraceX + head.DX, y = bar.YOf(head.Step);
        if (head.Cross) {
            const Font font{.Name = "Arial", .Size = 7, .Bold = true};
            Print(picture, font, x, y + 2.5, "x");
        } else {
            picture.Stamp(GraceHeadShape(), x, y);
        }
        for (int step = 10; step <= head.Step; step += 2) {
            picture.Line(x - ledger, bar.YOf(step), x + ledger, bar.YOf(step));
        }
        for (int step = -2; step >= head.Step; step -= 2) {
            picture.Line(x - ledger, bar.YOf(step), x + ledger, bar.YOf(step));
        }
        if (head.Sign != Accidental::None) {
            picture.Stamp(AccidentalShape(head.Sign, true), column.GraceX + head.SignDX, y);
        }
    }
    const double top = bar.YOf(heads.front().Step), bottom = bar.YOf(heads.back().Step);
    const double x = std::round(column.GraceX + stemRight);
    const double end = top - stemLong;
    picture.Line(x, bottom - 1, x, end);
    // A flag, and the stroke through it that makes it short.
    picture.Stamp(GraceFlagShape(), x, end);
    picture.Line(x - 3, end + 9, x + 5.5, end + 3.5, 1);
    // A bow to a head far off would be a wall; the stroke tells enough.
    constexpr double farthest = 24, steepest = 6;
    const double fall = column.Lowest() - bottom;
    if (std::abs(fall) > farthest && heads.size() == 1) return;
    // Under an accidental of the heads there, which stands between its ends.
    double drop = 2.5;
    for (const StaffNote& note : column.Notes) {
        if (note.Sign == Accidental::None || note.Y + 8 < bottom + 4) continue;
        drop = std::max(drop, std::min(SignArea(column, note).Bottom - bottom - 2.5, 8.0));
    }
    DrawBow(picture, column.GraceX, column.X - 1.5, bottom + 4, -drop, std::clamp(fall, -steepest, steepest));
}

}  // namespace Quillon::Drawing
