// The fields of what is printed, for every window that asks about it.
#pragma once

#include <QWidget>
#include <array>

#include "exchange/PrintJob.h"

class QComboBox;
class QRadioButton;

namespace Quillon::Shell {
struct PrintModel;
}

namespace Quillon::Forms {

class PrintFields : public QWidget {
    Q_OBJECT

public:
    explicit PrintFields(Shell::PrintModel& edited, QWidget* parent = nullptr);
    /// Writes the fields to the model.
    void Store() const;

private:
    Shell::PrintModel& model;
    QRadioButton* optAllTracks;
    std::array<QComboBox*, Exchange::RunningPlaceCount> combos{};
};

}  // namespace Quillon::Forms
