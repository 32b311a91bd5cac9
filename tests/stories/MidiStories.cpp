// MIDI files by the command line: out, in by both readers, and into a song that is there.
#include <gmock/gmock.h>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using testing::HasSubstr;
using testing::StartsWith;

TEST(MidiStories, ASongGoesOutAndComesBackByEitherReader) {
    const CliStory story;
    story.Bring("2-song.qlm");
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "song.MID"}).Status, 0);
    EXPECT_THAT(Slurp(story / "song.MID"), StartsWith("MThd"));
    const auto aligned = story.Run({"convert", "song.MID", "aligned.json", "--reader", "aligned", "--report"});
    EXPECT_EQ(aligned.Status, 0);
    EXPECT_THAT(aligned.Out, HasSubstr("Notes kept: 25\n"));
    const auto classic = story.Run({"convert", "song.MID", "classic.json", "--report"});
    EXPECT_EQ(classic.Status, 0);
    EXPECT_THAT(classic.Out, HasSubstr("Notes found: "));
    EXPECT_NE(Slurp(story / "aligned.json"), Slurp(story / "classic.json"));
    EXPECT_EQ(story.Run({"convert", "2-song.qlm", "x.json", "--reader", "aligned"}).Status, 2);
}

TEST(MidiStories, OneTrackGoesIntoASongThatIsThere) {
    const CliStory story;
    story.Bring("2-song.qlm");
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "song.mid"}).Status, 0);
    const std::vector<std::string> into = {"convert", "song.mid", "two.json", "--into", "2-song.qlm"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), into.begin(), into.end());
        return story.Run(more);
    };
    EXPECT_EQ(with({"--yes"}).Status, 2) << "which track";
    const auto unasked = with({"--midi-track", "2"});
    EXPECT_EQ(unasked.Status, 1);
    EXPECT_THAT(unasked.Err, HasSubstr("nothing was added"));
    for (const char* reader : {"classic", "aligned"}) {
        const auto done = with({"--midi-track", "2", "--yes", "--reader", reader, "--report"});
        EXPECT_EQ(done.Status, 0);
        EXPECT_THAT(done.Out, HasSubstr("Tracks: 1\n"));
    }
    EXPECT_EQ(story.Run({"convert", "2-song.qlm", "x.json", "--into", "2-song.qlm", "--yes"}).Status, 2);
}

TEST(MidiStories, OptionsThatTheInputHasNoUseForAreRefused) {
    const CliStory story;
    story.Bring("2-song.qlm");
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "song.mid"}).Status, 0);
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "song.txt"}).Status, 0);
    const std::vector<std::string> texts[] = {{"--timing", "4.0:4"}, {"--dash", "4"}, {"--details"}, {"--same-length"}};
    const std::vector<std::string> midis[] = {{"--midi-track", "1"}, {"--ties"}, {"--quantize"}, {"--reverb"}};
    const auto statuses = [&](const auto& options, const std::string& input) {
        std::vector<int> found;
        for (std::vector<std::string> line : options) {
            line.insert(line.begin(), {"convert", input, "x.json"});
            found.push_back(story.Run(line).Status);
        }
        return found;
    };
    EXPECT_THAT(statuses(texts, "song.txt"), testing::Each(0));
    EXPECT_THAT(statuses(midis, "song.txt"), testing::Each(2));
    EXPECT_THAT(statuses(texts, "song.mid"), testing::Each(2));
    EXPECT_THAT(statuses(midis, "song.mid"), testing::Each(0));
    EXPECT_EQ(story.Run({"convert", "song.txt", "x.json", "--timing", ""}).Status, 1);
    Spill(story / "bad.mid", "MThd");
    EXPECT_THAT(story.Run({"convert", "bad.mid", "x.json"}).Err, HasSubstr("bad.mid: This is no MIDI file"));
}
