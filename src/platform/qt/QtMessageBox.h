// Message boxes on the screen.
#pragma once

#include "platform/MessageBox.h"

namespace Quillon {

class QtMessageBox : public MessageBox {
public:
    /// Shows a modal box over the active window and waits for the answer. Closing the box by its frame or with Escape
    /// answers Cancel where there is such a button, else No, else Ok.
    Answer Show(const std::string& text, const std::string& title, Buttons buttons, BoxIcon icon) override;
};

}  // namespace Quillon
