#include "forms/picPlayMarker.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "shell/mod_Sound.h"

namespace Quillon::Forms {

picPlayMarker::picPlayMarker(QWidget* paper) : QWidget(paper) {
    setObjectName("picPlayMarker");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void picPlayMarker::Show(const std::optional<Shell::MarkerPlace>& place, double zoom) {
    if (!place) return hide();
    scale = zoom;
    const QRectF area(place->X * zoom, place->Top * zoom, place->Width * zoom, place->Height * zoom);
    setGeometry(area.toAlignedRect());
    show();
}

void picPlayMarker::paintEvent(QPaintEvent*) {
    // The paper is white in every theme; no sign on it has this colour.
    const QColor color(0xE8, 0x6A, 0x17);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor strip = color;
    strip.setAlpha(70);
    painter.setBrush(strip);
    const QRectF all = rect();
    painter.drawRoundedRect(all, 3 * scale, 3 * scale);
    // A thin line down the middle of the head's reach, and the head that points at the column.
    const double middle = all.center().x();
    const double head = all.width() / 2;
    QPainterPath pointer;
    pointer.moveTo(all.left(), all.top());
    pointer.lineTo(all.right(), all.top());
    pointer.lineTo(middle, all.top() + head);
    pointer.closeSubpath();
    painter.fillPath(pointer, color);
}

}  // namespace Quillon::Forms
