// What this program is, and what it is built with.
#pragma once

#include <QDialog>

namespace Quillon::Forms {

class frmAbout : public QDialog {
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent);
};

}  // namespace Quillon::Forms
