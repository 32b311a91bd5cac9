#include "platform/qt/QtImageFile.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <cmath>
#include <cstdio>

#include "platform/ImageSize.h"
#include "platform/RunTimeError.h"
#include "platform/qt/PainterPicture.h"

namespace Quillon {

namespace {

/// Fonts need an application object. The editor has one; the twin makes one only when a picture of pixels is asked for.
void EnsureApplication() {
    if (QCoreApplication::instance()) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without windows standard error is for the program's own lines; what Qt remarks on is no fault of the person's.
    qInstallMessageHandler([](QtMsgType kind, const QMessageLogContext&, const QString& text) {
        if (kind == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    static int argc = 1;
    static char name[] = "quillon";
    static char* argv[] = {name, nullptr};
    static QGuiApplication application(argc, argv);
}

QByteArray FormatName(ImageFormat format) {
    switch (format) {
        case ImageFormat::Png:
            return "png";
        case ImageFormat::Jpeg:
            return "jpg";
        case ImageFormat::Bmp:
            return "bmp";
    }
    return "png";
}

}  // namespace

std::string EncodeImage(const Sheet& sheet, int dpi, ImageFormat format, const std::function<void(Picture&)>& paint) {
    if (sheet.Width <= 0 || sheet.Height <= 0 || dpi <= 0) throw RunTimeError(5, "Invalid procedure call");
    EnsureApplication();
    const ImageSize size = SizeOfImage(sheet, dpi);
    if (size.Width < 1 || size.Height < 1) throw RunTimeError(5, "Invalid procedure call");
    if (size.TooLarge()) RaiseOutOfMemory();
    QImage image(static_cast<int>(size.Width), static_cast<int>(size.Height), QImage::Format_RGB32);
    if (image.isNull()) RaiseOutOfMemory();
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        PainterPicture picture(painter, ScaleOfImage(size, sheet));
        paint(picture);
    }
    // Only now: a painter sizes its fonts by the image's resolution.
    image.setDotsPerMeterX(static_cast<int>(std::lround(dpi / 0.0254)));
    image.setDotsPerMeterY(static_cast<int>(std::lround(dpi / 0.0254)));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, FormatName(format));
    if (format == ImageFormat::Jpeg) writer.setQuality(92);
    if (!writer.write(image)) throw RunTimeError(57, writer.errorString().toStdString());
    return buffer.data().toStdString();
}

}  // namespace Quillon
