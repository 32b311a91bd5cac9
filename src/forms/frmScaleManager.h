// The scale manager: the library's scales, one of them on a neck, and what plays it. What it shows and does is decided
// by tools/ScaleManager.
#pragma once

#include "forms/LibraryWindow.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QSpinBox;
class QSplitter;
class QStackedWidget;

namespace Quillon::Forms {

class ToolEntries;
class picNeck;

class frmScaleManager : public LibraryWindow {
    Q_OBJECT

public:
    explicit frmScaleManager(frmMain& main);
    ~frmScaleManager() override;

    void SetTexts() override;
    void CommandsChanged() override;

protected:
    std::filesystem::path Folder() const override;
    void FolderChanged() override;
    void TakeFocus() override;
    void EndSounds() override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildMenus();
    void BuildPlayMenu();
    QWidget* BuildList();
    void BuildSearch(QBoxLayout& row);
    QWidget* BuildScale();
    /// Shows what the manager holds now.
    void Refresh();
    void ShowList();

    ToolEntries* entries = nullptr;
    QMenu* mnuScales = nullptr;
    QSplitter* halves = nullptr;
    QComboBox* cmbSearch = nullptr;
    QStackedWidget* panels = nullptr;
    QLineEdit* txtSearch = nullptr;
    QLineEdit* txtKeywords = nullptr;
    QSpinBox* vbStrings = nullptr;
    QListWidget* lstScales = nullptr;
    QLabel* lblCount = nullptr;
    QLabel* lblCaption = nullptr;
    QLabel* lblTones = nullptr;
    picNeck* picScale = nullptr;
    QBoxLayout* facts = nullptr;  ///< of the scale, below its neck
    QComboBox* cmbKey = nullptr;
    QSpinBox* vbSpeed = nullptr;
    QCheckBox* chkReverb = nullptr;
};

}  // namespace Quillon::Forms
