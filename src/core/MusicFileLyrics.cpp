// Lyrics on their way into the music file and out of it: a line's syllables in one string.
#include <array>

#include "core/mod_MusicFile.h"

namespace Quillon::Core {

namespace {

constexpr std::string_view SyllableSeparator = "££$";
/// Keeps the place of an empty syllable.
constexpr std::string_view NoSyllable = "`";

/// The next part of a text that is used up from the front; "" when nothing is left.
std::string_view NextPart(std::string_view& rest, std::string_view separator) {
    const std::size_t at = rest.find(separator);
    const std::string_view part = rest.substr(0, at);
    rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + separator.size());
    return part;
}

void Spread(Track& track, std::string_view separator, std::string_view placeholder) {
    std::array<std::string_view, LyricLines> rest;
    for (std::size_t line = 0; line < rest.size(); ++line) rest[line] = track.Lyrics[line];
    const auto leftOver = [&rest] {
        for (std::string_view text : rest) {
            if (!text.empty()) return true;
        }
        return false;
    };
    // Short lyrics of a long track end the walk early, and a bar without a syllable stays shared with its equals.
    for (int b = 0; b < track.Bars.Count() && leftOver(); ++b) {
        const int strums = track.Bars[b].Strums().Count();
        for (int s = 0; s < strums && leftOver(); ++s) {
            for (std::size_t line = 0; line < rest.size(); ++line) {
                const std::string_view part = NextPart(rest[line], separator);
                if (part.empty() || part == placeholder) continue;
                track.Bars.Edit(b).EditStrums()[s].Syllables.Edit()[line] = part;
            }
        }
    }
    for (std::string& line : track.Lyrics) line.clear();
}

}  // namespace

Row<std::string, LyricLines> PackLyrics(const Track& track) {
    Row<std::string, LyricLines> packed;
    Row<bool, LyricLines> used;
    for (const Bar& bar : track.Bars) {
        for (const Strum& strum : bar.Strums()) {
            for (int line = 0; line < LyricLines; ++line) {
                if (!strum.Syllables.Read()[line].empty()) used[line] = true;
            }
        }
    }
    for (int line = 0; line < LyricLines; ++line) {
        if (!used[line]) continue;
        std::string& text = packed[line];
        bool first = true;
        for (const Bar& bar : track.Bars) {
            for (const Strum& strum : bar.Strums()) {
                if (!first) text += SyllableSeparator;
                first = false;
                const std::string& syllable = strum.Syllables.Read()[line];
                text += syllable.empty() ? NoSyllable : std::string_view(syllable);
            }
        }
    }
    return packed;
}

void UnpackLyrics(Track& track) { Spread(track, SyllableSeparator, NoSyllable); }

void UnpackLyrics40(Track& track) {
    for (std::string& line : track.Lyrics) {
        if (!line.empty()) line += ' ';
    }
    Spread(track, " ", "");
}

}  // namespace Quillon::Core
