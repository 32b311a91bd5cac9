#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_Selection.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Editing {

using Core::LanguageText;
using Core::Open;
using Core::OpenDocument;
using Core::Strum;
using Core::ToInt16;
using Core::Track;

bool (*MayEdit)() = [] { return true; };

namespace {

const Track& CurrentTrack(const OpenDocument& open) { return open.TabFile.Tracks[open.CurTrack]; }

int LastStrum(const OpenDocument& open) { return CurrentTrack(open).Bars[open.CurBar].Strums().UpperBound(); }

Strum& EditStrum(OpenDocument& open, int bar, int strum) {
    return open.TabFile.Tracks[open.CurTrack].Bars.Edit(bar).EditStrums()[strum];
}

void GiveLengthOf(const Strum& from, Strum& to) {
    to.Length = from.Length;
    to.Dotted = from.Dotted;
    to.HasTuplet = from.HasTuplet;
    to.Tuplet = from.Tuplet;
}

void MoveLeft(OpenDocument& open) {
    if (open.CurStrum > 0) {
        --open.CurStrum;
    } else if (open.CurBar > 0) {
        --open.CurBar;
        open.CurStrum = ToInt16(LastStrum(open));
    }
}

bool MoveRightPastBarEnd(OpenDocument& open) {
    const Strum before = CurrentTrack(open).Bars[open.CurBar].Strums()[open.CurStrum];
    switch (BarFullness(open.TabFile, open.CurTrack, open.CurBar)) {
        case Fullness::Full: {
            const bool append = open.CurBar == CurrentTrack(open).Bars.UpperBound();
            if (append) {
                AppendBar(open.TabFile);
                GiveLengthOf(before, EditStrum(open, open.CurBar + 1, 0));
            }
            ++open.CurBar;
            open.CurStrum = 0;
            return append;
        }
        case Fullness::Over:
            Services.Messages->Show(LanguageText("str_BarIsOver"), LanguageText("str_TitleNote"), Buttons::Ok,
                                    BoxIcon::Critical);
            return false;
        case Fullness::Under:
            break;
    }
    const std::int16_t added = ToInt16(open.CurStrum + 1);
    Core::SetBarStrums(open.TabFile.Tracks[open.CurTrack].Bars.Edit(open.CurBar), added);
    open.CurStrum = added;
    GiveLengthOf(before, EditStrum(open, open.CurBar, added));
    return true;
}

bool MoveRight(OpenDocument& open) {
    if (open.CurStrum >= LastStrum(open)) return MoveRightPastBarEnd(open);
    ++open.CurStrum;
    return false;
}

/// The open pitch of string 0, or the top lane. A tuning may be any number that a file says.
std::int16_t StartPitch(const Track& track) {
    constexpr int highest = 127;
    return ToInt16(track.IsDrum ? 0 : std::clamp(Core::OpenPitch(track, 0), 0, highest));
}

/// Lanes count downwards, pitches upwards.
void MoveUpOrDown(OpenDocument& open, int down) {
    const Track& track = CurrentTrack(open);
    if (open.InputMode == Core::TabInput) {
        const int strings = LastString(track) + 1;
        open.CurString = ToInt16((open.CurString + down + strings) % strings);
        return;
    }
    const PitchRange range = PitchesInReach(track);
    const int pitch = open.CurPitch + (track.IsDrum ? down : -down);
    open.CurPitch = ToInt16(pitch < range.Lowest ? range.Highest : pitch > range.Highest ? range.Lowest : pitch);
}

void PlaceCursor(const Drawing::Hit& hit) {
    Open.CurBar = hit.Bar;
    Open.CurStrum = hit.Strum;
    switch (hit.On) {
        case Drawing::Hit::Place::OnString:
            Open.CurString = hit.String;
            Open.InputMode = Core::TabInput;
            break;
        case Drawing::Hit::Place::OnPitch:
            Open.CurPitch = hit.Pitch;
            Open.InputMode = Core::NotationInput;
            break;
        case Drawing::Hit::Place::OnLane:
            Open.CurString = Open.CurPitch = hit.String;
            Open.InputMode = Core::NotationInput;
            break;
        case Drawing::Hit::Place::Neither:
            break;
    }
    if (Entry.RefreshPercussion) Entry.RefreshPercussion();
}

}  // namespace

int LastString(const Track& track) { return std::clamp<int>(track.Strings, 1, Core::StringCount) - 1; }

PitchRange PitchesInReach(const Track& track) {
    if (track.IsDrum) return {0, LaneCount - 1};
    return {Core::OpenPitch(track, LastString(track)), Core::OpenPitch(track, 0) + HighestFret};
}

bool MoveCursor(OpenDocument& open, KeyPress key) {
    const bool movesNote = key.Shift && !CurrentTrack(open).IsDrum;
    switch (key.Code) {
        case KeyLeft:
            MoveLeft(open);
            return false;
        case KeyRight:
            return MoveRight(open);
        case KeyUp:
        case KeyDown: {
            const int down = key.Code == KeyDown ? 1 : -1;
            if (!movesNote) {
                MoveUpOrDown(open, down);
                return false;
            }
            ShiftNote(open, down);
            return true;
        }
        default:
            return false;
    }
}

void picDocument_MouseDown(int x, int y, int shift) {
    constexpr int WithShift = 1;
    if (Playback::IsPlaying()) return;
    const Drawing::Hit hit = Drawing::HitTest(Open.TabFile, Open.CurTrack, x, y);
    Selection.Dragging = hit.OnBar;
    if (shift == WithShift) {
        if (hit.OnBar) SelectTo(hit.Bar);
        return;
    }
    ClearSelection();
    if (!hit.OnBar) {
        if (hit.PastLastBar && Open.CurBar == Core::NumberOfBars(Open.CurTrack)) picDocument_KeyDown(KeyRight, 0);
        return;
    }
    PlaceCursor(hit);
}

void picDocument_MouseMove(int x, int y) {
    if (Playback::IsPlaying() || !Selection.Dragging) return;
    const int bar = Drawing::NearestBar(CurrentTrack(Open), x, y);
    if (bar >= 0) SelectTo(ToInt16(bar));
}

bool picDocument_MenuMouseDown(int x, int y) {
    if (Playback::IsPlaying()) return false;
    const Drawing::Hit hit = Drawing::HitTest(Open.TabFile, Open.CurTrack, x, y);
    if (!hit.OnBar) return false;
    const auto selected = SelectedBars();
    if (selected && (hit.Bar < selected->From || hit.Bar > selected->To)) ClearSelection();
    PlaceCursor(hit);
    return true;
}

void ResetCursor(OpenDocument& open, int track) {
    open.CurTrack = ToInt16(track);
    open.CurBar = open.CurStrum = open.CurString = 0;
    open.CurPitch = StartPitch(CurrentTrack(open));
}

void ClampCursor(OpenDocument& open) {
    const auto within = [](std::int16_t& index, int first, int last) {
        index = ToInt16(std::clamp<int>(index, first, std::max(first, last)));
    };
    within(open.CurTrack, 0, open.TabFile.Tracks.UpperBound());
    within(open.CurBar, 0, CurrentTrack(open).Bars.UpperBound());
    within(open.CurStrum, 0, LastStrum(open));
    within(open.CurString, 0, LastString(CurrentTrack(open)));
    const PitchRange reach = PitchesInReach(CurrentTrack(open));
    if (open.CurPitch < reach.Lowest || open.CurPitch > reach.Highest) open.CurPitch = StartPitch(CurrentTrack(open));
}

void ClampCursor() { ClampCursor(Open); }

}  // namespace Quillon::Editing
