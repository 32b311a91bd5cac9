#include "shell/Boards.h"

#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BoardEntry.h"
#include "editing/mod_NoteEntry.h"
#include "playback/MIDI_CMD.h"
#include "playback/mod_TabPlayer.h"
#include "shell/EditCommands.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;
using Kind = BoardNote::Kind;

namespace {

std::optional<BoardNote> DrumNote(const Core::Track& track, int string, const std::string& letter) {
    for (const Core::PercussionLetter& each : Core::PercussionLetters()) {
        if (letter != each.Letter) continue;
        const int sound = track.PercStrings[string].*each.Sound;
        // A file may name any number; those past the list have no name to tell.
        if (sound <= 0 || sound >= static_cast<int>(Core::DrumSoundNames().size())) return {};
        return BoardNote{string, 0, sound + Playback::DrumPitchBase, Kind::Drum, letter};
    }
    return {};
}

std::optional<BoardNote> NoteOf(const Core::Track& track, const Core::Note& note, int string) {
    if (note.Fret.empty()) return {};
    if (track.IsDrum) return DrumNote(track, string, note.Fret);
    if (note.Fret == "x") return BoardNote{string, 0, Core::OpenPitch(track, string), Kind::Dead, note.Fret};
    const int fret = Editing::FretNumber(note.Fret);
    if (fret < 0) return {};
    return BoardNote{string, fret, Core::OpenPitch(track, string) + fret, note.Ghost ? Kind::Ghost : Kind::Plain,
                     note.Fret};
}

std::optional<BoardNote> ChordNote(const Core::Strum& strum, int string) {
    const int fret = Editing::FretNumber(strum.ChordFrets.Read()[string]);
    if (fret < 0) return {};
    const int mark = strum.ChordMarks.Read()[string];
    const int open = mark != 0 ? mark : Core::DefaultStringPitch(string);
    return BoardNote{string, fret, open + fret, Kind::Chord, std::to_string(fret)};
}

const Core::Track& CurrentTrack() { return Open.TabFile.Tracks[Open.CurTrack]; }

/// After a click that wrote.
void ShowEntered(bool wrote) {
    if (wrote) ShowEdited();
}

}  // namespace

std::vector<BoardNote> NotesOfStrum(const Core::Track& track, const Core::Strum& strum) {
    std::vector<BoardNote> notes;
    for (int string = 0; string < Playback::StringsInUse(track); ++string) {
        auto note = NoteOf(track, strum.Notes[string], string);
        if (!note && strum.HasChord && !track.IsDrum) note = ChordNote(strum, string);
        if (note) notes.push_back(*note);
    }
    return notes;
}

void SoundingStrings::Reach(const Core::TabFile& file, const Playback::StrumPlace& place,
                            const Core::Strum& lastChord) {
    const Core::Track& track = file.Tracks[place.Track];
    const Core::Strum* const before = Playback::PreviousStrum(file, place);
    const bool keeps = before && (Playback::IsTie(track, *before) || Playback::IsRing(track, *before));
    for (auto& note : strings) {
        if (!keeps || (note && (note->Is == Kind::Dead || note->Is == Kind::Drum))) note.reset();
        if (note) note->Is = Kind::Ringing;
    }
    const Core::Strum* strum = Playback::FindStrum(file, place);
    if (!strum) return;
    Core::Strum slash;
    if (strum->Hash == 1 && !strum->HasChord) {
        const Core::Strum& chord = before && before->Hash != 1 ? *before : lastChord;
        slash.HasChord = chord.HasChord;
        slash.ChordFrets = chord.ChordFrets;
        slash.ChordMarks = chord.ChordMarks;
        strum = &slash;
    }
    for (BoardNote& note : NotesOfStrum(track, *strum)) {
        strings[static_cast<std::size_t>(note.String)] = std::move(note);
    }
}

std::vector<BoardNote> SoundingStrings::Notes() const {
    std::vector<BoardNote> notes;
    for (const auto& note : strings) {
        if (note) notes.push_back(*note);
    }
    return notes;
}

std::string BoardText() {
    std::string text;
    for (const BoardNote& note : BoardNow()) {
        const std::string string = std::to_string(note.String + 1);
        std::string what = LanguageText("str_BoardDead");
        if (note.Is == Kind::Drum) {
            what = Core::DrumSoundNames()[static_cast<std::size_t>(note.Pitch - Playback::DrumPitchBase)];
        } else if (note.Is != Kind::Dead) {
            what = LanguageText("str_BoardNote", {Core::NoteName(note.Pitch), std::to_string(note.Fret)});
            if (note.Is == Kind::Ghost) what = LanguageText("str_BoardGhost", {what});
        }
        text += (text.empty() ? "" : " ") + LanguageText("str_BoardString", {string, what});
    }
    return text.empty() ? LanguageText("str_BoardNothing") : text;
}

std::string CellText(const BoardCell& cell) {
    return LanguageText("str_BoardCell", {Core::NoteName(Core::OpenPitch(CurrentTrack(), cell.String) + cell.Fret),
                                          std::to_string(cell.String + 1), std::to_string(cell.Fret)});
}

std::string DrumText(const DrumGeometry::Cell& cell) {
    return std::string(Core::DrumSoundNames()[static_cast<std::size_t>(cell.Sound)]) + ", " +
           Core::PercussionLetters()[static_cast<std::size_t>(cell.Letter)].Letter;
}

std::string KeyText(int pitch) {
    if (!CurrentTrack().IsDrum) return Core::NoteName(pitch);
    const int sound = pitch - Playback::DrumPitchBase;
    const auto names = Core::DrumSoundNames();
    return sound > 0 && sound < static_cast<int>(names.size()) ? names[static_cast<std::size_t>(sound)]
                                                               : Core::NoteName(pitch);
}

void picFretboard_MouseDown(const BoardCell& cell) {
    ShowEntered(Editing::EnterByMouse(
        [&](Core::OpenDocument& open) { return Editing::EnterFret(open, cell.String, cell.Fret); }));
}

void picFretboard_RightMouseDown(int string) {
    ShowEntered(Editing::EnterByMouse([&](Core::OpenDocument& open) { return Editing::ClearString(open, string); }));
}

void picFretboard_DrumMouseDown(const DrumGeometry::Cell& cell) {
    ShowEntered(Editing::EnterByMouse(
        [&](Core::OpenDocument& open) { return Editing::EnterLetter(open, cell.String, cell.Letter); }));
}

void picPiano_MouseDown(int pitch) {
    ShowEntered(Editing::EnterByMouse([&](Core::OpenDocument& open) { return Editing::EnterPitch(open, pitch); }));
}

void ToggleMute(int track) {
    if (track < 0 || track > Open.TabFile.Tracks.UpperBound()) return;
    Playback::SetMute(track, !Playback::Player.Listening.IsMuted(track));
    Program.View->UpdateCommands();
}

void ToggleSolo(int track) {
    if (track < 0 || track > Open.TabFile.Tracks.UpperBound()) return;
    Playback::SetSolo(track, !Playback::Player.Listening.IsSolo(track));
    Program.View->UpdateCommands();
}

void SetTrackVolume(int track, int volume) {
    if (track < 0 || track > Open.TabFile.Tracks.UpperBound()) return;
    const std::int16_t wanted = Core::ToInt16(std::clamp(volume, 0, MostTrackVolume));
    if (Open.TabFile.Tracks[track].Volume == wanted || !PasswordCorrect()) return;
    Open.TabFile.Tracks[track].Volume = wanted;
    Open.FileChanged = true;
    Program.View->UpdateCommands();
}

}  // namespace Quillon::Shell
