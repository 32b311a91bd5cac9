// The one table of commands. Menus, toolbars, shortcuts and the list of keys are built from it, in its order.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace Quillon::Shell {

struct Command {
    enum class Kind : std::uint8_t { Plain, RecentFiles, GotoPoints };

    std::string_view Name = {};      ///< of the menu item: "mnuFileNew" is handled by mnuFileNew_Click
    std::string_view Menu = {};      ///< text keys of the menu and its submenus, joined by "/"
    std::string_view Text = {};      ///< text key of the caption
    std::string_view About = {};     ///< text key of words that find it too: what its dialog holds; "" for none
    std::string_view Shortcut = {};  ///< as "Ctrl+Shift+S", "" for none; further ones follow behind a blank
    std::string_view ScoreKey =
        {};  ///< the key of the score that does the same with a step of undo, as "Shift+T": shown, not bound
    std::string_view Icon = {};  ///< name of an SVG icon without its ending, "" for none
    std::string_view Toolbar =
        {};  ///< the toolbar that shows it: "File" is the "File Toolbar" of the settings; "" for none
    bool SeparatorBefore = false;
    bool RightMenu = false;     ///< stands in picRightMenu too, when it is enabled
    bool Radio = false;         ///< one of its menu's radio entries, of which at most one is checked
    bool SaysMenu = false;      ///< its caption alone says too little: SpokenCaption begins with its menu's name
    bool WhilePlaying = false;  ///< all others are disabled while a song plays
    void (*Run)() = nullptr;
    bool (*Enabled)() = nullptr;  ///< nothing: always
    bool (*Checked)() = nullptr;  ///< nothing: the entry has no check mark
    /// RecentFiles: a submenu of RecentFiles(), run by mnuFileOpenRecentItem_Click. GotoPoints: entries of Go.Points in
    /// its place, run by mnuGoGotoPoint_Click.
    Kind Is = Kind::Plain;
};

std::span<const Command> Commands();
/// The command of a name; nothing when there is none.
const Command* FindCommand(std::string_view name);
bool IsEnabled(const Command& command);
bool IsChecked(const Command& command);
/// Runs a command that is enabled. What it raises becomes a message box. False when it did not run.
bool RunCommand(const Command& command);

/// Without the "&" of a keyboard letter.
std::string WithoutMark(std::string_view text);
/// Caption without the "&" of its keyboard letter and without "...".
std::string PlainCaption(const Command& command);
/// What a screen reader says: "Dynamics: FF", "Open".
std::string SpokenCaption(const Command& command);
/// What is spoken and shortcut, or key of the score: "Open (Ctrl+O)".
std::string Tooltip(const Command& command);

}  // namespace Quillon::Shell
