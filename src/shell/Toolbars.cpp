#include "shell/Toolbars.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "core/mod_Settings.h"
#include "shell/CommandRows.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace {

constexpr std::array<Toolbar, Core::ToolbarCount> Table = {{
    {"File", "mnuViewToolbarFile", "str_ViewToolbarFile"},
    {"Cut Copy Paste", "mnuViewToolbarCutCopyPaste", "str_ViewToolbarCutCopyPaste"},
    {"Track", "mnuViewToolbarTrack", "str_ViewToolbarTrack"},
    {"Sound", "mnuViewToolbarSound", "str_ViewToolbarSound"},
    {"File Navigation", "mnuViewToolbarFileNavigation", "str_ViewToolbarFileNavigation"},
    {"Bar 1", "mnuViewToolbarBar1", "str_ViewToolbarBar1"},
    {"Bar 2", "mnuViewToolbarBar2", "str_ViewToolbarBar2"},
    {"Input Toolbar", "mnuViewToolbarInput", "str_ViewToolbarInput"},
    {"Beat Duration", "mnuViewToolbarBeatDuration", "str_ViewToolbarBeatDuration"},
    {"Note Editing", "mnuViewToolbarNoteEditing", "str_ViewToolbarNoteEditing"},
    {"Note Effects 1", "mnuViewToolbarNoteEffects1", "str_ViewToolbarNoteEffects1"},
    {"Note Effects 4", "mnuViewToolbarNoteEffects4", "str_ViewToolbarNoteEffects4"},
    {"Note Effects 3", "mnuViewToolbarNoteEffects3", "str_ViewToolbarNoteEffects3"},
    {"Note Effects 2", "mnuViewToolbarNoteEffects2", "str_ViewToolbarNoteEffects2"},
    {"Chord 1", "mnuViewToolbarChord1", "str_ViewToolbarChord1"},
    {"Chord 2", "mnuViewToolbarChord2", "str_ViewToolbarChord2"},
    {"Note Misc", "mnuViewToolbarNoteMisc", "str_ViewToolbarNoteMisc"},
    {"Chord 3", "mnuViewToolbarChord3", "str_ViewToolbarChord3"},
}};

constexpr Command DefaultRow = {.Name = "mnuViewToolbarsDefault",
                                .Menu = ToolbarsMenu,
                                .Text = "str_ViewToolbarsDefault",
                                .SeparatorBefore = true,
                                .Run = mnuViewToolbarsDefault_Click};

template <std::size_t Index>
constexpr Command Row() {
    return {.Name = Table[Index].Command,
            .Menu = ToolbarsMenu,
            .Text = Table[Index].Text,
            .Run = [] { SetToolbarVisible(Table[Index].Name, !IsToolbarVisible(Table[Index].Name)); },
            .Checked = [] { return IsToolbarVisible(Table[Index].Name); }};
}

template <std::size_t... Index>
constexpr std::array<Command, sizeof...(Index)> MakeRows(std::index_sequence<Index...>) {
    return {Row<Index>()...};
}

constexpr auto Rows = MakeRows(std::make_index_sequence<Table.size()>());

int SettingsToolbar(std::string_view toolbar) { return Core::ToolbarIndex(std::string(toolbar) + " Toolbar"); }

}  // namespace

std::span<const Toolbar> Toolbars() { return Table; }

std::vector<Command> ToolbarCommandRows(std::span<const std::string_view> names) {
    std::vector<Command> rows;
    for (std::size_t i = 0; i < Table.size(); ++i) {
        if (std::ranges::find(names, Table[i].Name) != names.end()) rows.push_back(Rows[i]);
    }
    rows.push_back(DefaultRow);
    return rows;
}

std::vector<bool> BeginRows(std::span<const int> widths, int room) {
    std::vector<bool> begins;
    int used = room;
    for (const int width : widths) {
        const bool begin = width > room - used;
        begins.push_back(begin || begins.empty());
        used = begins.back() ? width : used + width;
    }
    return begins;
}

void mnuViewToolbarsDefault_Click() {
    for (const Toolbar& toolbar : Table) {
        const int index = SettingsToolbar(toolbar.Name);
        Core::Settings.ToolbarVisible[index] = Core::Settings.ToolbarDocked[index] = true;
    }
    Program.ToolbarsMoved = false;
    Program.View->ArrangeToolbars();
    Program.View->UpdateCommands();
}

bool IsToolbarVisible(std::string_view toolbar) {
    const int index = SettingsToolbar(toolbar);
    return index < 0 || Core::Settings.ToolbarVisible[index];
}

void SetToolbarVisible(std::string_view toolbar, bool visible) {
    const int index = SettingsToolbar(toolbar);
    if (index < 0 || Core::Settings.ToolbarVisible[index] == visible) return;
    Core::Settings.ToolbarVisible[index] = visible;
    Program.View->UpdateCommands();
}

bool IsToolbarDocked(std::string_view toolbar) {
    const int index = SettingsToolbar(toolbar);
    return index < 0 || Core::Settings.ToolbarDocked[index];
}

void SetToolbarDocked(std::string_view toolbar, bool docked) {
    if (const int index = SettingsToolbar(toolbar); index >= 0) Core::Settings.ToolbarDocked[index] = docked;
}

}  // namespace Quillon::Shell
