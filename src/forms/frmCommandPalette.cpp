#include "forms/frmCommandPalette.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/SvgIcon.h"
#include "forms/Text.h"

namespace Quillon::Forms {

namespace {

constexpr QSize Usual(560, 380);

}  // namespace

frmCommandPalette::frmCommandPalette(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
    setObjectName("frmCommandPalette");
    setWindowTitle(Text("str_PaletteTitle"));
    txtCommand = new QLineEdit(this);
    txtCommand->setObjectName("txtCommand");
    txtCommand->setPlaceholderText(Text("str_PaletteHint"));
    txtCommand->setAccessibleName(Text("str_PaletteHint"));
    txtCommand->installEventFilter(this);
    lstCommands = new QTreeWidget(this);
    lstCommands->setObjectName("lstCommands");
    lstCommands->setColumnCount(3);
    lstCommands->setHeaderHidden(true);
    lstCommands->setRootIsDecorated(false);
    lstCommands->setUniformRowHeights(true);
    lstCommands->setFocusPolicy(Qt::NoFocus);
    lstCommands->setAccessibleName(Text("str_PaletteTitle"));
    lstCommands->header()->setStretchLastSection(false);
    lstCommands->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int column : {1, 2}) lstCommands->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    lblNone = new QLabel(Text("str_PaletteNone"), this);
    lblNone->setAlignment(Qt::AlignCenter);
    connect(txtCommand, &QLineEdit::textChanged, this, &frmCommandPalette::Fill);
    connect(txtCommand, &QLineEdit::returnPressed, this, [this] { Choose(lstCommands->currentItem()); });
    connect(lstCommands, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { Choose(item); });
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(txtCommand);
    layout->addWidget(lstCommands, 1);
    layout->addWidget(lblNone, 1);
    resize(Usual.boundedTo(parent->size()));
    constexpr int BelowTop = 60;
    move(parent->mapToGlobal(QPoint((parent->width() - width()) / 2, BelowTop)));
    Fill();
}

void frmCommandPalette::Fill() {
    entries = Shell::FindCommands(txtCommand->text().toStdString());
    lstCommands->clear();
    int index = 0;
    for (const Shell::PaletteEntry& entry : entries) {
        const QString keys = QKeySequence(ToQString(entry.Keys)).toString(QKeySequence::NativeText);
        auto* const item = new QTreeWidgetItem(lstCommands, {ToQString(entry.Caption), ToQString(entry.Menu), keys});
        item->setIcon(0, entry.Which->Icon.empty() ? QIcon() : SvgIcon(entry.Which->Icon));
        item->setData(0, Qt::UserRole, index++);
        item->setDisabled(!entry.Enabled);
        item->setForeground(1, palette().placeholderText());
    }
    if (index > 0) lstCommands->setCurrentItem(lstCommands->topLevelItem(0));
    lstCommands->setVisible(index > 0);
    lblNone->setVisible(index == 0);
}

void frmCommandPalette::Choose(const QTreeWidgetItem* item) {
    if (!item || item->isDisabled()) return;
    chosen = entries.at(static_cast<std::size_t>(item->data(0, Qt::UserRole).toInt())).Which;
    accept();
}

/// The keys that walk the list work while the line has the focus.
bool frmCommandPalette::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int rows = lstCommands->topLevelItemCount();
        const int row = lstCommands->indexOfTopLevelItem(lstCommands->currentItem());
        constexpr int View = 8;
        int to = row;
        if (key == Qt::Key_Down) to = row + 1;
        if (key == Qt::Key_Up) to = row - 1;
        if (key == Qt::Key_PageDown) to = row + View;
        if (key == Qt::Key_PageUp) to = row - View;
        if (to != row && rows > 0) {
            lstCommands->setCurrentItem(lstCommands->topLevelItem(std::clamp(to, 0, rows - 1)));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace Quillon::Forms
