// Cells of one size beside and below each other in a view that scrolls: where each stands, and which are in view.
// Pixels; cells count from 0, row by row.
#pragma once

#include <algorithm>

namespace Quillon::Tools {

struct GridRange {
    int First = 0, End = 0;  ///< behind the last
};

struct BoxGrid {
    int CellWidth = 110, CellHeight = 60;
    int StepX = 130, StepY = 70;
    int ViewWidth = 0, ViewHeight = 0;
    int Count = 0;
    static constexpr int Border = 10;

    int Columns() const { return std::max(1, (ViewWidth - Border) / StepX); }
    int Rows() const { return (Count + Columns() - 1) / Columns(); }
    int Height() const { return Rows() * StepY + Border; }
    int MostScroll() const { return std::max(0, Height() - ViewHeight); }
    /// What is left beside the columns is left at both sides.
    int Left() const { return std::max(0, (ViewWidth - Columns() * StepX + (StepX - CellWidth)) / 2); }
    int X(int cell) const { return Left() + cell % Columns() * StepX; }
    int Y(int cell) const { return Border + cell / Columns() * StepY; }
    /// The cell at a point of the whole picture; -1 between them.
    int At(int x, int y) const {
        if (x < Left() || y < Border) return -1;
        const int column = (x - Left()) / StepX, row = (y - Border) / StepY;
        const int cell = row * Columns() + column;
        const bool inside = (x - Left()) % StepX < CellWidth && (y - Border) % StepY < CellHeight;
        return inside && column < Columns() && cell < Count ? cell : -1;
    }
    /// Those that a part of the picture, from a `top` on, shows any of.
    GridRange Shown(int top, int height) const {
        const int first = std::clamp((top - Border) / StepY, 0, Rows());
        const int end = std::clamp((top + height - Border) / StepY + 1, 0, Rows());
        return {std::min(Count, first * Columns()), std::min(Count, end * Columns())};
    }
    /// Where to scroll so that a cell is whole in view, or at least its top, as little as can be.
    int ScrollTo(int cell, int scroll) const {
        const int most = Y(cell) - Border;
        const int least = std::min(most, Y(cell) + CellHeight + Border - ViewHeight);
        return std::clamp(std::clamp(scroll, least, most), 0, MostScroll());
    }
};

}  // namespace Quillon::Tools
