// The chord manager: a window beside the paper with the library's chords as boxes. What it shows and does is decided
// by tools/ChordManager.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "forms/LibraryWindow.h"
#include "tools/ChordManager.h"

class QActionGroup;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QToolButton;

namespace Quillon::Forms {

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
    /// An entry of the menus: its text key, and what it does.
    struct Entry {
        QAction* Action;
        const char* Text;
        bool (*Enabled)();
        bool (*Checked)();
    };
    QAction* AddEntry(QMenu& menu, const char* name, const char* text, void (*act)(), const char* icon = "",
                      bool (*enabled)() = nullptr, bool (*checked)() = nullptr);
    void BuildMenus();
    QHBoxLayout* BuildButtons();
    QHBoxLayout* BuildSearch();
    QHBoxLayout* BuildStatus();
    void ShowPanel();
    void ShowCount();
    void ShowEntries();
    void Search(const QString& typed);

    picChordView* picView = nullptr;
    QLineEdit* txtSearch = nullptr;
    QComboBox* cmbSearch = nullptr;
    QStackedWidget* panels = nullptr;
    std::array<QLineEdit*, Core::StringCount> txtTabSearch{};  ///< the lowest string first
    std::vector<QRadioButton*> optString;
    QLabel* lblInTrack = nullptr;
    QLabel* lblCount = nullptr;
    QToolButton* cmdCursor = nullptr;
    QPushButton* cmdMenu = nullptr;
    QMenu* mnuChords = nullptr;  ///< of the window
    QMenu* lblMenu = nullptr;    ///< of the chosen chords
    QMenu* mnuSearch = nullptr;
    QMenu* mnuDisplay = nullptr;
    QActionGroup* displays = nullptr;
    std::vector<Entry> entries;
    std::string atCursor;
    std::optional<bool> shownHand;  ///< whether the left one's icon stands on the button
};

}  // namespace Quillon::Forms
