// The keys that the program knows, as its list of shortcuts tells them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon::Shell {

/// A key of the score with the caption that the list gives it.
struct ScoreKey {
    enum class On : std::uint8_t { AllTracks, NormalTracks, DrumTracks };

    std::string_view Text;          ///< text key of the caption
    std::string_view Command = {};  ///< the command that has the key; without one the list leaves the row out
    std::string_view Keys = {};     ///< of a row without a command
    On Tracks = On::AllTracks;
};
std::span<const ScoreKey> ScoreKeys();
/// "Shift+R": the key of its command, or its own; "" when there is no such command.
std::string_view KeysOf(const ScoreKey& key);

/// The list, in parts. Keys that work on one kind of track alone say so behind their name.
struct ShortcutLine {
    std::string Caption;
    std::vector<std::string> Keys;  ///< as "Ctrl+Shift+S"; further ones do the same
    std::string Mark = {};          ///< " *": on normal tracks only
};
struct ShortcutGroup {
    std::string Title;
    std::vector<ShortcutLine> Lines;
};
std::vector<ShortcutGroup> ShortcutGroups();
/// True when all words typed stand in the caption, the group's title or the keys, whatever the case of ASCII letters.
bool Matches(const ShortcutGroup& group, const ShortcutLine& line, std::string_view typed);

}  // namespace Quillon::Shell
