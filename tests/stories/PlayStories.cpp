// Whole songs against traces worked out independently, and the command's own manners.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using testing::HasSubstr;

namespace {

std::vector<std::string> Words(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// Two tracks of two bars, the second with a repeat of one jump.
constexpr const char* TwoBars = R"({"Tempo": 240, "Tracks": [{"Bars": [
    {"Strums": [{"Length": 0, "Notes": {"0": {"Fret": "5"}}}]},
    {"Strums": [{"Length": 1, "Notes": {"1": {"Fret": "3"}}}, {"Length": 1}]}]}],
    "BarInfos": [{"TimeSigTop": 4, "TimeSigBottom": 4}, {"TimeSigTop": 4, "TimeSigBottom": 4, "RepeatClose": 1}]})";

}  // namespace

TEST(PlayStories, SongsSendTheKnownMessages) {
    const CliStory story;
    for (const std::string name : {"conductor", "effects", "form"}) {
        SCOPED_TRACE(name);
        Spill(story / (name + ".json"), Slurp(GoldenDir() / "play" / (name + ".json")));
        std::vector<std::string> arguments = {"trace", name + ".json"};
        for (const std::string& word : Words(Slurp(GoldenDir() / "play" / (name + ".args")))) arguments.push_back(word);
        const Finished trace = story.Run(arguments);
        EXPECT_EQ(trace.Status, 0);
        EXPECT_EQ(trace.Err, "");
        CheckGolden("play/" + name + ".trace", trace.Out);
    }
}

TEST(PlayStories, ARangeOfBarsFollowsItsRepeatAndEnds) {
    const CliStory story;
    Spill(story / "two.json", TwoBars);
    const auto strikes = [&](const std::vector<std::string>& options, const std::string& message) {
        std::vector<std::string> arguments = {"trace", "two.json"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const std::string out = story.Run(arguments).Out;
        int count = 0;
        for (auto at = out.find(message); at != std::string::npos; at = out.find(message, at + 1)) ++count;
        return count;
    };
    const std::string first = " 144 69 100\n";
    const std::string second = " 144 62 100\n";
    EXPECT_EQ(strikes({}, first), 2);
    EXPECT_EQ(strikes({}, second), 2);
    EXPECT_EQ(strikes({"--to", "0"}, first), 1);
    EXPECT_EQ(strikes({"--to", "0"}, second), 0);
    // Bar 0 is the repeat's start: none is marked, wherever the playing began.
    EXPECT_EQ(strikes({"--from", "1"}, first), 1);
    EXPECT_EQ(strikes({"--from", "1"}, second), 2);
}

TEST(PlayStories, TheTrainerLoopsFasterAndIgnoresTheRange) {
    const CliStory story;
    Spill(story / "two.json", TwoBars);
    const Finished trace = story.Run({"trace", "two.json", "--from", "1", "--trainer", "1,1,3,60,100,20"});
    EXPECT_EQ(trace.Status, 0);
    std::vector<std::string> strikes;
    std::istringstream lines(trace.Out);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with(" 144 69 100")) strikes.push_back(line.substr(0, line.find(' ')));
    }
    // Ticks of 62 ms at 60, 47 at 80 and 38 at 100: the tick that ends a loop begins the next one.
    EXPECT_THAT(strikes,
                testing::ElementsAre("62", std::to_string(62 + 64 * 62), std::to_string(62 + 64 * 62 + 64 * 47)));
}

TEST(PlayStories, WrongArgumentsAreToldWithoutOutput) {
    const CliStory story;
    Spill(story / "two.json", TwoBars);
    const Finished outside = story.Run({"trace", "two.json", "--to", "7"});
    EXPECT_EQ(outside.Status, 1);
    EXPECT_EQ(outside.Out, "");
    EXPECT_THAT(outside.Err, HasSubstr("two.json: the song has the bars 0 to 1"));
    EXPECT_EQ(story.Run({"trace", "two.json", "--from", "-1"}).Status, 2);
    EXPECT_EQ(story.Run({"trace", "two.json", "--trainer", "1,2,3"}).Status, 2);
    const Finished noNumber = story.Run({"trace", "two.json", "--trainer", "1,2,x,60,80,5"});
    EXPECT_EQ(noNumber.Status, 1);
    EXPECT_EQ(noNumber.Out, "");
    EXPECT_THAT(noNumber.Err, HasSubstr("Type mismatch"));
}

TEST(PlayStories, TheLimitCutsWithoutSendingAnything) {
    const CliStory story;
    Spill(story / "two.json", TwoBars);
    const std::string whole = story.Run({"trace", "two.json"}).Out;
    const std::string cut = story.Run({"trace", "two.json", "--max-ms", "16"}).Out;
    EXPECT_TRUE(whole.starts_with(cut));
    EXPECT_THAT(cut, HasSubstr("16 144 69 100\n"));
    EXPECT_EQ(story.Run({"trace", "two.json", "--max-ms", "15"}).Out, "");
}
