// What is seen of playing: the window's state, the marker over the paper, the bar and beat that sound.
#include <algorithm>
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Selection.h"
#include "playback/mod_TabPlayer.h"
#include "shell/Boards.h"
#include "shell/CursorState.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

using Core::Open;
using Playback::Player;

namespace {

struct PlayWatch : Playback::PlayView {
    /// The strum that the player reached last.
    struct Reached {
        int Track = -1;
        int Bar = 0;
        int Strum = 0;
    };
    Reached Marker;

    /// What the status bar shows.
    struct Shown {
        int Bar = 0;
        int Beat = 0;
        double Tempo = 0;
        bool operator==(const Shown&) const = default;
    };
    Shown Place;
    SoundingStrings Sounding;

    void PlayingStarts() override {
        SilenceTools();
        Sound.Playing = true;
        Drawing::View.Playing = true;
        Drawing::Page.LayoutDirty = 1;
        Marker = {};
        Place = {};
        Sounding = {};
        Program.View->PlayingStarts();
    }
    void PlayingStopped() override {
        Sound.Playing = false;
        Drawing::View.Playing = false;
        Marker = {};
        Program.View->PlayingStopped();
    }
    void ScrollToBar(int bar) override { Program.View->ScrollToBar(bar); }
    void MoveMarker(int track, int bar, int strum) override {
        Marker = {track, bar, strum};
        Sounding.Reach(Open.TabFile, {track, bar, strum}, Player.LastChord);
        Program.View->MovePlayMarker();
    }
    void PlaysOn() override { Program.View->ShowStatus(Core::LanguageText("str_PlaysOn")); }
};
PlayWatch Watch;

/// From 1: the beat of the bar's time signature that the cursor's track has reached, a held note's beats included.
int BeatNow() {
    const auto& bars = Open.TabFile.Tracks[Open.CurTrack].Bars;
    const auto track = static_cast<std::size_t>(Open.CurTrack);
    if (track >= Player.PlayStrum.size() || Player.PlayBar < 0 || Player.PlayBar > bars.UpperBound()) return 1;
    const auto& strums = bars[Player.PlayBar].Strums();
    double elapsed = 0;
    const int strum = Player.PlayStrum[track];
    for (int before = 0; before < std::min(strum, strums.Count()); ++before) {
        elapsed += Core::StrumLength(strums[before]);
    }
    if (strum >= 0 && strum <= strums.UpperBound()) {
        // It counts the tick that plays; for a tick behind the conductor it is still that of the strum before.
        const double whole = std::ceil(Core::StrumLength(strums[strum])) - 1;
        elapsed += std::clamp(Player.PlayElapsed[track] - 1, 0.0, std::max(0.0, whole));
    }
    const Core::BarInfo& info = Open.TabFile.BarInfos[Player.PlayBar];
    const double beatLength = info.TimeSigBottom > 0 ? 64.0 / info.TimeSigBottom : 16;
    return std::clamp(static_cast<int>(elapsed / beatLength) + 1, 1, std::max(1, info.TimeSigTop));
}

}  // namespace

void WatchPlaying() {
    Watch = {};
    Player.View = &Watch;
}

std::optional<MarkerPlace> PlayMarkerPlace(int track, int bar, int strum) {
    constexpr int Left = 4;    // of the strum's column
    constexpr int Below = 20;  // the track's offset in the row
    constexpr int Reach = 6;   // above and below the row's lines
    if (track != Open.CurTrack || track < 0 || track > Open.TabFile.Tracks.UpperBound()) return {};
    const Core::Track& shown = Open.TabFile.Tracks[track];
    if (bar < 0 || bar > shown.Bars.UpperBound()) return {};
    const Core::BarPlace& place = shown.Bars[bar].Place;
    if (place.Page < 0 || strum < 0 || strum > place.StrumX.UpperBound()) return {};
    if (strum > shown.Bars[bar].Strums().UpperBound()) return {};
    MarkerPlace marker;
    marker.X = place.StrumX[strum] - Left;
    marker.AnchorY = place.BarY + Drawing::TabOffset(shown) + Below;
    marker.Top = place.BarY - Reach;
    marker.Width = 2 * Left + 1;
    marker.Height = std::max(Drawing::RowHeight(shown), marker.AnchorY - place.BarY) + 2 * Reach;
    return marker;
}

std::vector<BoardNote> BoardNow() {
    if (!InScore()) return {};
    const bool follows = Sound.Playing && Core::Settings.FollowTabPlayback;
    // The track's rests and a track chosen just now show what sounds too: nothing.
    if (follows) return Watch.Marker.Track == Open.CurTrack ? Watch.Sounding.Notes() : std::vector<BoardNote>{};
    const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    return NotesOfStrum(track, track.Bars[Open.CurBar].Strums()[Open.CurStrum]);
}

std::optional<MarkerPlace> PlayMarkerNow() {
    if (!Sound.Playing) return {};
    return PlayMarkerPlace(Watch.Marker.Track, Watch.Marker.Bar, Watch.Marker.Strum);
}

std::vector<SelectionBand> SelectionBands() {
    constexpr int Reach = 4;  // above and below the row's lines
    std::vector<SelectionBand> bands;
    const auto selected = Editing::SelectedBars();
    if (!selected) return bands;
    const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    const int height = Drawing::RowHeight(track) + 2 * Reach;
    for (int bar = selected->From; bar <= std::min<int>(selected->To, track.Bars.UpperBound()); ++bar) {
        const Core::BarPlace& place = track.Bars[bar].Place;
        if (place.Page < 0) continue;
        const int top = place.BarY - Reach;
        if (!bands.empty() && bands.back().Y == top && bands.back().X + bands.back().Width == place.BarX) {
            bands.back().Width += place.BarWidth;
        } else {
            bands.push_back({place.BarX, top, place.BarWidth, height});
        }
    }
    return bands;
}

std::optional<std::string> PlayPlaceChanged() {
    if (!Playback::IsPlaying()) return {};
    const PlayWatch::Shown now{Player.PlayBar + 1, BeatNow(), Playback::TempoNow()};
    if (now == Watch.Place) return {};
    Watch.Place = now;
    const double tempo = std::round(now.Tempo * 10) / 10;
    return Core::LanguageText("str_PlayPlace",
                              {std::to_string(now.Bar), std::to_string(now.Beat), Core::FormatDouble(tempo)});
}

}  // namespace Quillon::Shell
