#include "tools/ScaleFinder.h"

#include <algorithm>

#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Selection.h"
#include "library/ChordNaming.h"
#include "library/NoteRun.h"
#include "library/ScaleView.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "shell/Boards.h"
#include "shell/CursorState.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "tools/ScaleManager.h"

namespace Quillon::Tools {

using Core::LanguageText;
using Core::Open;
using Library::Scales;

ScaleFinderState ScaleFinder;

namespace {

constexpr int Octave = 12;
constexpr int NeckStrings = 6;

void Refresh() {
    ScaleFinder.Found = Library::FindScales(Scales, ScaleFinder.Notes, ScaleFinder.Tonic);
    if (ScaleFinder.Changed) ScaleFinder.Changed();
}

bool Has(int pitch) { return ScaleFinder.Notes.test(static_cast<std::size_t>(pitch % Octave)); }

std::string NamesOf(const Library::PitchClasses& classes) {
    std::string names;
    for (int pitch = 0; pitch < Octave; ++pitch) {
        if (!classes.test(static_cast<std::size_t>(pitch))) continue;
        names += (names.empty() ? "" : "  ") + Library::PitchClassName(pitch);
    }
    return names;
}

void Sound(int pitch) {
    const auto begunOrEnded = [](int index) {
        ScaleFinder.Sounds = index >= 0;
        if (ScaleFinder.Changed) Shell::Program.View->UpdateCommands();
    };
    Library::PlayRun({.Pitches = {pitch}, .Sounds = begunOrEnded});
}

/// Bars that the notes are taken from: the selected ones, else the cursor's.
Editing::BarRange BarsToTake() { return Editing::SelectedBars().value_or(Editing::BarRange{Open.CurBar, Open.CurBar}); }

std::string BarsText(std::string_view one, std::string_view several) {
    const Editing::BarRange bars = BarsToTake();
    const std::string from = std::to_string(bars.From + 1);
    return bars.From == bars.To ? LanguageText(one, {from})
                                : LanguageText(several, {from, std::to_string(bars.To + 1)});
}

void Toggle(int pitchClass, int pitch) {
    const auto at = static_cast<std::size_t>(pitchClass);
    ScaleFinder.Notes.flip(at);
    ScaleFinder.Source.clear();
    if (!ScaleFinder.Tonic && Has(pitchClass)) ScaleFinder.Tonic = pitchClass;
    if (ScaleFinder.Tonic == pitchClass && !Has(pitchClass)) ScaleFinder.Tonic.reset();
    if (Has(pitchClass)) Sound(pitch);
    Refresh();
}

}  // namespace

void frmScaleFinder_Load() {
    Library::EnsureScales();
    Scales.Refresh();
    Refresh();
}

void frmScaleFinder_Unload() {
    if (ScaleFinder.Sounds) Library::StopRun();  // and not what another window plays
}

void LookAtFinderFolder() {
    if (Scales.Refresh()) Refresh();
}

void ToggleNote(int pitchClass) {
    constexpr int MiddleC = 60;
    if (pitchClass >= 0 && pitchClass < Octave) Toggle(pitchClass, MiddleC + pitchClass);
}

void ToggleNeckPlace(const Library::NeckPlace& place) {
    const int pitch = Core::DefaultStringPitch(place.String) + place.Fret;
    Toggle(pitch % Octave, pitch);
}

void ClearNotes() {
    ScaleFinder.Notes.reset();
    ScaleFinder.Tonic.reset();
    ScaleFinder.Source.clear();
    Refresh();
}

BarNotes NotesOfBars(const Core::Track& track, int from, int to) {
    BarNotes taken;
    if (track.IsDrum) return taken;
    for (int bar = std::max(0, from); bar <= std::min(to, track.Bars.UpperBound()); ++bar) {
        for (const Core::Strum& strum : track.Bars[bar].Strums()) {
            std::optional<int> lowest;
            for (const Shell::BoardNote& note : Shell::NotesOfStrum(track, strum)) {
                using Kind = Shell::BoardNote::Kind;
                if ((note.Is != Kind::Plain && note.Is != Kind::Ghost) || note.Pitch < 0) continue;
                taken.Notes.set(static_cast<std::size_t>(note.Pitch % Octave));
                lowest = std::min(lowest.value_or(note.Pitch), note.Pitch);
            }
            if (lowest) taken.Last = *lowest % Octave;
        }
    }
    return taken;
}

bool TakeBars() {
    if (!Shell::OnBar()) return false;
    const Editing::BarRange bars = BarsToTake();
    const BarNotes taken = NotesOfBars(Open.TabFile.Tracks[Open.CurTrack], bars.From, bars.To);
    if (taken.Notes.none()) return false;
    ScaleFinder.Notes = taken.Notes;
    ScaleFinder.Tonic = taken.Last;
    ScaleFinder.Source = BarsText("str_FinderFromBar", "str_FinderFromBars");
    Refresh();
    return true;
}

std::string TakeBarsText() { return BarsText("str_FinderTakeBar", "str_FinderTakeBars"); }

std::vector<Library::NeckDot> FinderDots() {
    std::vector<Library::NeckDot> dots;
    for (int string = 0; string < NeckStrings; ++string) {
        for (int fret = 0; fret <= Library::NeckGeometry::MostFret; ++fret) {
            const int pitch = Core::DefaultStringPitch(string) + fret;
            if (!Has(pitch)) continue;
            using Kind = Library::NeckDot::Kind;
            const bool tonic = ScaleFinder.Tonic == pitch % Octave;
            dots.push_back({{string, fret}, Library::PitchClassName(pitch), tonic ? Kind::Tonic : Kind::Tone});
        }
    }
    return dots;
}

std::vector<int> FinderStrings() {
    std::vector<int> open;
    for (int s = 0; s < NeckStrings; ++s) open.push_back(Core::DefaultStringPitch(s));
    return open;
}

FoundRow RowOf(const Library::FoundScale& found) {
    const Library::ScaleRec* const scale = Scales.Find(found.Name);
    if (!scale) return {found.Name, Library::PitchClassName(found.Key), "", ""};
    const auto classes = Library::ScaleClasses(*scale, found.Key);
    std::string besides;
    for (const Library::ScaleTone& tone : Library::ScaleTones(classes, found.Key)) {
        if (Has(tone.Class) || !classes.test(static_cast<std::size_t>(tone.Class))) continue;
        besides += (besides.empty() ? "" : "  ") + tone.Name;
    }
    return {found.Name, Library::KeyName(classes, found.Key), NamesOf(ScaleFinder.Notes & ~classes), besides};
}

std::string FinderStatus() {
    if (ScaleFinder.Notes.none()) return LanguageText("str_FinderNoNotes");
    const auto whole = std::ranges::count(ScaleFinder.Found, 0, &Library::FoundScale::Missing);
    std::string text = LanguageText("str_FinderHolds", {std::to_string(whole), NamesOf(ScaleFinder.Notes)});
    if (!ScaleFinder.Source.empty()) text = ScaleFinder.Source + ": " + text;
    return text;
}

void OpenFound(int index) {
    if (index < 0 || index >= static_cast<int>(ScaleFinder.Found.size())) return;
    const Library::FoundScale found = ScaleFinder.Found[static_cast<std::size_t>(index)];
    Shell::ShowTool(Shell::ToolWindow::Scales, true);
    OpenScale(found.Name, found.Key);
}

}  // namespace Quillon::Tools
