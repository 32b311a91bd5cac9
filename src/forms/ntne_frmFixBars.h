// Bars that are shorter or longer than their time signature, in a list to walk, and all fixed at once.
#pragma once

#include "forms/ModelDialog.h"

class QTreeWidget;

namespace Quillon::Shell {
struct BatchFixModel;
}

namespace Quillon::Forms {

class ntne_frmFixBars : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmFixBars(Shell::BatchFixModel& model, QWidget* parent);

private:
    void Fill();

    Shell::BatchFixModel& model;
    QLabel* lblSummary = nullptr;
    QCheckBox* chkFull = nullptr;
    QTreeWidget* lstBars = nullptr;
};

}  // namespace Quillon::Forms
