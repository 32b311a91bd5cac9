// The libraries' files: text of a number or a word a line, in Windows-1252.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Quillon::Library {

/// Reads line by line. Any line end is one; behind the last line stand empty ones.
class LineReader {
public:
    explicit LineReader(std::string_view bytes) : rest(bytes) {}

    bool AtEnd() const { return rest.empty(); }
    /// The line as UTF-8, as it stands.
    std::string Text();
    /// A plain decimal, blanks around it allowed. Raises "Type mismatch" for any other text and "Overflow" outside
    /// `least` to `most`.
    std::int16_t Number(std::int16_t least, std::int16_t most);
    /// As Number, and `missing` behind the last line.
    std::int16_t NumberOr(std::int16_t missing, std::int16_t least, std::int16_t most);

private:
    std::string_view rest;
};

class LineWriter {
public:
    void Text(std::string_view utf8);
    void Number(int value) { Text(std::to_string(value)); }
    const std::string& Bytes() const { return bytes; }

private:
    std::string bytes;
};

}  // namespace Quillon::Library
