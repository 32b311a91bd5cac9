// The part that dialogs of imports share: the choice between two readers, what each would keep, and the beginning of
// the page that the chosen one gives.
#pragma once

#include <QWidget>
#include <array>

#include "shell/ImportModel.h"

class QLabel;
class QPlainTextEdit;
class QRadioButton;
class QTableWidget;
class QTimer;

namespace Quillon::Forms {

class picPreview;

class ReaderChoice : public QWidget {
    Q_OBJECT

public:
    ReaderChoice(Shell::ImportModel& model, QWidget* parent);

    /// The source or an option changed: both readers try it again, shortly after the last change.
    void Refresh();

private:
    void Try();
    void ShowChosen();
    void Choose(int reader);

    Shell::ImportModel& model;
    std::array<QRadioButton*, Shell::ImportModel::Readers> optReaders{};
    QLabel* lblAbout = nullptr;
    QTableWidget* lstCounts;
    QPlainTextEdit* txtRemarks;
    picPreview* preview;
    QTimer* tmrTry;
};

}  // namespace Quillon::Forms
