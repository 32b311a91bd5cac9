// The chord, scale and tuning libraries from the command line.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using testing::HasSubstr;
using testing::Not;

TEST(LibraryStories, LibrariesAreMadeSearchedAndNamed) {
    const CliStory story;
    EXPECT_EQ(story.Run({"library", "init"}).Status, 0);
    const auto count = [&story](const char* library) {
        const std::string lines = story.Run({library, "list"}).Out;
        return std::ranges::count(lines, '\n');
    };
    EXPECT_EQ(count("chords"), 1555);
    EXPECT_EQ(count("scales"), 38);
    EXPECT_EQ(count("tunings"), 22);
    EXPECT_THAT(story.Run({"chords", "list", "--tab", "3,2,0,0,0,3"}).Out, HasSubstr("\nG-Gmaj (2)\n"));
    EXPECT_EQ(story.Run({"scales", "list", "--keywords", "BLUES"}).Out, "Basic Pentatonic\nBlues Scale\n");
    EXPECT_EQ(story.Run({"chords", "name", "x,0,2,2,1,0"}).Out.substr(0, 3), "Am\n");
    EXPECT_TRUE(story.Run({"scales", "find", "E", "F#", "G#", "A", "B", "C#", "D#"}).Out.starts_with("E Major\t0"));

    // A chord and a tuning of the person's own, and what restoring does to them.
    Spill(story / "base/Data/My Chords/Mine", "hello");
    Spill(story / "base/Data/My Tunings/Mine", "6");
    Spill(story / "base/Data/My Chords/.hidden", "hello");
    const Finished listed = story.Run({"chords", "list"});
    EXPECT_EQ(listed.Status, 0);
    EXPECT_EQ(std::ranges::count(listed.Out, '\n'), 1556) << "by its name it is there, and a hidden one is not";
    EXPECT_EQ(listed.Err, "Note: 1 file in " + (story / "base/Data/My Chords").string() + " can't be read: Mine\n");
    EXPECT_EQ(story.Run({"chords", "list", "--strings", "6"}).Err, listed.Err);
    for (const char* const name : {"Bad", "Worse"}) Spill(story / "base/Data/My Scales" / name, "hello");
    EXPECT_THAT(story.Run({"scales", "list", "--keywords", "o"}).Err, HasSubstr(" can't be read: Bad, Worse\n"));
    EXPECT_EQ(story.Run({"tunings", "list"}).Err, "");
    EXPECT_EQ(story.Run({"library", "init", "--restore"}).Status, 0);
    EXPECT_EQ(count("chords"), 1555);
    EXPECT_EQ(count("tunings"), 23);

    EXPECT_THAT(story.Run({"scales", "sing"}).Err, HasSubstr("sing: no such command"));
    // A folder of the person's own in a library stays beside it, each time.
    for (const char* const kept : {"My Chords.old", "My Chords 2.old"}) {
        Spill(story / "base/Data/My Chords/own/x", "mine");
        EXPECT_EQ(story.Run({"library", "init", "--restore"}).Status, 0);
        EXPECT_EQ(Slurp(story / "base/Data" / kept / "own/x"), "mine");
        EXPECT_FALSE(std::filesystem::exists(story / "base/Data/My Chords/own"));
    }
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"chords"},
                                                  {"chords", "name", "0,2,x"},
                                                  {"chords", "name", "x,3,2,0,1,q"},
                                                  {"chords", "list", "--tab", "1,2,3,4,5,6,7,8"},
                                                  {"scales", "find", "H"},
                                                  {"tunings", "list", "--strings", "9"}}) {
        const Finished run = story.Run(wrong);
        EXPECT_EQ(run.Status, 2) << wrong.back();
        EXPECT_EQ(run.Out, "");
    }
}

TEST(LibraryStories, ChordsGoIntoASongAndOntoPaper) {
    const CliStory story;
    const std::string song = (std::filesystem::path(QUILLON_SOURCE_DIR) / "examples/greensleeves.json").string();
    const std::string out = (story / "song.json").string();
    EXPECT_EQ(story.Run({"chords", "add", song, "A m@0,0,0", "C-Cmaj@0,1,0", "--out", out}).Status, 0);
    EXPECT_THAT(Slurp(out), HasSubstr("\"ChordName\": \"C-Cmaj\""));
    EXPECT_EQ(story.Run({"chords", "add", song, "G-Gmaj (2)@0,0,0", "--notes", "--out", out}).Status, 0);
    EXPECT_THAT(Slurp(out), Not(HasSubstr("G-Gmaj")));
    EXPECT_EQ(story.Run({"chords", "export", (story / "c.txt").string(), "--name", "G-Gmaj (2)"}).Status, 0);
    EXPECT_EQ(Slurp(story / "c.txt"), "G-Gmaj (2)  3  2  0  0  0  3      G  B  D  G  B  G\r\n");
    EXPECT_EQ(story.Run({"chords", "print", (story / "c.pdf").string(), "--name", "cm7"}).Status, 0);
    EXPECT_TRUE(Slurp(story / "c.pdf").starts_with("%PDF"));
    for (const char* const wrong : {"A m", "A m@0,0", "A m@x,0,0", "A m@0,0,0,0"}) {
        EXPECT_EQ(story.Run({"chords", "add", song, wrong, "--out", out}).Status, 2) << wrong;
    }
    for (const char* const missing : {"Nowhere@0,0,0", "A m@9,0,0", "A m@0,999,0"}) {
        const Finished run = story.Run({"chords", "add", song, missing, "--out", out});
        EXPECT_EQ(run.Status, 1) << missing;
        EXPECT_THAT(run.Err, HasSubstr(std::string(missing).substr(0, 3))) << "which one";
    }
}
