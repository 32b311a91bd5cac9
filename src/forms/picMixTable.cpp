#include "forms/picMixTable.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cmath>

#include "core/mod_TabFileStructure.h"
#include "forms/Text.h"
#include "playback/mod_TabPlayer.h"
#include "shell/Boards.h"
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
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

enum Column { Number, Name, Instrument, Volume, Mute, Solo, Columns };
constexpr int OnRole = Qt::UserRole;      // of the columns Mute and Solo: it is chosen
constexpr int VolumeRole = Qt::UserRole;  // of the column Volume
constexpr int VolumeWidth = 92;
constexpr int FigureWidth = 28;  // of a volume
constexpr int ChoiceWidth = 26;
constexpr int Inset = 5;

/// Where the volume of a row is drawn and dragged.
QRectF BarOf(const QRect& cell) {
    return QRectF(cell).adjusted(Inset, cell.height() / 2.0 - 3, -FigureWidth - Inset, -cell.height() / 2.0 + 3);
}

void MixRow::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (index.column() < Volume) return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem empty = option;
    initStyleOption(&empty, index);
    const QString text = empty.text;
    empty.text.clear();
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &empty, painter, option.widget);
    const QPalette& palette = option.palette;
    const bool selected = option.state & QStyle::State_Selected;
    const QColor ink = palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.column() == Volume) {
        const QRectF bar = BarOf(option.rect);
        const double part = std::clamp(index.data(VolumeRole).toInt() / double{Shell::MostTrackVolume}, 0.0, 1.0);
        QColor ground = ink;
        ground.setAlpha(60);
        painter->setPen(Qt::NoPen);
        painter->setBrush(ground);
        painter->drawRoundedRect(bar, 3, 3);
        painter->setBrush(selected ? ink : palette.color(QPalette::Highlight));
        painter->drawRoundedRect(QRectF(bar.topLeft(), QSizeF(bar.width() * part, bar.height())), 3, 3);
        painter->drawEllipse(QPointF(bar.left() + bar.width() * part, bar.center().y()), 5, 5);
        painter->setPen(ink);
        painter->drawText(option.rect.adjusted(0, 0, -Inset, 0), Qt::AlignRight | Qt::AlignVCenter, text);
    } else {
        const bool on = index.data(OnRole).toBool();
        const QRectF box = QRectF(option.rect).adjusted(4, 2.5, -4, -2.5);
        const QColor lit = index.column() == Mute ? QColor(0xC9, 0x3A, 0x3A) : QColor(0xD9, 0x95, 0x0B);
        QColor line = ink;
        line.setAlpha(110);
        painter->setPen(QPen(on ? lit : line, 1));
        painter->setBrush(on ? QBrush(lit) : Qt::NoBrush);
        painter->drawRoundedRect(box, 3, 3);
        painter->setPen(on ? QColor(Qt::white) : ink);
        QFont font = option.font;
        font.setBold(on);
        font.setPixelSize(10);
        painter->setFont(font);
        painter->drawText(box, Qt::AlignCenter, text);
    }
    painter->restore();
}

}  // namespace

picMixTable::picMixTable(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("picMixTable");
    setColumnCount(Columns);
    setItemDelegate(new MixRow(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    // A click leaves the focus where it is: who picks a track or its volume types on in the score.
    setFocusPolicy(Qt::TabFocus);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setTextElideMode(Qt::ElideRight);
    setFrameShape(QFrame::NoFrame);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    // The name tells the tracks apart; the instrument makes do with what is left.
    header()->setSectionResizeMode(Instrument, QHeaderView::Stretch);
    header()->setMinimumSectionSize(24);
    for (const auto& [column, width] :
         {std::pair(Volume, VolumeWidth), std::pair(Mute, ChoiceWidth), std::pair(Solo, ChoiceWidth)}) {
        header()->setSectionResizeMode(column, QHeaderView::Fixed);
        header()->resizeSection(column, width);
    }
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
        auto* const row = new QTreeWidgetItem(this, {QString::number(++number), ToQString(track.Name), sound, QString(),
                                                     Text("str_MixTableMute"), Text("str_MixTableSolo")});
        row->setTextAlignment(Number, Qt::AlignRight | Qt::AlignVCenter);
        row->setToolTip(Name, row->text(Name));
        row->setToolTip(Instrument, row->text(Instrument));
        row->setToolTip(Mute, Text("str_MixTableMuteTip"));
        row->setToolTip(Solo, Text("str_MixTableSoloTip"));
    }
    ShowCurrent();
}

void picMixTable::ShowStates() {
    const auto& tracks = Open.TabFile.Tracks;
    const auto& heard = Playback::Player.Listening;
    for (int track = 0; track < std::min(topLevelItemCount(), tracks.Count()); ++track) {
        QTreeWidgetItem& row = *topLevelItem(track);
        const int volume = tracks[track].Volume;
        const QString figure = QString::number(volume);
        if (row.text(Volume) != figure) {
            row.setText(Volume, figure);
            row.setData(Volume, VolumeRole, volume);
            row.setToolTip(Volume, Text("str_MixTableVolumeTip").arg(volume));
        }
        const auto show = [&row](int column, bool on, const char* key) {
            if (row.data(column, OnRole).isValid() && row.data(column, OnRole).toBool() == on) return;
            row.setData(column, OnRole, on);
            // What a screen reader says in place of a letter.
            row.setData(column, Qt::AccessibleTextRole, Text(on ? key : "str_MixTableOff"));
        };
        show(Mute, heard.IsMuted(track), "str_MixTableMuted");
        show(Solo, heard.IsSolo(track), "str_MixTableIsSolo");
        const QBrush ink = heard.Hears(track) ? QBrush() : palette().brush(QPalette::Disabled, QPalette::Text);
        for (const int column : {Number, Name, Instrument}) {
            if (row.foreground(column) != ink) row.setForeground(column, ink);
        }
    }
}

void picMixTable::ShowCurrent() {
    {
        const QSignalBlocker quiet(this);
        ShowStates();
    }
    viewport()->update();
    QTreeWidgetItem* const item = topLevelItem(Open.CurTrack);
    if (item == currentItem()) return;
    const QSignalBlocker quiet(this);
    setCurrentItem(item);
    if (item) scrollToItem(item);
    viewport()->update();  // what the blocked signals would have had painted
}

void picMixTable::SetTexts() {
    setHeaderLabels({Text("str_MixTableNumber"), Text("str_MixTableName"), Text("str_MixTableInstrument"),
                     Text("str_MixTableVolume"), Text("str_MixTableMute"), Text("str_MixTableSolo")});
    headerItem()->setToolTip(Mute, Text("str_MixTableMuteTip"));
    headerItem()->setToolTip(Solo, Text("str_MixTableSoloTip"));
    headerItem()->setTextAlignment(Mute, Qt::AlignCenter);
    headerItem()->setTextAlignment(Solo, Qt::AlignCenter);
    setAccessibleName(Text("str_MixTableTitle"));
    Fill();
}

int picMixTable::ScrollPosition() const { return verticalScrollBar()->value(); }

void picMixTable::mousePressEvent(QMouseEvent* event) {
    const int y = event->pos().y();
    if (event->button() == Qt::LeftButton && PressOnColumn(event->pos())) return;
    if (event->button() == Qt::LeftButton) {
        Shell::Guarded([this, y] { Shell::picMixTable_MouseDown(y, ScrollPosition()); });
    } else if (event->button() == Qt::RightButton) {
        Shell::Guarded([this, y] { Shell::picMixTable_Open(y, ScrollPosition()); });
    }
    ShowCurrent();
}

// The press alone counts: the list's own selecting by mouse would follow the rows' places, not the rule above.
void picMixTable::mouseReleaseEvent(QMouseEvent*) { dragged.reset(); }
void picMixTable::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) DragVolume(event->pos().x());
}

bool picMixTable::PressOnColumn(QPoint at) {
    const int track = Shell::MixTableTrack(at.y(), ScrollPosition());
    const int column = columnAt(at.x());
    if (track < 0 || column < Volume) return false;
    if (column == Mute) Shell::ToggleMute(track);
    if (column == Solo) Shell::ToggleSolo(track);
    if (column == Volume) {
        dragged = track;
        DragVolume(at.x());
    }
    return true;
}

void picMixTable::DragVolume(int x) {
    if (!dragged) return;
    const int left = columnViewportPosition(Volume);
    const QRectF bar = BarOf(QRect(left, 0, columnWidth(Volume), Shell::MixRowHeight));
    const double part = std::clamp((x - bar.left()) / bar.width(), 0.0, 1.0);
    const int volume = static_cast<int>(std::lround(part * Shell::MostTrackVolume));
    // A question for the password takes the mouse away.
    const int track = *dragged;
    Shell::Guarded([track, volume] { Shell::SetTrackVolume(track, volume); });
    if (Open.TabFile.Tracks[track].Volume != volume) dragged.reset();
    ShowCurrent();
}

void picMixTable::AddToVolume(int by) {
    const int track = indexOfTopLevelItem(currentItem());
    if (track < 0) return;
    const int volume = Open.TabFile.Tracks[track].Volume + by;
    Shell::Guarded([track, volume] { Shell::SetTrackVolume(track, volume); });
    ShowCurrent();
}

void picMixTable::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || PressOnColumn(event->pos())) return;
    const int y = event->pos().y();
    Shell::Guarded([this, y] { Shell::picMixTable_Open(y, ScrollPosition()); });
}

void picMixTable::keyPressEvent(QKeyEvent* event) {
    // On the paper any key stops; here the others have work of their own.
    const bool stops = event->key() == Qt::Key_Space || event->key() == Qt::Key_Escape;
    if (stops && Shell::Sound.Playing) return Shell::mnuSoundStop_Click();
    constexpr int VolumeStep = 4;
    const int track = indexOfTopLevelItem(currentItem());
    switch (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier) ? 0 : event->key()) {
        case Qt::Key_M:
            return Shell::ToggleMute(track);
        case Qt::Key_S:
            return Shell::ToggleSolo(track);
        case Qt::Key_Plus:
            return AddToVolume(VolumeStep);
        case Qt::Key_Minus:
            return AddToVolume(-VolumeStep);
        default:
            break;
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QTreeWidget::keyPressEvent(event);
    if (!Shell::Sound.Playing) Shell::Guarded(Shell::mnuTrackProperties_Click);
}

}  // namespace Quillon::Forms
