#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Selection.h"

namespace Quillon::Editing {

using Core::Open;

SelectionState Selection;

std::optional<BarRange> SelectedBars() {
    if (!Selection.Bars) return {};
    const std::int16_t last = Core::ToInt16(Open.TabFile.BarInfos.UpperBound());
    if (Selection.Bars->From > last) return {};
    // A command took the cursor elsewhere: what it works on next is there.
    if (Open.CurBar < Selection.Bars->From || Open.CurBar > Selection.Bars->To) return {};
    return BarRange{Selection.Bars->From, std::min(Selection.Bars->To, last)};
}

void SelectTo(std::int16_t bar) { Selection.Bars = {std::min(Open.CurBar, bar), std::max(Open.CurBar, bar)}; }

void ClearSelection() { Selection.Bars.reset(); }

}  // namespace Quillon::Editing
