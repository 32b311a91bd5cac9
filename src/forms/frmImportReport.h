// The report of the last import, to be read and saved.
#pragma once

#include <QDialog>

namespace Quillon::Shell {
struct ImportReportModel;
}

namespace Quillon::Forms {

class frmImportReport : public QDialog {
    Q_OBJECT

public:
    frmImportReport(Shell::ImportReportModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
