#include "platform/headless/AnsweringBox.h"

namespace Quillon {

std::string OnOneLine(const std::string& text) {
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        line += text[i] == '\n' || text[i] == '\r' ? ' ' : text[i];
    }
    return line;
}

Answer AnsweringBox::Show(const std::string& text, const std::string& title, Buttons buttons, BoxIcon) {
    const std::string line = OnOneLine(title + ": " + text) + "\n";
    std::fwrite(line.data(), 1, line.size(), out);
    switch (buttons) {
        case Buttons::Ok:
            return Answer::Ok;
        case Buttons::YesNo:
            return answer == Answer::Yes ? Answer::Yes : Answer::No;
        case Buttons::YesNoCancel:
            return answer;
    }
    return Answer::No;
}

}  // namespace Quillon
