#include "shell/Commands.h"

#include <algorithm>
#include <set>
#include <sstream>

#include "core/mod_Common.h"
#include "shell/CommandPalette.h"
#include "shell/Toolbars.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;

class CommandTable : public ShellTest {
protected:
    CommandTable() { Start(""); }
    bool Do(const char* name) {
        const Command* command = FindCommand(name);
        EXPECT_TRUE(command) << name;
        return command && RunCommand(*command);
    }
};

TEST_F(CommandTable, NamesShortcutsAndKeyboardLettersAreUniqueInBothLanguages) {
    for (const char* language : {"English", "German"}) {
        Core::LoadLanguage(run->Files, folder / "base", language);
        std::set<std::string> names, shortcuts, letters;
        for (const Command& command : Commands()) {
            EXPECT_TRUE(names.insert(std::string(command.Name)).second) << command.Name;
            std::istringstream keys{std::string(command.Shortcut)};
            for (std::string key; keys >> key;) EXPECT_TRUE(shortcuts.insert(key).second) << key;
            const std::string& text = Core::LanguageText(command.Text);
            const std::size_t mark = text.find('&');
            // FFF to PPP have three letters between them: the arrows walk them.
            if (command.Name.starts_with("mnuNoteDynamics")) continue;
            ASSERT_NE(mark, std::string::npos) << text << " can't be reached by keyboard";
            const std::string letter = std::string(command.Menu) + Core::LowerAscii(text.substr(mark + 1, 1));
            EXPECT_TRUE(letters.insert(letter).second) << language << ": " << text << " and another in its menu";
            EXPECT_TRUE(command.Run || command.Is != Command::Kind::Plain) << command.Name << " is dead";
            EXPECT_TRUE(command.Toolbar.empty() || Core::ToolbarIndex(std::string(command.Toolbar) + " Toolbar") >= 0)
                << command.Toolbar;
        }
    }
    EXPECT_FALSE(FindCommand("mnuNone"));
}

TEST_F(CommandTable, CaptionsAreWhatAScreenReaderSays) {
    EXPECT_EQ(PlainCaption(*FindCommand("mnuFileSaveAs")), "Save as");
    EXPECT_EQ(Tooltip(*FindCommand("mnuFileOpen")), "Open (Ctrl+O)");
    EXPECT_EQ(Tooltip(*FindCommand("mnuViewZoomIn")), "Zoom in (Ctrl++)");
    EXPECT_EQ(Tooltip(*FindCommand("mnuHelpAbout")), "About Quillon");
    EXPECT_EQ(Tooltip(*FindCommand("mnuNoteDynamicsFF")), "Dynamics: FF");
    EXPECT_EQ(Tooltip(*FindCommand("mnuChordXTuplets3")), "Tuplets: 3 (Triplet) (Shift+3)");
}

TEST_F(CommandTable, ZoomWalksItsStepsAndStopsAtTheEnds) {
    std::string zooms;
    while (Do("mnuViewZoomIn")) zooms += std::to_string(Program.ZoomPercent) + " ";
    EXPECT_EQ(zooms, "110 125 150 175 200 250 300 400 ");
    zooms.clear();
    while (Do("mnuViewZoomOut")) zooms += std::to_string(Program.ZoomPercent) + " ";
    EXPECT_EQ(zooms, "300 250 200 175 150 125 110 100 90 80 75 67 50 ");
    SetZoom(105);
    ZoomBy(1);
    EXPECT_EQ(Program.ZoomPercent, 110);
    SetZoom(105);
    ZoomBy(-2);
    EXPECT_EQ(Program.ZoomPercent, 90);
    SetZoom(100000);
    EXPECT_EQ(Program.ZoomPercent, 400);
    Do("mnuViewZoom100");
    EXPECT_EQ(Program.ZoomPercent, 100);
}

TEST_F(CommandTable, TracksAreWalkedWithTheCursorOnWhatExists) {
    Core::Track shorter;
    shorter.Strings = 4;
    Open.TabFile.Tracks.Add(shorter);
    Open.CurString = 5;
    EXPECT_FALSE(Do("mnuTrackPrevious"));
    Drawing::Page.LayoutDirty = 0;
    EXPECT_TRUE(Do("mnuTrackNext"));
    EXPECT_EQ(Open.CurTrack, 1);
    EXPECT_LT(Open.CurString, 4);
    EXPECT_EQ(Drawing::Page.LayoutDirty, 1);
    EXPECT_FALSE(Do("mnuTrackNext"));
    ShowTrack(-1);
    ShowTrack(2);
    EXPECT_EQ(Open.CurTrack, 1);
    EXPECT_FALSE(Open.FileChanged);
}

TEST_F(CommandTable, ToolbarsAreKeptInTheSettings) {
    const Command& command = *FindCommand("mnuViewToolbarTrack");
    EXPECT_TRUE(IsChecked(command));
    Do("mnuViewToolbarTrack");
    EXPECT_FALSE(IsChecked(command));
    EXPECT_FALSE(Core::Settings.ToolbarVisible[7]);
    SetToolbarDocked("File", false);
    EXPECT_FALSE(Core::Settings.ToolbarDocked[0]);
    EXPECT_TRUE(IsToolbarDocked("Track"));
    Program.ToolbarsMoved = true;
    Do("mnuViewToolbarsDefault");
    EXPECT_TRUE(IsToolbarVisible("Track") && IsToolbarDocked("File") && !Program.ToolbarsMoved);
    EXPECT_EQ(Window().Calls.back(), "toolbars");
    std::set<int> known;
    for (const Toolbar& each : Toolbars()) known.insert(Core::ToolbarIndex(std::string(each.Name) + " Toolbar"));
    EXPECT_EQ(known.size(), std::size_t{Core::ToolbarCount});
    EXPECT_FALSE(known.contains(-1));
}

TEST_F(CommandTable, ToolbarsFillTheirRows) {
    const auto rows = [](std::vector<int> widths, int room) {
        std::string text;
        for (const bool begins : BeginRows(widths, room)) text += begins ? '|' : '-';
        return text;
    };
    EXPECT_EQ(rows({40, 60, 1, 99}, 100), "|-|-");
    EXPECT_EQ(rows({200, 200, 10}, 100), "|||") << "too wide for any row";
    EXPECT_EQ(rows({}, 100), "");
}

TEST_F(CommandTable, QuitClosesTheWindowOnlyWhenNothingHoldsIt) {
    Edit("1");
    Box().Answers = {Answer::Cancel, Answer::No};
    Do("mnuFileExit");
    EXPECT_NE(Window().Calls.back(), "close");
    Do("mnuFileExit");
    EXPECT_EQ(Window().Calls.back(), "close");
}

TEST_F(CommandTable, WhatACommandRaisesBecomesAMessage) {
    const Command raising{.Name = "raising", .Run = [] { RaiseOverflow(); }};
    EXPECT_TRUE(RunCommand(raising));
    EXPECT_EQ(Box().Shown, std::vector<std::string>{"Overflow"});
    EXPECT_FALSE(RunCommand(*FindCommand("mnuFileOpenRecent")));
}

TEST_F(CommandTable, APageThatCantBeLaidOutSaysWhatToDo) {
    EXPECT_NE(LayoutFailureText(RunTimeError(6, "Overflow")).find("Divide that bar"), std::string::npos);
    EXPECT_EQ(LayoutFailureText(RunTimeError(9, "Subscript out of range")), "Subscript out of range");
}

TEST_F(CommandTable, CommandsAreFoundByWhatTheySay) {
    const auto first = [](const char* typed) {
        const auto found = FindCommands(typed);
        return found.empty() ? std::string() : std::string(found.front().Which->Name);
    };
    EXPECT_EQ(first("zoom in"), "mnuViewZoomIn");
    EXPECT_EQ(first("IN zoom"), "mnuViewZoomIn");
    EXPECT_EQ(first("sav"), "mnuFileSave");
    EXPECT_EQ(first("toolb file"), "mnuViewToolbarFile") << "the menu's name helps";
    EXPECT_EQ(first("fix bars"), "mnuOperationsFixBars") << "before Fix all bars";
    EXPECT_EQ(first("tempo"), "mnuFileProperties") << "by what its dialog holds";
    EXPECT_EQ(first("repeat"), "mnuBarRepeatOpen") << "at the first beat there is no chord to repeat";
    EXPECT_EQ(first("rackprop"), "");
    const auto zooms = FindCommands("zoom");
    ASSERT_GE(zooms.size(), 2U);
    EXPECT_EQ(zooms[0].Menu, "View");
    EXPECT_EQ(zooms[0].Keys, "Ctrl++");
    for (const PaletteEntry& entry : FindCommands(" ")) {
        EXPECT_EQ(entry.Enabled, IsEnabled(*entry.Which)) << entry.Caption;
        EXPECT_EQ(entry.Caption.find('&'), std::string::npos) << entry.Caption;
    }
    const auto runnable = std::ranges::count_if(Commands(), [](const Command& each) { return each.Run != nullptr; });
    EXPECT_EQ(static_cast<std::ptrdiff_t>(FindCommands("").size()), runnable);
}

}  // namespace
}  // namespace Quillon::Shell
