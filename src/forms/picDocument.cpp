#include "forms/picDocument.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Selection.h"
#include "forms/Text.h"
#include "forms/picPlayMarker.h"
#include "platform/RunTimeError.h"
#include "platform/qt/PainterPicture.h"
#include "shell/CursorText.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

using Drawing::View;

namespace {

constexpr int VerticalUnit = 8;     // document pixels of one step of VScroll1
constexpr int HorizontalUnit = 10;  // and of HScroll1

bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr;
}

}  // namespace

picDocument::picDocument(QWidget* parent) : QAbstractScrollArea(parent), marker(new picPlayMarker(viewport())) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setCursor(Qt::IBeamCursor);
    verticalScrollBar()->setObjectName("VScroll1");
    horizontalScrollBar()->setObjectName("HScroll1");
    verticalScrollBar()->setSingleStep(5);
    horizontalScrollBar()->setSingleStep(4);
}

void picDocument::Redraw(bool followCursor) {
    dirty = true;
    follow = follow || followCursor;
    viewport()->update();
}

void picDocument::Settle() {
    if (dirty) PaintBacking();
}

void picDocument::PaintBacking() {
    const double ratio = devicePixelRatioF();
    const QSize size = viewport()->size() * ratio;
    if (backing.size() != size) backing = QImage(size, QImage::Format_RGB32);
    backing.setDevicePixelRatio(1);
    View.ScaleWidth = std::max(1, static_cast<int>(std::ceil(viewport()->width() / zoom)));
    View.ScaleHeight = std::max(1, static_cast<int>(std::ceil(viewport()->height() / zoom)));
    const bool followed = View.FollowCursor;
    View.FollowCursor = followed && follow;
    dirty = false;
    follow = false;
    {
        QPainter painter(&backing);
        PainterPicture picture(painter, zoom * ratio);
        try {
            Drawing::DrawDocument(picture);
        } catch (const RunTimeError& error) {
            // A document too wide or too long for the layout's numbers.
            painter.resetTransform();
            painter.setClipping(false);
            painter.scale(ratio, ratio);
            const QRect all(QPoint(0, 0), viewport()->size());
            painter.fillRect(all, Qt::white);
            painter.setPen(Qt::black);
            painter.setFont(font());
            constexpr int Border = 40;
            painter.drawText(all.adjusted(Border, Border, -Border, -Border), Qt::AlignCenter | Qt::TextWordWrap,
                             ToQString(Shell::LayoutFailureText(error)));
        }
    }
    View.FollowCursor = followed;
    backing.setDevicePixelRatio(ratio);
    ShowScrollBars();
    MovePlayMarker();
    TellScreenReader();
    Q_EMIT Drawn();
}

void picDocument::ShowScrollBars() {
    settingScrollBars = true;
    QScrollBar* const vertical = verticalScrollBar();
    vertical->setPageStep(std::max(1, View.ScaleHeight / VerticalUnit));
    vertical->setRange(0, View.VScrollMax);
    vertical->setValue(View.VScroll);
    QScrollBar* const horizontal = horizontalScrollBar();
    horizontal->setPageStep(std::max(1, View.ScaleWidth / HorizontalUnit));
    // A page that fits is centred: its few pixels of play are nothing to scroll for.
    const bool fits = View.ScaleWidth >= Drawing::Page.PageWidth + 20;
    horizontal->setRange(0, fits && View.HScroll == 0 ? 0 : View.HScrollMax);
    horizontal->setValue(View.HScroll);
    settingScrollBars = false;
}

void picDocument::TellScreenReader() {
    if (!QAccessible::isActive()) return;
    const QString now = QString::fromStdString(Shell::CursorText());
    if (now == spoken) return;
    spoken = now;
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

void picDocument::paintEvent(QPaintEvent*) {
    if (dirty || backing.devicePixelRatio() != devicePixelRatioF()) PaintBacking();
    QPainter painter(viewport());
    painter.drawImage(0, 0, backing);
    PaintSelection(painter);
}

void picDocument::PaintSelection(QPainter& painter) const {
    const auto bands = Shell::SelectionBands();
    if (bands.empty()) return;
    painter.scale(zoom, zoom);
    for (const Shell::SelectionBand& band : bands) {
        painter.fillRect(band.X, band.Y, band.Width, band.Height, QColor(0x2A, 0x6F, 0xDB, 46));
    }
}

void picDocument::ScrollToBar(int bar) {
    Settle();
    const std::pair before{View.VScroll, View.HScroll};
    Drawing::SetScrolls(bar);
    Drawing::ScrollAcross(bar);
    if (std::pair{View.VScroll, View.HScroll} != before) Redraw(false);
}

void picDocument::SetScrolling(bool on) {
    scrolling = on;
    verticalScrollBar()->setEnabled(on);
    horizontalScrollBar()->setEnabled(on);
}

void picDocument::MovePlayMarker() {
    if (!dirty) marker->Show(Shell::PlayMarkerNow(), zoom);
}

void picDocument::resizeEvent(QResizeEvent*) {
    Drawing::Page.LayoutDirty = 1;
    Redraw(false);
}

void picDocument::scrollContentsBy(int, int) {
    if (settingScrollBars) return;
    View.VScroll = verticalScrollBar()->value();
    View.HScroll = horizontalScrollBar()->value();
    Redraw(false);
}

void picDocument::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        if (!scrolling) return;
        panFrom = event->pos();
        panScroll = {View.HScroll, View.VScroll};
        viewport()->setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
    Settle();
    const int x = static_cast<int>(std::floor(event->position().x() / zoom));
    const int y = static_cast<int>(std::floor(event->position().y() / zoom));
    const int shift = ShiftState(event->modifiers());
    Shell::Guarded([x, y, shift] { Editing::picDocument_MouseDown(x, y, shift); });
    Redraw();
}

void picDocument::mouseMoveEvent(QMouseEvent* event) {
    if (!scrolling || !(event->buttons() & Qt::MiddleButton)) return;
    const QPointF moved = QPointF(event->pos() - panFrom) / zoom;
    horizontalScrollBar()->setValue(panScroll.x() - static_cast<int>(std::lround(moved.x() / HorizontalUnit)));
    verticalScrollBar()->setValue(panScroll.y() - static_cast<int>(std::lround(moved.y() / VerticalUnit)));
}

void picDocument::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) viewport()->setCursor(Qt::IBeamCursor);
}

void picDocument::wheelEvent(QWheelEvent* event) {
    if (!scrolling) return event->accept();
    if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    constexpr int Notch = 120;
    wheelRest += event->angleDelta().y();
    const int steps = wheelRest / Notch;
    wheelRest -= steps * Notch;
    if (steps != 0) {
        zoomPoint = event->position();
        Q_EMIT ZoomAsked(steps);
        zoomPoint.reset();
    }
    event->accept();
}

void picDocument::keyPressEvent(QKeyEvent* event) {
    const int code = VirtualKey(*event);
    if (Shell::Sound.Playing) {
        // A key that is held down since before, and those that go with others, are no keys of their own.
        if (!event->isAutoRepeat() && !IsModifier(event->key())) Editing::picDocument_KeyDown(code, 0);
        return event->accept();
    }
    if (code == 0) return QAbstractScrollArea::keyPressEvent(event);
    Settle();
    const int shift = ShiftState(event->modifiers());
    Shell::Guarded([code, shift] { Editing::picDocument_KeyDown(code, shift); });
    Redraw();
}

void picDocument::SetZoom(double value) {
    if (value == zoom) return;
    const QPointF fixed = zoomPoint.value_or(QPointF(viewport()->width() / 2.0, 0));
    Settle();
    const double down = fixed.y() / zoom + VerticalUnit * View.VScroll;
    const double across = fixed.x() / zoom - Drawing::PageLeftX(Drawing::Page, View);
    zoom = value;
    View.ScaleWidth = std::max(1, static_cast<int>(std::ceil(viewport()->width() / zoom)));
    View.VScroll = std::max(0, static_cast<int>(std::lround((down - fixed.y() / zoom) / VerticalUnit)));
    View.HScroll = 0;
    if (View.ScaleWidth < Drawing::Page.PageWidth + 20) {
        const double unscrolled = Drawing::PageLeftX(Drawing::Page, View) + across;
        View.HScroll = std::max(0, static_cast<int>(std::lround((unscrolled - fixed.x() / zoom) / HorizontalUnit)));
    }
    Drawing::Page.LayoutDirty = 1;
    Redraw(false);
}

}  // namespace Quillon::Forms
