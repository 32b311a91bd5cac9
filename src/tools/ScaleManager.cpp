#include "tools/ScaleManager.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "library/NoteRun.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "tools/Questions.h"
#include "tools/ScaleEditModel.h"

namespace Quillon::Tools {

using Core::LanguageText;
using Library::ScaleOctave;
using Library::Scales;
using Kind = Library::ScaleFilter::Kind;

ScaleManagerState ScaleManager;

namespace {

constexpr const char* Section = "Scales";
constexpr int Classes = 12;

int Kept(std::string_view key, int otherwise, int least, int most) {
    const auto text = Services.Settings->Find(Section, key);
    int value = otherwise;
    if (text) std::from_chars(text->data(), text->data() + text->size(), value);
    return value < least || value > most ? otherwise : value;
}

void Keep(std::string_view key, int value) { Services.Settings->Save(Section, key, std::to_string(value)); }

void Tell() {
    if (ScaleManager.Changed) ScaleManager.Changed();
}

/// With every change: the program may end while the window shows.
void KeepSettings() {
    const ScaleManagerState& now = ScaleManager;
    Keep("Lefthanded", now.View.LeftHanded ? 1 : 0);
    Keep("Key", now.View.Key);
    Keep("Degrees", now.View.Degrees ? 1 : 0);
    Keep("WholeNeck", now.View.WholeNeck ? 1 : 0);
    Keep("Octave", static_cast<int>(now.Octave));
    Keep("Descending", now.Descending ? 1 : 0);
    Keep("NotesAMinute", now.NotesAMinute);
    Services.Settings->Save(Section, "Scale", now.Chosen);
}

/// Something that is kept changed.
void KeepAndTell() {
    KeepSettings();
    Tell();
}

Library::ScaleFilter Filter() {
    const auto& text = ScaleManager.Panel == Kind::Keywords ? ScaleManager.txtKeywords : ScaleManager.txtSearch;
    return {ScaleManager.Panel, text, ScaleManager.Strings};
}

void ShowPanel(Kind panel) {
    ScaleManager.Panel = panel;
    ScaleSearch::RefreshFilter();
}

/// A run that ended was perhaps another tool's.
void ShowSounding(const std::vector<int>& run, int index) {
    ScaleManager.View.Sounding = index < 0 ? -1 : run.at(static_cast<std::size_t>(index));
    Tell();
    // Stop is there while something sounds. Without its window the manager goes with the whole program.
    if (index <= 0 && ScaleManager.Changed) Shell::Program.View->UpdateCommands();
}

void Play(std::vector<int> pitches) {
    constexpr std::int32_t Minute = 60'000;
    Library::NoteRun run;
    run.Pitches = pitches;
    run.Pause = Minute / ScaleManager.NotesAMinute;
    run.Reverb = Core::Settings.ScaleReverb;
    run.Sounds = [heard = std::move(pitches)](int index) { ShowSounding(heard, index); };
    Library::PlayRun(std::move(run));
}

/// After the folder was written: the scale of a name is shown, whatever passes the filter.
void ShowWritten(const std::string& name) {
    Scales.Refresh();
    ScaleManager.Chosen = name;
    if (ScaleManager.Panel != Kind::All) ScaleManager.Panel = Kind::All;
    ScaleSearch::RefreshFilter();
}

}  // namespace

void frmScaleManager_Load() {
    ScaleManagerState& now = ScaleManager;
    now = {.Changed = std::move(now.Changed)};
    now.View.LeftHanded = Kept("Lefthanded", 0, 0, 1) == 1;
    now.View.Key = Kept("Key", now.View.Key, 0, Classes - 1);
    now.View.Degrees = Kept("Degrees", 0, 0, 1) == 1;
    now.View.WholeNeck = Kept("WholeNeck", 1, 0, 1) == 1;
    now.Octave = static_cast<ScaleOctave>(Kept("Octave", 0, 0, static_cast<int>(ScaleOctave::Both)));
    now.Descending = Kept("Descending", 0, 0, 1) == 1;
    now.NotesAMinute = Kept("NotesAMinute", now.NotesAMinute, LeastNotesAMinute, MostNotesAMinute);
    now.Chosen = Services.Settings->Get(Section, "Scale", "Major");
    Library::EnsureScales();
    Scales.Refresh();
    ScaleSearch::RefreshFilter();
}

void frmScaleManager_Unload() { StopScale(); }

void ScaleSearch::RefreshFilter() {
    auto& list = ScaleManager.lstScales;
    list = Library::FilteredScales(Scales, Filter());
    std::erase_if(list, [](const std::string& name) { return !Scales.Find(name); });
    ScaleManager.PassedBy = Scales.Unreadable();
    if (std::ranges::find(list, ScaleManager.Chosen) == list.end() && !list.empty()) ScaleManager.Chosen = list.front();
    KeepAndTell();
}

void LookAtScaleFolder() {
    if (!Services.Files->Exists(Scales.Folder())) Library::EnsureScales();
    if (Scales.Refresh()) ScaleSearch::RefreshFilter();
}

std::string ScaleCountText() {
    const std::string shown = std::to_string(ScaleManager.lstScales.size());
    const std::string all = std::to_string(static_cast<int>(Scales.Names().size()) - ScaleManager.PassedBy);
    const std::string text = LanguageText(shown == all ? "str_ScaleCountAll" : "str_ScaleCount", {shown, all});
    return text + PassedByText(ScaleManager.PassedBy);
}

void ScaleSearch::mnuSearchName_Click() { ShowPanel(Kind::Name); }
void ScaleSearch::mnuSearchKeywords_Click() { ShowPanel(Kind::Keywords); }
void ScaleSearch::mnuSearchStrings_Click() { ShowPanel(Kind::Strings); }

void ScaleSearch::mnuSearchClear_Click() {
    ScaleManager.txtSearch.clear();
    ScaleManager.txtKeywords.clear();
    ShowPanel(Kind::All);
}

void mnuFindScale_Click() { Shell::ShowTool(Shell::ToolWindow::ScaleFinder, true); }

void SetSearch(const std::string& text) {
    (ScaleManager.Panel == Kind::Keywords ? ScaleManager.txtKeywords : ScaleManager.txtSearch) = text;
    ScaleSearch::RefreshFilter();
}

void SetSearchStrings(int strings) {
    ScaleManager.Strings = strings;
    ScaleSearch::RefreshFilter();
}

const Library::ScaleRec* ChosenScale() { return Scales.Find(ScaleManager.Chosen); }

void ChooseScale(const std::string& name) {
    if (name == ScaleManager.Chosen) return;
    StopScale();
    ScaleManager.Chosen = name;
    KeepAndTell();
}

void OpenScale(const std::string& name, int key) {
    StopScale();
    ScaleManager.View.Key = key;
    ScaleManager.Chosen = name;
    const auto& list = ScaleManager.lstScales;
    if (std::ranges::find(list, name) == list.end()) ScaleManager.Panel = Kind::All;
    ScaleSearch::RefreshFilter();
}

void SetScaleKey(int key) {
    if (key < 0 || key >= Classes || key == ScaleManager.View.Key) return;
    StopScale();
    ScaleManager.View.Key = key;
    KeepAndTell();
}

std::string ShownScaleCaption() {
    const Library::ScaleRec* const scale = ChosenScale();
    return scale ? Library::ScaleCaption(ScaleManager.Chosen, *scale, ScaleManager.View.Key) : "";
}

std::string ScaleTonesText() {
    const Library::ScaleRec* const scale = ChosenScale();
    if (!scale) return "";
    std::string names, degrees;
    for (const auto& tone :
         Library::ScaleTones(Library::ScaleClasses(*scale, ScaleManager.View.Key), ScaleManager.View.Key)) {
        names += (names.empty() ? "" : "  ") + tone.Name;
        degrees += (degrees.empty() ? "" : "  ") + tone.Degree;
    }
    return names + "   \u2013   " + degrees;
}

void mnuLow_Click() {
    ScaleManager.Octave = ScaleOctave::Low;
    KeepAndTell();
}

void mnuHigh_Click() {
    ScaleManager.Octave = ScaleOctave::High;
    KeepAndTell();
}

void mnuBothOctaves_Click() {
    ScaleManager.Octave = ScaleOctave::Both;
    KeepAndTell();
}

void mnuAscend_Click() {
    ScaleManager.Descending = false;
    KeepAndTell();
}

void mnuDescending_Click() {
    ScaleManager.Descending = true;
    KeepAndTell();
}

void SetScaleReverb(bool on) {
    Core::Settings.ScaleReverb = on;
    Shell::KeepSettings();
    Tell();
}

void SetNotesAMinute(int notes) {
    ScaleManager.NotesAMinute = std::clamp(notes, LeastNotesAMinute, MostNotesAMinute);
    KeepAndTell();
}

void mnuLefty_Click() {
    ScaleManager.View.LeftHanded = !ScaleManager.View.LeftHanded;
    KeepAndTell();
}

bool NeckIsLeftHanded() { return Kept("Lefthanded", 0, 0, 1) == 1; }

void mnuDegrees_Click() {
    ScaleManager.View.Degrees = !ScaleManager.View.Degrees;
    KeepAndTell();
}

void mnuWholeNeck_Click() {
    ScaleManager.View.WholeNeck = !ScaleManager.View.WholeNeck;
    KeepAndTell();
}

void PlayScale() {
    if (ScaleManager.View.Sounding >= 0) return StopScale();
    const Library::ScaleRec* const scale = ChosenScale();
    if (!scale) return;
    Play(Library::ScaleRun(*scale, ScaleManager.View.Key, ScaleManager.Octave, ScaleManager.Descending));
}

void SoundNeckPlace(const Library::NeckPlace& place) {
    const Library::ScaleRec* const scale = ChosenScale();
    if (scale && place.String >= 0 && place.String < scale->NumStrings) {
        Play({scale->Tuning[place.String] + place.Fret});
    }
}

void StopScale() {
    if (ScaleManager.View.Sounding >= 0) Library::StopRun();
}

void mnuNewScale_Click() {
    ScaleEditModel model;
    model.LoadNew(nullptr);
    if (EditUntilSaved(model, [&model] { return model.Apply(); })) ShowWritten(model.Name);
}

void mnuEditScale_Click() {
    const Library::ScaleRec* const scale = ChosenScale();
    if (!scale) return;
    ScaleEditModel model;
    model.LoadFrom(ScaleManager.Chosen, *scale);
    if (EditUntilSaved(model, [&model] { return model.Apply(); })) ShowWritten(model.Name);
}

void mnuDeleteScale_Click() {
    const std::string name = ScaleManager.Chosen;
    if (!ChosenScale() || !Agrees("str_ScaleDelete", {name})) return;
    StopScale();
    // The one below it is shown next.
    const auto& list = ScaleManager.lstScales;
    auto next = std::ranges::find(list, name);
    if (next != list.end() && ++next != list.end()) ScaleManager.Chosen = *next;
    Services.Files->Delete(Scales.FileOf(name));
    Scales.Refresh();
    ScaleSearch::RefreshFilter();
}

void mnuRestoreScales_Click() {
    if (!Agrees("str_ScaleRestore", {Scales.Folder().string()})) return;
    Library::CreateAllScales();
    Scales.Refresh();
    ScaleSearch::RefreshFilter();
}

}  // namespace Quillon::Tools
