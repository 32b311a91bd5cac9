// The pages as they will be printed. What it shows and how large is decided by Shell::PrintPreview.
#pragma once

#include <QDialog>
#include <functional>

#include "shell/PrintPreview.h"

class QHBoxLayout;
class QLabel;
class QSpinBox;
class QToolButton;

namespace Quillon::Forms {

class frmMain;
class picPages;

class frmPrintPreview : public QDialog {
    Q_OBJECT

public:
    explicit frmPrintPreview(frmMain& main);
    ~frmPrintPreview() override;

private:
    QToolButton* AddButton(QHBoxLayout* bar, const char* name, const char* icon, const char* textKey);
    void ShowState();
    void ChangeZoom(const std::function<void()>& change);
    void cmdPrint_Click();
    void cmdOptions_Click();
    void cmdPageSetup_Click();

    frmMain& owner;
    Shell::PrintPreview preview;
    picPages* pages = nullptr;
    QSpinBox* vbZoom = nullptr;
    QLabel* lblPage = nullptr;
    QToolButton *cmdPrevious = nullptr, *cmdNext = nullptr, *cmdFitPage = nullptr, *cmdFitWidth = nullptr;
};

}  // namespace Quillon::Forms
