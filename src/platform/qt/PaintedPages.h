// Sheets painted on what Qt prints to.
#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <memory>
#include <optional>

#include "platform/PageTarget.h"
#include "platform/qt/PainterPicture.h"

namespace Quillon {

/// Prints each page as large as the device's sheet takes it whole, in its middle: at its own size where the sheet is
/// the page's. The device is set up, with the whole sheet as its area, and takes the job when this ends.
class PaintedPages : public PageTarget {
public:
    explicit PaintedPages(std::unique_ptr<QPagedPaintDevice> device);
    ~PaintedPages() override;

    /// Raises RunTimeError 482 when the printer takes no page.
    Picture& BeginPage(const Sheet& sheet) override;

private:
    std::unique_ptr<QPagedPaintDevice> device;
    QPainter painter;
    std::optional<PainterPicture> picture;
};

}  // namespace Quillon
