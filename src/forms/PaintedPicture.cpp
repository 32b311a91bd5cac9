#include "forms/PaintedPicture.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

#include "platform/qt/PainterPicture.h"
#include "shell/DarkPaper.h"

namespace Quillon::Forms {

void PaintPicture(QPainter& screen, const QWidget& widget, const std::function<void(Picture&)>& draw) {
    const double ratio = widget.devicePixelRatioF();
    const QColor ground = widget.palette().color(QPalette::Window);
    QImage image(widget.size() * ratio, QImage::Format_RGB32);
    image.fill(ground);
    {
        QPainter painter(&image);
        PainterPicture picture(painter, ratio);
        if (ground.lightness() < 128) picture.MapColors(Shell::OnDarkPaper);
        draw(picture);
    }
    image.setDevicePixelRatio(ratio);
    screen.drawImage(0, 0, image);
}

}  // namespace Quillon::Forms
