#include "shell/ScoreKeys.h"

#include <algorithm>
#include <sstream>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "shell/Commands.h"

namespace Quillon::Shell {

using Core::LanguageText;

namespace {

constexpr auto Normal = ScoreKey::On::NormalTracks;
constexpr auto Drums = ScoreKey::On::DrumTracks;

constexpr ScoreKey Notes[] = {
    {.Text = "str_KeyFret", .Keys = "0-9", .Tracks = Normal},
    {.Text = "str_KeyDeadNote", .Keys = "X", .Tracks = Normal},
    {.Text = "str_KeyDrumLetter", .Keys = "O X R F S C T", .Tracks = Drums},
    {.Text = "str_KeyNotationNote", .Keys = "Enter"},
    {.Text = "str_KeyClearNote", .Command = "mnuNoteClear"},
    {.Text = "str_KeyPlay", .Command = "mnuSoundPlayFromStart"},
    {.Text = "str_KeyPlayHere", .Command = "mnuSoundPlayFromHere"},
    {.Text = "str_KeyUp", .Keys = "Up"},
    {.Text = "str_KeyDown", .Keys = "Down"},
    {.Text = "str_KeyLeft", .Command = "mnuGoPreviousBeat"},
    {.Text = "str_KeyRight", .Command = "mnuGoNextBeat"},
    {.Text = "str_KeyDeleteBeat", .Command = "mnuNoteDeleteBeat"},
    {.Text = "str_KeyInsertBeat", .Command = "mnuNoteInsertBeat"},
    {.Text = "str_KeyLength", .Keys = "+ / -"},
    {.Text = "str_KeyDotted", .Command = "mnuChordDotted"},
    {.Text = "str_KeyTriplet", .Command = "mnuChordXTuplets3"},
    {.Text = "str_Key5let", .Command = "mnuChordXTuplets5"},
    {.Text = "str_Key6let", .Command = "mnuChordXTuplets6"},
    {.Text = "str_Key7let", .Command = "mnuChordXTuplets7"},
    {.Text = "str_Key9let", .Command = "mnuChordXTuplets9"},
    {.Text = "str_KeyBend", .Command = "mnuNoteEffectsBend", .Tracks = Normal},
    {.Text = "str_KeyHammerOn", .Command = "mnuNoteTechniquesHammerOn", .Tracks = Normal},
    {.Text = "str_KeySlide", .Command = "mnuNoteTechniquesLegatoSlide", .Tracks = Normal},
    {.Text = "str_KeyGhost", .Command = "mnuNoteEffectsGhostNote", .Tracks = Normal},
    {.Text = "str_KeyTie", .Command = "mnuNoteLinkNote", .Tracks = Normal},
    {.Text = "str_KeyLetRing", .Command = "mnuNoteEffectsLetRing", .Tracks = Normal},
    {.Text = "str_KeyTap", .Command = "mnuChordTechniquesTapping", .Tracks = Normal},
    {.Text = "str_KeyVibrato", .Command = "mnuChordTechniquesVibrato", .Tracks = Normal},
    {.Text = "str_KeyUpstroke", .Command = "mnuChordUpStroke", .Tracks = Normal},
    {.Text = "str_KeyDownstroke", .Command = "mnuChordDownStroke", .Tracks = Normal},
    {.Text = "str_KeyAddChord", .Command = "mnuChordChord", .Tracks = Normal},
    {.Text = "str_KeyAddText", .Command = "mnuChordText"},
    {.Text = "str_KeyAddToNote", .Command = "mnuNoteUp", .Tracks = Normal},
    {.Text = "str_KeyTakeFromNote", .Command = "mnuNoteDown", .Tracks = Normal},
    {.Text = "str_KeyShiftUp", .Command = "mnuNoteShiftUp", .Tracks = Normal},
    {.Text = "str_KeyShiftDown", .Command = "mnuNoteShiftDown", .Tracks = Normal},
    {.Text = "str_KeyRepeatChord", .Command = "mnuChordRepeat", .Tracks = Normal},
    {.Text = "str_KeyMoveRight", .Command = "mnuChordMoveRight", .Tracks = Normal},
    {.Text = "str_KeyMoveLeft", .Command = "mnuChordMoveLeft", .Tracks = Normal},
    {.Text = "str_KeyShiftRight", .Command = "mnuChordShiftRight", .Tracks = Normal},
};

/// What is neither a note's key nor a command's.
constexpr ScoreKey Mouse[] = {
    {.Text = "str_KeyPageUp", .Keys = "PgUp"},
    {.Text = "str_KeyPageDown", .Keys = "PgDown"},
    {.Text = "str_KeyEscape", .Keys = "Esc"},
    {.Text = "str_KeyShiftClick", .Keys = "str_KeyShiftClickKeys"},
    {.Text = "str_KeyWheelZoom", .Keys = "str_KeyWheelZoomKeys"},
};

std::vector<std::string> SplitKeys(std::string_view keys) {
    std::istringstream words{std::string(keys)};
    std::vector<std::string> list;
    for (std::string key; words >> key;) list.push_back(key);
    return list;
}

std::string MarkOf(ScoreKey::On tracks) {
    if (tracks == Normal) return " *";
    return tracks == Drums ? " (" + LanguageText("str_KeyDrumOnly") + ")" : "";
}

ShortcutGroup GroupOf(const char* title, std::span<const ScoreKey> keys) {
    ShortcutGroup group{LanguageText(title), {}};
    for (const ScoreKey& key : keys) {
        const std::string_view own = KeysOf(key);
        if (own.empty()) continue;
        // "+ / -" and the letters of drums are one text.
        std::vector<std::string> list = key.Command.empty() ? std::vector{std::string(own)} : SplitKeys(own);
        if (own.starts_with("str_")) list = {LanguageText(own)};
        group.Lines.push_back({WithoutMark(LanguageText(key.Text)), std::move(list), MarkOf(key.Tracks)});
    }
    return group;
}

}  // namespace

std::span<const ScoreKey> ScoreKeys() { return Notes; }

std::string_view KeysOf(const ScoreKey& key) {
    if (key.Command.empty()) return key.Keys;
    const Command* const command = FindCommand(key.Command);
    if (!command) return {};
    return command->ScoreKey.empty() ? command->Shortcut : command->ScoreKey;
}

std::vector<ShortcutGroup> ShortcutGroups() {
    std::vector<ShortcutGroup> groups = {GroupOf("str_KeyNotes", Notes), GroupOf("str_KeyMouse", Mouse)};
    std::string_view menu;
    for (const Command& command : Commands()) {
        if (command.Shortcut.empty()) continue;
        const std::string_view top = command.Menu.substr(0, command.Menu.find('/'));
        if (top != menu) groups.push_back({WithoutMark(LanguageText(top)), {}});
        menu = top;
        groups.back().Lines.push_back({SpokenCaption(command), SplitKeys(command.Shortcut)});
    }
    return groups;
}

bool Matches(const ShortcutGroup& group, const ShortcutLine& line, std::string_view typed) {
    std::string text = group.Title + " " + line.Caption;
    for (const std::string& key : line.Keys) text += " " + key;
    text = Core::LowerAscii(text);
    return std::ranges::all_of(SplitKeys(Core::LowerAscii(typed)),
                               [&](const std::string& word) { return text.find(word) != std::string::npos; });
}

}  // namespace Quillon::Shell
