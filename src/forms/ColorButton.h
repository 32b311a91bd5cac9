// A button that shows a colour and lets another be picked.
#pragma once

#include <QPushButton>

#include "platform/Picture.h"

namespace Quillon::Forms {

class ColorButton : public QPushButton {
    Q_OBJECT

public:
    /// `purpose` names the colour, for the picker's title and for screen readers.
    ColorButton(Color color, const QString& purpose, QWidget* parent = nullptr);
    Color Chosen() const { return chosen; }
    void Choose(Color color);

private:
    void Pick();

    Color chosen;
    QString purpose;
};

}  // namespace Quillon::Forms
