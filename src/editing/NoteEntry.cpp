// The one entry of keys, and the four routes.
#include "editing/mod_NoteEntry.h"

#include <string>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteMarks.h"
#include "editing/mod_Selection.h"
#include "editing/mod_Undo.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Editing {

using Core::Open;
using Core::OpenDocument;
using Core::Track;

EntryState Entry;

namespace {

constexpr int HighestBassPitch = 79;   ///< a note above it stands far over the bass staff
constexpr int LowestTreblePitch = 36;  ///< a note below it stands far under the treble staff

bool IsDigit(int code) { return code >= '0' && code <= '9'; }

/// Shift, control, Alt and the keys that lock: they are held for another key's sake.
bool IsModifier(int code) {
    constexpr int first = 16, last = 18, capsLock = 20, numLock = 144, scrollLock = 145, leftOnes = 160,
                  rightOnes = 165;
    return (code >= first && code <= last) || code == capsLock || code == numLock || code == scrollLock ||
           (code >= leftOnes && code <= rightOnes);
}

int MainRowOf(int code) {
    constexpr int keypad0 = 96, keypad9 = 105;
    return code >= keypad0 && code <= keypad9 ? code - keypad0 + '0' : code;
}

/// Deleting and inserting beats, on every route.
bool RunBeatKey(OpenDocument& open, KeyPress key) {
    if ((key.Code == KeyDelete && key.Shift) || (key.Code == KeyBackspace && !key.Shift)) {
        DeleteBeat(open);
        return true;
    }
    if (key.Code == KeyInsert && key.Shift) {
        InsertBeat(open);
        return true;
    }
    return false;
}

bool WriteFret(OpenDocument& open, std::string_view fret) {
    EditNoteAtCursor(open).Fret = fret;
    return true;
}

bool TabRoute(OpenDocument& open, KeyPress key) {
    if (IsDigit(key.Code) && !key.Shift) {
        SetFretDigit(open, static_cast<char>(key.Code));
        return true;
    }
    if (key.Code == 'X') return WriteFret(open, "x");
    if (key.Code == KeyDelete && !key.Shift) {
        DeleteNote(open);
        return true;
    }
    return RunNoteShortcut(open, key);
}

bool NotationRoute(OpenDocument& open, KeyPress key) {
    if (key.Code == 'X') return WriteFret(open, "x");
    if (key.Code == KeyEnter) return ToggleNotationNote(open);
    return RunNoteShortcut(open, key);
}

bool DrumLetterRoute(OpenDocument& open, KeyPress key) {
    if (const std::string_view letter = DrumLetter(key); !letter.empty()) return WriteFret(open, letter);
    if (key.Code == 'T' && key.Shift) return Entry.OpenDialog && Entry.OpenDialog(EntryDialog::Text);
    if (key.Code == KeyDelete && !key.Shift) {
        DeleteNote(open);
        return true;
    }
    return false;
}

bool DrumNotationRoute(OpenDocument& open, KeyPress key) { return key.Code == KeyEnter && ToggleNotationNote(open); }

bool IsArrow(int code) { return code >= KeyLeft && code <= KeyDown; }

/// A note that stands far off the only staff shown: offers the other one, once a session each.
void RecommendStaff(OpenDocument& open, KeyPress key) {
    if ((IsArrow(key.Code) && !key.Shift) || !Core::Settings.StaffAddition) return;
    Track& track = open.TabFile.Tracks[open.CurTrack];
    if (track.IsDrum) return;
    const int fret = FretNumber(NoteAtCursor(open).Fret);
    if (fret < 0) return;
    const int pitch = Core::OpenPitch(track, open.CurString) + fret;
    const auto offer = [&](bool& asked, const char* question, bool& show) {
        if (asked) return;
        asked = true;
        const Answer answer = Services.Messages->Show(
            Core::LanguageText(question), Core::LanguageText("str_TitleQuestion"), Buttons::YesNo, BoxIcon::Question);
        if (answer != Answer::Yes) return;
        show = true;
        open.FileChanged = true;
        Drawing::Page.LayoutDirty = 1;
    };
    if (pitch > HighestBassPitch && track.ShowBass && !track.ShowTreble) {
        offer(Entry.AskedTreble, "str_AddTrebleStaff", track.ShowTreble);
    } else if (pitch < LowestTreblePitch && !track.ShowBass && track.ShowTreble) {
        offer(Entry.AskedBass, "str_AddBassStaff", track.ShowBass);
    }
}

/// Keys that make a note to hear.
bool IsSounding(const OpenDocument& open, KeyPress key) {
    if (open.TabFile.Tracks[open.CurTrack].IsDrum) {
        return std::string_view("FOSXCT").find(static_cast<char>(key.Code)) != std::string_view::npos;
    }
    return key.Code == KeyEnter || key.Code == 'R' || (IsDigit(key.Code) && !key.Shift) || IsArrow(key.Code);
}

void TypedNoteSound(const OpenDocument& open, KeyPress key) {
    if (!Core::Settings.PlayNotesAsTyped || !Entry.EditDone || !Entry.SoundStrum || !IsSounding(open, key)) return;
    const Core::Strum& strum = StrumAtCursor(open);
    if (Core::HasNotes(strum)) Entry.SoundStrum(Core::StrumLength(strum));
}

}  // namespace

bool NoteUnderCursor(const OpenDocument& open) { return !NoteAtCursor(open).Fret.empty(); }

bool StrumIsEmpty(const Core::TabFile& file, int track, int bar, int strum) {
    const Core::Strum& column = file.Tracks[track].Bars[bar].Strums()[strum];
    if (column.Hash != 0) return false;
    for (int s = 0; s <= LastString(file.Tracks[track]); ++s) {
        if (!column.Notes[s].Fret.empty()) return false;
    }
    return true;
}

int FretNumber(std::string_view fret) {
    constexpr std::size_t longest = 3;
    if (fret.empty() || fret.size() > longest || fret.find_first_not_of("0123456789") != std::string_view::npos) {
        return -1;
    }
    return std::stoi(std::string(fret));
}

bool EnterKey(OpenDocument& open, KeyPress key) {
    if (IsArrow(key.Code)) return MoveCursor(open, key);
    if (RunBeatKey(open, key) || RunLengthShortcut(open, key)) return true;
    const bool drum = open.TabFile.Tracks[open.CurTrack].IsDrum;
    if (open.InputMode == Core::TabInput) return drum ? DrumLetterRoute(open, key) : TabRoute(open, key);
    return drum ? DrumNotationRoute(open, key) : NotationRoute(open, key);
}

void picDocument_KeyDown(int keyCode, int shift) {
    constexpr int shiftHeld = 1, others = ~shiftHeld;
    if (IsModifier(keyCode)) return;
    if (Playback::IsPlaying()) return Playback::StopTab();
    if (keyCode == KeyEscape) return ClearSelection();
    const KeyPress key{MainRowOf(keyCode), (shift & shiftHeld) != 0};
    if (key.Code != 'Z' && (shift & others) != 0) return;
    if (!MayEdit()) return;
    if (key.Code == 'Z') return mnuEditUndo_Click();

    const bool keep = UndoIsOn();
    UndoSlot before = keep ? Snapshot(Open) : UndoSlot{};
    if (keep) before.TrackOrder = Playback::Player.Listening.Order(Open.TabFile.Tracks.Count());
    const bool couldUndo = keep && CanUndo(Undone);
    const int bars = Open.TabFile.BarInfos.Count();
    Entry.EditDone = false;
    Entry.EditDone = EnterKey(Open, key);
    // Up and down leave the assistant on the string that it shows: only another key speaks of a note.
    const bool upOrDown = key.Code == KeyUp || key.Code == KeyDown;
    const bool letters = Open.InputMode == Core::TabInput && Open.TabFile.Tracks[Open.CurTrack].IsDrum;
    if (letters && !upOrDown && Entry.RefreshPercussion) Entry.RefreshPercussion();
    TypedNoteSound(Open, key);
    if (Entry.EditDone) {
        Open.FileChanged = true;
        Drawing::Page.LayoutDirty = 1;
        if (Open.TabFile.BarInfos.Count() < bars) ClearSelection();  // its bars are others now
        if (keep) TakeUndoStep(Undone, std::move(before));
        if (keep && !couldUndo && Entry.StepsChanged) Entry.StepsChanged();
    }
    RecommendStaff(Open, key);
}

}  // namespace Quillon::Editing
