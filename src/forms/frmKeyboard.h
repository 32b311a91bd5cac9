// The list of keys, from the table of commands.
#pragma once

#include <QDialog>

namespace Quillon::Forms {

class frmKeyboard : public QDialog {
    Q_OBJECT

public:
    explicit frmKeyboard(QWidget* parent);
};

}  // namespace Quillon::Forms
