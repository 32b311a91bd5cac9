#include <gmock/gmock.h>

#include <filesystem>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST(SoundStories, DevicesListsTheSynthesizerFirst) {
    const CliStory story;
    const Finished run = story.Run({"devices"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_THAT(run.Out, StartsWith("0 -1 Quillon Synthesizer\n"));
    EXPECT_EQ(run.Err, "");
}

TEST(SoundStories, ASongBecomesASoundFile) {
    const CliStory story;
    Spill(story / "song.json",
          R"({"Tracks": [{"Bars": [{"Strums": [{"Length": 2, "Notes": {"0": {"Fret": "5"}}}]}]}]})");
    const Finished run = story.Run({"convert", "song.json", "song.WAV"});
    EXPECT_EQ(run.Status, 0) << run.Err;
    EXPECT_EQ(run.Out + run.Err, "");
    const std::string bytes = Slurp(story / "song.WAV");
    EXPECT_THAT(bytes, StartsWith("RIFF"));
    const auto loud = [](const std::string& samples) {
        for (std::size_t high = 45; high < samples.size(); high += 2) {
            if (samples[high] > 1 || samples[high] < -2) return true;
        }
        return false;
    };
    ASSERT_GT(bytes.size(), 44U);
    EXPECT_TRUE(loud(bytes));

    std::filesystem::create_directories(story / "base");
    Spill(story / "base" / "settings.ini", "[Sound]\nGain=0\n");
    ASSERT_EQ(story.Run({"convert", "song.json", "mute.wav"}).Status, 0);
    EXPECT_FALSE(loud(Slurp(story / "mute.wav")));

    const Finished nowhere = story.Run({"convert", "song.json", "missing/song.wav"});
    EXPECT_EQ(nowhere.Status, 1);
    EXPECT_THAT(nowhere.Err, HasSubstr("missing/song.wav"));
    EXPECT_THAT(story.Files(), ElementsAre("mute.wav", "song.WAV", "song.json"));
}

TEST(SoundStories, ASongThatNeverEndsBecomesNoSoundFile) {
    const CliStory story;
    Spill(story / "endless.json",
          R"({"Tracks": [{"Bars": [{"Strums": [{"Length": 2}]}, {"Strums": [{"Length": 2}]}]}],
              "BarInfos": [{}, {"DalSegno": 1, "ToCoda": 1}]})");
    const Finished run = story.Run({"convert", "endless.json", "endless.wav"});
    EXPECT_EQ(run.Status, 1);
    EXPECT_THAT(run.Err, HasSubstr("endless.wav is not written: the song never ends"));
    EXPECT_THAT(story.Files(), ElementsAre("endless.json"));
}
