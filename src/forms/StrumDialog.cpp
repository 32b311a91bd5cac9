#include "forms/StrumDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "drawing/mod_Excerpt.h"
#include "forms/Text.h"
#include "forms/picPreview.h"
#include "playback/mod_Audition.h"
#include "shell/StrumModel.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

StrumDialog::StrumDialog(Shell::StrumModel& edited, QWidget* parent, std::string_view titleKey,
                         std::string placeSection)
    : ModelDialog(parent, titleKey, std::move(placeSection)), strumModel(edited) {
    QFormLayout* const page = AddPage();
    rows = new QVBoxLayout;
    page->addRow(rows);
    auto* const beside = new QHBoxLayout;
    beside->setSpacing(14);
    rows->addLayout(beside, 1);
    fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    beside->addLayout(fields, 0);
    preview = new picPreview(this);
    beside->addWidget(preview, 1);
}

StrumDialog::~StrumDialog() { Playback::EndAudition(); }

void StrumDialog::AddBelow(QWidget* widget, int stretch) { rows->addWidget(widget, stretch); }

void StrumDialog::FinishStrum(std::string_view removeKey, bool listen) {
    Finish([this] { return strumModel.Remove ? std::string_view() : strumModel.Validate(); });
    auto* const buttons = findChild<QDialogButtonBox*>();
    // Both stand apart from OK and Cancel.
    if (listen) {
        cmdListen = buttons->addButton(Text("str_Listen"), QDialogButtonBox::ResetRole);
        cmdListen->setObjectName("cmdListen");
        cmdListen->setAutoDefault(false);
        connect(cmdListen, &QPushButton::clicked, this, [this] {
            Refresh();
            strumModel.Listen();
        });
    }
    if (!removeKey.empty() && strumModel.Exists()) {
        QPushButton* const remove = buttons->addButton(Text(removeKey), QDialogButtonBox::ResetRole);
        remove->setObjectName("cmdRemove");
        remove->setAutoDefault(false);
        connect(remove, &QPushButton::clicked, this, [this] {
            strumModel.Remove = true;
            QDialog::accept();
        });
    }
    FollowFields();
    Refresh();
}

void StrumDialog::FollowFields() {
    for (auto* const field : findChildren<QComboBox*>()) {
        connect(field, &QComboBox::currentIndexChanged, this, &StrumDialog::Refresh);
    }
    for (auto* const field : findChildren<QSpinBox*>()) {
        connect(field, &QSpinBox::valueChanged, this, &StrumDialog::Refresh);
    }
    for (auto* const field : findChildren<QCheckBox*>()) {
        connect(field, &QCheckBox::toggled, this, &StrumDialog::Refresh);
    }
    for (auto* const field : findChildren<QLineEdit*>()) {
        connect(field, &QLineEdit::textChanged, this, &StrumDialog::Refresh);
    }
}

void StrumDialog::Refresh() {
    if (settling) return;
    Store();
    if (changed) changed();
    const bool sound = strumModel.Validate().empty();
    if (cmdListen) cmdListen->setEnabled(sound);
    ShowComplaint("");
    preview->ShowExcerpt(Drawing::Excerpt(strumModel.Changed(), strumModel.Shown()));
}

void StrumDialog::Settle(const std::function<void()>& set) {
    settling = true;
    set();
    settling = false;
}

void StrumDialog::accept() {
    strumModel.Remove = false;
    ModelDialog::accept();
}

}  // namespace Quillon::Forms
