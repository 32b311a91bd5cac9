#include "exchange/LinesText.h"

#include <algorithm>
#include <iterator>

#include "core/mod_Common.h"

namespace Quillon::Exchange {

using Core::NextCharacter;
using Core::NoCharacter;

namespace {

/// Characters that mean what an ASCII character means to a reader of tabs, by ranges.
struct Likeness {
    char32_t First;
    char32_t Last;
    char Like;
};

constexpr char Nothing = 0;  // takes no column

constexpr Likeness Likenesses[] = {
    {0x00A0, 0x00A0, ' '},      {0x00A6, 0x00A6, '|'}, {0x00AB, 0x00AB, '<'},  {0x00AD, 0x00AD, '-'},
    {0x00AF, 0x00AF, '-'},      {0x00B7, 0x00B7, 'o'}, {0x00BB, 0x00BB, '>'},  {0x00BC, 0x00BC, QuarterSign},
    {0x00BD, 0x00BD, HalfSign}, {0x00D7, 0x00D7, 'x'}, {0x02DC, 0x02DC, '~'},  {0x2000, 0x200A, ' '},
    {0x200B, 0x200D, Nothing},  {0x2010, 0x2015, '-'}, {0x2018, 0x201B, '\''}, {0x2022, 0x2022, 'o'},
    {0x202F, 0x202F, ' '},      {0x2039, 0x2039, '<'}, {0x203A, 0x203A, '>'},  {0x2043, 0x2043, '-'},
    {0x2044, 0x2044, '/'},      {0x205F, 0x205F, ' '}, {0x2212, 0x2212, '-'},  {0x2215, 0x2215, '/'},
    {0x2216, 0x2216, '\\'},     {0x2219, 0x2219, 'o'}, {0x223C, 0x223C, '~'},  {0x2329, 0x2329, '<'},
    {0x232A, 0x232A, '>'},      {0x23AF, 0x23AF, '-'}, {0x23D0, 0x23D0, '|'},  {0x2500, 0x2501, '-'},
    {0x2502, 0x2503, '|'},      {0x2504, 0x2505, '-'}, {0x2506, 0x2507, '|'},  {0x2508, 0x2509, '-'},
    {0x250A, 0x254B, '|'},      {0x254C, 0x254D, '-'}, {0x254E, 0x254F, '|'},  {0x2550, 0x2550, '-'},
    {0x2551, 0x256C, '|'},      {0x2574, 0x2574, '-'}, {0x2576, 0x2576, '-'},  {0x2578, 0x2578, '-'},
    {0x257A, 0x257A, '-'},      {0x25CB, 0x25CB, 'o'}, {0x25CF, 0x25CF, 'o'},  {0x266D, 0x266D, 'b'},
    {0x266F, 0x266F, '#'},      {0x2715, 0x2718, 'x'}, {0x2758, 0x275A, '|'},  {0x27E8, 0x27E8, '<'},
    {0x27E9, 0x27E9, '>'},      {0x2E3A, 0x2E3B, '-'}, {0x3000, 0x3000, ' '},  {0x3008, 0x3008, '<'},
    {0x3009, 0x3009, '>'},      {0x301C, 0x301C, '~'}, {0xFE58, 0xFE58, '-'},  {0xFE63, 0xFE63, '-'},
    {0xFEFF, 0xFEFF, Nothing},
};

char LikenessOf(char32_t character) {
    if (character < 0x20) return ' ';
    if (character < 0x7F) return static_cast<char>(character);
    if (character >= 0xFF01 && character <= 0xFF5E) return static_cast<char>(character - 0xFF01 + '!');  // full width
    const auto* const found = std::ranges::find_if(
        Likenesses, [&](const Likeness& like) { return character >= like.First && character <= like.Last; });
    return found == std::end(Likenesses) ? OtherSign : found->Like;
}

std::string Utf8OfUtf16(std::string_view bytes, bool littleEndian) {
    std::string text;
    char32_t high = 0;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at + (littleEndian ? 1 : 0)]);
        const auto second = static_cast<unsigned char>(bytes[at + (littleEndian ? 0 : 1)]);
        const char32_t unit = static_cast<char32_t>(first << 8 | second);
        if (unit >= 0xD800 && unit < 0xDC00) {
            high = unit;
        } else if (unit >= 0xDC00 && unit < 0xE000) {
            Core::AppendUtf8(text, high ? 0x10000 + ((high & 0x3FF) << 10) + (unit & 0x3FF) : U'?');
            high = 0;
        } else {
            Core::AppendUtf8(text, unit);
        }
    }
    return text;
}

/// Builds one line, column by column.
class LineMaker {
public:
    void Add(std::string_view utf8, char like) {
        if (like == Nothing) return;
        line.Columns += like;
        line.Text += utf8;
        plain = plain && utf8.size() == 1 && utf8.front() == like;
    }
    void Tab() {
        constexpr std::size_t stop = 8;
        do Add(" ", ' ');
        while (line.Columns.size() % stop != 0);
    }
    TextColumns Take() {
        const std::size_t end = line.Columns.find_last_not_of(' ') + 1;
        TextColumns taken;
        if (!plain) taken.Text = line.Between(0, end);
        taken.Columns = std::move(line.Columns);
        taken.Columns.resize(end);
        line = {};
        plain = true;
        return taken;
    }

private:
    TextColumns line;
    bool plain = true;
};

}  // namespace

std::string TextColumns::Between(std::size_t from, std::size_t to) const {
    if (Text.empty()) return from < Columns.size() ? Columns.substr(from, to - std::min(from, to)) : "";
    std::string_view rest = Text;
    for (std::size_t column = 0; column < from && !rest.empty(); ++column) NextCharacter(rest);
    const std::string_view begin = rest;
    for (std::size_t column = from; column < to && !rest.empty(); ++column) NextCharacter(rest);
    return std::string(begin.substr(0, begin.size() - rest.size()));
}

std::string Utf8OfBytes(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return Utf8OfUtf16(bytes.substr(2), true);
    if (bytes.starts_with("\xFE\xFF")) return Utf8OfUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return Core::IsUtf8(bytes) ? std::string(bytes) : Core::FromWindows1252(bytes);
}

std::vector<TextColumns> ColumnsOf(std::string_view utf8) {
    std::vector<TextColumns> lines;
    LineMaker maker;
    while (!utf8.empty()) {
        const std::string_view before = utf8;
        const char32_t character = NextCharacter(utf8);
        if (character == '\n' || character == '\r') {
            if (character == '\r' && utf8.starts_with('\n')) utf8.remove_prefix(1);
            lines.push_back(maker.Take());
        } else if (character == '\t') {
            maker.Tab();
        } else {
            maker.Add(before.substr(0, before.size() - utf8.size()), LikenessOf(character));
        }
    }
    lines.push_back(maker.Take());
    return lines;
}

}  // namespace Quillon::Exchange
