// The fretboard in paint: wood, wires, pearl and strings look alike in every theme, as they do on the instrument.
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "core/mod_Instruments.h"
#include "core/mod_TabFileManipulation.h"
#include "forms/Text.h"
#include "forms/picFretboard.h"

namespace Quillon::Forms {

using Core::Open;
using Shell::BoardCell;
using Shell::BoardNote;
using Kind = BoardNote::Kind;

namespace {

const QColor Wood(0x4B, 0x30, 0x24), WoodEdge(0x2E, 0x1C, 0x15);
const QColor Pearl(0xDD, 0xD8, 0xC8), Ivory(0xEF, 0xE8, 0xD4);
const QColor Wire(0xC4, 0xC6, 0xC8), WireShade(0x1C, 0x12, 0x0D, 150);
const QColor Steel(0xDC, 0xDF, 0xE2), Bronze(0xC9, 0x9A, 0x5B);
const QColor NameInk(0xEA, 0xDF, 0xCB, 190);
const QColor CursorColor(0x7F, 0xB6, 0xFF);

/// The pearl of a fret of the neck: 0, 1 or 2 dots.
int DotsAt(int neckFret) {
    if (neckFret % 12 == 0) return 2;
    const int within = neckFret % 12;
    return within == 3 || within == 5 || within == 7 || within == 9 ? 1 : 0;
}

QFont Sized(const QFont& base, double pixels, bool bold = false) {
    QFont font(base);
    font.setPixelSize(std::max(6, static_cast<int>(std::lround(pixels))));
    font.setBold(bold);
    return font;
}

}  // namespace

double picFretboard::Radius() const { return std::clamp(geometry.Gap() * 0.44, 5.0, 12.0); }

QPointF picFretboard::PlaceOf(const BoardCell& cell) const {
    return {geometry.NoteX(cell.Fret), geometry.StringY(cell.String)};
}

QRect picFretboard::AreaOf(const BoardNote& note) const {
    if (Track().IsDrum) {
        for (const auto& cell : drums.Cells()) {
            if (cell.String != note.String) continue;
            // The row of the string: one cell of it goes on or off.
            return QRectF(0, cell.Y, width(), cell.Height).toAlignedRect();
        }
        return {};
    }
    const double reach = Radius() + 3;
    const QPointF middle = PlaceOf({note.String, note.Fret});
    return QRectF(middle.x() - reach, middle.y() - reach, 2 * reach, 2 * reach).toAlignedRect();
}

void picFretboard::PaintGround(QPainter& painter) {
    if (Track().IsDrum) return PaintDrumGround(painter);
    PaintNeck(painter);
    PaintInlays(painter);
    PaintStrings(painter);
    if (names) PaintNames(painter);
}

void picFretboard::PaintNeck(QPainter& painter) const {
    const double top = geometry.Top(), bottom = geometry.Bottom(), nut = geometry.NutX();
    const QRectF neck(QPointF(nut, top), QPointF(geometry.Right(), bottom));
    QLinearGradient wood(neck.topLeft(), neck.bottomLeft());
    wood.setColorAt(0, Wood.darker(118));
    wood.setColorAt(0.12, Wood);
    wood.setColorAt(0.88, Wood);
    wood.setColorAt(1, Wood.darker(130));
    painter.fillRect(neck, wood);
    // A little grain.
    painter.setPen(QPen(QColor(0, 0, 0, 22), 1));
    for (double y = top + 3; y < bottom; y += 5.5) painter.drawLine(QPointF(nut, y), QPointF(neck.right(), y));
    const int capo = geometry.Capo();
    // The head: where the names of the open strings stand.
    painter.setPen(Qt::NoPen);
    painter.setBrush(WoodEdge);
    painter.drawRoundedRect(QRectF(QPointF(2, top), QPointF(nut - 1, bottom)), 5, 5);
    for (int fret = geometry.First(); fret <= geometry.Last(); ++fret) {
        const double x = geometry.WireX(fret);
        painter.setPen(QPen(WireShade, 2.4));
        painter.drawLine(QPointF(x + 1, top), QPointF(x + 1, bottom));
        painter.setPen(QPen(Wire, 1.8));
        painter.drawLine(QPointF(x, top), QPointF(x, bottom));
    }
    painter.setPen(Qt::NoPen);
    if (geometry.First() == 1) {
        painter.setBrush(Ivory);
        painter.drawRect(QRectF(nut - 2.5, top - 1, 5, bottom - top + 2));
    } else {
        painter.setBrush(Wire);
        painter.drawRect(QRectF(nut - 0.5, top, 1, bottom - top));
    }
    if (capo < geometry.First()) return;
    // Behind the capo nothing is played.
    painter.setBrush(QColor(0, 0, 0, 90));
    const double begin = geometry.WireX(capo - 1);
    painter.drawRect(QRectF(QPointF(nut, top), QPointF(begin, bottom)));
    const double middle = geometry.NoteX(0);
    const double half = std::min(6.0, (geometry.WireX(capo) - begin) * 0.3);
    painter.setBrush(QColor(0x22, 0x24, 0x27));
    painter.setPen(QPen(QColor(0x6B, 0x6F, 0x75), 1));
    painter.drawRoundedRect(QRectF(middle - half, top - 3, 2 * half, bottom - top + 6), half, half);
}

void picFretboard::PaintInlays(QPainter& painter) const {
    const double middle = (geometry.Top() + geometry.Bottom()) / 2;
    const double apart = (geometry.Bottom() - geometry.Top()) * 0.26;
    const QFont numbers = Sized(font(), 10);
    for (int fret = geometry.First(); fret <= geometry.Last(); ++fret) {
        const double x = (geometry.WireX(fret - 1) + geometry.WireX(fret)) / 2;
        const double radius = std::min(geometry.Gap() * 0.26, (geometry.WireX(fret) - geometry.WireX(fret - 1)) * 0.25);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(Pearl.red(), Pearl.green(), Pearl.blue(), 150));
        const int dots = DotsAt(fret);
        if (dots == 1) painter.drawEllipse(QPointF(x, middle), radius, radius);
        if (dots == 2) {
            for (const double y : {middle - apart, middle + apart}) painter.drawEllipse(QPointF(x, y), radius, radius);
        }
        if (dots == 0 && fret != 1) continue;
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setFont(numbers);
        painter.drawText(QRectF(x - 20, geometry.Bottom() + 1, 40, 15), Qt::AlignCenter, QString::number(fret));
    }
}

void picFretboard::PaintStrings(QPainter& painter) const {
    const int strings = geometry.Strings();
    for (int string = 0; string < strings; ++string) {
        const double y = geometry.StringY(string);
        const int pitch = Core::OpenPitch(Track(), string);
        // Wound from the open G of a guitar downwards; thicker the lower.
        const bool wound = pitch < 55;
        const double thick = std::clamp(1.0 + (64 - pitch) * 0.075, 0.9, 4.2);
        painter.setPen(QPen(QColor(0, 0, 0, 90), thick));
        painter.drawLine(QPointF(4, y + 1.2), QPointF(geometry.Right(), y + 1.2));
        painter.setPen(QPen(wound ? Bronze : Steel, thick));
        painter.drawLine(QPointF(4, y), QPointF(geometry.Right(), y));
        if (wound && thick > 1.6) {
            painter.setPen(QPen(QColor(0xFF, 0xE6, 0xBE, 120), thick * 0.3));
            painter.drawLine(QPointF(4, y - thick * 0.2), QPointF(geometry.Right(), y - thick * 0.2));
        }
        const QFont font = Sized(this->font(), std::min(11.0, geometry.Gap() * 0.7), true);
        painter.setFont(font);
        const QRectF label(3, y - 8, 15, 16);
        painter.setPen(Qt::NoPen);
        painter.setBrush(WoodEdge);
        painter.drawRect(label.adjusted(0, 1, 0, -1));
        painter.setPen(Ivory);
        painter.drawText(label, Qt::AlignCenter, ShortName(pitch));
    }
}

void picFretboard::PaintNames(QPainter& painter) const {
    painter.setFont(Sized(font(), std::clamp(geometry.Gap() * 0.42, 7.0, 10.0)));
    for (int string = 0; string < geometry.Strings(); ++string) {
        for (int neckFret = std::max(geometry.First(), geometry.Capo() + 1); neckFret <= geometry.Last(); ++neckFret) {
            const int fret = neckFret - geometry.Capo();
            const double room = geometry.WireX(neckFret) - geometry.WireX(neckFret - 1);
            const QString name = ShortName(Core::OpenPitch(Track(), string) + fret);
            const QPointF middle = PlaceOf({string, fret});
            const double half = std::min(room / 2 - 1, name.size() > 1 ? 8.5 : 5.5);
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(Wood.red(), Wood.green(), Wood.blue(), 225));
            painter.drawRoundedRect(QRectF(middle.x() - half, middle.y() - 5.5, 2 * half, 11), 4, 4);
            painter.setPen(NameInk);
            painter.drawText(QRectF(middle.x() - 14, middle.y() - 8, 28, 16), Qt::AlignCenter, name);
        }
    }
}

// What comes and goes ------------------------------------------------------------------------------------------------

void picFretboard::PaintNotes(QPainter& painter) {
    if (Track().IsDrum) {
        for (const auto& cell : drums.Cells()) {
            const bool on = std::ranges::any_of(Notes(), [&](const BoardNote& note) {
                return note.String == cell.String &&
                       note.Text == Core::PercussionLetters()[static_cast<std::size_t>(cell.Letter)].Letter;
            });
            const bool here = hasFocus() && &cell - drums.Cells().data() == drumPlace;
            if (on || &cell == hoveredDrum || here) PaintDrumCell(painter, cell, on);
        }
        return;
    }
    if (!Playing()) PaintCursor(painter);
    for (const BoardNote& note : Notes()) PaintNote(painter, note);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        const double reach = Radius() + 2;
        painter.setPen(QPen(Qt::white, 1.6));
        painter.drawRoundedRect(QRectF(PlaceOf(place) - QPointF(reach, reach), QSizeF(2 * reach, 2 * reach)), 4, 4);
    }
    if (!hovered || Playing()) return;
    painter.setOpacity(0.75);
    PaintDot(painter, PlaceOf(*hovered), NoteColor().darker(150), NoteColor().lighter(150),
             ShortName(Core::OpenPitch(Track(), hovered->String) + hovered->Fret), Qt::white);
    painter.setOpacity(1);
}

void picFretboard::PaintCursor(QPainter& painter) const {
    if (Open.CurString < 0 || Open.CurString >= geometry.Strings()) return;
    const double y = geometry.StringY(Open.CurString);
    QColor glow = CursorColor;
    glow.setAlpha(90);
    painter.setPen(QPen(glow, 5));
    painter.drawLine(QPointF(geometry.NutX() + 3, y), QPointF(geometry.Right(), y));
    painter.setPen(Qt::NoPen);
    painter.setBrush(CursorColor);
    const QPointF arrow[] = {{geometry.Right() - 7, y}, {geometry.Right() + 1, y - 5}, {geometry.Right() + 1, y + 5}};
    painter.drawPolygon(arrow, 3);
}

void picFretboard::PaintDot(QPainter& painter, QPointF middle, const QColor& fill, const QColor& edge,
                            const QString& text, const QColor& ink) const {
    const double radius = Radius();
    painter.setPen(QPen(edge, 1.4));
    painter.setBrush(fill);
    painter.drawEllipse(middle, radius, radius);
    painter.setPen(ink);
    painter.setFont(Sized(font(), radius * (text.size() > 1 ? 0.98 : 1.15), true));
    painter.drawText(QRectF(middle.x() - 20, middle.y() - 20, 40, 40), Qt::AlignCenter, text);
}

void picFretboard::PaintNote(QPainter& painter, const BoardNote& note) const {
    if (!geometry.Shows(note.Fret)) return;
    const QPointF middle = PlaceOf({note.String, note.Fret});
    const QColor color = NoteColor();
    const QString name = ShortName(note.Pitch);
    switch (note.Is) {
        case Kind::Dead: {
            PaintDot(painter, middle, QColor(0x2B, 0x2D, 0x31), color, {}, {});
            const double arm = Radius() * 0.45;
            painter.setPen(QPen(Qt::white, 2));
            painter.drawLine(middle + QPointF(-arm, -arm), middle + QPointF(arm, arm));
            painter.drawLine(middle + QPointF(-arm, arm), middle + QPointF(arm, -arm));
            return;
        }
        case Kind::Ghost:
            return PaintDot(painter, middle, QColor(0xF4, 0xF1, 0xEA), color, "(" + name + ")",
                            QColor(0x30, 0x30, 0x30));
        case Kind::Chord:
            return PaintDot(painter, middle, QColor(0x2F, 0x7D, 0x5B), QColor(0xBF, 0xE8, 0xD4), name, Qt::white);
        case Kind::Ringing:
            painter.setOpacity(0.55);
            PaintDot(painter, middle, color, color.lighter(140), name, Qt::white);
            painter.setOpacity(1);
            return;
        default:
            return PaintDot(painter, middle, color, Qt::white, name, Qt::white);
    }
}

// Drums --------------------------------------------------------------------------------------------------------------

void picFretboard::PaintDrumGround(QPainter& painter) const {
    painter.setFont(Sized(font(), 11));
    int string = -1;
    for (const auto& cell : drums.Cells()) {
        PaintDrumCell(painter, cell, false);
        if (cell.String == string) continue;
        string = cell.String;
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setFont(Sized(font(), 11));
        painter.drawText(QRectF(0, cell.Y, 22, cell.Height), Qt::AlignCenter, QString::number(string + 1));
    }
    if (!drums.Cells().empty()) return;
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignCenter, Text("str_BoardNoDrums"));
}

void picFretboard::PaintDrumCell(QPainter& painter, const Shell::DrumGeometry::Cell& cell, bool on) const {
    const bool hover = &cell == hoveredDrum && !Playing();
    const bool here = hasFocus() && &cell - drums.Cells().data() == drumPlace;
    const QRectF box(cell.X, cell.Y, cell.Width, cell.Height);
    const QColor line = palette().color(QPalette::Mid);
    painter.setPen(QPen(here ? palette().color(QPalette::Highlight) : line, here ? 2 : 1));
    painter.setBrush(on ? NoteColor() : palette().color(hover ? QPalette::Midlight : QPalette::Button));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setPen(on ? QColor(Qt::white) : palette().color(QPalette::ButtonText));
    const double size = std::clamp(cell.Height * 0.5, 8.0, 14.0);
    painter.setFont(Sized(font(), size, true));
    const QString letter = QString::fromLatin1(Core::PercussionLetters()[static_cast<std::size_t>(cell.Letter)].Letter);
    const double column = std::min(20.0, cell.Width);
    painter.drawText(QRectF(cell.X, cell.Y, column, cell.Height), Qt::AlignCenter, letter);
    const QRectF room = box.adjusted(column, 0, -3, 0);
    if (room.width() < 24) return;
    painter.setFont(Sized(font(), std::min(11.0, size)));
    const QString name = QString::fromLatin1(Core::DrumSoundNames()[static_cast<std::size_t>(cell.Sound)]);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(name, Qt::ElideRight, static_cast<int>(room.width())));
}

}  // namespace Quillon::Forms
