#include "shell/Commands.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Undo.h"
#include "platform/Services.h"
#include "shell/AsciiImportModel.h"
#include "shell/BarCommands.h"
#include "shell/CommandRows.h"
#include "shell/TextExportModel.h"
#include "shell/ToolWindows.h"
#include "shell/Toolbars.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr std::string_view FileToolbar = "File";
constexpr std::string_view TrackToolbar = "Track";
constexpr std::string_view SoundToolbar = "Sound";

bool HasNextTrack() { return Open.CurTrack < Open.TabFile.Tracks.UpperBound(); }
bool HasPreviousTrack() { return Open.CurTrack > 0; }
bool CanZoomIn() { return Program.ZoomPercent < MostZoom; }
bool CanZoomOut() { return Program.ZoomPercent > LeastZoom; }
/// A song begins with its clicks or has none: while it plays they can be stopped, not begun.
bool MayClick() { return !Sound.Playing || Core::Settings.Metronome; }
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
    {.Name = "mnuFileImportTab",
     .Menu = ImportMenu,
     .Text = "str_FileImportTab",
     .Icon = "import-text",
     .Run = mnuFileImportTab_Click},
    {.Name = "mnuImportTabFromWeb",
     .Menu = ImportMenu,
     .Text = "str_FileImportWeb",
     .Icon = "import-web",
     .Run = mnuImportTabFromWeb_Click},
    {.Name = "mnuFileImportClipboard",
     .Menu = ImportMenu,
     .Text = "str_FileImportClipboard",
     .Icon = "import-text",
     .Run = mnuFileImportClipboard_Click},
    {.Name = "mnuFileImportMIDI",
     .Menu = ImportMenu,
     .Text = "str_FileImportMidi",
     .Icon = "import-midi",
     .Run = mnuFileImportMIDI_Click},
    {.Name = "mnuFileExportASCII",
     .Menu = ExportMenu,
     .Text = "str_FileExportText",
     .Icon = "export-text",
     .Run = mnuFileExportASCII_Click},
    {.Name = "mnuFileExportHTML",
     .Menu = ExportMenu,
     .Text = "str_FileExportHtml",
     .Icon = "export-text",
     .Run = mnuFileExportHTML_Click},
    {.Name = "mnuFileExportPDF",
     .Menu = ExportMenu,
     .Text = "str_FileExportPdf",
     .Icon = "export-text",
     .Run = mnuFileExportPDF_Click},
    {.Name = "mnuFileExportPicture",
     .Menu = ExportMenu,
     .Text = "str_FileExportPicture",
     .Shortcut = "Ctrl+E",
     .Icon = "export-picture",
     .Run = mnuFileExportPicture_Click},
    {.Name = "mnuFileExportEngraved",
     .Menu = ExportMenu,
     .Text = "str_FileExportEngraved",
     .Icon = "export-pdf",
     .Run = mnuFileExportEngraved_Click},
    {.Name = "mnuFileExportMIDI",
     .Menu = ExportMenu,
     .Text = "str_FileExportMidi",
     .Icon = "export-midi",
     .Run = mnuFileExportMIDI_Click},
    {.Name = "mnuFileExportWave",
     .Menu = ExportMenu,
     .Text = "str_FileExportWave",
     .Icon = "export-wave",
     .Run = mnuFileExportWave_Click,
     .Enabled = [] { return Services.Synth != nullptr; }},
    {.Name = "mnuFileProperties",
     .Menu = FileMenu,
     .Text = "str_FileProperties",
     .About = "str_FilePropertiesAbout",
     .Shortcut = "Ctrl+I",
     .Icon = "properties",
     .Toolbar = FileToolbar,
     .SeparatorBefore = true,
     .Run = mnuFileProperties_Click},
    {.Name = "mnuFilePageSetup",
     .Menu = FileMenu,
     .Text = "str_FilePageSetup",
     .Icon = "page-setup",
     .SeparatorBefore = true,
     .Run = mnuFilePageSetup_Click},
    {.Name = "mnuFilePrintPreview",
     .Menu = FileMenu,
     .Text = "str_FilePrintPreview",
     .Shortcut = "Ctrl+F2",
     .Icon = "print-preview",
     .Run = mnuFilePrintPreview_Click},
    {.Name = "mnuFilePrint",
     .Menu = FileMenu,
     .Text = "str_FilePrint",
     .Shortcut = "Ctrl+P",
     .Icon = "print",
     .Run = mnuFilePrint_Click},
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

    {.Name = "mnuEditUndo",
     .Menu = EditMenu,
     .Text = "str_EditUndo",
     .Shortcut = "Ctrl+Z",
     .Icon = "undo",
     .Toolbar = "Note Editing",
     .Run = Editing::mnuEditUndo_Click,
     .Enabled = Editing::CanUndo},

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
    {.Name = "mnuViewDarkPaper",
     .Menu = ViewMenu,
     .Text = "str_ViewDarkPaper",
     .Run = mnuViewDarkPaper_Click,
     .Checked = [] { return Program.DarkPaper; }},
    {.Name = "mnuViewMixTable",
     .Menu = ViewMenu,
     .Text = "str_ViewMixTable",
     .Shortcut = "Ctrl+Shift+T",
     .Icon = "mix-table",
     .Run = mnuViewMixTable_Click,
     .Checked = [] { return Program.MixTableVisible; }},
    {.Name = "mnuViewRowClefs",
     .Menu = ViewMenu,
     .Text = "str_ViewRowClefs",
     .Run = mnuViewRowClefs_Click,
     .Checked = [] { return Drawing::Page.ClefOnEveryRow; }},

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

    {.Name = "mnuSoundPlayFromStart",
     .Menu = SoundMenu,
     .Text = "str_SoundPlayFromStart",
     .Shortcut = "Space",
     .Icon = "play",
     .Toolbar = SoundToolbar,
     .Run = mnuSoundPlayFromStart_Click},
    {.Name = "mnuSoundPlayFromHere",
     .Menu = SoundMenu,
     .Text = "str_SoundPlayFromHere",
     .Shortcut = "Shift+Space",
     .Icon = "play-here",
     .Toolbar = SoundToolbar,
     .Run = mnuSoundPlayFromHere_Click},
    {.Name = "mnuSoundPlayBar",
     .Menu = SoundMenu,
     .Text = "str_SoundPlayBar",
     .Shortcut = "Ctrl+Space",
     .Icon = "play-bar",
     .Run = mnuSoundPlayBar_Click},
    {.Name = "mnuSoundLoop",
     .Menu = SoundMenu,
     .Text = "str_SoundLoop",
     .Shortcut = "Ctrl+L",
     .Icon = "loop",
     .Toolbar = SoundToolbar,
     .Run = mnuSoundLoop_Click},
    {.Name = "mnuSoundStop",
     .Menu = SoundMenu,
     .Text = "str_SoundStop",
     .Icon = "stop",
     .Toolbar = SoundToolbar,
     .WhilePlaying = true,
     .Run = mnuSoundStop_Click,
     .Enabled = [] { return Sound.Playing || DoToolsSound(); }},
    {.Name = "mnuSoundSpeedTrainer",
     .Menu = SoundMenu,
     .Text = "str_SoundSpeedTrainer",
     .Shortcut = "Ctrl+Shift+L",
     .Icon = "speed-trainer",
     .Toolbar = SoundToolbar,
     .SeparatorBefore = true,
     .Run = mnuSoundSpeedTrainer_Click},
    {.Name = "mnuSoundMetronome",
     .Menu = SoundMenu,
     .Text = "str_SoundMetronome",
     .Shortcut = "Ctrl+M",
     .Icon = "metronome",
     .Toolbar = SoundToolbar,
     .SeparatorBefore = true,
     .WhilePlaying = true,
     .Run = mnuSoundMetronome_Click,
     .Enabled = MayClick,
     .Checked = [] { return Core::Settings.Metronome; }},
    {.Name = "mnuSoundCountIn",
     .Menu = SoundMenu,
     .Text = "str_SoundCountIn",
     .Icon = "count-in",
     .Toolbar = SoundToolbar,
     .Run = mnuSoundCountIn_Click,
     .Checked = [] { return Core::Settings.CountIn; }},
    {.Name = "mnuSoundFollow",
     .Menu = SoundMenu,
     .Text = "str_SoundFollow",
     .Icon = "follow",
     .Toolbar = SoundToolbar,
     .WhilePlaying = true,
     .Run = mnuSoundFollow_Click,
     .Checked = [] { return Core::Settings.FollowTabPlayback; }},

    {.Name = "mnuHelpPalette",
     .Menu = HelpMenu,
     .Text = "str_HelpPalette",
     .Shortcut = "Ctrl+Shift+P",
     .Run = [] { Program.Dialogs->ShowCommandPalette(); }},
    {.Name = "mnuHelpKeyboard",
     .Menu = HelpMenu,
     .Text = "str_HelpKeyboard",
     .Shortcut = "F1",
     .WhilePlaying = true,
     .Run = [] { Program.Dialogs->ShowKeyboardHelp(); }},
    {.Name = "mnuHelpAbout",
     .Menu = HelpMenu,
     .Text = "str_HelpAbout",
     .Icon = "about",
     .SeparatorBefore = true,
     .WhilePlaying = true,
     .Run = [] { Program.Dialogs->ShowAbout(); }},
};

/// The menus from left to right.
constexpr std::string_view Menus[] = {FileMenu, EditMenu,  ViewMenu, SoundMenu,      NoteMenu,  ChordMenu,
                                      BarMenu,  TrackMenu, GoMenu,   OperationsMenu, ToolsMenu, HelpMenu};

std::ptrdiff_t MenuIndex(const Command& command) {
    const std::string_view menu = command.Menu.substr(0, command.Menu.find('/'));
    return std::ranges::find(Menus, menu) - std::begin(Menus);
}

std::vector<Command> AllRows() {
    std::vector<Command> rows(std::begin(Table), std::end(Table));
    for (const auto& more :
         {NoteCommandRows(), ChordCommandRows(), EffectCommandRows(), BarCommandRows(), ClipboardCommandRows(),
          GoCommandRows(), TrackCommandRows(), BoardCommandRows(), ExchangeCommandRows(), ToolCommandRows()}) {
        rows.insert(rows.end(), more.begin(), more.end());
    }
    std::vector<std::string_view> toolbars;
    for (const Command& row : rows) toolbars.push_back(row.Toolbar);
    std::ranges::copy(ToolbarCommandRows(toolbars), std::back_inserter(rows));
    std::ranges::stable_sort(rows, {}, MenuIndex);
    return rows;
}

}  // namespace

std::span<const Command> Commands() {
    static const std::vector<Command> rows = AllRows();
    return rows;
}

const Command* FindCommand(std::string_view name) {
    const auto found = std::ranges::find(Commands(), name, &Command::Name);
    return found == Commands().end() ? nullptr : &*found;
}

bool IsEnabled(const Command& command) {
    return (command.WhilePlaying || !Sound.Playing) && (!command.Enabled || command.Enabled());
}

bool IsChecked(const Command& command) { return command.Checked && command.Checked(); }

bool RunCommand(const Command& command) {
    if (!command.Run || !IsEnabled(command)) return false;
    Guarded(command.Run);
    return true;
}

std::string WithoutMark(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;  // "&&" is one that shows
        plain += text[i];
    }
    return plain;
}

std::string PlainCaption(const Command& command) {
    std::string caption = WithoutMark(Core::LanguageText(command.Text));
    if (caption.ends_with("...")) caption.resize(caption.size() - 3);
    return caption;
}

std::string SpokenCaption(const Command& command) {
    if (!command.SaysMenu) return PlainCaption(command);
    const std::string_view menu = command.Menu.substr(command.Menu.rfind('/') + 1);
    return WithoutMark(Core::LanguageText(menu)) + ": " + PlainCaption(command);
}

std::string Tooltip(const Command& command) {
    const std::string_view keys = command.Shortcut.empty() ? command.ScoreKey : command.Shortcut;
    if (keys.empty()) return SpokenCaption(command);
    const std::string_view first = keys.substr(0, keys.find(' '));
    return SpokenCaption(command) + " (" + std::string(first) + ")";
}

}  // namespace Quillon::Shell
