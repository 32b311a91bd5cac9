#include "forms/picPreview.h"

#include <QImage>
#include <QPainter>

#include "forms/Text.h"
#include "forms/Theme.h"
#include "platform/RunTimeError.h"
#include "platform/qt/PainterPicture.h"

namespace Quillon::Forms {

picPreview::picPreview(QWidget* parent) : QWidget(parent) {
    setObjectName("picPreview");
    setAccessibleName(Text("str_Preview"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void picPreview::ShowExcerpt(Drawing::Excerpt shown) {
    excerpt = std::move(shown);
    update();
}

QSize picPreview::sizeHint() const { return {460, 190}; }

QSize picPreview::minimumSizeHint() const { return {240, 120}; }

void picPreview::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    QImage sheet(size() * ratio, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    const double scale = excerpt.ScaleFor(width(), height());
    {
        QPainter painter(&sheet);
        PainterPicture picture(painter, scale * ratio);
        UsePaper(picture);
        picture.Box(0, 0, width() / scale + 1, height() / scale + 1, White);
        try {
            excerpt.Draw(picture, width() / scale, height() / scale);
        } catch (const RunTimeError&) {
            painter.fillRect(sheet.rect(), Qt::white);  // a bar past the layout's numbers, as on the page
        }
    }
    sheet.setDevicePixelRatio(ratio);
    QPainter painter(this);
    painter.drawImage(0, 0, sheet);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(QRectF(0.5, 0.5, width() - 1.0, height() - 1.0));
}

}  // namespace Quillon::Forms
