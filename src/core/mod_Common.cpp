#include "core/mod_Common.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <system_error>

namespace Quillon::Core {

char DecimalSign = '.';

double RoundHalfEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest < 0.5) return floor;
    if (rest > 0.5) return floor + 1;
    return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

std::int16_t CInt(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -32768 && rounded <= 32767)) RaiseOverflow();
    return static_cast<std::int16_t>(rounded);
}

std::int32_t CLng(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) RaiseOverflow();
    return static_cast<std::int32_t>(rounded);
}

std::int16_t ToInt16(std::int64_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
        RaiseOverflow();
    }
    return static_cast<std::int16_t>(value);
}

std::int32_t ToInt32(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
        RaiseOverflow();
    }
    return static_cast<std::int32_t>(value);
}

namespace {

/// `digits` significant digits at most, and as many figures before and behind the point in the plain form.
std::string FormatNumber(double value, int digits) {
    if (value == 0 || !std::isfinite(value)) return "0";
    if (std::fabs(value) < 1e6 && std::trunc(value) == value) return std::to_string(static_cast<int>(value));
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                   std::chars_format::scientific, digits - 1)
                         .ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t e = text.find('e');
    std::string figures;
    for (char c : text.substr(0, e)) {
        if (c != '.') figures += c;
    }
    while (figures.size() > 1 && figures.back() == '0') figures.pop_back();
    int exponent = 0;
    const std::string_view power = text.substr(e + 1);
    std::from_chars(power.data() + (power.front() == '+' ? 1 : 0), power.data() + power.size(), exponent);

    std::string out = value < 0 ? "-" : "";
    const int count = static_cast<int>(figures.size());
    const int decimals = std::max(0, count - 1 - exponent);
    if (exponent < digits && decimals <= digits) {
        if (exponent < 0)
            return out + "0" + DecimalSign + std::string(static_cast<std::size_t>(-exponent - 1), '0') + figures;
        if (count <= exponent + 1)
            return out + figures + std::string(static_cast<std::size_t>(exponent + 1 - count), '0');
        return out + figures.substr(0, static_cast<std::size_t>(exponent) + 1) + DecimalSign +
               figures.substr(static_cast<std::size_t>(exponent) + 1);
    }
    out += figures[0];
    if (count > 1) out += DecimalSign + figures.substr(1);
    const std::string size = std::to_string(std::abs(exponent));
    return out + "E" + (exponent < 0 ? "-" : "+") + (size.size() < 2 ? "0" : "") + size;
}

}  // namespace

std::string FormatDouble(double value) { return FormatNumber(value, 15); }
std::string FormatSingle(float value) { return FormatNumber(static_cast<double>(value), 7); }

namespace {

/// The value of a text of plain figures; nothing for one that needs the full rules.
template <class T>
std::optional<T> ParsePlain(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (text.size() <= (negative ? 1U : 0U)) return std::nullopt;
    const char first = text[negative ? 1 : 0];
    if (first < '0' || first > '9') return std::nullopt;
    T value{};
    const auto [stop, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem != std::errc{} || stop != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

double ParseDouble(std::string_view text) {
    if (const auto plain = ParsePlain<double>(text)) return *plain;
    std::string number(TrimBlanks(text));
    std::replace(number.begin(), number.end(), ',', '.');
    const char* from = number.data();
    const char* const to = from + number.size();
    if (from != to && *from == '+') ++from;
    // from_chars also takes "inf" and "nan", which are no numbers here.
    const char* first = from;
    if (first != to && *first == '-' && from == number.data()) ++first;
    if (first == to || !((*first >= '0' && *first <= '9') || *first == '.')) RaiseTypeMismatch();
    double value = 0;
    const auto [stop, problem] = std::from_chars(from, to, value);
    if (stop != to || problem == std::errc::invalid_argument) RaiseTypeMismatch();
    if (problem == std::errc::result_out_of_range) {
        // Too small to hold is nothing; too large is an overflow.
        const std::size_t e = number.find_first_of("eE");
        if (e != std::string::npos && number.find('-', e) != std::string::npos) return 0;
        if (e == std::string::npos && number.find_first_of("123456789") > number.find('.')) return 0;
        RaiseOverflow();
    }
    return value;
}

float ParseSingle(std::string_view text) {
    const double value = ParseDouble(text);
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) RaiseOverflow();
    return static_cast<float>(value);
}

std::int16_t ParseInt16(std::string_view text) {
    if (const auto plain = ParsePlain<std::int64_t>(text)) return ToInt16(*plain);
    return CInt(ParseDouble(text));
}

std::int32_t ParseInt32(std::string_view text) {
    if (const auto plain = ParsePlain<std::int64_t>(text)) return ToInt32(*plain);
    return CLng(ParseDouble(text));
}

bool ParseBool(std::string_view text) {
    if (text == "True") return true;
    if (text == "False") return false;
    const std::string word = LowerAscii(TrimBlanks(text));
    if (word == "true") return true;
    if (word == "false") return false;
    return ParseDouble(word) != 0;
}

namespace {

// Codes 80 to 9F. The five undefined ones keep their number.
constexpr std::array<char32_t, 32> HighCodes = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char32_t NextCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (first < 0x80) return first;
    int more = 0;
    char32_t value = 0;
    char32_t least = 0;
    if (first >= 0xC2 && first <= 0xDF) {
        more = 1, value = first & 0x1FU, least = 0x80;
    } else if (first >= 0xE0 && first <= 0xEF) {
        more = 2, value = first & 0x0FU, least = 0x800;
    } else if (first >= 0xF0 && first <= 0xF4) {
        more = 3, value = first & 0x07U, least = 0x10000;
    } else {
        return NoCharacter;
    }
    if (text.size() < static_cast<std::size_t>(more)) return NoCharacter;
    for (int i = 0; i < more; ++i) {
        const auto next = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
        if ((next & 0xC0) != 0x80) return NoCharacter;
        value = (value << 6) | (next & 0x3FU);
    }
    if (value < least || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return NoCharacter;
    text.remove_prefix(static_cast<std::size_t>(more));
    return value;
}

void AppendUtf8(std::string& out, char32_t value) {
    if (value < 0x80) {
        out += static_cast<char>(value);
    } else if (value < 0x800) {
        out += static_cast<char>(0xC0 | (value >> 6));
        out += static_cast<char>(0x80 | (value & 0x3F));
    } else {
        if (value < 0x10000) {
            out += static_cast<char>(0xE0 | (value >> 12));
        } else {
            out += static_cast<char>(0xF0 | (value >> 18));
            out += static_cast<char>(0x80 | ((value >> 12) & 0x3F));
        }
        out += static_cast<char>(0x80 | ((value >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (value & 0x3F));
    }
}

std::string ToWindows1252(std::string_view utf8, int* lost) {
    std::string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = NextCharacter(utf8);
        if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
            out += static_cast<char>(character);
            continue;
        }
        const auto* high = std::find(HighCodes.begin(), HighCodes.end(), character);
        if (high != HighCodes.end()) {
            out += static_cast<char>(0x80 + (high - HighCodes.begin()));
        } else {
            out += '?';
            if (lost) ++*lost;
        }
    }
    return out;
}

std::string FromWindows1252(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        AppendUtf8(out, code >= 0x80 && code < 0xA0 ? HighCodes[code - 0x80U] : code);
    }
    return out;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        if (NextCharacter(text) == NoCharacter) return false;
    }
    return true;
}

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t from = text.find_first_not_of(' ');
    if (from == std::string_view::npos) return {};
    return text.substr(from, text.find_last_not_of(' ') - from + 1);
}

std::string UpperAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return out;
}

std::string LowerAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return out;
}

std::string NoteName(int pitch) {
    static constexpr const char* Names[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    const int octave = pitch >= 0 ? pitch / 12 : -((11 - pitch) / 12);
    return Names[pitch - octave * 12] + std::to_string(octave - 1);
}

int PitchOfNoteName(std::string_view name) {
    static constexpr int FromC[] = {9, 11, 0, 2, 4, 5, 7};  // A to G
    name = TrimBlanks(name);
    const std::string letter = UpperAscii(name.substr(0, 1));
    if (letter.empty() || letter[0] < 'A' || letter[0] > 'G') return -1;
    int pitch = FromC[letter[0] - 'A'] + 12;
    name.remove_prefix(1);
    if (name.starts_with('#')) ++pitch;
    if (name.starts_with('b')) --pitch;
    if (name.starts_with('#') || name.starts_with('b')) name.remove_prefix(1);
    int octave = 0;
    const auto [stop, problem] = std::from_chars(name.data(), name.data() + name.size(), octave);
    if (problem != std::errc{} || stop != name.data() + name.size() || octave < -1 || octave > 9) return -1;
    pitch += octave * 12;
    return pitch >= 0 && pitch <= 127 ? pitch : -1;
}

}  // namespace Quillon::Core
