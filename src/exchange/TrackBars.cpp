#include "exchange/TrackBars.h"

#include <algorithm>

#include "editing/mod_BarsAndTracks.h"
#include "exchange/NoteValues.h"
#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

const Core::Bar& RestBars::For(const Core::BarInfo& info) {
    const auto [place, isNew] = made.try_emplace({info.TimeSigTop, info.TimeSigBottom});
    if (!isNew) return place->second;
    Core::TabFile alone;
    alone.BarInfos.Edit(0) = info;
    alone.Tracks[0].Bars.Edit(0) = EmptyBar();
    if (fills) Editing::FixBar(alone, 0, 0);
    return place->second = alone.Tracks[0].Bars[0];
}

void RestBars::FillUp(Core::TabFile& file, int track) {
    Core::SharedList<Core::Bar>& bars = file.Tracks[track].Bars;
    const int first = bars.Count();
    if (first >= file.BarInfos.Count()) return;
    bars.Resize(file.BarInfos.Count());
    for (int bar = first; bar <= bars.UpperBound(); ++bar) bars.Edit(bar) = For(file.BarInfos[bar]);
}

void CheckStrums(const Core::TabFile& file) {
    std::int64_t strums = 0;
    for (const Core::Track& track : file.Tracks) {
        for (const Core::Bar& bar : track.Bars) strums += bar.Strums().Count();
        if (strums > MostStrumsInAll) RaiseOverflow();
    }
}

bool EvenOutBars(Core::TabFile& file, bool fill, const ImportProgress& progress) {
    int bars = 1;
    for (const Core::Track& track : file.Tracks) bars = std::max(bars, track.Bars.Count());
    while (file.BarInfos.Count() < bars) {
        const Core::BarInfo& last = file.BarInfos[file.BarInfos.UpperBound()];
        file.BarInfos.Add({.TimeSigTop = last.TimeSigTop, .TimeSigBottom = last.TimeSigBottom});
    }
    file.BarInfos.Resize(bars);
    RestBars rests(fill);
    constexpr int almost = 99;  // percent
    for (int track = 0; track <= file.Tracks.UpperBound(); ++track) {
        if (progress && !progress(almost)) return false;
        rests.FillUp(file, track);
    }
    return true;
}

}  // namespace Quillon::Exchange
