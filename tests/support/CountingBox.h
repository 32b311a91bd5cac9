// A message box for tests: nobody sees it, but it counts.
#pragma once

#include "platform/MessageBox.h"

namespace Quillon::Testing {

struct CountingBox final : MessageBox {
    Answer Show(const std::string&, const std::string&, Buttons, BoxIcon) override {
        ++Shown;
        return Answer::Ok;
    }
    int Shown = 0;
};

}  // namespace Quillon::Testing
