#include <algorithm>

#include "core/mod_Common.h"
#include "editing/mod_BarClipboard.h"
#include "editing/mod_BarsAndTracks.h"

namespace Quillon::Editing {

using Core::BarInfo;
using Core::TabFile;

BarClipboardState BarClipboard;

namespace {

void CheckBars(const TabFile& file, BarRange bars) {
    if (bars.From < 0 || bars.From > bars.To || bars.To > file.BarInfos.UpperBound()) RaiseSubscriptOutOfRange();
}

/// The copied part for a track of the document; nothing for one that gets none.
const CopiedBars::Part* PartFor(const CopiedBars& copied, int track, int target) {
    if (!copied.AllTracks) return track == target ? copied.Parts.data() : nullptr;
    return track < static_cast<int>(copied.Parts.size()) ? &copied.Parts[static_cast<std::size_t>(track)] : nullptr;
}

}  // namespace

CopiedBars CopyBars(const TabFile& file, BarRange bars, int track) {
    CheckBars(file, bars);
    CopiedBars copied;
    copied.AllTracks = track == AllTracks;
    for (int b = bars.From; b <= bars.To; ++b) copied.Infos.push_back(file.BarInfos[b]);
    const int first = copied.AllTracks ? 0 : track;
    const int last = copied.AllTracks ? file.Tracks.UpperBound() : track;
    for (int t = first; t <= last; ++t) {
        CopiedBars::Part part{file.Tracks[t].IsDrum, {}};
        for (int b = bars.From; b <= bars.To; ++b) part.Bars.push_back(file.Tracks[t].Bars[b]);
        copied.Parts.push_back(std::move(part));
    }
    return copied;
}

void CutBars(TabFile& file, BarRange bars, int track) {
    CheckBars(file, bars);
    TabFile cut = file;
    for (int b = bars.To; b >= bars.From; --b) {
        if (track == AllTracks) {
            RemoveBar(cut, b);
        } else {
            ClearBar(cut, track, b);
        }
    }
    file = std::move(cut);
}

PasteFault CanPaste(const TabFile& file, const CopiedBars& copied, int track) {
    if (copied.AllTracks && static_cast<int>(copied.Parts.size()) > file.Tracks.Count()) {
        return PasteFault::TooFewTracks;
    }
    for (int t = 0; t < file.Tracks.Count(); ++t) {
        const CopiedBars::Part* const part = PartFor(copied, t, track);
        if (part && part->IsDrum != file.Tracks[t].IsDrum) return PasteFault::DrumsAndStrings;
    }
    return PasteFault::None;
}

void PasteBars(TabFile& file, const CopiedBars& copied, int track, int bar, PasteMode mode, int times) {
    const bool noTrack = !copied.AllTracks && (track < 0 || track > file.Tracks.UpperBound());
    if (noTrack || CanPaste(file, copied, track) != PasteFault::None || bar < 0 || bar > file.BarInfos.Count()) {
        RaiseSubscriptOutOfRange();
    }
    TabFile pasted = file;
    const int count = copied.BarCount() * times;
    Core::ToInt16(bar + count);
    if (mode == PasteMode::Insert) InsertBars(pasted, bar, count);
    while (pasted.BarInfos.Count() < bar + count) AppendBar(pasted);
    const int grownFrom = mode == PasteMode::Insert ? bar : file.BarInfos.Count();
    for (int i = 0; i < count; ++i) {
        const int b = bar + i;
        const auto from = static_cast<std::size_t>(i % copied.BarCount());
        BarInfo& info = pasted.BarInfos.Edit(b);
        if (copied.AllTracks) {
            info = copied.Infos[from];
        } else if (b >= grownFrom) {
            info.TimeSigTop = copied.Infos[from].TimeSigTop;
            info.TimeSigBottom = copied.Infos[from].TimeSigBottom;
        }
        for (int t = 0; t < pasted.Tracks.Count(); ++t) {
            if (const auto* const part = PartFor(copied, t, track)) pasted.Tracks[t].Bars.Edit(b) = part->Bars[from];
        }
    }
    file = std::move(pasted);
}

}  // namespace Quillon::Editing
