#include "shell/TrackCommands.h"

#include "core/mod_TabFileStructure.h"
#include "shell/BatchFixModel.h"
#include "shell/CommandRows.h"
#include "shell/CursorState.h"
#include "shell/EditCommands.h"
#include "shell/InstrumentModel.h"
#include "shell/LyricsModel.h"
#include "shell/PasswordModel.h"
#include "shell/PercAssistant.h"
#include "shell/TuningLoaderModel.h"
#include "shell/TuningModel.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

bool IsLocked() { return Open.TabFile.HasPassword; }

constexpr Command Table[] = {
    {.Name = "mnuTrackTuning",
     .Menu = TrackMenu,
     .Text = "str_TrackTuningCommand",
     .About = "str_TuningAbout",
     .Shortcut = "Ctrl+U",
     .Icon = "tuning",
     .Toolbar = "Track",
     .SeparatorBefore = true,
     .Run = mnuTrackTuning_Click,
     .Enabled = OnFrettedTrack},
    {.Name = "mnuTrackLoadTuning",
     .Menu = TrackMenu,
     .Text = "str_TrackLoadTuning",
     .About = "str_TuningAbout",
     .Icon = "tuning-load",
     .Run = mnuTrackLoadTuning_Click,
     .Enabled = OnFrettedTrack},
    {.Name = "mnuTrackInstrument",
     .Menu = TrackMenu,
     .Text = "str_TrackInstrumentCommand",
     .Icon = "instrument",
     .Toolbar = "Track",
     .Run = mnuTrackInstrument_Click,
     .Enabled = OnFrettedTrack},
    {.Name = "mnuTrackLyrics",
     .Menu = TrackMenu,
     .Text = "str_TrackLyricsCommand",
     .Shortcut = "Ctrl+Shift+Y",
     .Icon = "lyrics",
     .Toolbar = "Track",
     .Run = mnuTrackLyrics_Click},
    {.Name = "mnuFilePassword",
     .Menu = FileMenu,
     .Text = "str_FilePassword",
     .Icon = "password",
     .Run = mnuFilePassword_Click,
     .Checked = IsLocked},
    {.Name = "mnuOperationsFixBars",
     .Menu = OperationsMenu,
     .Text = "str_OperationsFixBars",
     .Icon = "bars-fix",
     .Run = mnuOperationsFixBars_Click},
    {.Name = "mnuToolsPercAssistant",
     .Menu = ToolsMenu,
     .Text = "str_ToolsPercAssistant",
     .Shortcut = "Ctrl+D",
     .Icon = "drum-letters",
     .Run = mnuToolsPercAssistant_Click,
     .Enabled = OnDrumTrack,
     .Checked = [] { return OnDrumTrack() && PercAssistant.IsOpen; }},
};

}  // namespace

std::span<const Command> TrackCommandRows() { return Table; }

void mnuTrackTuning_Click() { ByDialog<TuningModel>(); }
void mnuTrackLoadTuning_Click() { ByDialog<TuningLoaderModel>(); }
void mnuTrackInstrument_Click() { ByDialog<InstrumentModel>(); }
void mnuTrackLyrics_Click() { ByDialog<LyricsModel>(); }

// Not ByDialog: the window itself asks for the old password, though it was given before.
void mnuFilePassword_Click() {
    PasswordModel model;
    model.Load();
    if (Program.Dialogs->Edit(model) && model.Apply()) Program.View->UpdateCommands();
}

void mnuOperationsFixBars_Click() {
    if (!PasswordCorrect()) return;
    BatchFixModel model;
    model.Load();
    if (Program.Dialogs->Edit(model)) FixBars(model);
}

}  // namespace Quillon::Shell
