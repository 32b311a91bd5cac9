#include <QKeyEvent>

#include "forms/picDocument.h"

namespace Quillon::Forms {

int VirtualKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Left:
            return 37;
        case Qt::Key_Up:
            return 38;
        case Qt::Key_Right:
            return 39;
        case Qt::Key_Down:
            return 40;
        default:
            return 0;
    }
}

int ShiftState(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

}  // namespace Quillon::Forms
