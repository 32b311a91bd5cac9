#include "exchange/TrackBars.h"

#include <algorithm>

#include "editing/mod_BarsAndTracks.h"
#include "exchange/NoteValues.h"

namespace Quillon::Exchange {

void EvenOutBars(Core::TabFile& file, bool fill) {
    int bars = 1;
    for (const Core::Track& track : file.Tracks) bars = std::max(bars, track.Bars.Count());
    while (file.BarInfos.Count() < bars) {
        const Core::BarInfo& last = file.BarInfos[file.BarInfos.UpperBound()];
        file.BarInfos.Add({.TimeSigTop = last.TimeSigTop, .TimeSigBottom = last.TimeSigBottom});
    }
    file.BarInfos.Resize(bars);
    for (int t = 0; t <= file.Tracks.UpperBound(); ++t) {
        auto& own = file.Tracks[t].Bars;
        while (own.Count() < bars) {
            own.Add(EmptyBar());
            if (fill) Editing::FixBar(file, t, own.UpperBound());
        }
    }
}

}  // namespace Quillon::Exchange
