// The Sound menu and the track list.
#include <algorithm>
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Selection.h"
#include "playback/mod_TabPlayer.h"
#include "shell/DialogModels.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

std::int16_t LastBar() { return Core::ToInt16(Open.TabFile.BarInfos.UpperBound()); }

void Toggle(bool& setting) {
    setting = !setting;
    KeepSettings();
}

}  // namespace

void mnuSoundPlayFromStart_Click() { Playback::PlayTab(0, LastBar()); }

void mnuSoundPlayFromHere_Click() { Playback::PlayTab(Open.CurBar, LastBar()); }

void mnuSoundPlayBar_Click() { Playback::PlayTab(Open.CurBar, Open.CurBar); }

void mnuSoundLoop_Click() {
    const auto bars = Editing::SelectedBars().value_or(Editing::BarRange{Open.CurBar, Open.CurBar});
    const std::string tempo = std::to_string(SpeedTrainerModel::TempoOfSong());
    // A steady tempo, and as many loops as there can be: hours.
    Playback::StartSpeedTrainer(
        {std::to_string(bars.From + 1), std::to_string(bars.To + 1), "32767", tempo, tempo, "0"});
}

void mnuSoundStop_Click() {
    Playback::StopTab();
    SilenceTools();
}

void mnuSoundSpeedTrainer_Click() {
    SpeedTrainerModel model;
    model.Load();
    if (Program.Dialogs->Edit(model)) Playback::StartSpeedTrainer(model.Fields);
}

void mnuSoundMetronome_Click() { Toggle(Core::Settings.Metronome); }
void mnuSoundCountIn_Click() { Toggle(Core::Settings.CountIn); }
void mnuSoundFollow_Click() {
    Toggle(Core::Settings.FollowTabPlayback);
    Program.View->MovePlayMarker();
}

int MixTableTrack(int y, int scroll) {
    const double row = Core::RoundHalfEven((y - 10) / double{MixRowHeight}) + scroll;
    return row >= 0 && row <= Open.TabFile.Tracks.UpperBound() ? static_cast<int>(row) : -1;
}

void picMixTable_MouseDown(int y, int scroll) {
    const int track = MixTableTrack(y, scroll);
    if (track < 0) return;
    Open.CurTrack = Core::ToInt16(track);
    Open.CurBar = Open.CurStrum = Open.CurString = 0;
    Drawing::Page.LayoutDirty = 1;
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
    Program.View->MovePlayMarker();
    if (Sound.Playing) Program.View->ScrollToBar(Playback::Player.PlayBar);
}

void picMixTable_Open(int y, int scroll) {
    if (Sound.Playing || MixTableTrack(y, scroll) < 0) return;
    ShowTrack(MixTableTrack(y, scroll));
    mnuTrackProperties_Click();
}

}  // namespace Quillon::Shell
