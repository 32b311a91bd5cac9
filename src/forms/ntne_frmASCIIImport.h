// Imports a text tab from a file, the web or the clipboard onto the current track.
#pragma once

#include "forms/ImportDialog.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QRadioButton;

namespace Quillon::Shell {
struct AsciiImportModel;
}

namespace Quillon::Forms {

class ntne_frmASCIIImport : public ImportDialog {
    Q_OBJECT

public:
    ntne_frmASCIIImport(Shell::AsciiImportModel& model, QWidget* parent);

protected:
    void StoreOptions() override;
    void Command1_Click() override;

private:
    QWidget* MakeSource();
    QWidget* MakeOptions();
    void cmdLook_Click();
    void ShowTiming();

    Shell::AsciiImportModel& model;
    QLineEdit* txtURL = nullptr;
    QRadioButton* Option2 = nullptr;
    QComboBox* cmbLen = nullptr;
    QCheckBox* chkEnforceTiming = nullptr;
    QLineEdit* txtTiming = nullptr;
    QCheckBox* chkEnforceLength = nullptr;
    QCheckBox* chkGetFileDetails = nullptr;
    QCheckBox* chkAutoSettings = nullptr;
};

}  // namespace Quillon::Forms
