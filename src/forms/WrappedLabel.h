// A text that goes on in further lines where there is too little room.
//
// QLabel's own wrapping would keep the window around it from shrinking below the height that all would like.
#pragma once

#include <QLabel>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>

namespace Quillon::Forms {

class WrappedLabel : public QLabel {
public:
    explicit WrappedLabel(QWidget* parent = nullptr) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override { return minimumSizeHint(); }
    /// As wide as the longest word, though not of a file's name; as high as the text is at the width that there is.
    QSize minimumSizeHint() const override {
        constexpr int Letters = 16;
        int widest = 0;
        for (const QString& word : text().split(' ')) {
            widest = std::max(widest, fontMetrics().horizontalAdvance(word.left(Letters)));
        }
        const QRect room(0, 0, std::max(widest, width()), QWIDGETSIZE_MAX);
        return {widest, fontMetrics().boundingRect(room, Qt::TextWordWrap, text()).height()};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawText(contentsRect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextWordWrap, text());
    }
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        if (event->oldSize().width() != width()) updateGeometry();
    }
};

}  // namespace Quillon::Forms
