// The command palette: a line to type into, and the commands that it finds.
#pragma once

#include <QDialog>
#include <vector>

#include "shell/CommandPalette.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace Quillon::Forms {

class frmCommandPalette : public QDialog {
    Q_OBJECT

public:
    explicit frmCommandPalette(QWidget* parent);

    /// What was chosen; nothing before, and when it was left.
    const Shell::Command* Chosen() const { return chosen; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill();
    void Choose(const QTreeWidgetItem* item);

    std::vector<Shell::PaletteEntry> entries;
    QLineEdit* txtCommand = nullptr;
    QTreeWidget* lstCommands = nullptr;
    QLabel* lblNone = nullptr;
    const Shell::Command* chosen = nullptr;
};

}  // namespace Quillon::Forms
