// What comes in from elsewhere, in the menus Edit and View; the rows of the menu File stand with its others.
#include "shell/AsciiImportModel.h"
#include "shell/CommandRows.h"

namespace Quillon::Shell {

namespace {

constexpr Command Table[] = {
    {.Name = "mnuEditPasteTab",
     .Menu = EditMenu,
     .Text = "str_EditPasteTab",
     .Shortcut = "Ctrl+Shift+V",
     .Icon = "import-text",
     .Run = mnuFileImportClipboard_Click},
    {.Name = "mnuViewImportReport",
     .Menu = ViewMenu,
     .Text = "str_ViewImportReport",
     .Icon = "import-report",
     .Run = mnuViewImportReport_Click,
     .Enabled = HasImportReport},
};

}  // namespace

std::span<const Command> ExchangeCommandRows() { return Table; }

}  // namespace Quillon::Shell
