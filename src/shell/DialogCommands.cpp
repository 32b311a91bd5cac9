// Commands whose work is a dialog: a model is loaded, edited by a window, and applied.
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/DialogModels.h"
#include "shell/PercAssistant.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;

void mnuFileProperties_Click() {
    if (!PasswordCorrect()) return;
    FilePropertiesModel model;
    model.Load();
    if (!Program.Dialogs->Edit(model) || !model.Apply()) return;
    Program.PasswordGiven = true;  // whoever came here typed the file's password, or has just made it up
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

void mnuTrackProperties_Click() {
    if (!PasswordCorrect()) return;
    TrackPropertiesModel model;
    model.Load(Open.CurTrack);
    if (!Program.Dialogs->Edit(model) || !model.Apply()) return;
    Program.View->RebuildTrackList();
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

void mnuFilePageSetup_Click() {
    PageSetupModel model;
    model.Load();
    if (Program.Dialogs->Edit(model) && model.Apply()) Program.View->DrawDocument();
}

void mnuFileOptions_Click() {
    OptionsModel model;
    model.Load();
    if (!Program.Dialogs->Edit(model)) return Shell::OptionsModel::Revert();
    if (!model.Apply()) return;
    PercAssistant.Track = -1;  // it may be wanted always from now on
    Program.View->LanguageChanged();
    Program.View->ThemeChanged();
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

void mnuFileExportPicture_Click() { Program.Dialogs->ExportPicture(); }

void mnuFileExit_Click() {
    if (Stop()) Program.View->CloseWindow();
}

}  // namespace Quillon::Shell
