#include "forms/picString.h"

#include <QKeyEvent>
#include <QPainter>

#include "forms/PaintedPicture.h"

namespace Quillon::Forms {

picString::picString(int string, QWidget* parent) : QAbstractButton(parent), look{string} {
    setObjectName(QString("picString%1").arg(string));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    constexpr int MostHeight = 44;
    setMaximumHeight(MostHeight);
}

void picString::Show(bool on, bool sounding) {
    if (look.Checked == on && look.Sounding == sounding) return;
    look.Checked = on;
    look.Sounding = sounding;
    update();
}

void picString::paintEvent(QPaintEvent*) {
    QPainter screen(this);
    PaintPicture(screen, *this,
                 [this](Picture& picture) { Library::DrawTunerString(picture, look, width(), height()); });
    if (!hasFocus()) return;
    screen.setPen(QPen(palette().color(QPalette::Highlight), 1));
    screen.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void picString::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

}  // namespace Quillon::Forms
