// What each letter of a drum track plays on each string: a table of letters by strings.
#pragma once

#include <QTableWidget>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Forms {

class DrumTable : public QTableWidget {
    Q_OBJECT

public:
    using Assignments = Core::Row<Core::PercAssignment, Core::StringCount>;

    explicit DrumTable(const Assignments& shown, QWidget* parent = nullptr);
    /// As shown, with the cells that a person chose anew.
    Assignments Chosen() const;

private:
    Assignments given;
};

}  // namespace Quillon::Forms
