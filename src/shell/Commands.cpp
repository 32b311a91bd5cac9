#include "shell/Commands.h"

#include <algorithm>

#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr std::string_view FileMenu = "str_MenuFile";
constexpr std::string_view ViewMenu = "str_MenuView";
constexpr std::string_view ToolbarsMenu = "str_MenuView/str_MenuToolbars";
constexpr std::string_view TrackMenu = "str_MenuTrack";
constexpr std::string_view HelpMenu = "str_MenuHelp";

template <const char* Toolbar>
void ToggleToolbar() {
    SetToolbarVisible(Toolbar, !IsToolbarVisible(Toolbar));
}
template <const char* Toolbar>
bool ToolbarShows() {
    return IsToolbarVisible(Toolbar);
}
constexpr char FileToolbar[] = "File";
constexpr char TrackToolbar[] = "Track";

bool HasNextTrack() { return Open.CurTrack < Open.TabFile.Tracks.UpperBound(); }
bool HasPreviousTrack() { return Open.CurTrack > 0; }
bool CanZoomIn() { return Program.ZoomPercent < MostZoom; }
bool CanZoomOut() { return Program.ZoomPercent > LeastZoom; }
bool HasRecentFiles() { return !RecentFiles().empty(); }

constexpr Command Table[] = {
    {.Name = "mnuFileNew",
     .Menu = FileMenu,
     .Text = "str_FileNew",
     .Shortcut = "Ctrl+N",
     .Icon = "new",
     .Toolbar = FileToolbar,
     .Run = mnuFileNew_Click},
    {.Name = "mnuFileOpen",
     .Menu = FileMenu,
     .Text = "str_FileOpen",
     .Shortcut = "Ctrl+O",
     .Icon = "open",
     .Toolbar = FileToolbar,
     .Run = mnuFileOpen_Click},
    {.Name = "mnuFileOpenRecent",
     .Menu = FileMenu,
     .Text = "str_FileOpenRecent",
     .Icon = "recent",
     .Enabled = HasRecentFiles,
     .Is = Command::Kind::RecentFiles},
    {.Name = "mnuFileSave",
     .Menu = FileMenu,
     .Text = "str_FileSave",
     .Shortcut = "Ctrl+S",
     .Icon = "save",
     .Toolbar = FileToolbar,
     .SeparatorBefore = true,
     .Run = [] { mnuFileSave_Click(); }},
    {.Name = "mnuFileSaveAs",
     .Menu = FileMenu,
     .Text = "str_FileSaveAs",
     .Shortcut = "Ctrl+Shift+S",
     .Icon = "save-as",
     .Run = [] { mnuFileSaveAs_Click(); }},
    {.Name = "mnuFileExportPicture",
     .Menu = FileMenu,
     .Text = "str_FileExportPicture",
     .Shortcut = "Ctrl+E",
     .Icon = "export-picture",
     .Run = mnuFileExportPicture_Click},
    {.Name = "mnuFileProperties",
     .Menu = FileMenu,
     .Text = "str_FileProperties",
     .Shortcut = "Ctrl+I",
     .Icon = "properties",
     .Toolbar = FileToolbar,
     .SeparatorBefore = true,
     .Run = mnuFileProperties_Click},
    {.Name = "mnuFilePageSetup",
     .Menu = FileMenu,
     .Text = "str_FilePageSetup",
     .Icon = "page-setup",
     .Run = mnuFilePageSetup_Click},
    {.Name = "mnuFileOptions",
     .Menu = FileMenu,
     .Text = "str_FileOptions",
     .Shortcut = "Ctrl+,",
     .Icon = "options",
     .SeparatorBefore = true,
     .Run = mnuFileOptions_Click},
    {.Name = "mnuFileExit",
     .Menu = FileMenu,
     .Text = "str_FileExit",
     .Shortcut = "Ctrl+Q",
     .Icon = "exit",
     .SeparatorBefore = true,
     .Run = mnuFileExit_Click},

    {.Name = "mnuViewZoomIn",
     .Menu = ViewMenu,
     .Text = "str_ViewZoomIn",
     .Shortcut = "Ctrl++ Ctrl+=",
     .Icon = "zoom-in",
     .Run = mnuViewZoomIn_Click,
     .Enabled = CanZoomIn},
    {.Name = "mnuViewZoomOut",
     .Menu = ViewMenu,
     .Text = "str_ViewZoomOut",
     .Shortcut = "Ctrl+-",
     .Icon = "zoom-out",
     .Run = mnuViewZoomOut_Click,
     .Enabled = CanZoomOut},
    {.Name = "mnuViewZoom100",
     .Menu = ViewMenu,
     .Text = "str_ViewZoom100",
     .Shortcut = "Ctrl+0",
     .Icon = "zoom-actual",
     .Run = mnuViewZoom100_Click},
    {.Name = "mnuViewZoomWidth",
     .Menu = ViewMenu,
     .Text = "str_ViewZoomWidth",
     .Shortcut = "Ctrl+9",
     .Icon = "zoom-width",
     .Run = mnuViewZoomWidth_Click},
    {.Name = "mnuViewToolbarFile",
     .Menu = ToolbarsMenu,
     .Text = "str_ViewToolbarFile",
     .Run = ToggleToolbar<FileToolbar>,
     .Checked = ToolbarShows<FileToolbar>},
    {.Name = "mnuViewToolbarTrack",
     .Menu = ToolbarsMenu,
     .Text = "str_ViewToolbarTrack",
     .Run = ToggleToolbar<TrackToolbar>,
     .Checked = ToolbarShows<TrackToolbar>},

    {.Name = "mnuTrackProperties",
     .Menu = TrackMenu,
     .Text = "str_TrackProperties",
     .Shortcut = "Ctrl+T",
     .Icon = "track-properties",
     .Toolbar = TrackToolbar,
     .Run = mnuTrackProperties_Click},
    {.Name = "mnuTrackPrevious",
     .Menu = TrackMenu,
     .Text = "str_TrackPrevious",
     .Shortcut = "Ctrl+PgUp",
     .Icon = "previous-track",
     .Toolbar = TrackToolbar,
     .SeparatorBefore = true,
     .Run = mnuTrackPrevious_Click,
     .Enabled = HasPreviousTrack},
    {.Name = "mnuTrackNext",
     .Menu = TrackMenu,
     .Text = "str_TrackNext",
     .Shortcut = "Ctrl+PgDown",
     .Icon = "next-track",
     .Toolbar = TrackToolbar,
     .Run = mnuTrackNext_Click,
     .Enabled = HasNextTrack},

    {.Name = "mnuHelpKeyboard",
     .Menu = HelpMenu,
     .Text = "str_HelpKeyboard",
     .Shortcut = "F1",
     .Run = [] { Program.Dialogs->ShowKeyboardHelp(); }},
    {.Name = "mnuHelpAbout",
     .Menu = HelpMenu,
     .Text = "str_HelpAbout",
     .Icon = "about",
     .SeparatorBefore = true,
     .Run = [] { Program.Dialogs->ShowAbout(); }},
};

}  // namespace

std::span<const Command> Commands() { return Table; }

const Command* FindCommand(std::string_view name) {
    const auto found = std::ranges::find(Table, name, &Command::Name);
    return found == std::end(Table) ? nullptr : found;
}

bool IsEnabled(const Command& command) { return !command.Enabled || command.Enabled(); }

bool IsChecked(const Command& command) { return command.Checked && command.Checked(); }

bool RunCommand(const Command& command) {
    if (!command.Run || !IsEnabled(command)) return false;
    Guarded(command.Run);
    return true;
}

std::string PlainCaption(const Command& command) {
    std::string caption;
    const std::string& text = Core::LanguageText(command.Text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;  // "&&" is one that shows
        caption += text[i];
    }
    if (caption.ends_with("...")) caption.resize(caption.size() - 3);
    return caption;
}

std::string Tooltip(const Command& command) {
    if (command.Shortcut.empty()) return PlainCaption(command);
    const std::string_view first = command.Shortcut.substr(0, command.Shortcut.find(' '));
    return PlainCaption(command) + " (" + std::string(first) + ")";
}

}  // namespace Quillon::Shell
