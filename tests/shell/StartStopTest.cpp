#include <map>

#include "exchange/JsonDocument.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

namespace fs = std::filesystem;
using Core::Open;
using Testing::Slurp;
using Testing::Spill;

class StartStop : public ShellTest {
protected:
    /// A saved song with this fret in it.
    fs::path SavedSong(const std::string& name, const char* fret) {
        Core::Open.TabFile = Core::MakeNewTabFile(*Services.Settings);
        Edit(fret);
        EXPECT_TRUE(Core::ForceSaveFile(folder / name));
        Open = {};
        return folder / name;
    }
};

TEST_F(StartStop, FirstStartMakesItsFilesAndTheSecondFindsThem) {
    Start("");
    EXPECT_TRUE(Box().Shown.empty()) << Box().Shown.front();
    EXPECT_EQ(Slurp(folder / "base/QL4.ini"), Core::FormatINISettings({}));
    EXPECT_TRUE(fs::exists(folder / "base/Data/Languages/German.txt"));
    EXPECT_EQ(run->Store.Get("DefaultInfo", "GNOTENAME"), "Arial");
    EXPECT_EQ(Window().Caption, "Quillon 4 - [Unsaved.qlm]");
    EXPECT_EQ(Window().Calls, (std::vector<std::string>{"tracks", "points", "draw", "theme", "language", "places",
                                                        "recent", "zoom", "window", "painted"}))
        << "the sound waits for the first frame";
    EXPECT_FALSE(Open.FileChanged);
    SetZoom(150);
    Core::Settings.MaxLineLength = 99;
    Spill(folder / "base/Data/temp", "scratch");
    Spill(folder / "base/Data/temp2", "scratch");
    ASSERT_TRUE(Stop());
    EXPECT_FALSE(fs::exists(folder / "base/Data/temp"));
    EXPECT_FALSE(fs::exists(folder / "base/Data/temp2"));

    Restart();
    Start("");
    EXPECT_EQ(Core::Settings.MaxLineLength, 99);
    EXPECT_EQ(Program.ZoomPercent, 150);
    EXPECT_EQ(run->Store.Get("MainWindowDetails", "Left"), "42") << "the window's place is stored with the rest";
    EXPECT_TRUE(Box().Shown.empty());
}

TEST_F(StartStop, TheStepsStandInTheirOrder) {
    std::string order;
    for (const Step& step : StartSteps("")) order += std::string(step.Name) + "; ";
    EXPECT_EQ(order,
              "Language; Data folder; Language files; Settings; Stored state; New document; First run; Command line; "
              "Show document; Show window; Sound; Recovery; Import; ");
    order.clear();
    for (const Step& step : StopSteps()) order += std::string(step.Name) + "; ";
    EXPECT_EQ(order, "Ask about changes; Sound; Settings; Scratch files; Recovery; ");
}

TEST_F(StartStop, TheCommandLinesFileIsOpenedByItsLastThreeCharacters) {
    const fs::path song = SavedSong("Song.QlM", "7");
    fs::copy(song, folder / "withoutdotqlm");
    fs::copy(song, folder / "old.ql4");
    fs::copy(song, folder / "song.mid");
    Core::TabFile document;
    document.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Edit(0).Fret = "9";
    Spill(folder / "song.JSON", Exchange::WriteJson(document));
    Spill(folder / "torn.json", "{\"Title\": ");
    struct {
        const char* Name;
        const char* Fret;
        const char* Caption;
        const char* Told;
    } const cases[] = {{"Song.QlM", "7", "Song.QlM", ""},
                       {"withoutdotqlm", "7", "withoutdotqlm", ""},
                       {"song.JSON", "9", "Unsaved.qlm", ""},
                       {"old.ql4", "", "Unsaved.qlm", "older kind"},
                       {"song.mid", "", "Unsaved.qlm", "song.mid: This is no MIDI file"},
                       {"torn.json", "", "Unsaved.qlm", "torn.json: not valid JSON"},
                       {"missing.qlm", "", "Unsaved.qlm", "missing.qlm: No such file"},
                       {"qm", "", "Unsaved.qlm", "can't be opened"}};
    for (const auto& c : cases) {
        Restart();
        Start((folder / c.Name).string());
        EXPECT_EQ(Fret(), c.Fret) << c.Name;
        EXPECT_EQ(Window().Caption, "Quillon 4 - [" + std::string(c.Caption) + "]") << c.Name;
        EXPECT_EQ(Box().Shown.size(), *c.Told ? 1U : 0U) << c.Name;
        if (!Box().Shown.empty()) {
            EXPECT_NE(Box().Shown[0].find(c.Told), std::string::npos) << Box().Shown[0];
        }
        EXPECT_FALSE(Open.FileChanged) << c.Name;
        EXPECT_EQ(Window().Calls.back(), "painted") << "the start goes on";
    }
}

TEST_F(StartStop, AStartGoesOnWhereNothingCanBeWritten) {
    Spill(folder / "base", "a file where the folder should be");
    Start("");
    EXPECT_FALSE(Box().Shown.empty());
    EXPECT_EQ(Window().Calls.back(), "painted");
    EXPECT_EQ(Window().Caption, "Quillon 4 - [Unsaved.qlm]");
}

TEST_F(StartStop, ARefusedStopLeavesEverything) {
    Start("");
    Edit("5");
    Core::Settings.MaxLineLength = 99;
    Box().Answers = {Answer::Cancel};
    EXPECT_FALSE(Stop());
    EXPECT_EQ(Slurp(folder / "base/QL4.ini"), Core::FormatINISettings({})) << "not written yet";
    EXPECT_EQ(Fret(), "5");

    Box().Answers = {Answer::No};
    run->Files.FullFor = "QL4.ini";
    EXPECT_TRUE(Stop()) << "a full disk must not hold the program";
    EXPECT_NE(Box().Shown.back().find("QL4.ini"), std::string::npos);
}

TEST_F(StartStop, ScratchFilesInUseByAnotherProgramStay) {
    Start("");
    Spill(folder / "base/Data/temp", "theirs");
    PosixFiles other;
    const auto lock = other.Lock(folder / "base/Data/temp.lock");
    Core::DelTempFiles();
    EXPECT_EQ(Slurp(folder / "base/Data/temp"), "theirs");
}

TEST(BaseFolderRule, TakesTheFirstThatIsSet) {
    Testing::ScratchFolder folder;
    const fs::path own = folder / "own";
    std::map<std::string, std::string> set;
    const auto environment = [&](const char* name) -> const char* {
        const auto found = set.find(name);
        return found == set.end() ? nullptr : found->second.c_str();
    };
    EXPECT_EQ(BaseFolder("", own, environment), own) << "nothing is set at all";
    set["HOME"] = "/home/me";
    EXPECT_EQ(BaseFolder("", own, environment), "/home/me/.local/share/quillon");
    set["XDG_DATA_HOME"] = "not absolute";
    EXPECT_EQ(BaseFolder("", own, environment), "/home/me/.local/share/quillon");
    set["XDG_DATA_HOME"] = "/data";
    EXPECT_EQ(BaseFolder("", own, environment), "/data/quillon");
    fs::create_directories(own / "Data");
    EXPECT_EQ(BaseFolder("", own, environment), own);
    set["QUILLON_BASE"] = "/base/x/..";
    EXPECT_EQ(BaseFolder("", own, environment), "/base/");
    EXPECT_EQ(BaseFolder("/option", own, environment), "/option");
    EXPECT_EQ(BaseFolder("near", own, environment), fs::current_path() / "near");
}

TEST(LongFilename, IsAbsoluteAndPlain) {
    EXPECT_EQ(GetLongFilename("/a/./b/../c.qlm"), "/a/c.qlm");
    EXPECT_EQ(GetLongFilename("c.qlm"), fs::current_path() / "c.qlm");
    EXPECT_EQ(GetLongFilename("file:///a/b%20c%C3%BC.qlm"), "/a/b cü.qlm");
    EXPECT_EQ(GetLongFilename("file://host/100%"), "/100%");
}

}  // namespace
}  // namespace Quillon::Shell
