#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Lyrics.h"

namespace Quillon::Editing {

namespace {

constexpr std::string_view Marks = "-_~\\";

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// A syllable as the text writes it. A "-" at its end is the one that divides.
std::string Written(std::string_view syllable) {
    std::string text;
    for (std::size_t i = 0; i < syllable.size(); ++i) {
        const char c = syllable[i];
        const bool divides = c == '-' && i + 1 == syllable.size();
        if (c == ' ') {
            text += '~';
            continue;
        }
        if ((Marks.find(c) != std::string_view::npos && !divides) || IsBlank(c)) text += '\\';
        text += c;
    }
    return text;
}

}  // namespace

std::vector<std::string> DivideLyrics(std::string_view text) {
    std::vector<std::string> syllables;
    std::string now;
    const auto end = [&] {
        if (!now.empty()) syllables.push_back(now);
        now.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\\' && i + 1 < text.size()) {
            now += text[++i];
        } else if (IsBlank(c)) {
            end();
        } else if (c == '_') {
            end();
            syllables.emplace_back();
        } else {
            now += c == '~' ? ' ' : c;
            if (c == '-') end();
        }
    }
    end();
    return syllables;
}

std::string JoinLyrics(const std::vector<std::string>& syllables) {
    std::size_t last = syllables.size();
    while (last > 0 && syllables[last - 1].empty()) --last;
    std::string text;
    bool goesOn = false;
    for (std::size_t i = 0; i < last; ++i) {
        const std::string& syllable = syllables[i];
        if (syllable.empty()) {
            text += '_';
            continue;
        }
        // A word begins behind a blank, but not where the one before goes on with its next syllable, held or not.
        if (!text.empty() && !goesOn) text += ' ';
        text += Written(syllable);
        goesOn = syllable.size() > 1 && syllable.ends_with('-');
    }
    return text;
}

std::vector<LyricPlace> LyricPlaces(const Core::Track& track) {
    std::vector<LyricPlace> places, all;
    bool anyNotes = false;
    for (int b = 0; b < track.Bars.Count(); ++b) {
        const auto& strums = track.Bars[b].Strums();
        for (int s = 0; s < strums.Count(); ++s) {
            const bool notes = Core::HasNotes(strums[s]);
            anyNotes = anyNotes || notes;
            all.push_back({b, s});
            if (notes || !strums[s].Syllables.IsDefault()) places.push_back({b, s});
        }
    }
    return anyNotes ? places : all;
}

}  // namespace Quillon::Editing
