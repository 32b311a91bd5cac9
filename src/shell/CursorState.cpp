#include "shell/CursorState.h"

#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"

namespace Quillon::Shell {

using Core::Open;

bool InScore() {
    const auto& tracks = Open.TabFile.Tracks;
    if (Open.CurTrack < 0 || Open.CurTrack >= tracks.Count()) return false;
    const Core::Track& track = tracks[Open.CurTrack];
    if (Open.CurBar < 0 || Open.CurBar >= track.Bars.Count() || Open.CurBar >= Open.TabFile.BarInfos.Count()) {
        return false;
    }
    return Open.CurStrum >= 0 && Open.CurStrum < track.Bars[Open.CurBar].Strums().Count();
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
