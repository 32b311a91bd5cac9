// A message box for tests that remembers its texts and answers as it was told.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/MessageBox.h"

namespace Quillon::Testing {

struct RememberingBox final : MessageBox {
    std::deque<Answer> Answers;  ///< of the next questions; Ok when none is left
    std::vector<std::string> Shown;
    Answer Show(const std::string& text, const std::string&, Buttons, BoxIcon) override {
        Shown.push_back(text);
        if (Answers.empty()) return Answer::Ok;
        const Answer answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
};

}  // namespace Quillon::Testing
