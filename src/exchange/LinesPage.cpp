// What a web page shows, as far as a tab in it is concerned.
#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>

#include "core/mod_Common.h"
#include "exchange/LinesText.h"

namespace Quillon::Exchange {

namespace {

constexpr auto None = std::string_view::npos;

struct Entity {
    std::string_view Name;
    char32_t Character;
};
constexpr Entity Entities[] = {
    {"nbsp", ' '},     {"lt", '<'},        {"gt", '>'},        {"amp", '&'},       {"quot", '"'},      {"apos", '\''},
    {"ndash", 0x2013}, {"mdash", 0x2014},  {"minus", 0x2212},  {"shy", '-'},       {"vert", '|'},      {"verbar", '|'},
    {"brvbar", '|'},   {"frac12", 0x00BD}, {"frac14", 0x00BC}, {"sharp", '#'},     {"flat", 'b'},      {"times", 'x'},
    {"lsquo", '\''},   {"rsquo", '\''},    {"ldquo", '"'},     {"rdquo", '"'},     {"sol", '/'},       {"bsol", '\\'},
    {"tilde", '~'},    {"auml", 0x00E4},   {"ouml", 0x00F6},   {"uuml", 0x00FC},   {"Auml", 0x00C4},   {"Ouml", 0x00D6},
    {"Uuml", 0x00DC},  {"szlig", 0x00DF},  {"eacute", 0x00E9}, {"egrave", 0x00E8}, {"hellip", 0x2026},
};

std::optional<char32_t> CharacterOf(std::string_view name) {
    if (!name.starts_with('#')) {
        const auto* const found = std::ranges::find(Entities, name, &Entity::Name);
        if (found == std::end(Entities)) return {};
        return found->Character;
    }
    name.remove_prefix(1);
    const bool hexadecimal = name.starts_with('x') || name.starts_with('X');
    if (hexadecimal) name.remove_prefix(1);
    unsigned code = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code, hexadecimal ? 16 : 10);
    const bool isCharacter = code > 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    if (error != std::errc() || end != name.data() + name.size() || !isCharacter) return {};
    return code == 0xA0 ? U' ' : static_cast<char32_t>(code);
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Reads through a page once. A "<" that begins no tag is a sign of the tab, as in <12>.
class PageReader {
public:
    explicit PageReader(std::string_view of) : page(of), lower(Core::LowerAscii(of)) {}

    std::string Read() {
        while (at < page.size()) {
            if (page[at] == '<' && BeginsTag()) {
                SkipTag();
            } else if (page[at] == '&') {
                ReadEntity();
                lineHasText = true;
            } else {
                lineHasText = lineHasText || std::string_view(" \t\r\n").find(page[at]) == None;
                text += page[at++];
                if (text.back() == '\n') lineHasText = false;
            }
        }
        return std::move(text);
    }

private:
    bool BeginsTag() {
        const char next = at + 1 < page.size() ? page[at + 1] : '\0';
        if (!IsLetter(next) && next != '/' && next != '!' && next != '?') return false;
        if (at >= noTagBehind) return false;
        if (page.find('>', at) != None) return true;
        noTagBehind = at;
        return false;
    }
    std::string_view Lower(std::size_t from) const { return std::string_view(lower).substr(from); }

    void SkipTag() {
        if (Lower(at).starts_with("<!--")) {
            const std::size_t end = page.find("-->", at);
            at = end == None ? page.size() : end + 3;
            return;
        }
        for (const std::string_view unseen : {"script", "style"}) {
            if (!Lower(at + 1).starts_with(unseen)) continue;
            const std::size_t end = lower.find("</" + std::string(unseen), at);
            at = std::min(end, page.size());
            break;
        }
        if (at == page.size()) return;
        const std::size_t end = page.find('>', at);
        std::size_t name = at + 1;
        while (name < page.size() && (IsLetter(page[name]) || page[name] == '/')) ++name;
        const std::string_view tag = Lower(at + 1).substr(0, name - at - 1);
        at = end == None ? page.size() : end + 1;
        BreakLine(tag);
    }

    /// Tags that end a line; line ends of the page itself right behind them show nothing. A paragraph of several lines
    /// stands apart from the next one; where each line is a paragraph they belong together.
    void BreakLine(std::string_view tag) {
        const bool line = tag == "br" || tag == "br/";
        const bool paragraph = tag == "p" || tag == "/p";
        const bool block = paragraph || tag == "div" || tag == "/div" || tag == "/pre" || tag == "/tr" ||
                           tag == "/li" || tag == "/title" || tag == "/h";
        if (!line && !block) return;
        if (line || lineHasText) text += '\n';
        if (paragraph && breaks > 0) text += '\n';
        breaks = line ? breaks + 1 : 0;
        lineHasText = false;
        const std::size_t next = page.find_first_not_of(" \t\r\n", at);
        const std::size_t lineEnd = page.substr(at, next - std::min(at, next)).rfind('\n');
        if (lineEnd != None) at += lineEnd + 1;
    }

    void ReadEntity() {
        constexpr std::size_t longest = 10;
        const std::size_t end = page.substr(at, longest).find(';');
        const auto character = end == None ? std::nullopt : CharacterOf(page.substr(at + 1, end - 1));
        if (!character) {
            text += page[at++];
            return;
        }
        Core::AppendUtf8(text, *character);
        at += end + 1;
    }

    std::string_view page;
    std::string lower;
    std::string text;
    std::size_t at = 0;
    bool lineHasText = false;
    int breaks = 0;                  ///< within this paragraph
    std::size_t noTagBehind = None;  ///< from here on no ">" ends anything
};

}  // namespace

std::string TextOfPage(std::string_view utf8) {
    const std::string lower = Core::LowerAscii(utf8);
    const bool isPage =
        std::ranges::any_of(std::initializer_list<std::string_view>{"<html", "<pre", "<body", "<!doctype"},
                            [&](std::string_view tag) { return lower.find(tag) != None; });
    return isPage ? PageReader(utf8).Read() : std::string(utf8);
}

}  // namespace Quillon::Exchange
