// Message boxes of the twin: a line on standard error, and an answer given beforehand.
#pragma once

#include <cstdio>
#include <string>

#include "platform/MessageBox.h"

namespace Quillon {

class AnsweringBox : public MessageBox {
public:
    explicit AnsweringBox(Answer givenBeforehand = Answer::No, std::FILE* writesTo = stderr)
        : answer(givenBeforehand), out(writesTo) {}

    /// Prints "title: text", line breaks as blanks. A question takes the answer given beforehand, or No where it does
    /// not offer that.
    Answer Show(const std::string& text, const std::string& title, Buttons buttons, BoxIcon icon) override;

private:
    Answer answer;
    std::FILE* out;
};

/// A text on one line: each line break becomes one blank.
std::string OnOneLine(const std::string& text);

}  // namespace Quillon
