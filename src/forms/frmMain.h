// The main window. It shows and forwards: what the commands do, when they are enabled and what is asked about stands in
// src/shell.
#pragma once

#include <QMainWindow>
#include <QRect>
#include <array>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"

class QAction;
class QActionGroup;
class QComboBox;
class QDockWidget;
class QLabel;
class QMenu;
class QSlider;
class QTimer;
class QTranslator;
class QToolBar;
class QToolButton;

namespace Quillon::Shell {
struct Command;
}

namespace Quillon::Forms {

class picDocument;
class WorkProgress;
class ntne_frmPercAssTAB;
class picMixTable;
class picFretboard;
class picPiano;
class picBoard;
class LibraryWindow;

class frmMain : public QMainWindow, public Shell::ShellView, public Shell::Dialogs {
    Q_OBJECT

public:
    frmMain();
    ~frmMain() override;

    picDocument& Document() { return *document; }
    /// The action of a command such as "mnuFileNew"; nothing for a name that is in no table.
    QAction* ActionOf(const std::string& name) const;

    // The shell's view.
    void DrawDocument() override;
    void SetCaption(const std::string& caption) override;
    void RebuildTrackList() override;
    void FillRecentFiles() override;
    void FillGotoPoints() override;
    void FillPercAssistant() override;
    void ShowStatus(const std::string& text) override;
    void UpdateCommands() override;
    void ArrangeToolbars() override;
    void UpdateZoom() override;
    void LanguageChanged() override;
    void ThemeChanged() override;
    void RestorePlaces() override;
    void KeepPlaces() override;
    void ShowWindow() override;
    void CloseWindow() override;
    void WhenPainted(std::function<void()> act) override;
    void PlayingStarts() override;
    void PlayingStopped() override;
    void ScrollToBar(int bar) override;
    void MovePlayMarker() override;
    std::optional<std::filesystem::path> AskImportFile(const char* titleKey, const char* kindKey,
                                                       const std::vector<std::string>& endings) override;
    std::optional<std::filesystem::path> AskExportFile(const char* titleKey, const char* kindKey,
                                                       const std::filesystem::path& suggested) override;
    std::optional<std::filesystem::path> AskFileToWrite(const std::filesystem::path& suggested,
                                                        const std::vector<Shell::FileKind>& kinds) override;
    std::string ClipboardText() override;
    void ClearClipboard() override;
    void BeginWork(const std::string& text) override;
    bool GoOnWithWork(int percent) override;
    void EndWork() override;
    std::optional<std::filesystem::path> AskOpenFile(const std::filesystem::path& folder) override;
    std::optional<std::filesystem::path> AskSaveFile(const std::filesystem::path& suggested) override;

    // The dialogs.
    bool Edit(Shell::DialogModel& model) override;
    std::optional<std::string> AskPassword() override;
    void ExportPicture() override;
    Shell::ChosenPrinter AskPrinter(Shell::PrintModel& model) override;
    void ShowPrintPreview() override;
    void ShowAbout() override;
    void ShowKeyboardHelp() override;
    void ShowCommandPalette() override;

Q_SIGNALS:
    /// The window's first frame was painted.
    void FirstPainted();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildMenus();
    void BuildStatusBar();
    void BuildPlaying();
    void BuildTrackList();
    void BuildBoards();
    QDockWidget* BuildBoard(picBoard* board, const char* name);
    void ShowBoard(QDockWidget* dock, bool visible);
    void ShowDocks();
    void ShowBoards();
    void ShowRightMenu(QPoint point);
    void SetBoardTexts();
    void ShowToolWindows();
    void TellTools(void (*tell)(LibraryWindow&));
    void FocusScore();
    void ShowMenus();
    QMenu* MenuOf(std::string_view path);
    QToolBar* ToolBarOf(std::string_view name);
    void BuildTrackChoice();
    void DockToolbars();
    void RaiseToolbars();
    void WatchToolbar(QToolBar& bar, const QEvent& event);
    QAction* MakeAction(const Shell::Command& command);
    void ShowStates();
    void FillStatus();
    void LoadLibraryTexts();
    void ShowToolbars();

    picDocument* document = nullptr;
    std::map<std::string, QMenu*, std::less<>> menus;
    std::map<std::string, QToolBar*, std::less<>> toolbars;
    std::map<std::string, QAction*, std::less<>> actions;
    std::map<std::string_view, QActionGroup*> radios;  // by their menu
    std::vector<std::pair<QToolBar*, bool>> arranged;  // as ArrangeToolbars left them; true begins a row
    QRect pressedAt;                                   // the toolbar under the mouse
    QMenu* recentMenu = nullptr;                       // mnuFileOpenRecent
    QMenu* goMenu = nullptr;                           // holds the go-to points before the entry mnuGoGotoPoint
    std::vector<QAction*> gotoPoints;
    QComboBox* cmbTrack = nullptr;
    QLabel* lblStatus = nullptr;
    QLabel* lblNote = nullptr;
    QLabel* lblPlace = nullptr;
    QLabel* lblPages = nullptr;
    QSlider* sldZoom = nullptr;
    QToolButton* cmdZoom = nullptr;
    QTimer* tmrRecovery = nullptr;
    QTimer* tmrPlayPlace = nullptr;  // runs while a song plays
    WorkProgress* work = nullptr;
    picMixTable* mixTable = nullptr;
    ntne_frmPercAssTAB* percAssistant = nullptr;
    QDockWidget* dockMixTable = nullptr;
    picFretboard* fretboard = nullptr;
    QDockWidget* dockFretboard = nullptr;
    picPiano* piano = nullptr;
    QDockWidget* dockPiano = nullptr;
    std::array<LibraryWindow*, static_cast<std::size_t>(Shell::ToolWindow::Count)> toolWindows{};  // once they showed
    QMenu* picRightMenu = nullptr;
    std::unique_ptr<QTranslator> libraryTexts;  // of the file and colour dialogs, which the library brings
    bool closing = false;
    bool painted = false;
};

}  // namespace Quillon::Forms
