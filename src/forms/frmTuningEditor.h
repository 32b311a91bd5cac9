// A tuning of the person's: its name, its strings and the note of each.
#pragma once

#include <array>

#include "core/mod_TabFileStructure.h"
#include "forms/ModelDialog.h"

class QPushButton;

namespace Quillon::Tools {
struct TuningEditModel;
}

namespace Quillon::Forms {

class frmTuningEditor : public ModelDialog {
    Q_OBJECT

public:
    frmTuningEditor(Tools::TuningEditModel& model, QWidget* parent);
    ~frmTuningEditor() override;

private:
    void AddStrings(QFormLayout* page);
    void Show();

    Tools::TuningEditModel& model;
    std::array<QComboBox*, Core::StringCount> cmbNotes{};
    std::array<QPushButton*, Core::StringCount> cmdListen{};
};

}  // namespace Quillon::Forms
