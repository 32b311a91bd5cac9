// The guitar tuner: a tuning's strings to tune by ear to, and the library of tunings. Decided by tools/GuitarTuner.
#pragma once

#include <array>

#include "core/mod_TabFileStructure.h"
#include "forms/LibraryWindow.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QMenu;
class QPushButton;

namespace Quillon::Forms {

class ToolEntries;
class picString;

class frmGuitarTuner : public LibraryWindow {
    Q_OBJECT

public:
    explicit frmGuitarTuner(frmMain& main);
    ~frmGuitarTuner() override;

    void SetTexts() override;
    void CursorMoved() override;
    void CommandsChanged() override;
    void MouseWheel(int notches);

protected:
    std::filesystem::path Folder() const override;
    void FolderChanged() override;
    void TakeFocus() override;
    void EndSounds() override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void BuildMenu();
    QWidget* BuildStrings();
    QWidget* BuildCommands();
    void Refresh();
    void ShowStrings();

    ToolEntries* entries = nullptr;
    QMenu* mnuTunings = nullptr;
    QComboBox* cmbTuning = nullptr;
    std::array<QCheckBox*, Core::StringCount> chk{};
    std::array<QLabel*, Core::StringCount> lblNotes{};
    std::array<picString*, Core::StringCount> strings{};
    QPushButton* cmdUp = nullptr;
    QPushButton* cmdDown = nullptr;
    QPushButton* cmdStop = nullptr;
    QCheckBox* chkLetRing = nullptr;
    QLabel* lblPause = nullptr;
    QDoubleSpinBox* vbPause = nullptr;
    QLabel* lblCount = nullptr;
    int wheelRest = 0;
};

}  // namespace Quillon::Forms
