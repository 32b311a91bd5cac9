#include "library/LineFile.h"

#include <algorithm>

#include "core/mod_Common.h"

namespace Quillon::Library {

std::string LineReader::Text() {
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end);
    if (rest.starts_with("\r\n")) {
        rest.remove_prefix(2);
    } else if (!rest.empty()) {
        rest.remove_prefix(1);
    }
    return Core::FromWindows1252(line);
}

std::int16_t LineReader::Number(std::int16_t least, std::int16_t most) {
    const std::int16_t number = Core::ParseInt16(Text());
    if (number < least || number > most) RaiseOverflow();
    return number;
}

std::int16_t LineReader::NumberOr(std::int16_t missing, std::int16_t least, std::int16_t most) {
    return AtEnd() ? missing : Number(least, most);
}

void LineWriter::Text(std::string_view utf8) {
    bytes += Core::ToWindows1252(utf8);
    bytes += "\r\n";
}

}  // namespace Quillon::Library
