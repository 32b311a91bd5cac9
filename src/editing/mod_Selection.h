// The selected bars: a run from the cursor's bar to one that was clicked with Shift.
#pragma once

#include <cstdint>
#include <optional>

namespace Quillon::Editing {

struct BarRange {
    std::int16_t From = 0;
    std::int16_t To = 0;  ///< the last one, never before From
    bool operator==(const BarRange&) const = default;
};

struct SelectionState {
    std::optional<BarRange> Bars;
    bool Dragging = false;  ///< the mouse was pressed on the cursor's bar and may be dragged from there
};
extern SelectionState Selection;

/// What is selected, within the bars that there are; nothing without a selection, or once the cursor left it.
std::optional<BarRange> SelectedBars();
/// Selects from the cursor's bar to this one, in either direction. The cursor stays.
void SelectTo(std::int16_t bar);
void ClearSelection();

}  // namespace Quillon::Editing
