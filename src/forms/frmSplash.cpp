#include "forms/frmSplash.h"

#include <QApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>

#include "forms/SvgIcon.h"
#include "forms/frmMain.h"

namespace Quillon::Forms {

namespace {

// Bytes of a music file that open in about a fifth of a second.
constexpr qint64 NoticedSize = 4'000'000;
constexpr QSize Size(360, 160);

QPixmap Face() {
    const double ratio = qApp->devicePixelRatio();
    QPixmap face(Size * ratio);
    face.setDevicePixelRatio(ratio);
    face.fill(QColor(0x1f, 0x3a, 0x5f));
    QPainter painter(&face);
    SvgIcon("quillon").paint(&painter, QRect(24, 32, 96, 96));
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setPixelSize(34);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(140, 0, 210, 160), Qt::AlignVCenter, "Quillon 4");
    return face;
}

}  // namespace

frmSplash::frmSplash() : QSplashScreen(Face()) { setObjectName("frmSplash"); }

void ShowSplashFor(const QString& file, const frmMain& window) {
    if (QFileInfo(file).size() < NoticedSize) return;
    auto* const splash = new frmSplash;
    splash->setAttribute(Qt::WA_DeleteOnClose);
    splash->show();
    QApplication::processEvents();
    QObject::connect(&window, &frmMain::FirstPainted, splash, &QWidget::close);
}

}  // namespace Quillon::Forms
