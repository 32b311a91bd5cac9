// Typing and editing from the command line, on the real key handlers.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class EditingStories : public testing::Test {
protected:
    EditingStories() { Spill(story / "new.json", "{}"); }
    json Printed(const std::vector<std::string>& arguments) {
        run = story.Run(arguments);
        EXPECT_EQ(run.Status, 0) << run.Err;
        return json::parse(run.Out, nullptr, false);
    }
    /// Frets of a bar's strums on string 0.
    static std::string Frets(const json& document, std::size_t bar, std::size_t track = 0) {
        std::string frets;
        for (const json& strum : document["Tracks"][track]["Bars"][bar]["Strums"]) {
            frets += strum.contains("Notes") ? strum["Notes"]["0"].value("Fret", "-") + " " : "- ";
        }
        return frets;
    }

    CliStory story;
    Finished run;
};

}  // namespace

TEST_F(EditingStories, ABarIsTypedUndoneAndSaved) {
    const json typed = Printed({"keys", "new.json", "49 50 39 51 39 53 39 55 39 57 90", "--out", "out.QLM"});
    EXPECT_EQ(Frets(typed, 0), "12 3 5 7 ");
    EXPECT_EQ(Frets(typed, 1), "- ");
    EXPECT_EQ(typed["Cursor"], json::parse(R"({"CurTrack": 0, "CurBar": 1, "CurStrum": 0, "CurString": 0,
                                               "CurPitch": 64, "InputMode": 1, "FileChanged": 1})"));
    const json saved = Printed({"dump", "out.QLM"});
    EXPECT_EQ(Frets(saved, 0), "12 3 5 7 ");
    EXPECT_FALSE(saved.contains("Cursor"));
}

TEST_F(EditingStories, KeysTakeATrackAnInputModeAndLevels) {
    Spill(story / "two.json", R"({"Tracks": [{}, {"Tuning": [-2, 0, 0, 0, 0, 0, 0]}]})");
    const json staff = Printed({"keys", "two.json", "38 13", "--notation", "--track", "1"});
    EXPECT_EQ(Frets(staff, 0, 1), "1 ");
    EXPECT_EQ(staff["Cursor"]["CurPitch"], 63);
    EXPECT_EQ(staff["Cursor"]["InputMode"], 0);
    EXPECT_EQ(staff["Cursor"]["CurTrack"], 1);
    EXPECT_EQ(Frets(Printed({"keys", "new.json", "51 52 53 54 90 90 90", "--undo-levels", "1"}), 0), "4 ");
    EXPECT_EQ(Frets(Printed({"keys", "new.json", "51 90", "--undo-levels", "0"}), 0), "3 ");
    const json untouched = Printed({"keys", "new.json", ""});
    EXPECT_EQ(untouched["Cursor"]["FileChanged"], 0);
    const json modified = Printed({"keys", "new.json", "s51 c52 sc53"});
    EXPECT_EQ(modified["Tracks"][0]["Bars"][0]["Strums"][0], json::parse(R"({"Length": 2, "HasTuplet": true})"));
}

TEST_F(EditingStories, ALockedFileTellsOnceAndTakesNoKey) {
    Spill(story / "locked.json", R"({"HasPassword": true, "Password": "x"})");
    const json locked = Printed({"keys", "locked.json", "51 39 52"});
    EXPECT_EQ(std::count(run.Err.begin(), run.Err.end(), '\n'), 1) << run.Err;
    EXPECT_EQ(Frets(locked, 0), "- ");
    EXPECT_EQ(locked["Cursor"]["CurStrum"], 0);
}

TEST_F(EditingStories, MessagesAreLinesAndQuestionsTakeTheirAnswer) {
    Printed({"keys", "new.json", "107 107 190 39"});
    EXPECT_THAT(run.Err, HasSubstr("Note: This bar holds more"));
    Spill(story / "bass.json", R"({"Tracks": [{"ShowTreble": false, "ShowBass": true}]})");
    const json no = Printed({"keys", "bass.json", "50 48"});
    EXPECT_THAT(run.Err, HasSubstr("treble staff"));
    EXPECT_EQ(no["Tracks"][0]["ShowTreble"], false);
    EXPECT_EQ(Printed({"keys", "bass.json", "50 48", "--yes"})["Tracks"][0]["ShowTreble"], true);
}

TEST_F(EditingStories, OperationsRunInTheirOrder) {
    const json edited = Printed({"edit", "new.json", "append-bar", "fix-all-bars 0", "insert-strum 0 1 1",
                                 "insert-bar 1", "remove-bar 0", "clear-bar 0 0", "--out", "out.json"});
    EXPECT_EQ(Frets(edited, 0), "- ");
    EXPECT_EQ(Frets(edited, 1), "- - - - ");
    EXPECT_EQ(edited["BarInfos"].size(), 2U);
    EXPECT_FALSE(edited.contains("Cursor"));
    EXPECT_EQ(Slurp(story / "out.json"), run.Out);
    Spill(story / "three.json", R"({"Tracks": [{"Name": "A"}, {"Name": "B"}, {"Name": "C"}]})");
    const json moved =
        Printed({"edit", "three.json", "track-down 0", "track-up 2", "delete-track 0", "shrink-bar 0 0"});
    EXPECT_EQ(moved["Tracks"].size(), 2U);
    EXPECT_EQ(moved["Tracks"][0]["Name"], "C");
    EXPECT_EQ(moved["Tracks"][1]["Name"], "A");
}

TEST_F(EditingStories, BarsAreCopiedCutPastedAndTransposed) {
    Printed({"keys", "new.json", "53", "--out", "five.json"});
    const json edited = Printed({"edit", "five.json", "copy-bars -1 0 0", "paste-bars 0 1", "paste-bars 0 2",
                                 "transpose -1 1 2 -6", "cut-bars 0 2 2", "time-signature 1 3 8"});
    EXPECT_EQ(Frets(edited, 0), "5 ");
    EXPECT_EQ(edited["Tracks"][0]["Bars"][1]["Strums"][0]["Notes"], json::parse(R"({"1": {"Fret": "4"}})"));
    EXPECT_EQ(Frets(edited, 2), "- ");
    EXPECT_EQ(edited["BarInfos"][1]["TimeSigTop"], 3);
    EXPECT_THAT(story.Run({"edit", "five.json", "transpose 0 0 0 25"}).Err,
                testing::HasSubstr("no strings can play strum 0 of bar 0 on track 0"));
    EXPECT_EQ(story.Run({"edit", "five.json", "paste-bars 0 0"}).Status, 1);
    EXPECT_EQ(Frets(Printed({"edit", "five.json", "retune 0 6 1 -2 0 0 0 0 0 0"}), 0), "7 ");
    EXPECT_EQ(Frets(Printed({"edit", "five.json", "retune 0 4 0 -21 -21 -22 -22 0 0 0"}), 0), "5 ");
    EXPECT_EQ(story.Run({"edit", "five.json", "retune 0 4 1 -26 -26 -26 -26 0 0 0"}).Status, 1);
}

TEST_F(EditingStories, FailuresAreOneLineAndLeaveNothing) {
    const std::pair<std::vector<std::string>, int> rows[] = {
        {{"edit", "new.json", "delete-strum 0 0 0", "--out", "out.qlm"}, 1},
        {{"edit", "new.json", "clear-bar 0 7", "--out", "out.qlm"}, 1},
        {{"edit", "new.json", "append-bar", "--out", "no/such.qlm"}, 1},
        {{"edit", "new.json", "time-signature 0 33 4", "--out", "out.qlm"}, 1},
        {{"edit", "new.json"}, 2},
        {{"edit", "new.json", "sing"}, 2},
        {{"edit", "new.json", "append-bar 1"}, 2},
        {{"edit", "new.json", "clear-bar 0 x"}, 2},
        {{"edit", "new.json", "append-bar", "--out", "out.xyz"}, 2},
        {{"keys", "new.json", "49", "--track", "1"}, 1},
        {{"keys", "missing.json", "49"}, 1},
        {{"keys", "new.json"}, 2},
        {{"keys", "new.json", "0"}, 2},
        {{"keys", "new.json", "256"}, 2},
        {{"keys", "new.json", "x49"}, 2},
        {{"keys", "new.json", "49s"}, 2},
        {{"keys", "new.json", "49", "--out", "out.xyz"}, 2},
    };
    for (const auto& [arguments, status] : rows) {
        const Finished failed = story.Run(arguments);
        EXPECT_EQ(failed.Status, status) << arguments.back();
        EXPECT_EQ(failed.Out, "") << arguments.back();
    }
    EXPECT_THAT(story.Files(), ElementsAre("new.json"));
    EXPECT_THAT(story.Run({"edit", "new.json", "clear-bar 0 7"}).Err,
                testing::Eq("quillon-cli: new.json: clear-bar 0 7: Subscript out of range\n"));
}
