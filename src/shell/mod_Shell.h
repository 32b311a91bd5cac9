// The program without windows: what it is made of, and what it asks of its main window and dialogs.
//
// The window implements ShellView and Dialogs and forwards; every decision stands here, where a test reaches it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/PrintModel.h"

namespace Quillon {
class RunTimeError;
}

namespace Quillon::Shell {

/// A kind of file that a question for a name offers.
struct FileKind {
    std::string_view Text;             ///< text key of its name
    std::vector<std::string> Endings;  ///< without their points, the usual one first
};

/// The main window as the shell sees it.
struct ShellView {
    virtual ~ShellView() = default;
    /// Lays out what is due and paints the document.
    virtual void DrawDocument() = 0;
    virtual void SetCaption(const std::string& caption) = 0;
    /// The tracks, their names or the current one changed.
    virtual void RebuildTrackList() = 0;
    /// The recent files changed; see RecentFiles.
    virtual void FillRecentFiles() = 0;
    /// The go-to points changed; see Go.
    virtual void FillGotoPoints() = 0;
    /// The percussion assistant shows another string, or another note on it; see PercLetters.
    virtual void FillPercAssistant() = 0;
    /// A line in the status bar; "" clears it.
    virtual void ShowStatus(const std::string& text) = 0;
    /// Which commands are enabled or checked, or which toolbars show, may have changed.
    virtual void UpdateCommands() = 0;
    /// The toolbars take their default places, all that show docked.
    virtual void ArrangeToolbars() = 0;
    /// The screen's zoom changed; see Program.ZoomPercent.
    virtual void UpdateZoom() = 0;
    /// Captions are to be set anew from the language.
    virtual void LanguageChanged() = 0;
    /// Windows take the colours of Program.Theme.
    virtual void ThemeChanged() = 0;
    /// Splitters, toolbars and the window take their kept places.
    virtual void RestorePlaces() = 0;
    /// The same places go to the store.
    virtual void KeepPlaces() = 0;
    /// The main window comes.
    virtual void ShowWindow() = 0;
    /// Calls `act` once the window's first frame was painted; at once when it was.
    virtual void WhenPainted(std::function<void()> act) = 0;
    /// Draws the document anew; what the commands say is disabled, and both scroll bars; the bar and beat come into
    /// the status bar.
    virtual void PlayingStarts() = 0;
    /// Takes all that back, hides the play marker, and gives the document the focus.
    virtual void PlayingStopped() = 0;
    /// Brings the row of a bar into view.
    virtual void ScrollToBar(int bar) = 0;
    /// The play marker stands elsewhere or nowhere, see PlayMarkerNow.
    virtual void MovePlayMarker() = 0;
    /// Asks where an exported file goes, whose ending is that of `suggested`, and whether to overwrite; nothing when
    /// cancelled. The keys are those of the question's title and of the kind of file.
    virtual std::optional<std::filesystem::path> AskExportFile(const char* titleKey, const char* kindKey,
                                                               const std::filesystem::path& suggested) = 0;
    /// Asks for a file of a kind, whose endings are given in small letters; nothing when cancelled.
    virtual std::optional<std::filesystem::path> AskImportFile(const char* titleKey, const char* kindKey,
                                                               const std::vector<std::string>& endings) = 0;
    /// Long work begins: the status bar shows it with a way to cancel; user input is held back.
    virtual void BeginWork(const std::string& text) = 0;
    /// Shows how far it is and runs what waits; false when it was cancelled.
    virtual bool GoOnWithWork(int percent) = 0;
    virtual void EndWork() = 0;
    /// Ends the message loop after Stop said so.
    virtual void CloseWindow() = 0;
    /// Asks for a file to open; nothing when cancelled.
    virtual std::optional<std::filesystem::path> AskOpenFile(const std::filesystem::path& folder) = 0;
    /// Asks where to save, and whether to overwrite; nothing when cancelled.
    virtual std::optional<std::filesystem::path> AskSaveFile(const std::filesystem::path& suggested) = 0;
    /// Asks where a file of one of the kinds goes, and whether to overwrite; nothing when cancelled. A name without an
    /// ending gets that of the kind chosen.
    virtual std::optional<std::filesystem::path> AskFileToWrite(const std::filesystem::path& suggested,
                                                                const std::vector<FileKind>& kinds) = 0;
    /// The text on the system's clipboard, UTF-8.
    virtual std::string ClipboardText() = 0;
    virtual void ClearClipboard() = 0;
};

/// The windows that the program asks something with.
struct Dialogs {
    virtual ~Dialogs() = default;
    /// Opens the window of the model's type; says whether it was accepted. The window stays open while the model's
    /// Validate complains, and shows the complaint.
    virtual bool Edit(DialogModel& model) = 0;
    /// Asks for the open file's password; nothing when cancelled.
    virtual std::optional<std::string> AskPassword() = 0;
    /// Asks for a picture file and writes the document's pages into it.
    virtual void ExportPicture() = 0;
    /// Lets a printer be chosen, and what is printed; without pages when cancelled.
    virtual ChosenPrinter AskPrinter(PrintModel& model) = 0;
    /// Shows the pages as they will be printed, until the person has seen enough.
    virtual void ShowPrintPreview() = 0;
    virtual void ShowAbout() = 0;
    virtual void ShowKeyboardHelp() = 0;
    /// Lets a command be chosen by what its caption says, and runs it.
    virtual void ShowCommandPalette() = 0;
};

struct ProgramState {
    ShellView* View = nullptr;
    Shell::Dialogs* Dialogs = nullptr;
    bool PasswordGiven = false;  ///< the open file's password was given since it was opened
    bool MixTableVisible = false;
    bool FretboardVisible = false;
    bool FretboardNames = false;  ///< the names of all its notes
    bool PianoVisible = false;
    bool ToolbarsMoved = false;  ///< from where they stand by default: they no longer follow the window's width
    int ZoomPercent = 100;       ///< of the painting alone; the layout's pixels stay
    std::int16_t Theme = 0;      ///< 0 as the system, 1 light, 2 dark
    bool DarkPaper = false;      ///< where the windows are dark the screen's paper is dark too
};
extern ProgramState Program;

// Start and stop -----------------------------------------------------------------------------------------------------

/// The base folder: --base, else QUILLON_BASE, else the program's own folder when QL4.ini or Data stands there, else
/// quillon in the user's data folder. `environment` gives a variable's value or nothing, as std::getenv.
std::filesystem::path BaseFolder(const std::string& baseOption, const std::filesystem::path& programFolder,
                                 const std::function<const char*(const char*)>& environment);

/// One step of the start or the stop. False ends the list: a stop that was refused.
struct Step {
    const char* Name;
    std::function<bool()> Run;
};
/// The steps in their order; later ones build on what earlier ones made.
std::vector<Step> StartSteps(const std::string& commandLineFile);
std::vector<Step> StopSteps();

/// Starts the system. Services and Program are filled before. A step that raises shows its message, and the start goes
/// on. `commandLineFile` is a path or "".
void Start(const std::string& commandLineFile);
/// Asks about changes, then ends the system: settings written, scratch files deleted. False when the person chose to
/// stay; the window then stays too.
bool Stop();

// The open document and its file -------------------------------------------------------------------------------------

/// "Quillon 4 - [Unsaved.qlm]", or with the open file's name.
std::string WindowCaption();
void SetWindowCaption();
/// Asks whether to save when the document changed. True to go on.
bool ContinueWithOp();
/// A new document without asking.
void ForceNewFile();
/// True for a file that becomes a song by an import, by its ending.
bool NeedsImport(const std::filesystem::path& path);
/// Opens a file by its last three characters, without asking about changes. False when nothing was opened.
bool OpenFileByEnding(const std::filesystem::path& path);
/// As mnuFileOpen_Click with the file given: asks about changes first. For files dropped on the window.
bool OpenDroppedFile(const std::filesystem::path& path);
/// Saves under a name; holds it as the document's from then on. False when it was not saved.
bool SaveFileAs(const std::filesystem::path& path);

/// The open document was changed: it is to be saved, and laid out anew.
void MarkEdited();

/// The document was replaced by another: caption, track list, scroll bars and the painting follow.
void DocumentReplaced();
/// The document was replaced by an earlier state of itself: track list, commands and the painting follow.
void DocumentRestored();

void mnuFileNew_Click();
void mnuFileOpen_Click();
bool mnuFileSave_Click();    ///< false when it was not saved
bool mnuFileSaveAs_Click();  ///< likewise
void mnuFileProperties_Click();
void mnuFilePageSetup_Click();
void mnuFileExportPicture_Click();
void mnuFileExportWave_Click();
void mnuFileExportMIDI_Click();
void mnuFileImportMIDI_Click();
void mnuImportMIDITrack_Click();
void mnuFileOptions_Click();
void mnuFileExit_Click();

/// What the act raises becomes a message box; false then.
bool Guarded(const std::function<void()>& act);

/// The path in its absolute, plain form, links within it kept. "file://" addresses are taken too.
std::filesystem::path GetLongFilename(const std::string& path);

/// True when the document has no password or it was given since opening; asks once.
bool PasswordCorrect();

// Recent files -------------------------------------------------------------------------------------------------------

constexpr int MostRecentFiles = 9;
/// Paths, the latest first.
std::vector<std::filesystem::path> RecentFiles();
/// "- " and the file's name.
std::string RecentFileCaption(const std::filesystem::path& path);
void AddRecentFile(const std::filesystem::path& path);
void RemoveRecentFile(const std::filesystem::path& path);
/// Opens the entry; a file that is gone leaves the list with a message.
void mnuFileOpenRecentItem_Click(int index);

// The view -----------------------------------------------------------------------------------------------------------

constexpr int LeastTabX = 1;  ///< limits of MinTabX and MaxTabX, pixels
constexpr int MostTabX = 1000;
constexpr int MostMargin = 600;  ///< of a page, pixels
constexpr int MostTheme = 2;
constexpr int LeastZoom = 50;
constexpr int MostZoom = 400;
/// Goes that many steps up or down the list of zooms: Ctrl with the wheel.
void ZoomBy(int steps);
void SetZoom(int percent);
void mnuViewZoomIn_Click();
void mnuViewZoomOut_Click();
void mnuViewZoom100_Click();
void mnuViewZoomWidth_Click();  ///< the page with a little of the ground fills the view
/// Makes a track the current one and shows it; a bad index does nothing.
void ShowTrack(int track);
void mnuTrackProperties_Click();
void mnuTrackNext_Click();
void mnuTrackPrevious_Click();

/// The list of tracks beside the paper; whether it shows is kept in the store.
void mnuViewMixTable_Click();
/// Dark paper under dark windows, on the screen alone: never in print, in its preview, or in files.
void mnuViewDarkPaper_Click();
/// Clefs and keys on every row, or only where they change; kept in the store.
void mnuViewRowClefs_Click();

/// Toolbars go by the name that Command::Toolbar holds. Whether they show and are docked is kept in the settings.
bool IsToolbarVisible(std::string_view toolbar);
void SetToolbarVisible(std::string_view toolbar, bool visible);
bool IsToolbarDocked(std::string_view toolbar);
void SetToolbarDocked(std::string_view toolbar, bool docked);

/// What the page shows in place of the notes when the layout raised: what is wrong and what to do.
std::string LayoutFailureText(const RunTimeError& error);

/// Hands the settings to the modules that work by them.
void ApplySettings();
/// What the store keeps beside QL4.ini: spacing limits, page setup, zoom, theme
/// and sound. A damaged value has its first-run
/// one.
void LoadStoredState();
void SaveStoredState();
/// Writes the settings and the store at once: options must not wait for a clean end of the program. When they can't be
/// stored a box says so, and they hold for this run.
void KeepSettings();

}  // namespace Quillon::Shell
