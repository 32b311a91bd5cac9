// All marks of a note in one place.
#pragma once

#include "forms/StrumDialog.h"

namespace Quillon::Shell {
struct NoteModel;
}

namespace Quillon::Forms {

class ntne_frmNote : public StrumDialog {
    Q_OBJECT

public:
    ntne_frmNote(Shell::NoteModel& model, QWidget* parent);
};

}  // namespace Quillon::Forms
