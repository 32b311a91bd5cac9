// The parts of the table of commands, and the names that they share.
#pragma once

#include <span>
#include <string_view>

#include "shell/Commands.h"

namespace Quillon::Shell {

// Text keys of the menus, from left to right.
constexpr std::string_view FileMenu = "str_MenuFile";
constexpr std::string_view EditMenu = "str_MenuEdit";
constexpr std::string_view ViewMenu = "str_MenuView";
constexpr std::string_view SoundMenu = "str_MenuSound";
constexpr std::string_view NoteMenu = "str_MenuNote";
constexpr std::string_view ChordMenu = "str_MenuChord";
constexpr std::string_view BarMenu = "str_MenuBar";
constexpr std::string_view TrackMenu = "str_MenuTrack";
constexpr std::string_view GoMenu = "str_MenuGo";
constexpr std::string_view OperationsMenu = "str_MenuOperations";
constexpr std::string_view ToolsMenu = "str_MenuTools";
constexpr std::string_view HelpMenu = "str_MenuHelp";

// Submenus that several parts fill.
constexpr std::string_view ToolbarsMenu = "str_MenuView/str_MenuToolbars";
constexpr std::string_view ImportMenu = "str_MenuFile/str_MenuImport";
constexpr std::string_view ExportMenu = "str_MenuFile/str_MenuExport";
constexpr std::string_view NoteEffectsMenu = "str_MenuNote/str_MenuNoteEffects";

// The parts. Within a menu their rows stand in the order of this list.
std::span<const Command> NoteCommandRows();
std::span<const Command> ChordCommandRows();
std::span<const Command> EffectCommandRows();
std::span<const Command> BarCommandRows();
std::span<const Command> ClipboardCommandRows();
std::span<const Command> GoCommandRows();
std::span<const Command> TrackCommandRows();
std::span<const Command> BoardCommandRows();
std::span<const Command> ExchangeCommandRows();
std::span<const Command> ToolCommandRows();

}  // namespace Quillon::Shell
