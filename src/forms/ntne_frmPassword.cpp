#include "forms/ntne_frmPassword.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QRadioButton>

#include "forms/Text.h"
#include "shell/PasswordModel.h"

namespace Quillon::Forms {

ntne_frmPassword::ntne_frmPassword(Shell::PasswordModel& model, QWidget* parent)
    : ModelDialog(parent, "str_PasswordTitle", "PasswordWindowDetails") {
    setObjectName("ntne_frmPassword");
    QFormLayout* const page = AddPage();
    const auto secret = [&](const char* name, std::string_view labelKey, std::string& value) {
        QLineEdit* const field = AddText(page, name, labelKey, value);
        field->setEchoMode(QLineEdit::Password);
        return field;
    };
    auto* const unlock = new QRadioButton(Text("str_PasswordRemove"), this);
    unlock->setObjectName("optUnlock");
    if (model.IsLocked) {
        secret("txtOld", "str_PasswordOld", model.Old);
        auto* const change = new QRadioButton(Text("str_PasswordChange"), this);
        change->setObjectName("optChange");
        change->setChecked(true);
        page->addRow(QString(), unlock);
        page->addRow(QString(), change);
    } else {
        unlock->hide();
    }
    for (QLineEdit* field :
         {secret("txtNew", "str_PasswordNew", model.New), secret("txtAgain", "str_PasswordAgain", model.Again)}) {
        connect(unlock, &QRadioButton::toggled, field, &QWidget::setDisabled);
    }
    OnStore([unlock, &model] { model.Locks = unlock->isChecked() ? 0 : 1; });
    AddNote(page, "str_PasswordNote");
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
