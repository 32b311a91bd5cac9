// A new chord, or one of the library that is changed: its box, its name, its strings.
#pragma once

#include "forms/ModelDialog.h"

class QComboBox;

namespace Quillon::Tools {
struct ChordEditorModel;
}

namespace Quillon::Forms {

class picChordBox;

class frmNewChord : public ModelDialog {
    Q_OBJECT

public:
    frmNewChord(Tools::ChordEditorModel& model, QWidget* parent);
    ~frmNewChord() override;

private:
    void AddTunings(QFormLayout* page);
    void ShowShape();

    Tools::ChordEditorModel& model;
    picChordBox* box = nullptr;
    QLineEdit* txtName = nullptr;
    QLineEdit* txtFrets = nullptr;
    QComboBox* cmbNames = nullptr;  ///< what the shape may be called
    std::string suggested;          ///< the name that was put into the field last
};

}  // namespace Quillon::Forms
