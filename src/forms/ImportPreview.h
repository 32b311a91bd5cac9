// One reader's choice in a dialog of an import: its button, the counts of its report, and the first bar that it makes.
#pragma once

#include <QWidget>

#include "core/mod_TabFileStructure.h"
#include "exchange/ImportReport.h"

class QLabel;
class QRadioButton;

namespace Quillon::Forms {

class picPreview;

class ImportPreview : public QWidget {
    Q_OBJECT

public:
    ImportPreview(const char* name, std::string_view titleKey, std::string_view aboutKey, QWidget* parent);

    QRadioButton* Button() const { return button; }
    /// The counts, and the first bar of a track, from `firstTrack` on, that has notes. `failure` in place of the counts
    /// where there is one.
    void Show(const Core::TabFile& file, const Exchange::ImportReport& report, int firstTrack,
              const std::string& failure);

private:
    QRadioButton* button;
    QLabel* counts;
    picPreview* paper;
};

}  // namespace Quillon::Forms
