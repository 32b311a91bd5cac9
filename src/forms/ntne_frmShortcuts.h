// The list of keys, from the table of commands.
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QTreeWidget;

namespace Quillon::Forms {

class ntne_frmShortcuts : public QDialog {
    Q_OBJECT

public:
    explicit ntne_frmShortcuts(QWidget* parent);

private:
    void Fill();

    QLineEdit* txtFilter = nullptr;
    QTreeWidget* lstKeys = nullptr;
    QLabel* lblNone = nullptr;
};

}  // namespace Quillon::Forms
