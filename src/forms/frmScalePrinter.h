// The page of a scale as it will print, to be printed or written as a PDF file.
#pragma once

#include <QDialog>

namespace Quillon::Tools {
struct ScaleSheetModel;
}

namespace Quillon::Forms {

class frmScalePrinter : public QDialog {
    Q_OBJECT

public:
    frmScalePrinter(Tools::ScaleSheetModel& model, QWidget* parent);
    ~frmScalePrinter() override;

private:
    void cmdPrint_Click();
    void cmdPdf_Click();

    Tools::ScaleSheetModel& model;
};

}  // namespace Quillon::Forms
