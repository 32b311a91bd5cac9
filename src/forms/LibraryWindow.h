// A window beside the paper over a folder of small files: chords, scales, tunings.
//
// It docks to any side of the main window or floats, and remembers where; it hears of what other programs change in its
// folder, and of the cursor. What it sounds and times ends when it goes.
#pragma once

#include <QDockWidget>
#include <QFileSystemWatcher>
#include <QTimer>
#include <filesystem>
#include <map>
#include <string>

#include "shell/ToolWindows.h"

class QMenu;

namespace Quillon::Forms {

class frmMain;

class LibraryWindow : public QDockWidget {
    Q_OBJECT

public:
    /// Names, captions and colours of its own come in SetTexts, which the main window calls after the constructor and
    /// with every other language.
    virtual void SetTexts() = 0;
    /// The cursor went elsewhere, or the strum under it changed.
    virtual void CursorMoved() {}
    /// Commands became enabled or disabled, as when a song begins or ends.
    virtual void CommandsChanged() {}

    /// Comes up where it was last, with the focus; or goes.
    void ShowIf(bool shows);
    /// Its place goes to the store, also when it does not show any more.
    void KeepItsPlace();

    void mnuDockAbove_Click() { DockAt(Qt::TopDockWidgetArea); }
    void mnuDockBelow_Click() { DockAt(Qt::BottomDockWidgetArea); }
    void mnuDockLeft_Click() { DockAt(Qt::LeftDockWidgetArea); }
    void mnuDockRight_Click() { DockAt(Qt::RightDockWidgetArea); }
    void mnuUndock_Click();

Q_SIGNALS:
    /// The keyboard goes back to the score.
    void Left();

protected:
    /// `section` of the store holds the place of the floating window, and `section` with a "2" where it is docked and
    /// how large it is there. `docked` is its side before it was ever moved, `extent` its width or height there.
    LibraryWindow(frmMain& main, Shell::ToolWindow which, const char* name, std::string section,
                  Qt::DockWidgetArea docked, int extent);

    /// The folder that it looks into, and what to do when something in it may have changed: asked often, so that it
    /// first looks at the files' stamps.
    virtual std::filesystem::path Folder() const = 0;
    virtual void FolderChanged() = 0;
    /// Puts the keyboard where a person begins.
    virtual void TakeFocus() = 0;
    /// Notes and timers end: the window goes.
    virtual void EndSounds() = 0;

    /// What the window holds. It scrolls where there is too little room: many tools stand beside each other, and the
    /// main window must fit the screen.
    void SetContent(QWidget* content);
    /// Adds the submenu "Dock" and the entry "Undock" with what they do, and names them.
    void AddDockEntries(QMenu& menu);
    void SetDockTexts();
    /// Also what our own programs write may replace the folder, which the watch then lost.
    void WatchFolder();

    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void DockAt(Qt::DockWidgetArea side);
    void RestoreItsPlace();
    void ShowSide();

    frmMain& owner;
    Shell::ToolWindow which;
    std::string section;
    Qt::DockWidgetArea firstSide;
    int firstExtent;
    bool placed = false;
    QMenu* mnuDock = nullptr;
    QAction* mnuUndock = nullptr;
    std::map<Qt::DockWidgetArea, QAction*> sides;
    QFileSystemWatcher watcher;
    QTimer tmrFolder;  ///< many files that change together are one change
};

/// Makes the window of a tool.
LibraryWindow* MakeToolWindow(Shell::ToolWindow which, frmMain& main);

}  // namespace Quillon::Forms
