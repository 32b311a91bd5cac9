// What single keys do to the note, or the strum, under the cursor.
#include <algorithm>
#include <string>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_NoteMarks.h"

namespace Quillon::Editing {

using Core::Note;
using Core::OpenDocument;
using Core::Strum;
using Core::Track;

namespace {

constexpr std::int32_t LastLength = 6;  ///< the 64th

const Track& CurrentTrack(const OpenDocument& open) { return open.TabFile.Tracks[open.CurTrack]; }

/// What Delete takes of a note beside its fret. Fingers stay: they are the hand's, not the note's.
void ClearMarks(Note& note) {
    note.Accentuate = note.Ghost = note.LetRing = note.Tied = false;
    note.HasGrace = note.HasTrill = note.HasBend = false;
    note.Harmonic = note.Technique = note.Dynamic = 0;
}

/// The note's fret at the same pitch on a string nearby; -1 when it can't go there.
int ShiftedFret(const OpenDocument& open, int by) {
    const Track& track = CurrentTrack(open);
    const int to = open.CurString + by;
    const int fret = FretNumber(NoteAtCursor(open).Fret);
    if (to < 0 || to > LastString(track) || fret < 0 || !StrumAtCursor(open).Notes[to].Fret.empty()) return -1;
    const int shifted = fret + Core::OpenPitch(track, open.CurString) - Core::OpenPitch(track, to);
    return shifted <= HighestFret ? std::max(shifted, -1) : -1;
}

bool HasMarks(const Note& note) {
    Note cleared = note;
    ClearMarks(cleared);
    return cleared != note;
}

/// Swaps the strum at the cursor with another of its track and moves the cursor there.
void SwapTo(OpenDocument& open, int bar, int strum) {
    auto& bars = open.TabFile.Tracks[open.CurTrack].Bars;
    Strum other = bars[bar].Strums()[strum];
    std::swap(EditStrumAtCursor(open), other);
    bars.Edit(bar).EditStrums()[strum] = std::move(other);
    open.CurBar = Core::ToInt16(bar);
    open.CurStrum = Core::ToInt16(strum);
}

}  // namespace

void SetFretDigit(OpenDocument& open, char digit) {
    std::string& fret = EditNoteAtCursor(open).Fret;
    if (fret != "1" && fret != "2") fret.clear();
    fret += digit;
}

void DeleteNote(OpenDocument& open) {
    const bool empty = StrumIsEmpty(open.TabFile, open.CurTrack, open.CurBar, open.CurStrum);
    Strum& strum = EditStrumAtCursor(open);
    if (empty) {
        for (int s = 0; s <= LastString(CurrentTrack(open)); ++s) {
            if (!strum.Notes.IsDefault(s)) ClearMarks(strum.Notes.Edit(s));
        }
        strum.HasTrem = false;
        strum.Stroke = strum.Technique = 0;
    }
    if (strum.Notes.IsDefault(open.CurString)) return;
    Note& note = strum.Notes.Edit(open.CurString);
    ClearMarks(note);
    note.Fret.clear();
}

bool CanDeleteNote(const OpenDocument& open) {
    if (const Note& note = NoteAtCursor(open); !note.Fret.empty() || HasMarks(note)) return true;
    if (!StrumIsEmpty(open.TabFile, open.CurTrack, open.CurBar, open.CurStrum)) return false;
    const Strum& strum = StrumAtCursor(open);
    for (int s = 0; s <= LastString(CurrentTrack(open)); ++s) {
        if (HasMarks(strum.Notes[s])) return true;
    }
    return strum.HasTrem || strum.Stroke != 0 || strum.Technique != 0;
}

void DeleteBeat(OpenDocument& open) {
    const int last = CurrentTrack(open).Bars[open.CurBar].Strums().UpperBound();
    if (last > 0) {
        DeleteStrum(open.TabFile, open.CurTrack, open.CurBar, open.CurStrum);
    } else if (ShrinkBar(open.TabFile, open.CurTrack, open.CurBar) == Dropped::Bar) {
        --open.CurBar;
        open.CurStrum = Core::ToInt16(CurrentTrack(open).Bars[open.CurBar].Strums().UpperBound());
    } else {
        Core::ClearStrum(EditStrumAtCursor(open));
    }
    ClampCursor(open);
}

void InsertBeat(OpenDocument& open) { InsertStrum(open.TabFile, open.CurTrack, open.CurBar, open.CurStrum); }

bool CanShiftNote(const OpenDocument& open, int by) { return ShiftedFret(open, by) >= 0; }

bool ShiftNote(OpenDocument& open, int by) {
    const int fret = ShiftedFret(open, by);
    if (fret < 0) return false;
    const int to = open.CurString + by;
    Strum& strum = EditStrumAtCursor(open);
    Note& moved = strum.Notes.Edit(to);
    moved = strum.Notes[open.CurString];
    moved.Fret = std::to_string(fret);
    strum.Notes.Clear(open.CurString);
    open.CurString = Core::ToInt16(to);
    return true;
}

bool CanAddToFret(const OpenDocument& open, int by) {
    const int fret = FretNumber(NoteAtCursor(open).Fret);
    return fret >= 0 && fret + by >= 0 && fret + by <= HighestFret;
}

bool AddToFret(OpenDocument& open, int by) {
    if (!CanAddToFret(open, by)) return false;
    const int fret = FretNumber(NoteAtCursor(open).Fret) + by;
    EditNoteAtCursor(open).Fret = std::to_string(fret);
    return true;
}

bool ChangeLength(OpenDocument& open, int by) {
    const std::int32_t length = StrumAtCursor(open).Length;
    if (by > 0 ? length >= LastLength : length <= 0) return false;
    EditStrumAtCursor(open).Length = length + by;
    return true;
}

void ToggleTuplet(OpenDocument& open, std::int32_t kind) {
    Strum& strum = EditStrumAtCursor(open);
    if (strum.HasTuplet && strum.Tuplet == kind) {
        strum.HasTuplet = false;
        return;
    }
    strum.HasTuplet = true;
    strum.Tuplet = kind;
}

bool RepeatStrum(OpenDocument& open) {
    if (open.CurStrum == 0) return false;
    auto& strums = open.TabFile.Tracks[open.CurTrack].Bars.Edit(open.CurBar).EditStrums();
    strums[open.CurStrum] = strums[open.CurStrum - 1];
    return true;
}

void MoveStrumRight(OpenDocument& open) {
    const auto& bars = CurrentTrack(open).Bars;
    if (open.CurStrum < bars[open.CurBar].Strums().UpperBound()) return SwapTo(open, open.CurBar, open.CurStrum + 1);
    if (open.CurBar == bars.UpperBound()) AppendBar(open.TabFile);
    SwapTo(open, open.CurBar + 1, 0);
}

bool MoveStrumLeft(OpenDocument& open) {
    if (open.CurStrum > 0) {
        SwapTo(open, open.CurBar, open.CurStrum - 1);
    } else if (open.CurBar > 0) {
        SwapTo(open, open.CurBar - 1, CurrentTrack(open).Bars[open.CurBar - 1].Strums().UpperBound());
    } else {
        return false;
    }
    return true;
}

void ShiftStrumRight(OpenDocument& open) {
    ShiftStrums(open.TabFile, open.CurTrack, open.CurBar, open.CurStrum);
    if (open.CurStrum < CurrentTrack(open).Bars[open.CurBar].Strums().UpperBound()) {
        ++open.CurStrum;
    } else {
        ++open.CurBar;
        open.CurStrum = 0;
    }
}

}  // namespace Quillon::Editing
