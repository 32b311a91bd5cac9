#include "forms/ntne_frmPercAssTAB.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "forms/Text.h"
#include "forms/WindowPlace.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/PercAssistant.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

namespace {

constexpr std::string_view PlaceSection = "PercTabWindowDetails";

}  // namespace

ntne_frmPercAssTAB::ntne_frmPercAssTAB(QWidget* parent)
    : QDialog(parent, Qt::Tool),
      lblString(new QLabel(this)),
      lstLetters(new QTreeWidget(this)),
      cmdAssignment(new QPushButton(this)) {
    setObjectName("ntne_frmPercAssTAB");
    setAttribute(Qt::WA_ShowWithoutActivating);
    lblString->setObjectName("lblString");
    lblString->setTextFormat(Qt::PlainText);
    lstLetters->setObjectName("lstLetters");
    lstLetters->setColumnCount(2);
    lstLetters->setRootIsDecorated(false);
    lstLetters->setAllColumnsShowFocus(true);
    lstLetters->setUniformRowHeights(true);
    lstLetters->header()->setStretchLastSection(true);
    cmdAssignment->setObjectName("cmdAssignment");
    cmdAssignment->setAutoDefault(false);
    auto* const body = new QVBoxLayout(this);
    body->addWidget(lblString);
    body->addWidget(lstLetters);
    body->addWidget(cmdAssignment);
    const auto write = [this](QTreeWidgetItem* item) {
        const int letter = lstLetters->indexOfTopLevelItem(item);
        Shell::Guarded([letter] { Shell::PercLetter_Click(letter); });
        Q_EMIT Done();
    };
    connect(lstLetters, &QTreeWidget::itemClicked, this, write);
    // Enter; a mouse has written with its first click.
    connect(lstLetters, &QTreeWidget::itemActivated, this, [this, write](QTreeWidgetItem* item) {
        if (lstLetters->hasFocus()) write(item);
    });
    connect(cmdAssignment, &QPushButton::clicked, this, [this] {
        Shell::Guarded(Shell::cmdPercAssignment_Click);
        Q_EMIT Done();
    });
    const int rows = 14;  // the letters, the heading and a little room
    RestorePlace(*this, PlaceSection, QSize(250, 90 + rows * (fontMetrics().lineSpacing() + 4)));
}

void ntne_frmPercAssTAB::SetTexts() {
    setWindowTitle(Text("str_PercAssistantTitle"));
    lstLetters->setHeaderLabels({Text("str_ColumnLetter"), Text("str_ColumnPlays")});
    lstLetters->setAccessibleName(windowTitle());
    cmdAssignment->setText(Text("str_PercAssignment"));
    Fill();
}

void ntne_frmPercAssTAB::Fill() {
    const auto letters = Shell::PercLetters();
    lblString->setText(ToQString(Shell::PercAssistantTitle()));
    lstLetters->clear();
    QFont bold = font();
    bold.setBold(true);
    for (const Shell::PercLetter& each : letters) {
        auto* const row = new QTreeWidgetItem(lstLetters, {ToQString(each.Letter), ToQString(each.Sound)});
        row->setFont(0, bold);
        row->setTextAlignment(0, Qt::AlignCenter);
        if (!each.Sounds) {
            for (const int column : {0, 1}) row->setForeground(column, palette().placeholderText());
        }
        if (each.IsNote) lstLetters->setCurrentItem(row);
    }
    lstLetters->resizeColumnToContents(0);
}

void ntne_frmPercAssTAB::ShowIf(bool shows) {
    if (shows == isVisible()) return;
    if (shows && Services.Settings->Get(PlaceSection, "Left").empty()) {
        // Beside the music at first, not on it.
        constexpr int Border = 24;
        move(parentWidget()->frameGeometry().bottomRight() - QPoint(width() + Border, height() + 3 * Border));
    }
    setVisible(shows);
}

void ntne_frmPercAssTAB::reject() { Shell::PercAssistantClosed(); }

void ntne_frmPercAssTAB::KeepItsPlace() const {
    if (isVisible()) KeepPlace(*this, PlaceSection);
}

void ntne_frmPercAssTAB::hideEvent(QHideEvent* event) {
    KeepPlace(*this, PlaceSection);
    QDialog::hideEvent(event);
}

}  // namespace Quillon::Forms
