#include "forms/ColorButton.h"

#include <QColorDialog>
#include <QPainter>

#include "platform/qt/PainterPicture.h"

namespace Quillon::Forms {

ColorButton::ColorButton(Color color, const QString& what, QWidget* parent) : QPushButton(parent), purpose(what) {
    setIconSize({40, 16});
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, &ColorButton::Pick);
    Choose(color);
}

void ColorButton::Choose(Color color) {
    chosen = color;
    const double ratio = devicePixelRatioF();
    QPixmap swatch(iconSize() * ratio);
    swatch.fill(ToQColor(color));
    {
        QPainter painter(&swatch);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(0, 0, swatch.width() - 1, swatch.height() - 1);
    }
    swatch.setDevicePixelRatio(ratio);
    setIcon(swatch);
    setText(ToQColor(color).name().toUpper());
    setAccessibleName(purpose + " " + text());
}

void ColorButton::Pick() {
    const QColor picked = QColorDialog::getColor(ToQColor(chosen), this, purpose);
    if (picked.isValid()) Choose(PackColor(picked.red(), picked.green(), picked.blue()));
}

}  // namespace Quillon::Forms
