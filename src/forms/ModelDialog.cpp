#include "forms/ModelDialog.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "forms/ColorButton.h"
#include "forms/FontField.h"
#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "forms/picPreview.h"

namespace Quillon::Forms {

ModelDialog::ModelDialog(QWidget* parent, std::string_view titleKey, std::string placeSection)
    : QDialog(parent), body(new QVBoxLayout(this)), section(std::move(placeSection)) {
    setWindowTitle(Text(titleKey));
}

ModelDialog::~ModelDialog() = default;

QFormLayout* ModelDialog::AddPage(std::string_view titleKey) {
    auto* const page = new QWidget(this);
    auto* const form = new QFormLayout(page);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (titleKey.empty()) {
        form->setContentsMargins(0, 0, 0, 0);
        body->addWidget(page);
        return form;
    }
    if (!tabs) {
        tabs = new QTabWidget(this);
        body->addWidget(tabs);
    }
    form->setContentsMargins(14, 14, 14, 14);
    tabs->addTab(page, Text(titleKey));
    return form;
}

/// Typing goes into the first field at once; left alone, the focus starts on the row of tabs.
void ModelDialog::FocusFirstField() {
    const QWidget* const page = tabs ? tabs->widget(0) : this;
    for (QWidget* const field : page->findChildren<QWidget*>()) {
        if ((field->focusPolicy() & Qt::TabFocus) && field->isEnabled()) return field->setFocus();
    }
}

/// What is typed takes a number's place, however the focus came to it; the toolkit sees to that for Tab alone.
bool ModelDialog::eventFilter(QObject* watched, QEvent* event) {
    auto* const number = qobject_cast<QAbstractSpinBox*>(watched);
    if (number && event->type() == QEvent::FocusIn) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason) {
            QMetaObject::invokeMethod(number, &QAbstractSpinBox::selectAll, Qt::QueuedConnection);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void ModelDialog::Finish(std::function<std::string_view()> complaint) {
    validate = std::move(complaint);
    for (QAbstractSpinBox* number : findChildren<QAbstractSpinBox*>()) number->installEventFilter(this);
    if (preview) FollowFields();
    lblComplaint = new QLabel(this);
    lblComplaint->setObjectName("lblComplaint");
    lblComplaint->setWordWrap(true);
    lblComplaint->setTextFormat(Qt::PlainText);
    lblComplaint->setForegroundRole(QPalette::Link);
    lblComplaint->hide();
    body->addWidget(lblComplaint);
    if (!tabs) body->addStretch();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(Text("str_OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(Text("str_Cancel"));
    for (QAbstractButton* button : buttons->buttons()) button->setIcon(QIcon());
    connect(buttons, &QDialogButtonBox::accepted, this, &ModelDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ModelDialog::reject);
    body->addWidget(buttons);
    connect(this, &QDialog::finished, this, [this] { KeepPlace(*this, section); });
    // Fields of several lines and tables keep Enter for themselves.
    for (const int enter : {Qt::Key_Return, Qt::Key_Enter}) {
        connect(new QShortcut(QKeySequence(Qt::CTRL | enter), this), &QShortcut::activated, this, [this] { accept(); });
    }
    FocusFirstField();
    RestorePlace(*this, section, sizeHint().expandedTo(QSize(420, 0)));
}

void ModelDialog::accept() {
    Store();
    const std::string_view complaint = validate ? validate() : std::string_view();
    if (complaint.empty()) return QDialog::accept();
    ShowComplaint(complaint);
    // Spoken too: a screen reader follows the focus.
    lblComplaint->setFocusPolicy(Qt::StrongFocus);
    lblComplaint->setFocus();
}

/// Fields write only what a person changed, so what an earlier state of theirs wrote is taken back before.
void ModelDialog::Store() {
    if (restoreModel) restoreModel();
    for (const auto& store : stores) store();
}

void ModelDialog::AddPreview(QFormLayout* page, std::function<void()> restore,
                             std::function<Drawing::Excerpt()> paint) {
    preview = new picPreview(this);
    preview->setObjectName("picPreview");
    page->addRow(preview);
    restoreModel = std::move(restore);
    paintPreview = std::move(paint);
}

void ModelDialog::ShowPreview() {
    Store();
    // What can't be done has no picture: the last one stays.
    if (!validate || validate().empty()) preview->ShowExcerpt(paintPreview());
}

void ModelDialog::FollowFields() {
    for (QSpinBox* field : findChildren<QSpinBox*>()) {
        connect(field, &QSpinBox::valueChanged, this, &ModelDialog::ShowPreview);
    }
    for (QComboBox* field : findChildren<QComboBox*>()) {
        connect(field, &QComboBox::currentIndexChanged, this, &ModelDialog::ShowPreview);
    }
    for (QAbstractButton* field : findChildren<QAbstractButton*>()) {
        connect(field, &QAbstractButton::toggled, this, &ModelDialog::ShowPreview);
    }
    ShowPreview();
}

void ModelDialog::ShowComplaint(std::string_view textKey) {
    lblComplaint->setText(textKey.empty() ? QString() : ComplaintText(textKey));
    lblComplaint->setVisible(!textKey.empty());
    if (textKey.empty() || !isVisible()) return;
    layout()->activate();
    const int least = layout()->hasHeightForWidth() ? layout()->minimumHeightForWidth(width()) : 0;
    if (least > height()) resize(width(), least);
}

QLineEdit* ModelDialog::AddText(QFormLayout* page, const char* name, std::string_view labelKey, std::string& value) {
    auto* const field = new QLineEdit(ToQString(value), this);
    field->setObjectName(name);
    field->setCursorPosition(0);
    page->addRow(Text(labelKey), field);
    OnStore([field, &value] {
        if (field->isModified()) value = field->text().toStdString();
    });
    return field;
}

QPlainTextEdit* ModelDialog::AddLines(QFormLayout* page, const char* name, std::string_view labelKey,
                                      std::string& value) {
    auto* const field = new QPlainTextEdit(ToQString(value), this);
    field->setObjectName(name);
    field->setTabChangesFocus(true);
    constexpr int Lines = 5;
    field->setMinimumHeight(fontMetrics().lineSpacing() * Lines);
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);  // else each asks for a dozen lines
    page->addRow(Text(labelKey), field);
    OnStore([field, &value] {
        // Lines end as in the system's files.
        if (field->document()->isModified()) value = field->toPlainText().replace("\n", "\r\n").toStdString();
    });
    return field;
}

QCheckBox* ModelDialog::AddCheck(QFormLayout* page, const char* name, std::string_view labelKey, bool& value) {
    auto* const field = new QCheckBox(Text(labelKey), this);
    field->setObjectName(name);
    field->setChecked(value);
    page->addRow(QString(), field);
    OnStore([field, &value] { value = field->isChecked(); });
    return field;
}

QSpinBox* ModelDialog::AddNumber(QFormLayout* page, const char* name, std::string_view labelKey, std::int16_t& value,
                                 int least, int most, std::string_view unitKey) {
    auto* const field = new QSpinBox(this);
    field->setObjectName(name);
    field->setRange(least, most);
    field->setValue(value);
    if (!unitKey.empty()) field->setSuffix(" " + Text(unitKey));
    page->addRow(Text(labelKey), field);
    OnStore([field, &value, before = value, shown = field->value()] {
        value = field->value() != shown ? static_cast<std::int16_t>(field->value()) : before;
    });
    return field;
}

QComboBox* ModelDialog::AddChoice(QFormLayout* page, const char* name, std::string_view labelKey, std::int16_t& value,
                                  const QStringList& entries, int first) {
    auto* const field = new QComboBox(this);
    field->setObjectName(name);
    field->addItems(entries);
    field->setCurrentIndex(value - first);
    page->addRow(Text(labelKey), field);
    OnStore([field, &value, first, before = value, shown = field->currentIndex()] {
        value = field->currentIndex() != shown ? static_cast<std::int16_t>(field->currentIndex() + first) : before;
    });
    return field;
}

void ModelDialog::AddFont(QFormLayout* page, const char* name, std::string_view labelKey, const Font& shown,
                          std::function<void(const Font&)> store) {
    auto* const field = new FontField(shown, this);
    field->setObjectName(name);
    page->addRow(Text(labelKey), field);
    OnStore([field, shown, write = std::move(store)] {
        if (field->Chosen() != shown) write(field->Chosen());
    });
}

void ModelDialog::AddColor(QFormLayout* page, const char* name, std::string_view labelKey, std::int32_t& value) {
    auto* const field = new ColorButton(value, Text(labelKey).remove('&'), this);
    field->setObjectName(name);
    page->addRow(Text(labelKey), field);
    OnStore([field, &value, before = field->Chosen()] {
        if (field->Chosen() != before) value = field->Chosen();
    });
}

QString ModelDialog::ComplaintText(std::string_view textKey) const { return Text(textKey); }

void ModelDialog::AddNote(QFormLayout* page, std::string_view textKey) {
    auto* const note = new QLabel(Text(textKey));
    note->setWordWrap(true);
    note->setForegroundRole(QPalette::PlaceholderText);
    // As wide as the fields: a note by itself would break its lines early.
    QSizePolicy wide(QSizePolicy::Expanding, QSizePolicy::Minimum);
    wide.setHeightForWidth(true);
    note->setSizePolicy(wide);
    page->addRow(QString(), note);
}

}  // namespace Quillon::Forms
