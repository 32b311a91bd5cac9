// Tracks come, go and change places; lyrics that one borrows of another follow.
#include <utility>

#include "core/mod_Common.h"
#include "editing/mod_BarsAndTracks.h"

namespace Quillon::Editing {

using Core::Bar;
using Core::TabFile;
using Core::Track;

namespace {

constexpr std::int32_t Quarter = 2;

bool SwapTracks(TabFile& file, int one, int other) {
    std::swap(file.Tracks[one], file.Tracks[other]);
    for (Track& track : file.Tracks) {
        if (track.LyricsOfOtherTrack == 0) continue;
        if (track.LyricsTrack == one) {
            track.LyricsTrack = static_cast<std::int16_t>(other);
        } else if (track.LyricsTrack == other) {
            track.LyricsTrack = static_cast<std::int16_t>(one);
        }
    }
    return true;
}

void CheckTrack(const TabFile& file, int track) { static_cast<void>(file.Tracks[track]); }

}  // namespace

void AddTrack(TabFile& file, Track track) {
    const auto& bars = file.Tracks[0].Bars;
    track.Bars = Core::SharedList<Bar>(bars.Count());
    for (int b = 0; b < bars.Count(); ++b) {
        Bar& bar = track.Bars.Edit(b);
        bar.Key = bars[b].Key;
        bar.KeyIsMinor = bars[b].KeyIsMinor;
        bar.EditStrums()[0].Length = Quarter;
    }
    Core::ToInt16(file.Tracks.Count());
    file.Tracks.Add(std::move(track));
}

bool DeleteTrack(TabFile& file, int track) {
    CheckTrack(file, track);
    const int last = file.Tracks.UpperBound();
    if (last == 0) return false;
    for (int t = track; t < last; ++t) file.Tracks[t] = std::move(file.Tracks[t + 1]);
    file.Tracks.Resize(last);
    for (Track& left : file.Tracks) {
        if (left.LyricsOfOtherTrack == 0) continue;
        if (left.LyricsTrack == track) {
            left.LyricsOfOtherTrack = left.LyricsTrack = 0;
        } else if (left.LyricsTrack > track) {
            --left.LyricsTrack;
        }
    }
    return true;
}

bool MoveTrackUp(TabFile& file, int track) {
    CheckTrack(file, track);
    return track > 0 && SwapTracks(file, track, track - 1);
}

bool MoveTrackDown(TabFile& file, int track) {
    CheckTrack(file, track);
    return track < file.Tracks.UpperBound() && SwapTracks(file, track, track + 1);
}

}  // namespace Quillon::Editing
