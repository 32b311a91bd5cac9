#include "forms/picDocument.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Selection.h"
#include "forms/Text.h"
#include "forms/Theme.h"
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
constexpr int DragTick = 40;        // ms from one scroll to the next
constexpr int DragEdge = 12;        // pixels of the view's edge in which a drag scrolls

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
    tmrDrag = new QTimer(this);
    tmrDrag->setInterval(DragTick);
    connect(tmrDrag, &QTimer::timeout, this, &picDocument::tmrDrag_Timer);
}

void picDocument::Redraw(bool followCursor) {
    follow = follow || followCursor;
    if (dirty) return;
    dirty = true;
    // What has to be painted is known only then; until then the window shows the page as it was.
    QMetaObject::invokeMethod(this, &picDocument::Settle, Qt::QueuedConnection);
}

void picDocument::Repaint() {
    changes.Forget();
    Redraw(false);
}

void picDocument::Settle() {
    if (dirty) PaintBacking();
}

void picDocument::PaintBacking() {
    const double ratio = devicePixelRatioF();
    const QSize size = viewport()->size() * ratio;
    const double pixels = zoom * ratio;
    if (backing.size() != size || pixels != painted) changes.Forget();
    if (backing.size() != size) backing = QImage(size, QImage::Format_RGB32);
    painted = pixels;
    backing.setDevicePixelRatio(1);
    View.ScaleWidth = std::max(1, static_cast<int>(std::ceil(viewport()->width() / zoom)));
    View.ScaleHeight = std::max(1, static_cast<int>(std::ceil(viewport()->height() / zoom)));
    const bool followed = View.FollowCursor;
    View.FollowCursor = followed && follow;
    dirty = false;
    follow = false;
    QRect changed(QPoint(0, 0), size);
    try {
        changed = PaintChanges(pixels);
    } catch (const RunTimeError& error) {
        PaintFailure(error);
    }
    View.FollowCursor = followed;
    backing.setDevicePixelRatio(ratio);
    UpdateView(changed);
    ShowScrollBars();
    MovePlayMarker();
    TellScreenReader();
    Q_EMIT Drawn();
}

/// Gives what was painted, in device pixels.
QRect picDocument::PaintChanges(double pixels) {
    QPainter painter(&backing);
    PainterPicture picture(painter, pixels);
    UsePaper(picture);
    changes.Begin(picture);
    Drawing::DrawDocument(changes);
    const Area whole{0, 0, backing.width() / pixels, backing.height() / pixels};
    const Area area = changes.Changed(whole);
    const auto device = [pixels](double at) {
        return static_cast<int>(std::lround(std::clamp(at * pixels, -1e6, 1e6)));
    };
    const QRect touched(QPoint(device(area.Left), device(area.Top)), QPoint(device(area.Right), device(area.Bottom)));
    const QRect shown = touched.intersected(backing.rect());
    painter.setClipRect(shown);
    changes.Paint(area);
    return shown;
}

/// For a document too wide or too long for the layout's numbers.
void picDocument::PaintFailure(const RunTimeError& error) {
    changes.Forget();
    const double ratio = devicePixelRatioF();
    QPainter painter(&backing);
    painter.scale(ratio, ratio);
    const QRect all(QPoint(0, 0), viewport()->size());
    painter.fillRect(all, IsPaperDark() ? QColor(Qt::black) : QColor(Qt::white));
    painter.setPen(IsPaperDark() ? Qt::white : Qt::black);
    painter.setFont(font());
    constexpr int Border = 40;
    painter.drawText(all.adjusted(Border, Border, -Border, -Border), Qt::AlignCenter | Qt::TextWordWrap,
                     ToQString(Shell::LayoutFailureText(error)));
}

/// Has the window show what was painted, and the selection where that moved.
void picDocument::UpdateView(const QRect& changed) {
    auto bands = Shell::SelectionBands();
    if (bands != shownBands) {
        shownBands = std::move(bands);
        return viewport()->update();
    }
    if (changed.isEmpty()) return;
    const double ratio = devicePixelRatioF();
    viewport()->update(QRectF(QPointF(changed.topLeft()) / ratio, QSizeF(changed.size()) / ratio).toAlignedRect());
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
    if (shownBands.empty()) return;
    painter.scale(zoom, zoom);
    for (const Shell::SelectionBand& band : shownBands) {
        painter.fillRect(band.X, band.Y, band.Width, band.Height,
                         IsPaperDark() ? QColor(0x6A, 0xA6, 0xFF, 80) : QColor(0x2A, 0x6F, 0xDB, 46));
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
    if (event->button() == Qt::RightButton) return AskMenu(*event);
    if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
    Settle();
    const QPoint at = ToDocument(event->position());
    const int shift = ShiftState(event->modifiers());
    Shell::Guarded([at, shift] { Editing::picDocument_MouseDown(at.x(), at.y(), shift); });
    pressed = event->position();
    Redraw(false);  // what lies under the mouse stays there, for a drag or a second click
}

QPoint picDocument::ToDocument(QPointF point) const {
    return {static_cast<int>(std::floor(point.x() / zoom)), static_cast<int>(std::floor(point.y() / zoom))};
}

void picDocument::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !(event->modifiers() & Qt::ShiftModifier)) return AskMenu(*event);
    mousePressEvent(event);
}

/// The press or the key asked for it already.
void picDocument::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

void picDocument::AskMenu(const QMouseEvent& event) {
    Settle();
    const QPoint at = ToDocument(event.position());
    bool asked = false;
    Shell::Guarded([&] { asked = Editing::picDocument_MenuMouseDown(at.x(), at.y()); });
    Redraw(false);
    if (asked) Q_EMIT MenuAsked(event.globalPosition().toPoint());
}

void picDocument::AskMenuAtCursor() {
    using Core::Open;
    Redraw();
    Settle();
    const auto place = Shell::PlayMarkerPlace(Open.CurTrack, Open.CurBar, Open.CurStrum);
    QPoint at = viewport()->rect().center();
    if (place) at = QPointF((place->X + place->Width) * zoom, (place->Top + place->Height) * zoom).toPoint();
    Q_EMIT MenuAsked(viewport()->mapToGlobal(at));
}

/// A drag selects once it is meant as one.
void picDocument::DragTo(QPointF point) {
    if (!pressed) return;
    dragged = point;
    if (!tmrDrag->isActive() && (point - *pressed).manhattanLength() < QApplication::startDragDistance()) return;
    const QPoint at = ToDocument(point);
    Shell::Guarded([at] { Editing::picDocument_MouseMove(at.x(), at.y()); });
    UpdateView({});
    const bool inside = viewport()->rect().adjusted(DragEdge, DragEdge, -DragEdge, -DragEdge).contains(point.toPoint());
    if (inside) tmrDrag->stop();
    if (!inside && !tmrDrag->isActive() && Editing::Selection.Dragging) tmrDrag->start();
}

void picDocument::tmrDrag_Timer() {
    // The farther out, the faster.
    const auto units = [](double at, int size, int unit) {
        const double beyond = at < DragEdge ? at - DragEdge : std::max(0.0, at - (size - DragEdge));
        return static_cast<int>(std::clamp(beyond / unit, -8.0, 8.0));
    };
    if (!scrolling) return tmrDrag->stop();
    const int down = units(dragged.y(), viewport()->height(), VerticalUnit);
    const int across = units(dragged.x(), viewport()->width(), HorizontalUnit);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + down);
    if (horizontalScrollBar()->maximum() > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() + across);
    Settle();
    DragTo(dragged);
}

void picDocument::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) return DragTo(event->position());
    if (!scrolling || !(event->buttons() & Qt::MiddleButton)) return;
    const QPointF moved = QPointF(event->pos() - panFrom) / zoom;
    horizontalScrollBar()->setValue(panScroll.x() - static_cast<int>(std::lround(moved.x() / HorizontalUnit)));
    verticalScrollBar()->setValue(panScroll.y() - static_cast<int>(std::lround(moved.y() / VerticalUnit)));
}

void picDocument::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) viewport()->setCursor(Qt::IBeamCursor);
    if (event->button() != Qt::LeftButton || !pressed) return;
    pressed.reset();
    tmrDrag->stop();
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
    const bool shiftAlone = (event->modifiers() & ~Qt::KeypadModifier) == Qt::ShiftModifier;
    if (event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && shiftAlone)) return AskMenuAtCursor();
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
