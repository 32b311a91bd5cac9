// The chord manager: a window beside the paper with the library's chords as boxes. What it shows and does is decided
// by tools/ChordManager.
#pragma once

#include <array>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "forms/LibraryWindow.h"
#include "tools/ChordManager.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QRadioButton;
class QStackedWidget;
class QToolButton;

namespace Quillon::Forms {

class ToolEntries;
class picChordView;

class frmChordManager : public LibraryWindow, public Tools::ChordView {
    Q_OBJECT

public:
    explicit frmChordManager(frmMain& main);
    ~frmChordManager() override;

    void SetTexts() override;
    void CursorMoved() override;
    void CommandsChanged() override;

    // The manager's view.
    void RefreshView() override;
    void RefreshChosen() override;

protected:
    std::filesystem::path Folder() const override;
    void FolderChanged() override;
    void TakeFocus() override;
    void EndSounds() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildMenus();
    void BuildSearchMenu();
    void BuildDisplayMenu();
    QHBoxLayout* BuildButtons();
    QHBoxLayout* BuildSearch();
    QHBoxLayout* BuildStatus();
    void ShowPanel();
    void ShowCount();
    void Search(const QString& typed);

    ToolEntries* entries = nullptr;
    picChordView* picView = nullptr;
    QLineEdit* txtSearch = nullptr;
    QComboBox* cmbSearch = nullptr;
    QStackedWidget* panels = nullptr;
    std::array<QLineEdit*, Core::StringCount> txtTabSearch{};  ///< the lowest string first
    std::vector<QRadioButton*> optString;
    QLabel* lblInTrack = nullptr;
    QLabel* lblCount = nullptr;
    QToolButton* cmdCursor = nullptr;
    QMenu* mnuChords = nullptr;  ///< of the window
    QMenu* lblMenu = nullptr;    ///< of the chosen chords
    std::string atCursor;
};

}  // namespace Quillon::Forms
