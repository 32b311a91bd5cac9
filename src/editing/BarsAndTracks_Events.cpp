// The operations on the open document, with its cursor.
#include <algorithm>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Cursor.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Editing {

using Core::Open;

namespace {

void Changed() {
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    ClampCursor();
}

/// The track that changed places takes the cursor with it, in both directions.
bool Moved(bool moved, int one, int other) {
    if (!moved) return false;
    Playback::Player.Listening.TracksSwapped(one, other);
    if (Open.CurTrack == one) {
        Open.CurTrack = Core::ToInt16(other);
    } else if (Open.CurTrack == other) {
        Open.CurTrack = Core::ToInt16(one);
    }
    Changed();
    return true;
}

}  // namespace

void InsertStrum(int track, int bar, int strum) {
    InsertStrum(Open.TabFile, track, bar, strum);
    Changed();
}

void DeleteStrum(int track, int bar, int strum) {
    DeleteStrum(Open.TabFile, track, bar, strum);
    Changed();
}

Dropped ShrinkBar(int track, int bar) {
    const Dropped dropped = ShrinkBar(Open.TabFile, track, bar);
    if (dropped == Dropped::Nothing) return dropped;
    if (dropped == Dropped::Bar) {
        Open.CurBar = std::max<std::int16_t>(0, static_cast<std::int16_t>(Open.CurBar - 1));
        Open.CurStrum = Core::NumberOfStrums(Open.CurTrack, Open.CurBar);
    }
    Changed();
    return dropped;
}

void ClearBar(int track, int bar) {
    ClearBar(Open.TabFile, track, bar);
    Changed();
}

void AppendBar() {
    AppendBar(Open.TabFile);
    Changed();
}

void InsertBar(int bar) {
    InsertBar(Open.TabFile, bar);
    Changed();
}

void RemoveBar(int bar) {
    RemoveBar(Open.TabFile, bar);
    Changed();
}

Fullness BarFullness(int track, int bar) { return BarFullness(Open.TabFile, track, bar); }

void FixBar(int track, int bar) {
    FixBar(Open.TabFile, track, bar);
    Changed();
}

void FixThisBar(int track, int bar) {
    FixThisBar(Open.TabFile, track, bar);
    Changed();
}

void FixAllBars(int track) {
    FixAllBars(Open.TabFile, track);
    Changed();
}

void AddTrack(Core::Track track) {
    AddTrack(Open.TabFile, std::move(track));
    Open.CurTrack = Core::ToInt16(Open.TabFile.Tracks.UpperBound());
    Changed();
}

bool DeleteTrack(int track) {
    if (!DeleteTrack(Open.TabFile, track)) return false;
    Playback::Player.Listening.TrackDeleted(track);
    if (Open.CurTrack > track) --Open.CurTrack;
    Changed();
    return true;
}

bool MoveTrackUp(int track) { return Moved(MoveTrackUp(Open.TabFile, track), track, track - 1); }

bool MoveTrackDown(int track) { return Moved(MoveTrackDown(Open.TabFile, track), track, track + 1); }

}  // namespace Quillon::Editing
