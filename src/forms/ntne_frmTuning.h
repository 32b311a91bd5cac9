// The strings of a track, their tuning and capo, and what becomes of the notes.
#pragma once

#include <array>

#include "core/mod_TabFileStructure.h"
#include "forms/ModelDialog.h"

namespace Quillon::Shell {
struct TuningModel;
}

namespace Quillon::Forms {

class ntne_frmTuning : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmTuning(Shell::TuningModel& model, QWidget* parent);

protected:
    QString ComplaintText(std::string_view textKey) const override;

private:
    void AddStrings(QFormLayout* page);
    void TakeFromLibrary();
    void AddNotesFate(QFormLayout* page);
    void Show();

    Shell::TuningModel& model;
    QComboBox* cmbTuning = nullptr;
    QSpinBox* vbStrings = nullptr;
    std::array<QLineEdit*, Core::StringCount> notes{};
    std::array<QLabel*, Core::StringCount> offsets{};
    QComboBox* cmbLost = nullptr;
};

}  // namespace Quillon::Forms
