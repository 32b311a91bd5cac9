#include "shell/CommandPalette.h"

#include <algorithm>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"

namespace Quillon::Shell {

namespace {

/// Without the "&" of keyboard letters.
std::string MenuText(std::string_view path) {
    std::string text;
    while (!path.empty()) {
        const auto slash = std::min(path.find('/'), path.size());
        text += (text.empty() ? "" : ", ") + WithoutMark(Core::LanguageText(path.substr(0, slash)));
        path.remove_prefix(std::min(slash + 1, path.size()));
    }
    return text;
}

std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    std::string word;
    for (const char letter : Core::LowerAscii(text) + " ") {
        if (letter != ' ') {
            word += letter;
        } else if (!word.empty()) {
            words.push_back(std::exchange(word, {}));
        }
    }
    return words;
}

enum Rank : int { None = 0, InMenu = 1, InWord = 3, AtWord = 9, AtStart = 10 };

/// `menu` goes with what the command's dialog is about.
Rank RankOf(const std::string& word, const std::string& caption, const std::string& menu) {
    if (caption.starts_with(word)) return AtStart;
    for (auto at = caption.find(word); at != std::string::npos; at = caption.find(word, at + 1)) {
        if (at > 0 && caption[at - 1] == ' ') return AtWord;
    }
    if (caption.find(word) != std::string::npos) return InWord;
    return menu.find(word) != std::string::npos ? InMenu : None;
}

/// 0 when a word is nowhere.
int RankOf(const std::vector<std::string>& words, const PaletteEntry& entry) {
    const std::string caption = Core::LowerAscii(entry.Caption);
    const std::string_view about = entry.Which->About;
    const std::string menu =
        Core::LowerAscii(about.empty() ? entry.Menu : entry.Menu + " " + Core::LanguageText(about));
    // What was typed as it stands comes before what has more words.
    int sum = WordsOf(caption) == words ? 2 : 1;
    for (const std::string& word : words) {
        const Rank rank = RankOf(word, caption, menu);
        if (rank == None) return 0;
        sum += rank;
    }
    return sum;
}

}  // namespace

std::vector<PaletteEntry> FindCommands(std::string_view typed) {
    const std::vector<std::string> words = WordsOf(typed);
    std::vector<std::pair<int, PaletteEntry>> found;
    for (const Command& command : Commands()) {
        if (!command.Run) continue;  // a submenu
        const std::string_view all = command.Shortcut.empty() ? command.ScoreKey : command.Shortcut;
        const std::string_view keys = all.substr(0, all.find(' '));
        PaletteEntry entry{&command, SpokenCaption(command), MenuText(command.Menu), std::string(keys),
                           IsEnabled(command)};
        if (const int rank = RankOf(words, entry); rank > 0) found.emplace_back(rank, std::move(entry));
    }
    // Of what is found equally well, first what can be done now: Enter runs it.
    std::ranges::stable_sort(found, std::greater{}, [](const std::pair<int, PaletteEntry>& each) {
        return std::pair(each.first, each.second.Enabled);
    });
    std::vector<PaletteEntry> entries;
    for (auto& [rank, entry] : found) entries.push_back(std::move(entry));
    return entries;
}

}  // namespace Quillon::Shell
