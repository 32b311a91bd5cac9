// The guitar tuner, the editor of tunings and their loading into a track, without windows.
#include "library/mod_Tunings.h"
#include "shell/Commands.h"
#include "shell/TuningLoaderModel.h"
#include "tests/tools/ToolFixture.h"
#include "tools/TuningEditModel.h"

namespace Quillon::Tools {
namespace {

using Core::Open;
using Library::Tuner;
using Library::Tunings;

class GuitarTunerTest : public ToolTest {
protected:
    GuitarTunerTest() { frmGuitarTuner_Load(); }
    static void Choose(const std::string& name) {
        const auto& list = GuitarTuner.cmbTuning;
        ChooseTuning(static_cast<int>(std::ranges::find(list, name) - list.begin()) + 1);
    }
};

TEST_F(GuitarTunerTest, TheCheckedStringsOfTheTuningAreHeardUpAndDown) {
    EXPECT_EQ(TuningCountText(), "22 tunings");
    EXPECT_EQ(TrackTuningText(), "Track 1: " + Open.TabFile.Tracks[0].Name);
    Choose("Dropped D");
    EXPECT_EQ(StringNoteText(5), "D2  \u22122");
    EXPECT_EQ(StringNoteText(0), "E4");
    SetString(3, false);
    std::vector<int> shown;
    GuitarTuner.Changed = [&shown] { shown.push_back(GuitarTuner.Sounding); };
    PlayUp();
    EXPECT_TRUE(GuitarTuner.Runs);
    SetString(3, true);
    MouseWheel(-3);
    EXPECT_EQ(GuitarTuner.Chosen + (Tuner.Chk[3] ? "on" : "off"), "Dropped Doff") << "not while it runs";
    EXPECT_EQ(RunOut(), (std::vector<int>{38, 45, 55, 59, 64}));
    EXPECT_FALSE(GuitarTuner.Runs);
    EXPECT_EQ(shown.back(), -1);
    PlayDown();
    Shell::RunCommand(*Shell::FindCommand("mnuSoundStop"));
    EXPECT_FALSE(GuitarTuner.Runs);
    EXPECT_EQ(RunOut(), std::vector<int>{64});
    PlayOne(3);
    EXPECT_FALSE(GuitarTuner.Runs) << "one string after the other can be clicked";
    EXPECT_EQ(RunOut(), std::vector<int>{50}) << "though it has no tick";
    MouseWheel(-1);
    EXPECT_EQ(GuitarTuner.Chosen, "Nashville");
    MouseWheel(100);
    EXPECT_EQ(GuitarTuner.Chosen, "") << "the track's own, at the top of the list";

    // It follows the cursor to a bass, whose strings no name of the table reaches.
    Core::Track bass;
    bass.Strings = 4;
    constexpr std::array<std::int16_t, 4> offsets = {-21, -21, -22, -22};
    std::ranges::copy(offsets, bass.Tuning.begin());
    Open.TabFile.Tracks.Add(bass);
    Shell::ShowTrack(1);
    SetString(3, true);
    TunerCursorMoved();
    PlayUp();
    EXPECT_EQ(RunOut(), (std::vector<int>{28, 33, 38, 43}));
}

TEST_F(GuitarTunerTest, TuningsAreMadeRenamedDeletedAndRestored) {
    Choose("Dropped D");
    Window().On<TuningEditModel>([](TuningEditModel& model) {
        EXPECT_EQ(model.Validate(), model.Before.empty() ? "str_TuningNameMissing" : "");
        model.Name = "Double drop";
        model.Tuning.Tuning[0] = -2;
        return model.Validate().empty();
    });
    mnuNewTuning_Click();
    EXPECT_EQ(GuitarTuner.Chosen, "Double drop");
    EXPECT_EQ(Library::WriteTuning(*Tunings.Find("Double drop")), "6\r\n12\r\n10\r\n12\r\n12\r\n12\r\n12\r\n10\r\n");
    // Not to be written over: the editor comes back as it was, until it is agreed to.
    std::vector<std::string> seen;
    Window().On<TuningEditModel>([&seen](TuningEditModel& model) {
        seen.push_back(model.Name + std::to_string(Tunings.Find("Nashville")->Tuning[5]));
        model.Name = "Nashville";
        return true;
    });
    Box().Answers = {Answer::No, Answer::Yes, Answer::Yes, Answer::Yes};
    mnuEditTuning_Click();
    EXPECT_EQ(seen, (std::vector<std::string>{"Double drop12", "Nashville12"}));
    EXPECT_EQ(Tunings.Find("Nashville")->Tuning[5], -2);
    EXPECT_FALSE(Tunings.Find("Double drop"));
    mnuDeleteTuning_Click();
    EXPECT_EQ(TuningCountText(), "21 tunings");
    mnuRestoreTunings_Click();
    EXPECT_EQ(Tunings.Find("Nashville")->Tuning[5], 12);

    // A file that goes behind the program's back: the choice is ignored.
    Choose("Open A");
    run->Files.Delete(Tunings.FileOf("Up a step"));
    run->Files.Replace(Tunings.FileOf("Bad"), "x");
    LookAtTuningFolder();
    EXPECT_EQ(TuningCountText(), "21 tunings. 1 file is no part of the library and was passed by.");
    EXPECT_EQ(GuitarTuner.Chosen, "Open A");
}

TEST_F(GuitarTunerTest, ATrackTakesATuningOfTheLibrary) {
    const auto load = [this](const char* name) {
        std::string was;
        Window().On<Shell::TuningLoaderModel>([&](Shell::TuningLoaderModel& model) {
            was = model.Chosen;
            model.Chosen = name;
            return model.Validate().empty();
        });
        Shell::RunCommand(*Shell::FindCommand("mnuTrackLoadTuning"));
        return was;
    };
    Open.FileChanged = false;
    EXPECT_EQ(load("Standard Tuning"), "Standard Tuning") << "the track's own";
    EXPECT_FALSE(Open.FileChanged);
    EXPECT_EQ(load("Open G"), "Standard Tuning");
    EXPECT_EQ(Open.TabFile.Tracks[0].Tuning[5], 3);
    EXPECT_EQ(Open.TabFile.Tracks[0].Tuning[0], -2);
    EXPECT_TRUE(Open.FileChanged);
    // Fewer strings: the note below them is played on another one.
    Library::SaveTuning("Four", {4, {}});
    Core::EditStrum(0, 0, 0).Notes.Edit(5).Fret = "12";
    EXPECT_EQ(load("Four"), "Open G");
    EXPECT_EQ(Open.TabFile.Tracks[0].Strings, 4);
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[5].Fret, "");
    EXPECT_NE(Core::ReadStrum(0, 0, 0).Notes[3].Fret, "");
}

}  // namespace
}  // namespace Quillon::Tools
