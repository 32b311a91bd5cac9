#include "shell/PercAssistant.h"

#include "core/mod_Instruments.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_NoteEntry.h"
#include "shell/CursorState.h"
#include "shell/DialogModels.h"
#include "shell/EditCommands.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

using Core::Open;

PercAssistantState PercAssistant;

namespace {

std::string SoundName(int sound) {
    const auto names = Core::DrumSoundNames();
    if (sound < 0 || sound >= static_cast<int>(names.size())) return std::to_string(sound);
    return names[static_cast<std::size_t>(sound)];
}

void TakeCursor() {
    const auto& bars = Open.TabFile.Tracks[Open.CurTrack].Bars;
    if (Open.CurBar >= bars.Count() || Open.CurStrum >= bars[Open.CurBar].Strums().Count()) return;
    PercAssistant.String = Open.CurString;
    PercAssistant.Fret = bars[Open.CurBar].Strums()[Open.CurStrum].Notes[Open.CurString].Fret;
}

}  // namespace

std::vector<PercLetter> PercLetters() {
    std::vector<PercLetter> letters;
    if (!OnDrumTrack()) return letters;
    const Core::PercAssignment& plays = Open.TabFile.Tracks[Open.CurTrack].PercStrings[PercAssistant.String];
    for (const Core::PercussionLetter& each : Core::PercussionLetters()) {
        letters.push_back(
            {each.Letter, SoundName(plays.*each.Sound), plays.*each.Sound != 0, PercAssistant.Fret == each.Letter});
    }
    return letters;
}

std::string PercAssistantTitle() {
    if (!OnDrumTrack()) return "";
    return Core::LanguageText("str_PercAssistantOf",
                              {Open.TabFile.Tracks[Open.CurTrack].Name, std::to_string(PercAssistant.String + 1)});
}

bool PercAssistantShows() {
    const int before = PercAssistant.Track;
    PercAssistant.Track = Open.CurTrack;
    if (!OnDrumTrack()) return false;
    if (before != Open.CurTrack) {
        TakeCursor();
        if (Core::Settings.ShowPercussionAssistant) PercAssistant.IsOpen = true;
        if (PercAssistant.IsOpen) Program.View->FillPercAssistant();
    }
    return PercAssistant.IsOpen;
}

void RefreshPercAssistant() {
    if (!OnDrumTrack() || !PercAssistant.IsOpen) return;
    TakeCursor();
    Program.View->FillPercAssistant();
}

void PercLetter_Click(int index) {
    const auto letters = Core::PercussionLetters();
    if (Sound.Playing || !OnDrumTrack() || index < 0 || index >= static_cast<int>(letters.size())) return;
    if (!PasswordCorrect()) return;
    const std::string letter = letters[static_cast<std::size_t>(index)].Letter;
    const Core::Strum& strum = Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum);
    const double length = Core::StrumLength(strum);
    if (strum.Notes[Open.CurString].Fret != letter) {
        Core::EditStrum(Open.CurTrack, Open.CurBar, Open.CurStrum).Notes.Edit(Open.CurString).Fret = letter;
        MarkEdited();
    }
    if (Core::Settings.PlayNotesAsTyped && Editing::Entry.SoundStrum) Editing::Entry.SoundStrum(length);
    ShowEdited();
}

void cmdPercAssignment_Click() {
    if (Sound.Playing || !OnDrumTrack() || !PasswordCorrect()) return;
    TrackPropertiesModel model;
    model.Load(Open.CurTrack);
    model.DrumsFirst = true;
    if (Program.Dialogs->Edit(model) && model.Apply()) ShowEdited();
}

void PercAssistantClosed() {
    PercAssistant.IsOpen = false;
    Program.View->UpdateCommands();
}

void mnuToolsPercAssistant_Click() {
    PercAssistant.IsOpen = !PercAssistant.IsOpen;
    RefreshPercAssistant();
    Program.View->UpdateCommands();
}

}  // namespace Quillon::Shell
