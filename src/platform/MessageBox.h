// Message boxes: a text with a title, answered by a person, or by the command line of the twin.
#pragma once

#include <string>

namespace Quillon {

enum class Answer { Ok, Cancel, Yes, No };

enum class Buttons { Ok, YesNo, YesNoCancel };

enum class BoxIcon { None, Critical, Question, Exclamation, Information };

struct MessageBox {
    virtual ~MessageBox() = default;
    virtual Answer Show(const std::string& text, const std::string& title, Buttons buttons, BoxIcon icon) = 0;
};

}  // namespace Quillon
