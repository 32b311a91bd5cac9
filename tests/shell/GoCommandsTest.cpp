// Going through the song, go-to points, and the percussion assistant.
#include "shell/GoCommands.h"

#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "shell/Commands.h"
#include "shell/PercAssistant.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;

class GoTest : public ShellTest {
protected:
    GoTest() {
        Start("");
        for (int bar = 0; bar < 3; ++bar) Editing::AppendBar(Open.TabFile);
        Core::SetBarStrums(Open.TabFile.Tracks[0].Bars.Edit(1), 3);
        Core::SetBarStrums(Open.TabFile.Tracks[0].Bars.Edit(3), 1);
        for (int strum = 0; strum < 4; ++strum) Core::EditStrum(0, 1, strum).Length = 2;
        Open.FileChanged = false;
    }
    static std::string Place() { return std::to_string(Open.CurBar) + "." + std::to_string(Open.CurStrum); }
    static void Put(int bar, int strum) {
        Open.CurBar = static_cast<std::int16_t>(bar);
        Open.CurStrum = static_cast<std::int16_t>(strum);
    }
    void Name(int bar, int strum, const char* name) {
        Put(bar, strum);
        Window().On<GotoModel>([name](GotoModel& model) {
            model.Name = name;
            return model.Validate().empty();
        });
        RunCommand(*FindCommand("mnuGoSetPoint"));
    }
};

TEST_F(GoTest, CommandsMoveTheCursorWithinTheSong) {
    struct Case {
        const char* Command;
        int Bar, Strum;
        const char* To;  ///< "" when it can't run
    };
    for (const auto& [command, bar, strum, to] : {Case{"mnuGoFirstBar", 2, 0, "0.0"},
                                                  {"mnuGoFirstBar", 0, 0, ""},
                                                  {"mnuGoLastBar", 0, 0, "3.1"},
                                                  {"mnuGoLastBar", 3, 1, ""},
                                                  {"mnuGoNextBar", 1, 2, "2.0"},
                                                  {"mnuGoNextBar", 3, 0, ""},
                                                  {"mnuGoPreviousBar", 1, 2, "1.0"},
                                                  {"mnuGoPreviousBar", 1, 0, "0.0"},
                                                  {"mnuGoPreviousBar", 0, 0, ""},
                                                  {"mnuGoBeginning", 1, 2, "1.0"},
                                                  {"mnuGoEnd", 1, 2, "1.3"},
                                                  {"mnuGoEnd", 1, 3, ""},
                                                  {"mnuGoPreviousBeat", 2, 0, "1.3"},
                                                  {"mnuGoNextBeat", 1, 3, "2.0"}}) {
        Put(bar, strum);
        EXPECT_EQ(RunCommand(*FindCommand(command)) ? Place() : "", to) << command << " from " << bar;
    }
    EXPECT_FALSE(Open.FileChanged);
    Window().On<GotoBarModel>([](GotoBarModel& model) {
        EXPECT_EQ(model.LastBar, 4);
        model.Bar = 9;
        EXPECT_EQ(model.Validate(), "str_NoSuchBar");
        model.Bar = 4;
        return true;
    });
    RunCommand(*FindCommand("mnuGoGotoBar"));
    EXPECT_EQ(Place(), "3.0");
    EXPECT_EQ(Window().Calls.back(), "scroll 3");
}

TEST_F(GoTest, PointsAreNamedListedWalkedAndRemoved) {
    Name(2, 0, " Chorus ");
    Name(1, 2, "Verse");
    Name(0, 0, "a<b");
    Editing::AddTrack(Open.TabFile, {});
    Open.TabFile.Tracks[1].Bars.Edit(1).EditStrums()[0].GotoText = "Solo";
    UpdateGotoPoints();
    std::string menu;
    for (const GotoPoint& point : Go.Points) menu += GotoCaption(point) + "; ";
    EXPECT_EQ(menu, "Verse (bar 2); Solo (bar 2, Track 1); Chorus (bar 3); ");
    EXPECT_EQ(Window().Calls.back(), "points");
    mnuGoGotoPoint_Click(1);
    EXPECT_EQ(std::to_string(Open.CurTrack) + Place(), "11.0");
    mnuGoGotoPoint_Click(9);
    ShowTrack(0);
    Put(0, 0);
    std::string walk;
    for (int step = 0; step < 3; ++step) {
        mnuGoNextPoint_Click();
        walk += Place() + " ";
    }
    EXPECT_EQ(Window().Status.back(), Core::LanguageText("str_GoNoFurtherPoint"));
    mnuGoPreviousPoint_Click();
    EXPECT_EQ(walk + Place(), "1.2 2.0 2.0 1.2");
    EXPECT_TRUE(IsChecked(*FindCommand("mnuGoSetPoint")));
    Name(1, 2, "");
    EXPECT_EQ(Go.Points.size(), 2U);
}

TEST_F(GoTest, TheAssistantFollowsEveryKeyButUpAndDown) {
    Core::Track drums;
    drums.IsDrum = true;
    drums.PercStrings = Editing::DefaultDrumSounds();
    drums.PercStrings[0].dlx = 12;
    Editing::AddTrack(Open.TabFile, drums);
    EXPECT_FALSE(IsEnabled(*FindCommand("mnuToolsPercAssistant")));
    Core::Settings.ShowPercussionAssistant = true;
    EXPECT_FALSE(PercAssistantShows());
    ShowTrack(1);
    EXPECT_TRUE(PercAssistantShows()) << "the setting opens it";
    const auto row = [](std::size_t index) {
        const PercLetter letter = PercLetters().at(index);
        return letter.Letter + "=" + letter.Sound + (letter.IsNote ? "*" : "");
    };
    ASSERT_EQ(PercLetters().size(), 12U);
    EXPECT_EQ(row(10), "x=Open High-Hat");
    Editing::picDocument_KeyDown('X', 0);
    EXPECT_EQ(row(10), "x=Open High-Hat*");
    EXPECT_EQ(Window().Calls.back(), "letters");
    const std::size_t calls = Window().Calls.size();
    Editing::picDocument_KeyDown(Editing::KeyDown, 0);
    EXPECT_EQ(PercAssistant.String, 0) << "up and down leave it as it is";
    EXPECT_EQ(Window().Calls.size(), calls);
    Editing::picDocument_KeyDown('O', 0);
    EXPECT_EQ(PercAssistant.String, 1);
    PercLetter_Click(0);
    EXPECT_EQ(Core::ReadStrum(1, 0, 0).Notes[1].Fret, "F");
    EXPECT_TRUE(PercLetters()[0].IsNote);
    PercAssistantClosed();
    EXPECT_FALSE(PercAssistantShows()) << "closed, it stays so on this track";
    bool onDrums = false;
    Window().On<TrackPropertiesModel>([&](TrackPropertiesModel& model) {
        onDrums = model.DrumsFirst;
        return false;
    });
    cmdPercAssignment_Click();
    EXPECT_TRUE(onDrums);
}

}  // namespace
}  // namespace Quillon::Shell
