// What is to be done with the chosen chords.
#pragma once

#include "forms/ModelDialog.h"

class QComboBox;
class QStackedWidget;
class QTreeWidget;

namespace Quillon::Tools {
struct ChordBatchModel;
}

namespace Quillon::Forms {

class frmChordBatch : public ModelDialog {
    Q_OBJECT

public:
    frmChordBatch(Tools::ChordBatchModel& model, QWidget* parent);

private:
    void ShowPlan();

    Tools::ChordBatchModel& model;
    QStackedWidget* panels = nullptr;
    QTreeWidget* lstPlan = nullptr;
};

}  // namespace Quillon::Forms
