#include "platform/qt/PaintedPages.h"

#include <algorithm>
#include <cmath>

#include "platform/RunTimeError.h"

namespace Quillon {

namespace {

constexpr int PrinterError = 482;

}  // namespace

PaintedPages::PaintedPages(std::unique_ptr<QPagedPaintDevice> printer) : device(std::move(printer)) {}

PaintedPages::~PaintedPages() {
    if (painter.isActive()) painter.end();
}

Picture& PaintedPages::BeginPage(const Sheet& sheet) {
    const bool ready = painter.isActive() ? device->newPage() : painter.begin(device.get());
    if (!ready) throw RunTimeError(PrinterError, "The printer takes no page");
    const double scale = std::min(device->width() / sheet.Width, device->height() / sheet.Height);
    painter.resetTransform();
    // Whole dots, so that level strokes stay on them.
    painter.translate(std::floor((device->width() - sheet.Width * scale) / 2),
                      std::floor((device->height() - sheet.Height * scale) / 2));
    picture.emplace(painter, scale);
    return *picture;
}

}  // namespace Quillon
