// A chord of the manager is heard, and goes into the song.
#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/Fingering.h"
#include "library/NoteRun.h"
#include "shell/CursorState.h"
#include "shell/EditCommands.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Sound.h"
#include "tools/ChordManager.h"

namespace Quillon::Tools {

using Core::LanguageText;
using Core::Open;
using Library::ChordRec;

namespace {

constexpr std::int16_t NylonGuitar = 24;

void Toggle(bool& setting) {
    setting = !setting;
    Shell::KeepSettings();
    if (ChordManager.View) ChordManager.View->RefreshChosen();
}

/// The current chord as its file has it; nothing for one that can't be read, which the status bar tells.
const ChordRec* CurrentRecord() {
    const std::string name = CurrentChord();
    if (name.empty()) return nullptr;
    const ChordRec* const chord = Library::Chords.Find(name);
    if (!chord) {
        Shell::Program.View->ShowStatus(LanguageText("str_ChordUnreadable", {Library::Chords.FileOf(name).string()}));
    }
    return chord;
}

void ShowSounding(const std::string& name) {
    if (ChordManager.Sounding == name) return;
    ChordManager.Sounding = name;
    if (ChordManager.View) ChordManager.View->RefreshChosen();
    Shell::Program.View->UpdateCommands();
}

/// What adding ends with, whichever way; `replaced` is what went, which no undo brings back by itself.
void Added(const char* textKey, const std::string& name, const std::string& replaced = "") {
    Shell::Program.View->ShowStatus(LanguageText(textKey, {name, replaced}));
    if (Core::Settings.HideChordManager) Shell::ShowTool(Shell::ToolWindow::Chords, false);
}

Core::Strum& StrumAtCursor(Core::OpenDocument& open) {
    return open.TabFile.Tracks[open.CurTrack].Bars.Edit(open.CurBar).EditStrums()[open.CurStrum];
}

}  // namespace

void PlayChordRec(const std::string& name, const ChordRec& chord) {
    Library::NoteRun run;
    run.Pitches = Library::PitchesOf(chord);
    run.Program = Shell::OnFrettedTrack() ? Open.TabFile.Tracks[Open.CurTrack].Instrument : NylonGuitar;
    run.LetRing = true;
    run.Reverb = Core::Settings.ChordReverb;
    run.Sounds = [name](int note) { ShowSounding(note < 0 ? std::string() : name); };
    Library::PlayRun(std::move(run));
}

void PlayCurrentChord() {
    if (const ChordRec* const chord = CurrentRecord()) PlayChordRec(CurrentChord(), *chord);
}

void StopChord() { Library::StopRun(); }

void mnuPlayOnLoad_Click() { Toggle(Core::Settings.PlayChordsOnLoad); }
void mnuReverb_Click() { Toggle(Core::Settings.ChordReverb); }
void mnuHideAfterAdding_Click() { Toggle(Core::Settings.HideChordManager); }

bool CanAddChord() { return !CurrentChord().empty() && !Shell::Sound.Playing && Shell::OnFrets(); }

bool WriteChordNotes(const ChordRec& chord, const Core::Track& track, Core::Strum& strum) {
    Core::Track strings;  // those that the shape is for
    strings.Strings = chord.NumStrings;
    for (int string = 0; string < Core::StringCount; ++string) {
        strings.Tuning[string] = Core::ToInt16(chord.Tuning[string] - Core::DefaultStringPitch(string));
    }
    Core::Strum written = strum;
    written.Hash = 0;  // a slash would repeat the chord before
    for (int string = 0; string < Core::StringCount; ++string) {
        if (!written.Notes.IsDefault(string)) written.Notes.Clear(string);
        if (const auto fret = Library::AbsoluteFret(chord, string)) {
            written.Notes.Edit(string).Fret = std::to_string(*fret);
        } else if (Library::IsMuted(chord, string) && string < track.Strings) {
            written.Notes.Edit(string).Fret = "x";
        }
    }
    Editing::StringsTo links;
    links.fill(Editing::NoString);
    if (!Editing::Refinger({strings, track}, written, links)) return false;
    strum = std::move(written);
    return true;
}

void WriteChordDiagram(const std::string& name, const ChordRec& chord, Core::Strum& strum) {
    strum.HasChord = true;
    strum.ChordName = name;
    strum.ChordFlag = chord.ChordFlag;
    strum.ChordValueA = chord.BaseFret;
    strum.ChordValueB = chord.NumStrings;
    strum.ChordMarks.Edit() = chord.Tuning;
    Core::Row<std::string, Core::StringCount>& frets = strum.ChordFrets.Edit();
    Core::Row<std::string, Core::StringCount>& fingers = strum.ChordFingers.Edit();
    for (int string = 0; string < Core::StringCount; ++string) {
        const auto fret = Library::AbsoluteFret(chord, string);
        frets[string] = fret ? std::to_string(*fret) : Library::IsMuted(chord, string) ? "x" : "";
        fingers[string] = string < chord.NumStrings ? Library::FingerText(chord, string) : "";
    }
}

void AddChordAsNotes() {
    const ChordRec* const found = CanAddChord() ? CurrentRecord() : nullptr;
    if (!found) return;
    const std::string name = CurrentChord();
    const ChordRec chord = *found;
    bool fits = true, asked = false, replaced = false;
    Shell::ByEngine([&](Core::OpenDocument& open) {
        asked = true;
        const Core::Track& track = open.TabFile.Tracks[open.CurTrack];
        Core::Strum strum = track.Bars[open.CurBar].Strums()[open.CurStrum];
        const Core::Strum before = strum;
        fits = WriteChordNotes(chord, track, strum);
        replaced = HasNotes(before) && !(strum == before);
        if (fits) StrumAtCursor(open) = std::move(strum);
        return fits;
    });
    if (!asked) return;
    if (!fits) return Shell::Program.View->ShowStatus(LanguageText("str_ChordNoStrings", {name}));
    Added(replaced ? "str_ChordReplacedNotes" : "str_ChordAddedNotes", name);
}

void AddChordAsDiagram() {
    const ChordRec* const found = CanAddChord() ? CurrentRecord() : nullptr;
    if (!found) return;
    const std::string name = CurrentChord();
    const ChordRec chord = *found;
    bool asked = false;
    std::string replaced;
    Shell::ByEngine([&](Core::OpenDocument& open) {
        asked = true;
        Core::Strum& strum = StrumAtCursor(open);
        if (strum.HasChord && strum.ChordName != name) replaced = strum.ChordName;
        WriteChordDiagram(name, chord, strum);
    });
    if (!asked) return;
    RefreshFilter();  // it may be one of the track's now
    Added(replaced.empty() ? "str_ChordAddedDiagram" : "str_ChordReplacedDiagram", name, replaced);
}

}  // namespace Quillon::Tools
