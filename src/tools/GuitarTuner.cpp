#include "tools/GuitarTuner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"
#include "tools/Questions.h"
#include "tools/TuningEditModel.h"

namespace Quillon::Tools {

using Core::LanguageText;
using Core::Open;
using Library::Tuner;
using Library::Tunings;

GuitarTunerState GuitarTuner;

namespace {

constexpr const char* Section = "Tuner";

void Tell() {
    if (GuitarTuner.Changed) GuitarTuner.Changed();
}

void Keep() {
    const auto save = [](std::string_view key, std::string_view value) {
        Services.Settings->Save(Section, key, value);
    };
    save("Tuning", GuitarTuner.Chosen);
    save("LetRing", Tuner.LetRing ? "1" : "0");
    save("Pause", std::to_string(Tuner.Pause));
}

Library::TuningRec TrackTuning() {
    Library::TuningRec tuning;
    if (!Shell::OnFrettedTrack()) return tuning;
    const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    tuning.NumStrings = std::clamp<std::int16_t>(track.Strings, 1, Core::StringCount);
    tuning.Tuning = track.Tuning;
    return tuning;
}

/// False when the chosen one is gone; the tuning is then as it was.
bool TakeTuning() {
    const Library::TuningRec* const found = GuitarTuner.Chosen.empty() ? nullptr : Tunings.Find(GuitarTuner.Chosen);
    if (!found && !GuitarTuner.Chosen.empty()) return false;
    Tuner.Tuning = found ? *found : TrackTuning();
    return true;
}

void Fill() {
    auto& list = GuitarTuner.cmbTuning;
    list = Tunings.Names();
    std::erase_if(list, [](const std::string& name) { return !Tunings.Find(name); });
    GuitarTuner.PassedBy = Tunings.Unreadable();
    if (!GuitarTuner.Runs && !TakeTuning()) {
        GuitarTuner.Chosen.clear();
        TakeTuning();
    }
    Tell();
}

void ShowWritten(const std::string& name) {
    Tunings.Refresh();
    GuitarTuner.Chosen = name;
    Keep();
    Fill();
}

void EditTuning(const std::string& name) {
    TuningEditModel model;
    model.LoadEditor(name, Tuner.Tuning);
    if (EditUntilSaved(model, [&model] { return model.Apply(); })) ShowWritten(model.Name);
}

}  // namespace

void frmGuitarTuner_Load() {
    GuitarTuner = {.Changed = std::move(GuitarTuner.Changed)};
    Tuner = {};
    Tuner.StringSounds = [](int string) {
        const bool beginsOrEnds = string < 0 || GuitarTuner.Sounding < 0;
        GuitarTuner.Sounding = string;
        if (string < 0) {
            GuitarTuner.Runs = false;
            TunerCursorMoved();  // what the cursor did meanwhile
        }
        Tell();
        // Without its window the tuner goes with the whole program.
        if (beginsOrEnds && GuitarTuner.Changed) Shell::Program.View->UpdateCommands();
    };
    Tuner.LetRing = Services.Settings->Get(Section, "LetRing") == "1";
    const std::string pause = Services.Settings->Get(Section, "Pause");
    int value = 0;
    std::from_chars(pause.data(), pause.data() + pause.size(), value);
    if (value >= LeastTunerPause && value <= MostTunerPause) Tuner.Pause = value;
    GuitarTuner.Chosen = Services.Settings->Get(Section, "Tuning");
    Library::EnsureTunings();
    Tunings.Refresh();
    Fill();
}

void frmGuitarTuner_Unload() { StopTuner(); }

void LookAtTuningFolder() {
    if (!Services.Files->Exists(Tunings.Folder())) Library::EnsureTunings();
    if (Tunings.Refresh()) Fill();
}

void TunerCursorMoved() {
    if (!GuitarTuner.Chosen.empty() || GuitarTuner.Runs) return;
    const Library::TuningRec now = TrackTuning();
    if (now == Tuner.Tuning) return;
    Tuner.Tuning = now;
    Tell();
}

std::string TrackTuningText() {
    if (!Shell::OnFrettedTrack()) return LanguageText("str_TunerNoTrack");
    return LanguageText("str_TunerTrack", {std::to_string(Open.CurTrack + 1), Open.TabFile.Tracks[Open.CurTrack].Name});
}

void ChooseTuning(int index) {
    const auto& list = GuitarTuner.cmbTuning;
    if (GuitarTuner.Runs || index < 0 || index > static_cast<int>(list.size())) return;
    StopTuner();
    const std::string before =
        std::exchange(GuitarTuner.Chosen, index == 0 ? "" : list[static_cast<std::size_t>(index - 1)]);
    if (!TakeTuning()) GuitarTuner.Chosen = before;
    Keep();
    Tell();
}

int ChosenTuning() {
    const auto& list = GuitarTuner.cmbTuning;
    const auto found = std::ranges::find(list, GuitarTuner.Chosen);
    return found == list.end() ? 0 : static_cast<int>(found - list.begin()) + 1;
}

void MouseWheel(int notches) {
    ChooseTuning(std::clamp(ChosenTuning() - notches, 0, static_cast<int>(GuitarTuner.cmbTuning.size())));
}

std::string TuningCountText() {
    const std::string text = LanguageText("str_TuningCount", {std::to_string(GuitarTuner.cmbTuning.size())});
    return text + PassedByText(GuitarTuner.PassedBy);
}

std::string StringLetter(int string) {
    static constexpr std::array<const char*, Core::StringCount> letters = {"e", "B", "G", "D", "A", "E", "B"};
    return letters.at(static_cast<std::size_t>(string));
}

std::string StringNoteText(int string) {
    const int offset = Tuner.Tuning.Tuning[string];
    const std::string note = Core::NoteName(Core::DefaultStringPitch(string) + offset);
    if (offset == 0) return note;
    return note + (offset < 0 ? "  \u2212" : "  +") + std::to_string(std::abs(offset));
}

std::string StringSpoken(int string) {
    const std::string note = Core::NoteName(Core::DefaultStringPitch(string) + Tuner.Tuning.Tuning[string]);
    return LanguageText("str_TunerString", {std::to_string(string + 1), note});
}

void SetString(int string, bool on) {
    if (!GuitarTuner.Runs) Tuner.Chk[string] = on;
    Tell();
}

void SetLetRing(bool on) {
    Tuner.LetRing = on;
    Keep();
    Tell();
}

void SetTunerPause(int milliseconds) {
    Tuner.Pause = std::clamp(milliseconds, LeastTunerPause, MostTunerPause);
    Keep();
    Tell();
}

void PlayUp() {
    Library::PlayTuningUp();
    GuitarTuner.Runs = Library::IsTuningPlaying();
    Tell();
}

void PlayDown() {
    Library::PlayTuningDown();
    GuitarTuner.Runs = Library::IsTuningPlaying();
    Tell();
}

void PlayOne(int string) {
    if (!GuitarTuner.Runs) Library::PlayTuningString(string);
}

void StopTuner() { Library::StopTuning(); }

void mnuNewTuning_Click() { EditTuning(""); }

void mnuEditTuning_Click() {
    if (!GuitarTuner.Chosen.empty()) EditTuning(GuitarTuner.Chosen);
}

void mnuDeleteTuning_Click() {
    const std::string name = GuitarTuner.Chosen;
    if (name.empty() || GuitarTuner.Runs || !Agrees("str_TuningDelete", {name})) return;
    const int at = ChosenTuning();
    Services.Files->Delete(Tunings.FileOf(name));
    Tunings.Refresh();
    GuitarTuner.Chosen.clear();
    Fill();
    ChooseTuning(std::min(at, static_cast<int>(GuitarTuner.cmbTuning.size())));
}

void mnuRestoreTunings_Click() {
    if (!Agrees("str_TuningRestore", {Tunings.Folder().string()})) return;
    Library::CreateAllTunings();
    Tunings.Refresh();
    Fill();
}

}  // namespace Quillon::Tools
