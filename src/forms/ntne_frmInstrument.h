// An instrument of General MIDI, chosen from its families, searched by name, and heard.
#pragma once

#include "forms/ModelDialog.h"

class QTreeWidget;

namespace Quillon::Shell {
struct InstrumentModel;
}

namespace Quillon::Forms {

class ntne_frmInstrument : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmInstrument(Shell::InstrumentModel& model, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill(const QString& words);
    /// The program under the selection, -1 for none.
    int Chosen() const;

    Shell::InstrumentModel& model;
    QTreeWidget* lstInstruments = nullptr;
};

}  // namespace Quillon::Forms
