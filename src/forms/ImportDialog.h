// What the dialogs of imports share: the source, the options, both readers side by side, and an import that shows how
// far it is and can be cancelled.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <string_view>

#include "exchange/AsciiImport.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace Quillon::Shell {
struct ImportModel;
}

namespace Quillon::Forms {

class ReaderChoice;

class ImportDialog : public QDialog {
    Q_OBJECT

public:
    /// While an import runs it is cancelled; the dialog then stays.
    void reject() override;

protected:
    /// `section` keeps the dialog's place in the settings store.
    ImportDialog(Shell::ImportModel& model, QWidget* parent, std::string_view captionKey, std::string section);

    /// Puts the dialog together, once its parts are there.
    void Build(QWidget* source, QWidget* options);
    /// The name of a file and the button that chooses another one, under a note unless its key is "".
    QWidget* MakeFileRow(std::string_view noteKey);
    void ShowFile(const QString& path);
    /// The source or an option changed.
    void Refresh();

    /// Writes the options to the model.
    virtual void StoreOptions() = 0;
    virtual void Command1_Click() = 0;  ///< "Open"

    using Work = std::function<bool(const Exchange::ImportProgress& progress)>;
    /// Runs what may last, with all else held back; it is given how far it is and whether to go on.
    bool Run(const Work& work);

private:
    QWidget* MakeButtons();
    void Command2_Click();  ///< "Import"

    Shell::ImportModel& imported;
    std::string place;
    QWidget* fields = nullptr;
    QLabel* lblFile = nullptr;
    QLabel* Label5 = nullptr;
    QProgressBar* barProgress = nullptr;
    QPushButton* Command2 = nullptr;
    ReaderChoice* preview = nullptr;
    bool working = false;
    bool cancelled = false;
};

}  // namespace Quillon::Forms
