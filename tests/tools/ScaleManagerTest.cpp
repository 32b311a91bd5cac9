// The scale manager and the scale finder, without their windows.
#include "shell/Commands.h"
#include "shell/ToolWindows.h"
#include "tests/tools/ToolFixture.h"
#include "tools/ScaleEditModel.h"

namespace Quillon::Tools {
namespace {

using Library::Scales;
using Names = std::vector<std::string>;

class ScaleManagerTest : public ToolTest {
protected:
    ScaleManagerTest() { frmScaleManager_Load(); }
};

TEST_F(ScaleManagerTest, SearchesListWhatPassesAndCountWhatIsNoScale) {
    EXPECT_EQ(ScaleManager.lstScales.size(), 38U);
    EXPECT_EQ(ScaleCountText(), "38 scales");
    ScaleSearch::mnuSearchKeywords_Click();
    SetSearch("blues");
    EXPECT_EQ(ScaleManager.lstScales, (Names{"Basic Pentatonic", "Blues Scale"}));
    EXPECT_EQ(ScaleManager.Chosen, "Basic Pentatonic") << "what is shown is in the list";
    ScaleSearch::mnuSearchName_Click();
    SetSearch("MINOR");
    EXPECT_EQ(ScaleManager.lstScales.size(), 5U);
    ScaleSearch::mnuSearchStrings_Click();
    SetSearchStrings(7);
    EXPECT_TRUE(ScaleManager.lstScales.empty());
    ScaleSearch::mnuSearchClear_Click();
    EXPECT_EQ(ScaleManager.lstScales.size(), 38U);

    // Another program writes into the folder.
    run->Files.Replace(Scales.FileOf("Broken"), "no scale");
    run->Files.Replace(
        Scales.FileOf("Mine"), "6\r\n" + std::string("1\r\n") + [] {
            std::string zeros;
            for (int i = 1; i < 49; ++i) zeros += "0\r\n";
            return zeros;
        }());
    LookAtScaleFolder();
    EXPECT_EQ(ScaleCountText(), "39 scales. 1 file is no part of the library and was passed by.");
    ScaleSearch::mnuSearchName_Click();
    SetSearch("m");
    EXPECT_EQ(ScaleCountText().substr(0, 15), "19 of 39 scales");

    // The folder goes: it comes back with the defaults.
    for (const std::string& name : Scales.Names()) run->Files.Delete(Scales.FileOf(name));
    std::filesystem::remove(Scales.Folder());
    LookAtScaleFolder();
    ScaleSearch::mnuSearchClear_Click();
    EXPECT_EQ(ScaleCountText(), "38 scales");
}

TEST_F(ScaleManagerTest, AScaleIsPlayedInItsOctavesBothWays) {
    ChooseScale("Major");
    SetScaleKey(7);
    EXPECT_EQ(ShownScaleCaption(), "Major - G");
    EXPECT_EQ(ScaleTonesText(), "G  A  B  C  D  E  F#   \u2013   1  2  3  4  5  6  7");
    std::vector<int> shown;
    ScaleManager.Changed = [&shown] { shown.push_back(ScaleManager.View.Sounding); };
    PlayScale();
    const std::vector<int> low = {43, 45, 47, 48, 50, 52, 54, 55};
    EXPECT_EQ(RunOut(), low);
    EXPECT_EQ(shown.front(), 43);
    EXPECT_EQ(shown.back(), -1);
    mnuDescending_Click();
    mnuHigh_Click();
    PlayScale();
    const std::vector<int> down = {67, 66, 64, 62, 60, 59, 57, 55};
    EXPECT_EQ(RunOut(), down);
    mnuBothOctaves_Click();
    PlayScale();
    EXPECT_TRUE(Shell::IsEnabled(*Shell::FindCommand("mnuSoundStop")));
    Shell::RunCommand(*Shell::FindCommand("mnuSoundStop"));
    EXPECT_EQ(ScaleManager.View.Sounding, -1);
    EXPECT_EQ(RunOut(), std::vector<int>{67});
    SoundNeckPlace({1, 3});
    EXPECT_EQ(RunOut(), std::vector<int>{62});

    // All of it is there the next time.
    mnuLefty_Click();
    SetScaleReverb(true);
    frmScaleManager_Unload();
    EXPECT_EQ(Services.Settings->Get("Scales", "Lefthanded"), "1");
    ScaleManager = {};
    frmScaleManager_Load();
    EXPECT_EQ(ShownScaleCaption(), "Major - G");
    EXPECT_TRUE(ScaleManager.View.LeftHanded && ScaleManager.Descending && Core::Settings.ScaleReverb);
    EXPECT_EQ(ScaleManager.Octave, Library::ScaleOctave::Both);
}

TEST_F(ScaleManagerTest, ScalesAreMadeChangedDeletedAndRestored) {
    std::vector<std::string> complaints;
    Window().On<ScaleEditModel>([&](ScaleEditModel& model) {
        complaints.emplace_back(model.Validate());
        model.Name = " My/Own ";
        complaints.emplace_back(model.Validate());
        model.Keywords = "own, odd";
        for (const auto& [string, position] : {std::pair(5, 0), {5, 3}, {4, 2}, {4, 9}, {7, 0}}) {
            model.Toggle(string, position);
        }
        model.OpenNotes[5] = "D2";
        return model.Validate().empty();
    });
    mnuNewScale_Click();
    EXPECT_EQ(complaints, (Names{"str_ScaleNameMissing", "str_ScaleEmpty"}));
    EXPECT_EQ(ScaleManager.Chosen, "MyOwn");
    ScaleEditModel odd;
    odd.LoadFrom("MyOwn", *ChosenScale());
    odd.Keywords = "日本";
    EXPECT_EQ(odd.Validate(), "str_ScaleKeywordsLost") << "the file would hold question marks";
    SetScaleKey(2);
    EXPECT_EQ(ScaleTonesText(), "D  F  B   \u2013   1  b3  6");

    int shown = 0;
    Window().On<ScaleEditModel>([&shown](ScaleEditModel& model) {
        model.Name = "Dorian";
        model.SetStrings(4);
        return ++shown != 2;  // given up after the No
    });
    Box().Answers = {Answer::No, Answer::Yes, Answer::Yes, Answer::Yes};
    mnuEditScale_Click();
    EXPECT_TRUE(Scales.Find("MyOwn")) << "another scale is not written over without leave";
    EXPECT_EQ(Scales.Find("Dorian")->NumStrings, 6);
    mnuEditScale_Click();
    EXPECT_FALSE(Scales.Find("MyOwn")) << "renamed";
    EXPECT_EQ(Scales.Find("Dorian")->NumStrings, 4);

    mnuDeleteScale_Click();
    EXPECT_EQ(ScaleManager.lstScales.size(), 37U);
    EXPECT_EQ(ScaleManager.Chosen, "East Indian Purvi") << "the one below it";
    mnuRestoreScales_Click();
    EXPECT_EQ(Scales.Find("Dorian")->NumStrings, 6);
}

TEST_F(ScaleManagerTest, NotesOfBarsAndClicksFindTheirScale) {
    frmScaleFinder_Load();
    EXPECT_FALSE(TakeBars()) << "an empty bar";
    Core::SetBarStrums(0, 0, 6);
    // A D major run on the two middle strings.
    const std::pair<int, const char*> scale[] = {{3, "0"}, {3, "2"}, {3, "4"}, {2, "0"}, {2, "2"}, {2, "4"}, {1, "2"}};
    int strum = 0;
    for (const auto& [string, fret] : scale) Core::EditStrum(0, 0, strum++).Notes.Edit(string).Fret = fret;
    Core::EditStrum(0, 0, 0).Notes.Edit(5).Fret = "x";
    Core::EditStrum(0, 0, 6).Notes.Edit(4).Fret = "5";
    ASSERT_TRUE(TakeBars());
    ASSERT_FALSE(ScaleFinder.Found.empty());
    const FoundRow best = RowOf(ScaleFinder.Found.front());
    EXPECT_EQ(best.Name + " " + best.Key + "|" + best.Lacks + "|" + best.Besides, "Major D||");
    EXPECT_EQ(FinderStatus().substr(0, 15), "Bar 1: 8 scales") << FinderStatus();
    OpenFound(0);
    EXPECT_TRUE(Shell::IsToolShown(Shell::ToolWindow::Scales));
    EXPECT_EQ(ShownScaleCaption(), "Major - D");

    ClearNotes();
    for (const int note : {9, 0, 4}) ToggleNote(note);
    ToggleNeckPlace({0, 0});
    EXPECT_EQ(ScaleFinder.Notes.count(), 2U) << "an E on any string is the E";
    EXPECT_EQ(ScaleFinder.Tonic, 9);
    Core::Open.TabFile.Tracks[0].IsDrum = true;
    EXPECT_FALSE(TakeBars());
}

}  // namespace
}  // namespace Quillon::Tools
