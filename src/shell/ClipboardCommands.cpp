#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "editing/mod_BarClipboard.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "shell/BarCommands.h"
#include "shell/BarModels.h"
#include "shell/CommandRows.h"
#include "shell/EditCommands.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Task = CutCopyPasteModel::Task;

namespace {

void CutCopyPaste(Task task) {
    // Who may not change the song may still copy from it.
    if (task != Task::Copy && !PasswordCorrect()) return;
    CutCopyPasteModel model;
    model.Load(task);
    if (!Program.Dialogs->Edit(model)) return;
    model.Apply();
    if (task != Task::Paste) {
        Program.View->ShowStatus(Core::LanguageText("str_OnClipboard", {CutCopyPasteModel::CopiedText()}));
    }
    if (task == Task::Copy) return Program.View->UpdateCommands();
    ShowEdited();
}

bool HasCopied() { return Editing::BarClipboard.Copied.has_value(); }

bool HasStrings() {
    for (const Core::Track& track : Core::Open.TabFile.Tracks) {
        if (!track.IsDrum) return true;
    }
    return false;
}

constexpr std::string_view ClipboardToolbar = "Cut Copy Paste";

constexpr Command Table[] = {
    {.Name = "mnuEditCut",
     .Menu = EditMenu,
     .Text = "str_EditCut",
     .Shortcut = "Ctrl+X",
     .Icon = "cut",
     .Toolbar = ClipboardToolbar,
     .SeparatorBefore = true,
     .RightMenu = true,
     .Run = mnuEditCut_Click},
    {.Name = "mnuEditCopy",
     .Menu = EditMenu,
     .Text = "str_EditCopy",
     .Shortcut = "Ctrl+C",
     .Icon = "copy",
     .Toolbar = ClipboardToolbar,
     .RightMenu = true,
     .Run = mnuEditCopy_Click},
    {.Name = "mnuEditPaste",
     .Menu = EditMenu,
     .Text = "str_EditPaste",
     .Shortcut = "Ctrl+V",
     .Icon = "paste",
     .Toolbar = ClipboardToolbar,
     .RightMenu = true,
     .Run = mnuEditPaste_Click,
     .Enabled = HasCopied},
    {.Name = "mnuOperationsTranspose",
     .Menu = OperationsMenu,
     .Text = "str_OperationsTranspose",
     .Icon = "transpose",
     .Run = mnuOperationsTranspose_Click,
     .Enabled = HasStrings},
};

}  // namespace

std::span<const Command> ClipboardCommandRows() { return Table; }

void mnuEditCut_Click() { CutCopyPaste(Task::Cut); }
void mnuEditCopy_Click() { CutCopyPaste(Task::Copy); }
void mnuEditPaste_Click() { CutCopyPaste(Task::Paste); }

void mnuOperationsTranspose_Click() {
    if (!PasswordCorrect()) return;
    TransposeModel model;
    model.Load();
    if (!Program.Dialogs->Edit(model)) return;
    const std::string complaint = model.Apply();
    if (complaint.empty()) return ShowEdited();
    Services.Messages->Show(complaint, Core::LanguageText("str_TitleNote"), Buttons::Ok, BoxIcon::Exclamation);
}

}  // namespace Quillon::Shell
