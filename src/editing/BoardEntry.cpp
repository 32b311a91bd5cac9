#include "editing/mod_BoardEntry.h"

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "playback/MIDI_CMD.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Editing {

using Core::Open;
using Core::OpenDocument;

namespace {

const Core::Track& TrackAt(const OpenDocument& open) { return open.TabFile.Tracks[open.CurTrack]; }

const std::string& FretAt(const OpenDocument& open, int string) {
    return TrackAt(open).Bars[open.CurBar].Strums()[open.CurStrum].Notes[string].Fret;
}

bool HasString(const OpenDocument& open, int string) { return string >= 0 && string <= LastString(TrackAt(open)); }

/// Writes a text on a string, or takes the note that says the same.
bool ToggleText(OpenDocument& open, int string, const std::string& text) {
    open.CurString = Core::ToInt16(string);
    if (FretAt(open, string) == text) {
        DeleteNote(open);
    } else {
        Core::Bar& bar = open.TabFile.Tracks[open.CurTrack].Bars.Edit(open.CurBar);
        bar.EditStrums()[open.CurStrum].Notes.Edit(string).Fret = text;
    }
    return true;
}

/// The letter of a string that plays a sound; -1 for none.
int LetterOf(const Core::Track& track, int string, int sound) {
    int index = 0;
    for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
        if (sound > 0 && track.PercStrings[string].*letter.Sound == sound) return index;
        ++index;
    }
    return -1;
}

bool EnterSound(OpenDocument& open, int sound) {
    const Core::Track& track = TrackAt(open);
    const auto letters = Core::PercussionLetters();
    int free = -1;
    for (int string = 0; string <= LastString(track); ++string) {
        const int letter = LetterOf(track, string, sound);
        const std::string& there = FretAt(open, string);
        if (letter >= 0 && there == letters[static_cast<std::size_t>(letter)].Letter) return ClearString(open, string);
        if (letter >= 0 && there.empty() && free < 0) free = string;
    }
    return free >= 0 && EnterLetter(open, free, LetterOf(track, free, sound));
}

}  // namespace

bool EnterFret(OpenDocument& open, int string, int fret) {
    if (TrackAt(open).IsDrum || !HasString(open, string) || fret < 0 || fret > HighestFret) return false;
    if (open.InputMode != Core::TabInput) open.CurPitch = Core::ToInt16(Core::OpenPitch(TrackAt(open), string) + fret);
    return ToggleText(open, string, std::to_string(fret));
}

bool EnterLetter(OpenDocument& open, int string, int letter) {
    const auto letters = Core::PercussionLetters();
    if (!TrackAt(open).IsDrum || !HasString(open, string)) return false;
    if (letter < 0 || letter >= static_cast<int>(letters.size())) return false;
    return ToggleText(open, string, letters[static_cast<std::size_t>(letter)].Letter);
}

bool ClearString(OpenDocument& open, int string) {
    if (!HasString(open, string) || FretAt(open, string).empty()) return false;
    open.CurString = Core::ToInt16(string);
    DeleteNote(open);
    return true;
}

bool EnterPitch(OpenDocument& open, int pitch) {
    if (TrackAt(open).IsDrum) return EnterSound(open, pitch - Playback::DrumPitchBase);
    const std::int16_t before = open.CurPitch;
    open.CurPitch = Core::ToInt16(pitch);
    if (ToggleNotationNote(open)) return true;
    open.CurPitch = before;
    return false;
}

bool EnterByMouse(const std::function<bool(OpenDocument&)>& engine) {
    if (Playback::IsPlaying() || !MayEdit() || !engine(Open)) return false;
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    const Core::Strum& strum = Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum);
    if (Core::Settings.PlayNotesAsTyped && Entry.SoundStrum && Core::HasNotes(strum)) {
        Entry.SoundStrum(Core::StrumLength(strum));
    }
    return true;
}

}  // namespace Quillon::Editing
