#include "tools/ChordManager.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_NotationDrawing.h"
#include "library/ChordBoxes.h"
#include "library/ChordNaming.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"

namespace Quillon::Tools {

using Core::LanguageText;
using Core::Open;
using Library::Chords;
using Kind = Library::ChordFilter::Kind;

ChordManagerState ChordManager;

namespace {

constexpr std::string_view Section = "Chords";

bool StoredFlag(std::string_view key, bool otherwise) {
    const std::string text = Services.Settings->Get(Section, key);
    return text == "1" || (text != "0" && otherwise);
}

int StoredMode(int otherwise) {
    try {
        const std::string text = Services.Settings->Get(Section, "DisplayMode");
        const int mode = text.empty() ? otherwise : Core::ParseInt16(text);
        return mode >= 0 && mode < Library::DisplayModes ? mode : otherwise;
    } catch (const RunTimeError&) {
        return otherwise;
    }
}

/// With every change: the window may be gone when the program ends.
void Keep() {
    const auto save = [](std::string_view key, int value) {
        Services.Settings->Save(Section, key, std::to_string(value));
    };
    save("Lefthanded", ChordManager.Lefthanded ? 1 : 0);
    save("WindowsColors", ChordManager.WindowsColors ? 1 : 0);
    save("DisplayMode", ChordManager.DisplayMode);
}

void RefreshView() {
    if (ChordManager.View) ChordManager.View->RefreshView();
}

/// "1,555" as the language writes it.
std::string WithThousands(std::size_t number) {
    constexpr std::size_t Thousand = 1000, Digits = 3;
    if (number < Thousand) return std::to_string(number);
    const std::string rest = std::to_string(number % Thousand);
    return LanguageText("str_Thousands",
                        {std::to_string(number / Thousand), std::string(Digits - rest.size(), '0') + rest});
}

void SearchBy(Kind kind) {
    ChordManager.Filter.By = kind;
    RefreshFilter();
}

/// False also for a file that can't be read.
bool Holds(const std::filesystem::path& file, const std::string& bytes) {
    try {
        return Services.Files->Read(file) == bytes;
    } catch (const RunTimeError&) {
        return false;
    }
}

/// Only those that are shown can be meant.
void ForgetHidden() {
    std::set<std::string> shown;
    for (const std::string& name : ChordManager.lstChords) {
        if (ChordManager.Chosen.contains(name)) shown.insert(name);
    }
    ChordManager.Chosen = std::move(shown);
}

}  // namespace

void ChordManager_Load(ChordView& view) {
    ChordManager = {};
    ChordManager.View = &view;
    ChordManager.Lefthanded = StoredFlag("Lefthanded", false);
    ChordManager.WindowsColors = StoredFlag("WindowsColors", true);
    ChordManager.DisplayMode = StoredMode(ChordManager.DisplayMode);
    ChordManager.ShowErrors = Services.Files->Exists(Services.BaseFolder / "Data" / "ShowErrors.txt");
    Library::EnsureChords();
    Chords.Refresh();
    RefreshFilter();
}

void ChordManager_Unload() {
    ChordManager.View = nullptr;  // the window is on its way out
    StopChord();
    ChordManager = {};
}

void ChordFolderChanged() {
    Library::EnsureChords();
    if (Chords.Refresh()) RefreshFilter();
}

void RefreshFilter() {
    const std::string current = CurrentChord();
    const std::string anchor = ChordManager.Anchor >= 0 && ChordManager.Anchor < std::ssize(ChordManager.lstChords)
                                   ? ChordManager.lstChords.at(static_cast<std::size_t>(ChordManager.Anchor))
                                   : std::string();
    ChordManager.lstChords = Library::FilteredChords(Chords, ChordManager.Filter, Open);
    const auto indexOf = [](const std::string& name) {
        const auto found = std::ranges::find(ChordManager.lstChords, name);
        return found == ChordManager.lstChords.end() ? -1 : static_cast<int>(found - ChordManager.lstChords.begin());
    };
    ChordManager.Current = indexOf(current);
    ChordManager.Anchor = indexOf(anchor);
    ForgetHidden();
    if (ChordManager.Current < 0 && !ChordManager.lstChords.empty()) {
        // The first match is where Enter works, so that a name typed is a chord heard.
        ChordManager.Current = ChordManager.Anchor = 0;
        if (ChordManager.Chosen.empty()) ChordManager.Chosen = {ChordManager.lstChords.front()};
    }
    RefreshView();
}

void ChordCursorMoved() {
    if (ChordManager.Filter.By != Kind::InTrack) return;
    if (Library::FilteredChords(Chords, ChordManager.Filter, Open) != ChordManager.lstChords) RefreshFilter();
}

std::string ChordCountText() {
    std::string text = LanguageText(
        "str_ChordCount", {WithThousands(ChordManager.lstChords.size()), WithThousands(Chords.Names().size())});
    const std::vector<std::string> passed = Chords.KnownUnreadable();
    if (passed.size() == 1) text += LanguageText("str_ChordPassedOne");
    if (passed.size() > 1) text += LanguageText("str_ChordsPassed", {WithThousands(passed.size())});
    for (std::size_t file = 0; ChordManager.ShowErrors && file < passed.size(); ++file) {
        text += (file == 0 ? ": " : ", ") + passed[file];
    }
    return text;
}

std::string ChordAtCursor() {
    if (!Shell::InScore() || Shell::OnDrumTrack()) return {};
    const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
    const Core::Bar& bar = track.Bars[Open.CurBar];
    const Core::Strum& strum = bar.Strums()[Open.CurStrum];
    std::vector<int> pitches;
    for (int string = 0; string < track.Strings && string < Core::StringCount; ++string) {
        const std::string& fret = strum.Notes[string].Fret;
        if (fret.empty() || !std::ranges::all_of(fret, [](unsigned char c) { return c >= '0' && c <= '9'; })) continue;
        pitches.push_back(Core::OpenPitch(track, string) + Core::ParseInt16(fret));
    }
    if (pitches.size() < 2) return {};
    const auto names = Library::ChordNames(pitches, Drawing::KeyUsesFlats(bar.Key));
    return names.empty() ? std::string() : names.front();
}

// The search panels ---------------------------------------------------------------------------------------------------

void mnuSearchName_Click() { SearchBy(Kind::Name); }
void mnuSearchTab_Click() { SearchBy(Kind::Tab); }
void mnuSearchStrings_Click() { SearchBy(Kind::Strings); }
void mnuSearchChordsInCurrentFile_Click() { SearchBy(Kind::InTrack); }

void mnuSearchClear_Click() {
    ChordManager.Filter = {};
    RefreshFilter();
}

void txtSearch_Change(const std::string& text) {
    ChordManager.Filter.Text = text;
    SearchBy(Kind::Name);
}

void txtTabSearch_Change(int box, const std::string& text) {
    ChordManager.Filter.Tab[box] = Core::TrimBlanks(text);
    SearchBy(Kind::Tab);
}

void optString_Click(int strings) {
    ChordManager.Filter.Strings = strings;
    SearchBy(Kind::Strings);
}

// The look ------------------------------------------------------------------------------------------------------------

std::string DisplayModeKey(int mode) { return "str_ChordShows" + std::to_string(mode); }

void mnuDisplay_Click(int mode) {
    Library::ModeOf(mode);  // raises for one that there is not
    ChordManager.DisplayMode = mode;
    Keep();
    RefreshView();
}

void mnuViewLefty_Click() {
    ChordManager.Lefthanded = !ChordManager.Lefthanded;
    Keep();
    RefreshView();
}

void mnuWindowsColors_Click() {
    ChordManager.WindowsColors = !ChordManager.WindowsColors;
    Keep();
    RefreshView();
}

// The chosen ones -----------------------------------------------------------------------------------------------------

std::string CurrentChord() {
    const int current = ChordManager.Current;
    if (current < 0 || current >= std::ssize(ChordManager.lstChords)) return {};
    return ChordManager.lstChords.at(static_cast<std::size_t>(current));
}

std::vector<std::string> ChosenChords() {
    std::vector<std::string> names;
    std::ranges::copy_if(ChordManager.lstChords, std::back_inserter(names),
                         [](const std::string& name) { return ChordManager.Chosen.contains(name); });
    return names;
}

void ChooseChord(int index, Choose how) {
    if (index < 0 || index >= std::ssize(ChordManager.lstChords)) return;
    const auto nameAt = [](int at) { return ChordManager.lstChords.at(static_cast<std::size_t>(at)); };
    const bool other = index != ChordManager.Current;
    ChordManager.Current = index;
    switch (how) {
        case Choose::Only:
            ChordManager.Chosen = {nameAt(index)};
            ChordManager.Anchor = index;
            break;
        case Choose::Toggle:
            if (!ChordManager.Chosen.insert(nameAt(index)).second) ChordManager.Chosen.erase(nameAt(index));
            ChordManager.Anchor = index;
            break;
        case Choose::Range: {
            if (ChordManager.Anchor < 0) ChordManager.Anchor = index;
            const auto [from, to] = std::minmax(ChordManager.Anchor, index);
            ChordManager.Chosen.clear();
            for (int at = from; at <= to; ++at) ChordManager.Chosen.insert(nameAt(at));
            break;
        }
        case Choose::Move:
            break;
    }
    if (ChordManager.View) ChordManager.View->RefreshChosen();
    if (other && how == Choose::Only && Core::Settings.PlayChordsOnLoad) PlayCurrentChord();
}

void ShowChord(const std::string& name) {
    const auto indexOf = [&name] {
        const auto found = std::ranges::find(ChordManager.lstChords, name);
        return found == ChordManager.lstChords.end() ? -1 : static_cast<int>(found - ChordManager.lstChords.begin());
    };
    if (indexOf() < 0) mnuSearchClear_Click();
    ChooseChord(indexOf(), Choose::Only);
}

void ChooseAllChords() {
    ChordManager.Chosen = {ChordManager.lstChords.begin(), ChordManager.lstChords.end()};
    if (ChordManager.View) ChordManager.View->RefreshChosen();
}

// Restoring ----------------------------------------------------------------------------------------------------------

void mnuResetChords_Click() {
    // A person's own are those of other names, and those that were changed.
    std::size_t others = 0;
    std::map<std::string, std::string> defaults;
    for (NamedBytes& file : Library::DefaultChords()) defaults.emplace(std::move(file.Name), std::move(file.Bytes));
    Chords.Refresh();
    for (const std::string& name : Chords.Names()) {
        const auto known = defaults.find(name);
        if (known == defaults.end() || !Holds(Chords.FileOf(name), known->second)) ++others;
    }
    const std::string question =
        others == 0 ? LanguageText("str_ChordsRestore", {WithThousands(defaults.size()), Chords.Folder().string()})
                    : LanguageText("str_ChordsRestoreLosing",
                                   {WithThousands(defaults.size()), Chords.Folder().string(), WithThousands(others)});
    const Answer answer = Services.Messages->Show(question, LanguageText("str_TitleQuestion"), Buttons::YesNo,
                                                  others == 0 ? BoxIcon::Question : BoxIcon::Exclamation);
    if (answer != Answer::Yes) return;
    Library::CreateAllChords();
    ChordFolderChanged();
    Shell::Program.View->ShowStatus(LanguageText("str_ChordsRestored", {WithThousands(defaults.size())}));
}

}  // namespace Quillon::Tools
