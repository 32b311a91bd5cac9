#include "shell/CursorState.h"

#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

/// Nothing while the document has no such track.
const Core::Track* TrackAtCursor() {
    const auto& tracks = Open.TabFile.Tracks;
    return Open.CurTrack >= 0 && Open.CurTrack < tracks.Count() ? &tracks[Open.CurTrack] : nullptr;
}

}  // namespace

bool OnFrettedTrack() { return TrackAtCursor() && !TrackAtCursor()->IsDrum; }
bool OnDrumTrack() { return TrackAtCursor() && TrackAtCursor()->IsDrum; }

bool OnBar() {
    const Core::Track* const track = TrackAtCursor();
    return track && Open.CurBar >= 0 && Open.CurBar < track->Bars.Count() &&
           Open.CurBar < Open.TabFile.BarInfos.Count();
}

bool InScore() {
    return OnBar() && Open.CurStrum >= 0 && Open.CurStrum < TrackAtCursor()->Bars[Open.CurBar].Strums().Count();
}

bool OnStrum() {
    return InScore() && Open.CurString >= 0 &&
           Open.CurString <= Editing::LastString(Open.TabFile.Tracks[Open.CurTrack]);
}

bool OnFrets() { return OnStrum() && !Open.TabFile.Tracks[Open.CurTrack].IsDrum; }

bool OnNote() { return OnStrum() && Editing::NoteUnderCursor(Open); }
bool OnFrettedNote() { return OnFrets() && Editing::NoteUnderCursor(Open); }
bool OnFrettedChord() { return OnFrets() && Editing::IsMet(Open, Editing::Needs::Strum); }

}  // namespace Quillon::Shell
