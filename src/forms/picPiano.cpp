#include "forms/picPiano.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "forms/Text.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

using Shell::BoardNote;
using Kind = BoardNote::Kind;

namespace {

const QColor White(0xFB, 0xFA, 0xF7), Black(0x26, 0x27, 0x2A), Line(0x8C, 0x8E, 0x92);
const QColor WhiteDim(0xC9, 0xC8, 0xC6), BlackDim(0x6E, 0x70, 0x74);
constexpr double Top = Shell::PianoGeometry::KeyTop;

QRectF BoxOf(const Shell::PianoGeometry::Key& key) { return {key.X, Top, key.Width, key.Height}; }

}  // namespace

picPiano::picPiano(QWidget* parent) : picBoard(parent), geometry(Track(), 900, 130) { setObjectName("picPiano"); }

void picPiano::TakeTexts() { setAccessibleName(Text("str_PianoTitle")); }

void picPiano::Measure() {
    geometry = Shell::PianoGeometry(Track(), width(), height());
    place = std::clamp(place, geometry.Lowest(), geometry.Highest());
    hovered.reset();
}

QRect picPiano::AreaOf(const BoardNote& note) const {
    const Key* const key = geometry.Find(note.Pitch);
    return key && note.Is != Kind::Dead ? BoxOf(*key).adjusted(-2, -2, 2, 2).toAlignedRect() : QRect();
}

void picPiano::PaintKey(QPainter& painter, const Key& key, const QColor& color) const {
    painter.setPen(QPen(Line, 1));
    painter.setBrush(color);
    const double corner = std::min(3.0, key.Width * 0.2);
    painter.drawRoundedRect(BoxOf(key), corner, corner);
}

void picPiano::PaintGround(QPainter& painter) {
    QFont small = font();
    small.setPixelSize(std::clamp(static_cast<int>(geometry.Whites().front().Width * 0.6), 7, 11));
    painter.setFont(small);
    for (const Key& key : geometry.Whites()) {
        const bool reached = Shell::PianoReaches(Track(), key.Pitch);
        PaintKey(painter, key, reached ? White : WhiteDim);
        if (key.Pitch % 12 != 0) continue;
        // Octaves are told by their C.
        painter.setPen(QColor(0x55, 0x57, 0x5B));
        painter.drawText(QRectF(key.X - 8, Top + key.Height - 17, key.Width + 16, 15), Qt::AlignCenter,
                         QString("C%1").arg(key.Pitch / 12 - 1));
    }
    for (const Key& key : geometry.Blacks()) {
        const bool reached = Shell::PianoReaches(Track(), key.Pitch);
        PaintKey(painter, key, reached ? Black : BlackDim);
        if (!reached) continue;
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 28));
        painter.drawRect(QRectF(key.X + key.Width * 0.2, Top + 1, key.Width * 0.25, key.Height - 6));
    }
}

/// A key that is held: filled from its lower end, so that black ones between stay to be seen.
void picPiano::PaintMark(QPainter& painter, int pitch, QColor color, bool named) const {
    const Key* const key = geometry.Find(pitch);
    if (!key) return;
    const double tall = key->Black ? key->Height * 0.5 : key->Height * 0.33;
    const double inset = std::min(2.0, key->Width * 0.12);
    const QRectF box(key->X + inset, Top + key->Height - tall, key->Width - 2 * inset, tall - 2);
    painter.setPen(QPen(color.darker(125), 1));
    painter.setBrush(color);
    painter.drawRoundedRect(box, 3, 3);
    if (!named) return;
    QFont bold = font();
    bold.setBold(true);
    bold.setPixelSize(std::clamp(static_cast<int>(key->Width * 0.62), 7, 12));
    painter.setFont(bold);
    painter.setPen(Qt::white);
    painter.drawText(box.adjusted(-4, 0, 4, 0), Qt::AlignCenter, ShortName(pitch));
}

void picPiano::PaintNotes(QPainter& painter) {
    for (const BoardNote& note : Notes()) {
        if (note.Is == Kind::Dead) continue;
        QColor color = note.Is == Kind::Chord ? QColor(0x2F, 0x7D, 0x5B) : NoteColor();
        if (note.Is == Kind::Ringing || note.Is == Kind::Ghost) color.setAlpha(150);
        PaintMark(painter, note.Pitch, color, !Track().IsDrum);
    }
    if (hovered && !Playing() && Shell::PianoReaches(Track(), *hovered)) {
        QColor color = NoteColor();
        color.setAlpha(120);
        PaintMark(painter, *hovered, color, !Track().IsDrum);
    }
    const Key* const key = hasFocus() ? geometry.Find(place) : nullptr;
    if (!key) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(BoxOf(*key).adjusted(1, 1, -1, -1), 3, 3);
}

void picPiano::mousePressEvent(QMouseEvent* event) {
    const auto pitch = geometry.At(event->position().x(), event->position().y());
    if (event->button() != Qt::LeftButton || !pitch) return;
    place = *pitch;
    Shell::Guarded([pitch] { Shell::picPiano_MouseDown(*pitch); });
    update();
}

void picPiano::mouseMoveEvent(QMouseEvent* event) {
    const auto before = hovered;
    hovered = geometry.At(event->position().x(), event->position().y());
    if (hovered == before) return;
    setToolTip(hovered ? ToQString(Shell::KeyText(*hovered)) : QString());
    setCursor(hovered && Shell::PianoReaches(Track(), *hovered) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void picPiano::leaveEvent(QEvent*) {
    hovered.reset();
    update();
}

std::string picPiano::PlaceText() const { return Shell::InScore() ? Shell::KeyText(place) : ""; }

bool picPiano::TakeKey(int key) {
    constexpr int Octave = 12;
    int to = place;
    switch (key) {
        case Qt::Key_Left:
            --to;
            break;
        case Qt::Key_Right:
            ++to;
            break;
        case Qt::Key_Up:
            to += Octave;
            break;
        case Qt::Key_Down:
            to -= Octave;
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Shell::Guarded([this] { Shell::picPiano_MouseDown(place); });
            return true;
        default:
            return false;
    }
    if (to >= geometry.Lowest() && to <= geometry.Highest()) place = to;
    TellPlace();
    return true;
}

}  // namespace Quillon::Forms
