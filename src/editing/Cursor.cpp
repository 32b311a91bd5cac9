#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Cursor.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"

namespace Quillon::Editing {

using Core::LanguageText;
using Core::Open;
using Core::Strum;
using Core::ToInt16;
using Core::Track;

bool (*MayEdit)() = [] { return true; };

namespace {

const Track& CurrentTrack() { return Open.TabFile.Tracks[Open.CurTrack]; }

int LastString() { return std::clamp<int>(CurrentTrack().Strings, 1, Core::StringCount) - 1; }

void GiveLengthOf(const Strum& from, Strum& to) {
    to.Length = from.Length;
    to.Dotted = from.Dotted;
    to.HasTuplet = from.HasTuplet;
    to.Tuplet = from.Tuplet;
}

void MoveLeft() {
    if (Open.CurStrum > 0) {
        --Open.CurStrum;
    } else if (Open.CurBar > 0) {
        --Open.CurBar;
        Open.CurStrum = Core::NumberOfStrums(Open.CurTrack, Open.CurBar);
    }
}

void MoveRightPastBarEnd() {
    const Strum before = Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum);
    switch (BarFullness(Open.TabFile, Open.CurTrack, Open.CurBar)) {
        case Fullness::Full:
            if (Open.CurBar == Core::NumberOfBars(Open.CurTrack)) {
                if (!MayEdit()) return;
                AppendBar();
                GiveLengthOf(before, Core::EditStrum(Open.CurTrack, Open.CurBar + 1, 0));
            }
            ++Open.CurBar;
            Open.CurStrum = 0;
            break;
        case Fullness::Over:
            Services.Messages->Show(LanguageText("str_BarIsOver"), LanguageText("str_TitleNote"), Buttons::Ok,
                                    BoxIcon::Critical);
            break;
        case Fullness::Under:
            if (!MayEdit()) return;
            Core::SetBarStrums(Open.CurTrack, Open.CurBar, Open.CurStrum + 1);
            ++Open.CurStrum;
            GiveLengthOf(before, Core::EditStrum(Open.CurTrack, Open.CurBar, Open.CurStrum));
            Drawing::Page.LayoutDirty = 1;
            break;
    }
}

void MoveRight() {
    if (Open.CurStrum < Core::NumberOfStrums(Open.CurTrack, Open.CurBar)) {
        ++Open.CurStrum;
    } else {
        MoveRightPastBarEnd();
    }
}

void MoveString(int by) {
    const int strings = LastString() + 1;
    Open.CurString = ToInt16((Open.CurString + by + strings) % strings);
}

constexpr int FretsInReach = 29;
constexpr int LastLane = 6;

void MovePitch(int by) {
    const bool drum = CurrentTrack().IsDrum;
    const int lowest = drum ? 0 : Core::OpenPitch(CurrentTrack(), LastString());
    const int highest = drum ? LastLane : Core::OpenPitch(CurrentTrack(), 0) + FretsInReach;
    const int pitch = Open.CurPitch + by;
    Open.CurPitch = ToInt16(pitch < lowest ? highest : pitch > highest ? lowest : pitch);
}

}  // namespace

void MoveCursor(int keyCode) {
    switch (keyCode) {
        case KeyLeft:
            return MoveLeft();
        case KeyRight:
            return MoveRight();
        case KeyUp:
            return Open.InputMode == Core::TabInput ? MoveString(-1) : MovePitch(CurrentTrack().IsDrum ? -1 : 1);
        case KeyDown:
            return Open.InputMode == Core::TabInput ? MoveString(1) : MovePitch(CurrentTrack().IsDrum ? 1 : -1);
        default:
            return;
    }
}

void picDocument_KeyDown(int keyCode, int shift) {
    if (shift == 0) MoveCursor(keyCode);
}

void picDocument_MouseDown(int x, int y) {
    const Drawing::Hit hit = Drawing::HitTest(Open.TabFile, Open.CurTrack, x, y);
    if (!hit.OnBar) {
        if (hit.PastLastBar && Open.CurBar == Core::NumberOfBars(Open.CurTrack)) picDocument_KeyDown(KeyRight, 0);
        return;
    }
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
}

void ClampCursor() {
    const auto within = [](std::int16_t& index, int last) {
        index = ToInt16(std::clamp<int>(index, 0, std::max(0, last)));
    };
    within(Open.CurTrack, Open.TabFile.Tracks.UpperBound());
    within(Open.CurBar, CurrentTrack().Bars.UpperBound());
    within(Open.CurStrum, Core::NumberOfStrums(Open.CurTrack, Open.CurBar));
    within(Open.CurString, LastString());
}

}  // namespace Quillon::Editing
