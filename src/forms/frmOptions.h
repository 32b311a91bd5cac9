// The program's options.
#pragma once

#include "forms/ModelDialog.h"

class QListWidget;

namespace Quillon::Shell {
struct OptionsModel;
}

namespace Quillon::Forms {

class frmOptions : public ModelDialog {
    Q_OBJECT

public:
    frmOptions(Shell::OptionsModel& model, QWidget* parent);

private:
    void BuildSoundPage(Shell::OptionsModel& model);
    void BuildEffectsPage(Shell::OptionsModel& model);
    void AddSynthesizer(QFormLayout* page, Shell::OptionsModel& model);
    void FillDevices();
    void ShowSoundState();
    /// Takes the fields of the bends; a text key when one is refused.
    std::string_view CheckBends(Shell::OptionsModel& model);

    QListWidget* lstDevices = nullptr;
    QLabel* lblSoundState = nullptr;
    QLineEdit* txtBend = nullptr;
    QLineEdit* txtVibrato = nullptr;
};

}  // namespace Quillon::Forms
