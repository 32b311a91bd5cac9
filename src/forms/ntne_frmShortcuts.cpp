#include "forms/ntne_frmShortcuts.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "shell/ScoreKeys.h"

namespace Quillon::Forms {

namespace {

constexpr std::string_view PlaceSection = "ShortcutsWindowDetails";

QTreeWidgetItem* AddGroup(QTreeWidget* list, const QString& title) {
    auto* const group = new QTreeWidgetItem(list, {title});
    QFont bold = list->font();
    bold.setBold(true);
    group->setFont(0, bold);
    group->setFirstColumnSpanned(true);
    group->setFlags(Qt::ItemIsEnabled);
    group->setExpanded(true);
    return group;
}

/// A key as this machine's keyboards have it; what is no single key stays as it is.
QString KeyText(const std::string& key) {
    const QKeySequence sequence(ToQString(key));
    const bool known = sequence.count() == 1 && sequence[0].key() != Qt::Key_unknown;
    return known ? sequence.toString(QKeySequence::NativeText) : ToQString(key);
}

}  // namespace

ntne_frmShortcuts::ntne_frmShortcuts(QWidget* parent) : QDialog(parent) {
    setObjectName("ntne_frmShortcuts");
    setWindowTitle(Text("str_ShortcutsTitle"));
    txtFilter = new QLineEdit(this);
    txtFilter->setObjectName("txtFilter");
    txtFilter->setPlaceholderText(Text("str_ShortcutsFilter"));
    txtFilter->setAccessibleName(Text("str_ShortcutsFilter"));
    txtFilter->setClearButtonEnabled(true);
    lstKeys = new QTreeWidget(this);
    lstKeys->setObjectName("lstKeys");
    lstKeys->setAccessibleName(Text("str_ShortcutsTitle"));
    lstKeys->setHeaderLabels({Text("str_KeyboardCommand"), Text("str_KeyboardKeys")});
    lstKeys->setRootIsDecorated(false);
    lstKeys->setAlternatingRowColors(true);
    lstKeys->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lstKeys->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    lstKeys->header()->setStretchLastSection(false);
    lblNone = new QLabel(Text("str_ShortcutsNone"), this);
    lblNone->setAlignment(Qt::AlignCenter);
    auto* const note = new QLabel(Text("str_KeyNormalOnly"), this);
    note->setObjectName("lblNormalOnly");
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(Text("str_Close"));
    buttons->button(QDialogButtonBox::Close)->setIcon(QIcon());
    connect(txtFilter, &QLineEdit::textChanged, this, &ntne_frmShortcuts::Fill);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, [this] { KeepPlace(*this, PlaceSection); });
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(txtFilter);
    layout->addWidget(lstKeys, 1);
    layout->addWidget(lblNone, 1);
    layout->addWidget(note);
    layout->addWidget(buttons);
    RestorePlace(*this, PlaceSection, QSize(480, 620));
    Fill();
}

void ntne_frmShortcuts::Fill() {
    const std::string typed = txtFilter->text().toStdString();
    lstKeys->clear();
    for (const Shell::ShortcutGroup& group : Shell::ShortcutGroups()) {
        QTreeWidgetItem* shown = nullptr;
        for (const Shell::ShortcutLine& line : group.Lines) {
            if (!Shell::Matches(group, line, typed)) continue;
            if (!shown) shown = AddGroup(lstKeys, ToQString(group.Title));
            QStringList keys;
            for (const std::string& key : line.Keys) keys << KeyText(key);
            new QTreeWidgetItem(shown, {ToQString(line.Caption), keys.join(", ") + ToQString(line.Mark)});
        }
    }
    const bool any = lstKeys->topLevelItemCount() > 0;
    lstKeys->setVisible(any);
    lblNone->setVisible(!any);
}

}  // namespace Quillon::Forms
