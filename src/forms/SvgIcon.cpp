#include "forms/SvgIcon.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyleOption>
#include <QSvgRenderer>

namespace Quillon::Forms {

namespace {

class SvgIconEngine : public QIconEngine {
public:
    explicit SvgIconEngine(QByteArray drawing) : source(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1;
        QPixmap image = pixmap(rect.size() * ratio, mode, state);
        image.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, image);
    }

    /// `size` is in device pixels.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QApplication::palette();
        const QColor color = mode == QIcon::Selected ? palette.color(QPalette::HighlightedText)
                                                     : palette.color(QPalette::Active, QPalette::ButtonText);
        const quint64 key = quint64{color.rgb()} << 32 | quint64(size.width() & 0x7FFF) << 16 |
                            quint64(size.height() & 0x7FFF) << 1 | quint64(mode == QIcon::Disabled);
        if (const auto found = painted.constFind(key); found != painted.constEnd()) return *found;
        QByteArray colored = source;
        colored.replace("currentColor", color.name().toLatin1());
        // The accent is chosen for white; on a dark ground it needs more light.
        if (color.lightness() > 127) colored.replace("#2a7ae2", "#6db1ff");
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        if (mode == QIcon::Disabled) painter.setOpacity(0.35);
        QSvgRenderer(colored).render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
        painter.end();
        return *painted.insert(key, QPixmap::fromImage(image));
    }

    QIconEngine* clone() const override { return new SvgIconEngine(*this); }

private:
    QByteArray source;
    QHash<quint64, QPixmap> painted;
};

}  // namespace

QIcon SvgIcon(std::string_view name) {
    QFile file(":/icons/" + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())) + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new SvgIconEngine(file.readAll()));
}

}  // namespace Quillon::Forms
