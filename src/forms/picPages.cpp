#include "forms/picPages.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "forms/Text.h"
#include "platform/RunTimeError.h"
#include "platform/qt/PainterPicture.h"
#include "shell/PrintPreview.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

picPages::picPages(Shell::PrintPreview& preview, QWidget* parent) : QAbstractScrollArea(parent), model(preview) {
    setObjectName("picPages");
    setAccessibleName(Text("str_PrintPreviewTitle"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    constexpr int Step = 40;
    verticalScrollBar()->setSingleStep(Step);
    horizontalScrollBar()->setSingleStep(Step);
}

void picPages::SetRanges() {
    verticalScrollBar()->setRange(0, std::max(0, model.Height() - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    horizontalScrollBar()->setRange(0, std::max(0, model.Width() - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
}

int picPages::CurrentPage() const {
    const int at = verticalScrollBar()->value();
    if (at == askedAt) return std::min(asked, model.Pages() - 1);
    // At the end the last pages may stand below the middle of the view.
    const bool end = at > 0 && at == verticalScrollBar()->maximum();
    return model.PageAt(end ? model.Height() : at);
}

void picPages::GoTo(int page) {
    asked = std::clamp(page, 0, model.Pages() - 1);
    verticalScrollBar()->setValue(model.ScrollFor(asked));
    askedAt = verticalScrollBar()->value();
    Q_EMIT Moved();
}

void picPages::Refresh() {
    // By the ground of the page above: the model's sizes are new ones already.
    const auto placeIn = [](const QScrollBar& bar, double otherwise) {
        return bar.maximum() > 0 ? static_cast<double>(bar.value()) / bar.maximum() : otherwise;
    };
    const auto put = [](QScrollBar& bar, double place) {
        bar.setValue(static_cast<int>(std::lround(place * bar.maximum())));
    };
    constexpr double middle = 0.5;
    askedAt = Nowhere;
    const double down = placeIn(*verticalScrollBar(), 0);
    const double across = placeIn(*horizontalScrollBar(), middle);
    painted.clear();
    SetRanges();
    put(*verticalScrollBar(), down);
    put(*horizontalScrollBar(), across);
    viewport()->update();
    Q_EMIT Moved();
}

const QImage& picPages::Painted(int page, QSize size) {
    QImage& image = painted[page];
    if (image.size() == size) return image;
    image = QImage(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PainterPicture picture(painter, model.Scale() * devicePixelRatioF());
    try {
        model.Draw(picture, page);
    } catch (const RunTimeError& error) {
        painter.resetTransform();
        painter.setPen(Qt::black);
        constexpr int Border = 40;
        painter.drawText(image.rect().adjusted(Border, Border, -Border, -Border), Qt::AlignCenter | Qt::TextWordWrap,
                         ToQString(Shell::LayoutFailureText(error)));
    }
    return image;
}

void picPages::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Window).darker(118));
    const auto pages = model.InView(horizontalScrollBar()->value(), verticalScrollBar()->value());
    std::erase_if(painted, [&](const auto& row) {
        return std::ranges::none_of(pages, [&](const Shell::PreviewPage& page) { return page.Page == row.first; });
    });
    for (const Shell::PreviewPage& page : pages) {
        constexpr int ShadowAway = 3;
        const QRect sheet(page.X, page.Y, page.Width, page.Height);
        painter.fillRect(sheet.translated(ShadowAway, ShadowAway), QColor(0, 0, 0, 60));
        QImage image = Painted(page.Page, sheet.size() * devicePixelRatioF());
        image.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(sheet.topLeft(), image);
        painter.setPen(QColor(0, 0, 0, 90));
        painter.drawRect(QRectF(sheet).adjusted(-0.5, -0.5, 0.5, 0.5));
    }
}

void picPages::resizeEvent(QResizeEvent*) {
    model.SetView(viewport()->width(), viewport()->height());
    askedAt = Nowhere;
    SetRanges();
    Q_EMIT Moved();
}

void picPages::scrollContentsBy(int, int) {
    viewport()->update();
    Q_EMIT Moved();
}

void picPages::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    constexpr int Notch = 120;
    wheelRest += event->angleDelta().y();
    const int steps = wheelRest / Notch;
    wheelRest -= steps * Notch;
    if (steps != 0) {
        model.ZoomBy(steps);
        Refresh();
    }
    event->accept();
}

void picPages::keyPressEvent(QKeyEvent* event) {
    const int page = CurrentPage();
    switch (event->key()) {
        case Qt::Key_PageDown:
        case Qt::Key_Space:
            return GoTo(page + model.Columns());
        case Qt::Key_PageUp:
        case Qt::Key_Backspace:
            return GoTo(page - model.Columns());
        case Qt::Key_Home:
            return GoTo(0);
        case Qt::Key_End:
            return GoTo(model.Pages() - 1);
        case Qt::Key_Plus:
        case Qt::Key_Equal:
        case Qt::Key_Minus:
            model.ZoomBy(event->key() == Qt::Key_Minus ? -1 : 1);
            return Refresh();
        case Qt::Key_0:
            model.SetZoom(100);
            return Refresh();
        default:
            return QAbstractScrollArea::keyPressEvent(event);
    }
}

}  // namespace Quillon::Forms
