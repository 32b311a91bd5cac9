// A scale of the person's: its name, keywords and strings, and the pattern that is clicked on a piece of neck.
#pragma once

#include <array>

#include "core/mod_TabFileStructure.h"
#include "forms/ModelDialog.h"

namespace Quillon::Tools {
struct ScaleEditModel;
}

namespace Quillon::Forms {

class picNeck;

class frmScaleEditor : public ModelDialog {
    Q_OBJECT

public:
    frmScaleEditor(Tools::ScaleEditModel& model, QWidget* parent);
    ~frmScaleEditor() override;

private:
    void AddStrings(QFormLayout* page);
    void AddPattern(QFormLayout* page);
    void Show();

    Tools::ScaleEditModel& model;
    std::array<QLineEdit*, Core::StringCount> notes{};
    picNeck* picPattern = nullptr;
    QLabel* lblTones = nullptr;
};

}  // namespace Quillon::Forms
