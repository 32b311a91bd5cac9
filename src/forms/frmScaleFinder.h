// The scale finder: notes clicked, or taken from bars, and the scales that hold them. Decided by tools/ScaleFinder.
#pragma once

#include <array>

#include "forms/LibraryWindow.h"

class QLabel;
class QMenu;
class QPushButton;
class QToolButton;
class QTreeWidget;

namespace Quillon::Forms {

class ToolEntries;
class picNeck;

class frmScaleFinder : public LibraryWindow {
    Q_OBJECT

public:
    explicit frmScaleFinder(frmMain& main);
    ~frmScaleFinder() override;

    void SetTexts() override;
    void CursorMoved() override;

protected:
    std::filesystem::path Folder() const override;
    void FolderChanged() override;
    void TakeFocus() override;
    void EndSounds() override;

private:
    QWidget* BuildNotes();
    QWidget* BuildFound();
    void Refresh();
    void TakeBars();
    void OpenCurrent();

    frmMain& main;
    ToolEntries* entries = nullptr;
    QMenu* mnuFinder = nullptr;
    picNeck* picNotes = nullptr;
    std::array<QToolButton*, 12> cmdNotes{};
    QPushButton* cmdTakeBars = nullptr;
    QPushButton* cmdClear = nullptr;
    QPushButton* cmdOpen = nullptr;
    QLabel* lblStatus = nullptr;
    QTreeWidget* lstFound = nullptr;
};

}  // namespace Quillon::Forms
