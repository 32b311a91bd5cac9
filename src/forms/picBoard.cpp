#include "forms/picBoard.h"

#include <QAccessible>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include "core/mod_Common.h"
#include "core/mod_TabFileStructure.h"
#include "editing/mod_Cursor.h"
#include "forms/Text.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

using Core::Open;

namespace {

/// What a board shows of a track. Held without its bars: they would be copied with the next edit.
Core::Track Shape(const Core::Track& track) {
    Core::Track shape;
    shape.Strings = track.Strings;
    shape.Tuning = track.Tuning;
    shape.Capo = track.Capo;
    shape.IsDrum = track.IsDrum;
    shape.PercStrings = track.PercStrings;
    return shape;
}

}  // namespace

QString ShortName(int pitch) {
    const QString name = ToQString(Core::NoteName(pitch));
    return name.left(name.size() > 1 && name[1] == '#' ? 2 : 1);
}

picBoard::picBoard(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void picBoard::ShowNotes() {
    if (!isVisible() || !Shell::InScore()) return;
    Core::Track now = Shape(Open.TabFile.Tracks[Open.CurTrack]);
    const bool sounds = Shell::Sound.Playing;
    std::vector<Shell::BoardNote> shown = Shell::BoardNow();
    const bool otherTrack = !(now == track);
    if (!otherTrack && shown == notes && sounds == playing && curString == Open.CurString) return;
    QRegion changed;
    const auto add = [&] {
        for (const Shell::BoardNote& note : notes) changed += AreaOf(note);
    };
    add();
    notes = std::move(shown);
    // While a song plays the cursor's string is not marked.
    const bool all = otherTrack || sounds != playing || (!sounds && curString != Open.CurString);
    playing = sounds;
    curString = Open.CurString;
    if (otherTrack) {
        track = std::move(now);
        Renew();
    }
    Follow();
    add();
    if (all) {
        update();
    } else {
        update(changed);
    }
    if (!QAccessible::isActive() || playing) return;
    setAccessibleDescription(ToQString(Shell::BoardText()));
}

void picBoard::SetTexts() {
    TakeTexts();
    Renew();
}

void picBoard::Renew() {
    Measure();
    stale = true;
    update();
}

QColor picBoard::NoteColor() const { return playing ? QColor(0xE8, 0x6A, 0x17) : QColor(0x2A, 0x7A, 0xE2); }

void picBoard::TellPlace() {
    update();
    const std::string place = PlaceText();
    setToolTip({});
    if (place.empty() || !QAccessible::isActive()) return;
    setAccessibleDescription(ToQString(place + ". " + Shell::BoardText()));
}

void picBoard::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    if (stale || ground.size() != size() * ratio) {
        ground = QPixmap(size() * ratio);
        ground.setDevicePixelRatio(ratio);
        ground.fill(palette().color(QPalette::Window));
        QPainter painter(&ground);
        painter.setRenderHint(QPainter::Antialiasing);
        PaintGround(painter);
        stale = false;
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, ground);  // of which only the part that is due is copied
    painter.setRenderHint(QPainter::Antialiasing);
    PaintNotes(painter);
}

void picBoard::resizeEvent(QResizeEvent*) { Renew(); }

void picBoard::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::FontChange || type == QEvent::EnabledChange) Renew();
}

void picBoard::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (Shell::Sound.Playing) {
        if (key == Qt::Key_Space || key == Qt::Key_Escape) return Shell::mnuSoundStop_Click();
        return QWidget::keyPressEvent(event);
    }
    if (key == Qt::Key_Escape) return Q_EMIT Left();
    if (event->modifiers() & ~Qt::KeypadModifier || !TakeKey(key)) QWidget::keyPressEvent(event);
}

void picBoard::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    TellPlace();
}

void picBoard::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace Quillon::Forms
