// Strums and bars are moved as whole records.
#include <algorithm>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"

namespace Quillon::Editing {

using Core::Bar;
using Core::BarInfo;
using Core::List;
using Core::Strum;
using Core::TabFile;
using Core::Track;

namespace {

constexpr std::int32_t Quarter = 2;

const List<Strum>& StrumsOf(const TabFile& file, int track, int bar) { return file.Tracks[track].Bars[bar].Strums(); }

List<Strum>& EditStrumsOf(TabFile& file, int track, int bar) { return file.Tracks[track].Bars.Edit(bar).EditStrums(); }

/// An empty bar in the key of another.
Bar NewBar(const Bar& like) {
    Bar bar;
    bar.Key = like.Key;
    bar.KeyIsMinor = like.KeyIsMinor;
    bar.EditStrums()[0].Length = Quarter;
    return bar;
}

/// What all tracks share of a new bar: no marks are copied.
BarInfo NewBarInfo(const BarInfo& like) {
    BarInfo info;
    info.TimeSigTop = like.TimeSigTop;
    info.TimeSigBottom = like.TimeSigBottom;
    return info;
}

/// Bars of the longest track: a file that was damaged may have tracks of different lengths.
int BarsOf(const TabFile& file) {
    int bars = file.BarInfos.Count();
    for (const Track& track : file.Tracks) bars = std::max(bars, track.Bars.Count());
    return bars;
}

void CheckIndex(int index, int last) {
    if (index < 0 || index > last) RaiseSubscriptOutOfRange();
}

}  // namespace

void InsertStrum(TabFile& file, int track, int bar, int strum) {
    const int count = StrumsOf(file, track, bar).Count();
    CheckIndex(strum, count);
    Core::ToInt16(count);
    List<Strum>& strums = EditStrumsOf(file, track, bar);
    strums.Resize(count + 1);
    for (int s = count; s > strum; --s) strums[s] = strums[s - 1];
    Core::ClearStrum(strums[strum]);
}

void DeleteStrum(TabFile& file, int track, int bar, int strum) {
    const int last = StrumsOf(file, track, bar).UpperBound();
    CheckIndex(strum, last);
    if (last == 0) RaiseSubscriptOutOfRange();
    List<Strum>& strums = EditStrumsOf(file, track, bar);
    for (int s = strum; s < last; ++s) strums[s] = std::move(strums[s + 1]);
    strums.Resize(last);
}

void ShiftStrums(TabFile& file, int track, int bar, int strum) {
    Core::SharedList<Bar>& bars = file.Tracks[track].Bars;
    const int lastBar = bars.UpperBound();
    Strum carried = bars[bar].Strums()[strum];
    Core::ToInt16(bars[lastBar].Strums().Count());
    for (int b = bar; b <= lastBar; ++b) {
        List<Strum>& strums = bars.Edit(b).EditStrums();
        for (int s = b == bar ? strum + 1 : 0; s <= strums.UpperBound(); ++s) std::swap(strums[s], carried);
    }
    bars.Edit(lastBar).EditStrums().Add(std::move(carried));
    Core::ClearStrum(bars.Edit(bar).EditStrums()[strum]);
}

Dropped ShrinkBar(TabFile& file, int track, int bar) {
    const int last = StrumsOf(file, track, bar).UpperBound();
    if (last > 0) {
        EditStrumsOf(file, track, bar).Resize(last);
        return Dropped::Strum;
    }
    if (bar == 0 || file.Tracks.Count() > 1) return Dropped::Nothing;
    RemoveBar(file, bar);
    return Dropped::Bar;
}

void ClearBar(TabFile& file, int track, int bar) {
    List<Strum>& strums = EditStrumsOf(file, track, bar);
    strums.Resize(1);
    Core::ClearStrum(strums[0]);
}

void AppendBar(TabFile& file) {
    const int bars = BarsOf(file);
    Core::ToInt16(bars);
    for (Track& track : file.Tracks) {
        for (int b = track.Bars.Count(); b <= bars; ++b) track.Bars.Add(NewBar(track.Bars[b - 1]));
    }
    for (int b = file.BarInfos.Count(); b <= bars; ++b) file.BarInfos.Add(NewBarInfo(file.BarInfos[b - 1]));
}

void InsertBars(TabFile& file, int bar, int count) {
    const int before = BarsOf(file);
    CheckIndex(bar, before);
    if (count < 1) return;
    Core::ToInt16(before + count - 1);
    for (int i = 0; i < count; ++i) AppendBar(file);
    if (bar == before) return;
    for (Track& track : file.Tracks) {
        for (int b = before - 1; b >= bar; --b) track.Bars.Edit(b + count) = track.Bars[b];
        for (int i = 0; i < count; ++i) track.Bars.Edit(bar + i) = NewBar(track.Bars[bar + count]);
    }
    for (int b = before - 1; b >= bar; --b) file.BarInfos.Edit(b + count) = file.BarInfos[b];
    for (int i = 0; i < count; ++i) file.BarInfos.Edit(bar + i) = NewBarInfo(file.BarInfos[bar + count]);
}

void InsertBar(TabFile& file, int bar) { InsertBars(file, bar, 1); }

void RemoveBarAt(Track& track, int bar) {
    const int last = track.Bars.UpperBound();
    CheckIndex(bar, last);
    for (int b = bar; b < last; ++b) track.Bars.Edit(b) = track.Bars[b + 1];
    track.Bars.Resize(last);
}

void RemoveBar(TabFile& file, int bar) {
    const int last = BarsOf(file) - 1;
    CheckIndex(bar, last);
    if (last == 0) {
        for (int t = 0; t <= file.Tracks.UpperBound(); ++t) ClearBar(file, t, 0);
        return;
    }
    for (Track& track : file.Tracks) {
        if (bar <= track.Bars.UpperBound() && track.Bars.UpperBound() > 0) RemoveBarAt(track, bar);
    }
    const int lastInfo = file.BarInfos.UpperBound();
    if (bar > lastInfo) return;
    for (int b = bar; b < lastInfo; ++b) file.BarInfos.Edit(b) = file.BarInfos[b + 1];
    file.BarInfos.Resize(lastInfo);
}

}  // namespace Quillon::Editing
