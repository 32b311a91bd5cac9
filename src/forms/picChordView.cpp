#include "forms/picChordView.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "forms/Text.h"
#include "platform/qt/PainterPicture.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"
#include "tools/ChordManager.h"

namespace Quillon::Forms {

using Tools::Choose;
using Tools::ChordManager;

namespace {

Color ToColor(const QColor& color) { return PackColor(color.red(), color.green(), color.blue()); }

QColor Mixed(const QColor& one, const QColor& other, double part) {
    const auto mix = [part](int a, int b) { return static_cast<int>(a + (b - a) * part); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

/// "x 3 2 0 1 0", the lowest string first.
QString FretsText(const Library::ChordRec& chord) {
    QStringList frets;
    for (int string = chord.NumStrings - 1; string >= 0; --string) {
        const auto fret = Library::AbsoluteFret(chord, string);
        frets << (fret ? QString::number(*fret) : Library::IsMuted(chord, string) ? QString("x") : QString("-"));
    }
    return frets.join(' ');
}

}  // namespace

picChordView::picChordView(QWidget* parent) : QAbstractScrollArea(parent) {
    setObjectName("picView");
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(Tools::BoxGrid().StepX + 2 * Tools::BoxGrid::Border, 80);
}

void picChordView::Measure() {
    const Library::DisplayMode& mode = Library::ModeOf(ChordManager.DisplayMode);
    grid.CellWidth = Library::DisplayMode::CellWidth;
    grid.CellHeight = mode.CellHeight;
    grid.StepX = Library::DisplayMode::Grid;
    grid.StepY = mode.CellPitch;
    grid.ViewWidth = viewport()->width();
    grid.ViewHeight = viewport()->height();
    grid.Count = static_cast<int>(ChordManager.lstChords.size());
    verticalScrollBar()->setRange(0, grid.MostScroll());
    verticalScrollBar()->setPageStep(std::max(1, grid.ViewHeight - grid.StepY / 2));
    verticalScrollBar()->setSingleStep(grid.StepY);
}

void picChordView::Refresh() {
    Measure();
    RefreshChosen();
}

void picChordView::RefreshChosen() {
    const int current = ChordManager.Current;
    // A person who looks elsewhere is left there when a tone ends.
    const Followed now{Tools::CurrentChord(), current, ChordManager.DisplayMode};
    if (current >= 0 && now != followed) {
        verticalScrollBar()->setValue(grid.ScrollTo(current, verticalScrollBar()->value()));
    }
    followed = now;
    viewport()->update();
    if (QAccessible::isActive()) setAccessibleDescription(ToQString(Tools::CurrentChord()));
}

QRect picChordView::AreaOf(int cell) const {
    return {grid.X(cell), grid.Y(cell) - verticalScrollBar()->value(), grid.CellWidth, grid.CellHeight};
}

int picChordView::CellAt(QPoint point) const { return grid.At(point.x(), point.y() + verticalScrollBar()->value()); }

picChordView::Colors picChordView::ColorsNow() const {
    Colors colors;
    const bool system = ChordManager.WindowsColors;
    const QColor ground = system ? palette().color(QPalette::Base) : QColor(Qt::white);
    const QColor ink = system ? palette().color(QPalette::Text) : QColor(Qt::black);
    const QColor accent = system ? palette().color(QPalette::Highlight) : QColor(0x1F, 0x5F, 0xC4);
    constexpr double lines = 0.45, tint = 0.2;
    colors.Ground = ground;
    colors.Chosen = Mixed(ground, accent, tint);
    colors.Current = hasFocus() ? accent : Mixed(ground, ink, lines);
    colors.Sounding = QColor(0xE8, 0x6A, 0x17);
    colors.Box = {ToColor(ink), ToColor(Mixed(ink, ground, lines)), ToColor(Mixed(accent, ink, tint))};
    return colors;
}

bool picChordView::PaintCell(QPainter& painter, int cell, QPoint corner, double ratio, const Colors& colors) const {
    const std::string& name = ChordManager.lstChords.at(static_cast<std::size_t>(cell));
    const bool current = cell == ChordManager.Current;
    const bool sounds = name == ChordManager.Sounding;
    constexpr int around = 5;  // of the space between the cells
    const QRect frame = QRect(corner, QSize(grid.CellWidth, grid.CellHeight)).adjusted(-around, -3, around, 3);
    if (ChordManager.Chosen.contains(name) || current || sounds) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(ratio, ratio);
        painter.setPen(sounds ? QPen(colors.Sounding, 2) : current ? QPen(colors.Current, 1.5) : QPen(Qt::NoPen));
        painter.setBrush(ChordManager.Chosen.contains(name) ? QBrush(colors.Chosen) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(frame, around, around);
        painter.restore();
    }
    PainterPicture picture(painter, ratio);
    const Library::ChordRec* const chord = Library::Chords.Find(name);
    Library::DrawChordCell(picture, corner.x(), corner.y(), name, chord, ChordManager.DisplayMode,
                           ChordManager.Lefthanded, colors.Box);
    return chord != nullptr;
}

void picChordView::paintEvent(QPaintEvent* event) {
    const Colors colors = ColorsNow();
    const double ratio = devicePixelRatioF();
    QPainter screen(viewport());
    bool unreadable = false;
    for (const QRect& due : event->region()) {
        QImage image(due.size() * ratio, QImage::Format_RGB32);
        image.fill(colors.Ground);
        {
            QPainter painter(&image);
            const int scroll = verticalScrollBar()->value();
            constexpr int frame = 4;
            const Tools::GridRange shown = grid.Shown(due.top() + scroll - frame, due.height() + 2 * frame);
            for (int cell = shown.First; cell < shown.End; ++cell) {
                const QPoint corner = AreaOf(cell).topLeft() - due.topLeft();
                unreadable = !PaintCell(painter, cell, corner, ratio, colors) || unreadable;
            }
        }
        image.setDevicePixelRatio(ratio);
        screen.drawImage(due.topLeft(), image);
    }
    if (unreadable) Q_EMIT UnreadableSeen();
    if (grid.Count > 0) return;
    screen.setPen(palette().color(QPalette::PlaceholderText));
    screen.drawText(viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
                    Text("str_ChordsNone"));
}

void picChordView::resizeEvent(QResizeEvent*) { Refresh(); }

void picChordView::scrollContentsBy(int, int y) { viewport()->scroll(0, y); }

void picChordView::Go(int cell, Qt::KeyboardModifiers modifiers) {
    if (grid.Count == 0) return;
    const Choose how = modifiers & Qt::ShiftModifier     ? Choose::Range
                       : modifiers & Qt::ControlModifier ? Choose::Move
                                                         : Choose::Only;
    Shell::Guarded([&] { Tools::ChooseChord(std::clamp(cell, 0, grid.Count - 1), how); });
}

bool picChordView::TakeKey(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const int current = std::max(0, ChordManager.Current);
    const int columns = grid.Columns();
    const int page = std::max(1, grid.ViewHeight / grid.StepY) * columns;
    const auto run = [](void (*act)()) { Shell::Guarded(act); };
    switch (event.key()) {
        case Qt::Key_Left:
            return Go(current - 1, modifiers), true;
        case Qt::Key_Right:
            return Go(current + 1, modifiers), true;
        case Qt::Key_Up:
            return Go(current >= columns ? current - columns : current, modifiers), true;
        case Qt::Key_Down:
            return Go(current + columns < grid.Count ? current + columns : current, modifiers), true;
        case Qt::Key_PageUp:
            return Go(current - page, modifiers), true;
        case Qt::Key_PageDown:
            return Go(current + page, modifiers), true;
        case Qt::Key_Home:
            return Go(0, modifiers), true;
        case Qt::Key_End:
            return Go(grid.Count - 1, modifiers), true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (modifiers == Qt::ControlModifier) return run(Tools::AddChordAsNotes), true;
            if (modifiers == (Qt::ControlModifier | Qt::ShiftModifier)) return run(Tools::AddChordAsDiagram), true;
            if (modifiers) return false;
            return run(Tools::PlayCurrentChord), true;
        case Qt::Key_F2:
            if (modifiers) return false;
            Q_EMIT EditAsked();
            return true;
        default:
            return false;
    }
}

void picChordView::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (Shell::Sound.Playing && (key == Qt::Key_Space || key == Qt::Key_Escape)) return Shell::mnuSoundStop_Click();
    if (TakeKey(*event)) return;
    if (key == Qt::Key_Escape) {
        if (Shell::DoToolsSound()) return Tools::StopChord();
        return Q_EMIT Left();
    }
    if (key == Qt::Key_Space && modifiers == Qt::ControlModifier) {
        return Tools::ChooseChord(ChordManager.Current, Choose::Toggle);
    }
    if (key == Qt::Key_Space && !modifiers) {
        Shell::Guarded(Tools::PlayCurrentChord);
        return;
    }
    if (key == Qt::Key_A && modifiers == Qt::ControlModifier) return Tools::ChooseAllChords();
    if (key == Qt::Key_Delete && !modifiers) return Q_EMIT DeleteAsked();
    if (!event->text().isEmpty() && event->text().front().isPrint() && !(modifiers & ~Qt::ShiftModifier)) {
        return Q_EMIT Typed(event->text());
    }
    QAbstractScrollArea::keyPressEvent(event);
}

/// The commands of the score have keys that mean something else here.
bool picChordView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const auto modifiers = key->modifiers() & ~Qt::KeypadModifier;
        const bool typed = !key->text().isEmpty() && key->text().front().isPrint();
        const bool ours = key->key() == Qt::Key_Escape || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter ||
                          key->key() == Qt::Key_F2 || key->key() == Qt::Key_Delete ||
                          (key->key() == Qt::Key_A && modifiers == Qt::ControlModifier) ||
                          (key->key() == Qt::Key_Space && modifiers == Qt::ControlModifier);
        const bool moves = key->key() >= Qt::Key_Home && key->key() <= Qt::Key_PageDown;
        if (ours || moves || (typed && !(modifiers & ~Qt::ShiftModifier))) {
            event->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void picChordView::mousePressEvent(QMouseEvent* event) {
    const int cell = CellAt(event->position().toPoint());
    if (cell < 0) return;
    const bool known = ChordManager.Chosen.contains(ChordManager.lstChords.at(static_cast<std::size_t>(cell)));
    if (event->button() == Qt::RightButton) {
        // Its menu works on all that are chosen when it is one of them.
        Shell::Guarded([&] { Tools::ChooseChord(cell, known ? Choose::Move : Choose::Only); });
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    const auto modifiers = event->modifiers();
    const Choose how = modifiers & Qt::ShiftModifier     ? Choose::Range
                       : modifiers & Qt::ControlModifier ? Choose::Toggle
                                                         : Choose::Only;
    Shell::Guarded([&] { Tools::ChooseChord(cell, how); });
}

void picChordView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || CellAt(event->position().toPoint()) < 0) return;
    Shell::Guarded(Tools::PlayCurrentChord);
}

/// A notch is a row.
void picChordView::wheelEvent(QWheelEvent* event) {
    constexpr int Notch = 120;
    if (!event->pixelDelta().isNull()) {
        verticalScrollBar()->setValue(verticalScrollBar()->value() - event->pixelDelta().y());
    } else {
        wheelRest += event->angleDelta().y();
        verticalScrollBar()->setValue(verticalScrollBar()->value() - wheelRest / Notch * grid.StepY);
        wheelRest %= Notch;
    }
    event->accept();
}

void picChordView::contextMenuEvent(QContextMenuEvent* event) {
    const int current = ChordManager.Current;
    if (event->reason() == QContextMenuEvent::Keyboard && current >= 0) {
        return Q_EMIT MenuAsked(viewport()->mapToGlobal(AreaOf(current).center()));
    }
    if (CellAt(event->pos()) >= 0) Q_EMIT MenuAsked(event->globalPos());
}

bool picChordView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        ShowTip(help->pos(), help->globalPos());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void picChordView::ShowTip(const QPoint& at, const QPoint& global) {
    const int cell = CellAt(at);
    if (cell < 0) return QToolTip::hideText();
    const std::string& name = ChordManager.lstChords.at(static_cast<std::size_t>(cell));
    const Library::ChordRec* const chord = Library::Chords.Find(name);
    QString tip = ToQString(name).toHtmlEscaped();
    tip += "<br>" + (chord ? FretsText(*chord) : Text("str_ChordUnreadableShort")).toHtmlEscaped();
    QToolTip::showText(global, "<p style='white-space:pre'>" + tip + "</p>", viewport(), AreaOf(cell));
}

void picChordView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) viewport()->update();
}

void picChordView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void picChordView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

}  // namespace Quillon::Forms
