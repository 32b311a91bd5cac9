// How single values of a tag are written, read and inspected.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/MusicFileTags.h"
#include "core/mod_Common.h"

namespace Quillon::Core::MusicTags {

namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

}  // namespace

// Writing ------------------------------------------------------------------------------------------------------------

void TagWriter::Name(std::string_view utf8Name) {
    out.SConcat('<');
    out.SConcat(IsAscii(utf8Name) ? std::string(utf8Name) : ToWindows1252(utf8Name));
}

void TagWriter::At(std::string_view pattern, const Place& place) {
    for (std::size_t i = 0; i + 1 < pattern.size(); i += 2) {
        const char index = pattern[i];
        Whole(index == 'T'   ? place.Track
              : index == 'B' ? place.Bar
              : index == 'S' ? place.Strum
                             : place.String,
              pattern[i + 1]);
    }
}

void TagWriter::Whole(std::int64_t value, char separator) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out.SConcat(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
    out.SConcat(separator);
}

void TagWriter::Field(const std::string& value, char separator) {
    if (IsAscii(value)) {
        out.SConcat(value);
    } else {
        out.SConcat(ToWindows1252(value));
    }
    out.SConcat(separator);
}

void TagWriter::Field(bool value, char separator) {
    out.SConcat(value ? "True" : "False");
    out.SConcat(separator);
}

void TagWriter::Field(double value, char separator) {
    out.SConcat(FormatDouble(value));
    out.SConcat(separator);
}

void TagWriter::Field(float value, char separator) {
    out.SConcat(FormatSingle(value));
    out.SConcat(separator);
}

// Reading ------------------------------------------------------------------------------------------------------------

std::string_view TagReader::Take(char separator) {
    const std::size_t at = rest.find(separator);
    if (at == std::string_view::npos) RaiseOverflow();
    const std::string_view text = rest.substr(0, at);
    rest.remove_prefix(at + 1);
    return text;
}

int TagReader::Index(char separator) { return ParseInt16(Take(separator)); }

Place TagReader::At(std::string_view pattern) {
    Place place;
    for (std::size_t i = 0; i + 1 < pattern.size(); i += 2) {
        const char index = pattern[i];
        int& target = index == 'T' ? place.Track : index == 'B' ? place.Bar : index == 'S' ? place.Strum : place.String;
        target = Index(pattern[i + 1]);
    }
    return place;
}

void TagReader::Convert(std::string_view text, std::string& value) const {
    if (storing) value = FromWindows1252(text);
}

namespace {

template <class T, class Parse>
void Put(T& target, bool storing, std::string_view text, Parse parse) {
    const T value = parse(text);
    if (storing) target = value;
}

std::uint8_t ParseByte(std::string_view text) {
    const std::int16_t value = ParseInt16(text);
    if (value < 0 || value > 255) RaiseOverflow();
    return static_cast<std::uint8_t>(value);
}

}  // namespace

void TagReader::Convert(std::string_view text, bool& value) const { Put(value, storing, text, &ParseBool); }
void TagReader::Convert(std::string_view text, double& value) const { Put(value, storing, text, &ParseDouble); }
void TagReader::Convert(std::string_view text, float& value) const { Put(value, storing, text, &ParseSingle); }
void TagReader::Convert(std::string_view text, std::uint8_t& value) const { Put(value, storing, text, &ParseByte); }
void TagReader::Convert(std::string_view text, std::int16_t& value) const { Put(value, storing, text, &ParseInt16); }
void TagReader::Convert(std::string_view text, std::int32_t& value) const { Put(value, storing, text, &ParseInt32); }

// Inspecting ---------------------------------------------------------------------------------------------------------

void TextInspector::Field(const std::string& value, char separator) {
    const auto add = [&](LossKind kind) { losses.push_back({kind, place.Track, place.Bar, place.Strum, value}); };
    // "<" opens the next tag, the separator ends this field. The reader looks for ">" only where that is the separator.
    if (value.find('<') != std::string::npos || value.find(separator) != std::string::npos) {
        add(LossKind::ReservedText);
    }
    if (!IsAscii(value)) {
        int lost = 0;
        ToWindows1252(value, &lost);
        if (lost > 0) add(LossKind::UnknownCharacter);
    }
}

}  // namespace Quillon::Core::MusicTags
