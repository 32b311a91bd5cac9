// A line of text that ends in dots where there is no room for all of it.
#pragma once

#include <QLabel>
#include <QPainter>

namespace Quillon::Forms {

class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QRect room = contentsRect();
        painter.drawText(room, static_cast<int>(alignment()),
                         fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
    }
};

}  // namespace Quillon::Forms
