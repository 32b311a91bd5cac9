// A widget painted by drawing code of the libraries, in the widget's colours: where windows are dark, so is the
// picture.
#pragma once

#include <functional>

class QPainter;
class QWidget;

namespace Quillon {
struct Picture;
}

namespace Quillon::Forms {

/// Runs `draw` on a picture of the widget's size, on its ground, and puts it on the screen.
void PaintPicture(QPainter& screen, const QWidget& widget, const std::function<void(Picture&)>& draw);

}  // namespace Quillon::Forms
