#include "forms/ntne_frmText.h"

#include <QLabel>
#include <QLineEdit>

#include "forms/Text.h"
#include "shell/NoteModels.h"

namespace Quillon::Forms {

ntne_frmText::ntne_frmText(Shell::TextModel& model, QWidget* parent)
    : StrumDialog(model, parent, "str_TextTitle", "TextWindowDetails") {
    setObjectName("ntne_frmText");
    constexpr int letters = 32;
    QLineEdit* const text = AddText(Fields(), "txtText", "str_TextField", model.Text);
    text->setMinimumWidth(fontMetrics().averageCharWidth() * letters);
    text->selectAll();
    auto* const note = new QLabel(Text("str_TextNote"), this);
    note->setWordWrap(true);
    note->setForegroundRole(QPalette::PlaceholderText);
    AddBelow(note);
    FinishStrum("str_TextRemove", false);
}

}  // namespace Quillon::Forms
