#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"

namespace Quillon::Editing {

using Core::Open;

Fullness BarFullness(const Core::TabFile& file, int track, int bar) {
    const auto thousandths = [](double length) { return Core::RoundHalfEven(length * 1000); };
    const double filled = thousandths(Core::BarLength64ths(file.Tracks[track].Bars[bar]));
    const double asked = thousandths(Core::BarLengthIn64ths(file, bar));
    return filled == asked ? Fullness::Full : filled > asked ? Fullness::Over : Fullness::Under;
}

void AppendBar() {
    Open.FileChanged = true;
    Core::TabFile& file = Open.TabFile;
    const int count = Core::ToInt16(file.BarInfos.Count()) + 1;
    Core::ToInt16(count - 1);
    for (Core::Track& track : file.Tracks) track.Bars.Resize(count);
    file.BarInfos.Resize(count);
    Drawing::Page.LayoutDirty = 1;
}

}  // namespace Quillon::Editing
