// Imports a text tab from a file, the web or the clipboard onto the current track.
#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

namespace Quillon::Shell {
struct AsciiImportModel;
}

namespace Quillon::Forms {

class ReaderChoice;

class ntne_frmASCIIImport : public QDialog {
    Q_OBJECT

public:
    ntne_frmASCIIImport(Shell::AsciiImportModel& model, QWidget* parent);

    /// While an import runs it is cancelled; the dialog then stays.
    void reject() override;

private:
    QWidget* MakeSource();
    QWidget* MakeOptions();
    QWidget* MakeButtons();
    void Command1_Click();  ///< "Open"
    void cmdLook_Click();
    void Command2_Click();  ///< "Import"
    void StoreOptions();
    void ShowTiming();
    /// Runs what may last, with all else held back; it is given how far it is and whether to go on.
    template <class Work>
    bool Run(Work work);

    Shell::AsciiImportModel& model;
    QWidget* fields = nullptr;
    QLabel* lblFile = nullptr;
    QLineEdit* txtURL = nullptr;
    QRadioButton* Option2 = nullptr;
    QComboBox* cmbLen = nullptr;
    QCheckBox* chkEnforceTiming = nullptr;
    QLineEdit* txtTiming = nullptr;
    QCheckBox* chkEnforceLength = nullptr;
    QCheckBox* chkGetFileDetails = nullptr;
    QCheckBox* chkAutoSettings = nullptr;
    QLabel* Label5 = nullptr;
    QProgressBar* barProgress = nullptr;
    QPushButton* Command2 = nullptr;
    ReaderChoice* preview = nullptr;
    bool working = false;
    bool cancelled = false;
};

}  // namespace Quillon::Forms
