#include "forms/picMixTable.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

using Core::Open;

namespace {

/// Rows of a fixed height, whatever the font.
class MixRow : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width() + 8, Shell::MixRowHeight};
    }
};

enum Column { Number, Name, Instrument, Volume, Columns };

}  // namespace

picMixTable::picMixTable(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("picMixTable");
    setColumnCount(Columns);
    setItemDelegate(new MixRow(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setTextElideMode(Qt::ElideRight);
    setFrameShape(QFrame::NoFrame);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    // The name tells the tracks apart; the instrument makes do with what is left.
    header()->setSectionResizeMode(Instrument, QHeaderView::Stretch);
    header()->setMinimumSectionSize(24);
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item) Shell::ShowTrack(indexOfTopLevelItem(item));
    });
}

void picMixTable::Fill() {
    const QSignalBlocker quiet(this);
    clear();
    int number = 0;
    for (const Core::Track& track : Open.TabFile.Tracks) {
        const QString sound = track.IsDrum ? Text("str_MixTableDrums") : ToQString(track.InstrumentName);
        auto* const row = new QTreeWidgetItem(
            this, {QString::number(++number), ToQString(track.Name), sound, QString::number(track.Volume)});
        row->setTextAlignment(Number, Qt::AlignRight | Qt::AlignVCenter);
        row->setTextAlignment(Volume, Qt::AlignRight | Qt::AlignVCenter);
        row->setToolTip(Name, row->text(Name));
        row->setToolTip(Instrument, row->text(Instrument));
    }
    ShowCurrent();
}

void picMixTable::ShowCurrent() {
    QTreeWidgetItem* const item = topLevelItem(Open.CurTrack);
    if (item == currentItem()) return;
    const QSignalBlocker quiet(this);
    setCurrentItem(item);
    if (item) scrollToItem(item);
    viewport()->update();  // what the blocked signals would have had painted
}

void picMixTable::SetTexts() {
    setHeaderLabels({Text("str_MixTableNumber"), Text("str_MixTableName"), Text("str_MixTableInstrument"),
                     Text("str_MixTableVolume")});
    setAccessibleName(Text("str_MixTableTitle"));
    Fill();
}

int picMixTable::ScrollPosition() const { return verticalScrollBar()->value(); }

void picMixTable::mousePressEvent(QMouseEvent* event) {
    const int y = event->pos().y();
    if (event->button() == Qt::LeftButton) {
        Shell::Guarded([this, y] { Shell::picMixTable_MouseDown(y, ScrollPosition()); });
    } else if (event->button() == Qt::RightButton) {
        Shell::Guarded([this, y] { Shell::picMixTable_Open(y, ScrollPosition()); });
    }
    ShowCurrent();
}

// The press alone counts: the list's own selecting by mouse would follow the rows' places, not the rule above.
void picMixTable::mouseReleaseEvent(QMouseEvent*) {}
void picMixTable::mouseMoveEvent(QMouseEvent*) {}

void picMixTable::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int y = event->pos().y();
    Shell::Guarded([this, y] { Shell::picMixTable_Open(y, ScrollPosition()); });
}

void picMixTable::keyPressEvent(QKeyEvent* event) {
    // A click on a track took the focus from the paper, where any key stops.
    const bool stops = event->key() == Qt::Key_Space || event->key() == Qt::Key_Escape;
    if (stops && Shell::Sound.Playing) return Shell::mnuSoundStop_Click();
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QTreeWidget::keyPressEvent(event);
    if (!Shell::Sound.Playing) Shell::Guarded(Shell::mnuTrackProperties_Click);
}

}  // namespace Quillon::Forms
