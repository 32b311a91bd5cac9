#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace fs = std::filesystem;

namespace {

nlohmann::json Golden(const std::string& name) {
    return nlohmann::json::parse(Slurp(GoldenDir() / "qlm" / name), nullptr, false);
}

int Lines(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

}  // namespace

TEST(MusicFileStories, JsonBecomesTheKnownMusicFileAndBack) {
    const CliStory story;
    for (const std::string name : {"1-new", "2-song", "3-drum-lyrics", "4-harmonic"}) {
        SCOPED_TRACE(name);
        story.Bring(name + ".json");
        ASSERT_EQ(story.Run({"convert", name + ".json", name + ".QLM", "--yes"}).Status, 0);
        EXPECT_TRUE(Slurp(story / (name + ".QLM")) == Slurp(GoldenDir() / "qlm" / (name + ".qlm")));

        const Finished dump = story.Run({"dump", name + ".QLM"});
        EXPECT_EQ(dump.Status, name == "4-harmonic" ? 1 : 0);
        EXPECT_EQ(nlohmann::json::parse(dump.Out, nullptr, false), Golden(name + ".dump.json"));
        if (dump.Status == 0) {
            EXPECT_EQ(dump.Err, "");
            EXPECT_EQ(story.Run({"convert", name + ".QLM", "again.json"}).Status, 0);
            EXPECT_EQ(Slurp(story / "again.json"), dump.Out);
        }
    }
}

TEST(MusicFileStories, DamageIsToldAndConvertsToNothing) {
    const CliStory story;
    story.Bring("4-harmonic.qlm");
    const Finished dump = story.Run({"dump", "4-harmonic.qlm"});
    EXPECT_EQ(dump.Err,
              "Error: Type mismatch. Tag Number: 35 Source (Tag) Data: har:0|0\\0:2/3>\n"
              "quillon-cli: 4-harmonic.qlm: the file is damaged; a part was read\n");
    Spill(story / "out.json", "old");
    const Finished convert = story.Run({"convert", "4-harmonic.qlm", "out.json"});
    EXPECT_EQ(convert.Status, 1);
    EXPECT_EQ(convert.Out, "");
    EXPECT_THAT(convert.Err, HasSubstr("4-harmonic.qlm: the file is damaged"));
    EXPECT_EQ(Slurp(story / "out.json"), "old");
}

TEST(MusicFileStories, CipherGoesBothWaysByteForByte) {
    const CliStory story;
    story.Bring("2-song.qlm");
    const Finished plain = story.Run({"decipher", "2-song.qlm"});
    EXPECT_EQ(plain.Status, 0);
    EXPECT_EQ(plain.Out, Slurp(GoldenDir() / "qlm" / "2-song.txt"));
    Spill(story / "plain.txt", plain.Out);
    EXPECT_EQ(story.Run({"encipher", "plain.txt", "again.qlm"}).Status, 0);
    EXPECT_TRUE(Slurp(story / "again.qlm") == Slurp(story / "2-song.qlm"));
    Spill(story / "empty.txt", "");
    EXPECT_EQ(story.Run({"encipher", "empty.txt", "empty.qlm"}).Status, 0);
    EXPECT_EQ(Slurp(story / "empty.qlm"), "");
}

TEST(MusicFileStories, ALossIsAskedAboutOnceAndNoWritesNothing) {
    const CliStory story;
    Spill(story / "in.json", R"({"Title": "Ω <"})");
    for (const char* answer : {"--no", "--cancel", "--track=0"}) {
        const Finished refused = story.Run({"convert", "in.json", "out.qlm", answer});
        EXPECT_EQ(refused.Status, 1) << answer;
        EXPECT_EQ(refused.Out, "");
        EXPECT_THAT(refused.Err, StartsWith("Quillon 4: out.qlm can't hold all of this song: "));
        EXPECT_EQ(Lines(refused.Err), 2) << "the question and the reason";
        EXPECT_THAT(story.Files(), ElementsAre("in.json"));
    }
    EXPECT_EQ(story.Run({"--base", "base", "convert", "--yes", "in.json", "out.qlm"}).Status, 0);
    EXPECT_THAT(story.Run({"decipher", "out.qlm"}).Out, HasSubstr("<\xA6? <>"));
}

TEST(MusicFileStories, FailuresNameTheFileAndLeaveNoOutput) {
    const CliStory story;
    Spill(story / "bad.json", R"({"Tracks": [{"Bars": [{"Strums": [{"Length": 7}]}]}]})");
    Spill(story / "plain.txt",
          "Quillon 4.1\r\n<\xB2TA\xB2"
          "0><\xB5"
          "0|0/1><\x9E\x9E"
          "32767>");
    ASSERT_EQ(story.Run({"encipher", "plain.txt", "wide.qlm"}).Status, 0);
    Spill(story / "old.ql4", "Quillon 3.6\r\n");
    fs::copy_file(GoldenDir() / "qlm" / "1-new.qlm", story / "named.ql4");
    fs::create_symlink("/dev/full", story / "full.json");
    Spill(story / "other.qlm", "something else");
    story.Bring("1-new.json");
    const std::vector<std::string> before = story.Files();
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{"convert", "bad.json", "out.qlm"}, "bad.json: Tracks[0].Bars[0].Strums[0].Length"},
        {{"convert", "missing.qlm", "out.json"}, "missing.qlm: No such file"},
        {{"convert", "other.qlm", "out.json"}, "other.qlm: not opened"},
        {{"convert", "old.ql4", "out.json"}, "older kind"},
        {{"dump", "named.ql4"}, "older kind"},
        {{"dump", "missing.ql4"}, "missing.ql4: No such file"},
        {{"convert", "1-new.json", "full.json"}, "full.json: No space left"},
        {{"convert", "1-new.json", "no/such/out.qlm"}, "no/such/out.qlm: No such file"},
        {{"convert", "1-new.json", "out.qlm", "--track", "1"}, "track 1"},
        {{"convert", "1-new.json", "out.qlm", "--track", "-1"}, "track -1"},
        {{"dump", "missing.json"}, "missing.json: No such file"},
        {{"layout", "wide.qlm"}, "wide.qlm: Overflow in bar 1 of track "},  // a bar far shorter than its strums
        {{"decipher", "missing.qlm"}, "missing.qlm: No such file"},
        {{"encipher", "missing.txt", "out.qlm"}, "missing.txt: No such file"},
    };
    for (const auto& [arguments, reason] : rows) {
        const Finished run = story.Run(arguments);
        EXPECT_EQ(run.Status, 1) << reason;
        EXPECT_EQ(run.Out, "") << reason;
        EXPECT_THAT(run.Err, HasSubstr(reason));
    }
    EXPECT_EQ(story.Files(), before);
}

TEST(MusicFileStories, WrongCommandLinesTellTheUsageOfTheCommand) {
    const CliStory story;
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, "Usage: quillon-cli [OPTIONS] COMMAND"},
        {{"sing"}, "sing: no such command"},
        {{"--loud"}, "--loud: no such option"},
        {{"convert", "one.qlm"}, "convert [OPTIONS] IN OUT"},
        {{"convert", "one.qlm", "two.xyz"}, "convert [OPTIONS] IN OUT"},
        {{"convert", "one.xyz", "two.qlm"}, "convert [OPTIONS] IN OUT"},
        {{"convert", "one.qlm", "two.qlm", "three.qlm"}, "convert [OPTIONS] IN OUT"},
        {{"convert", "one.qlm", "two.qlm", "--track", "x"}, "convert [OPTIONS] IN OUT"},
        {{"dump", "one.qlm", "--yes", "--no"}, "dump [OPTIONS] FILE"},
        {{"dump"}, "dump [OPTIONS] FILE"},
    };
    for (const auto& [arguments, usage] : rows) {
        const Finished run = story.Run(arguments);
        EXPECT_EQ(run.Status, 2) << usage;
        EXPECT_EQ(run.Out, "");
        EXPECT_THAT(run.Err, HasSubstr(usage));
    }
}

TEST(MusicFileStories, HelpAndVersionGoToStandardOutput) {
    const CliStory story;
    EXPECT_THAT(story.Run({"--version"}).Out, StartsWith("quillon-cli 4.1"));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--help"}, std::vector<std::string>{"convert", "--help"}}) {
        const Finished help = story.Run(arguments);
        EXPECT_EQ(help.Status, 0);
        EXPECT_EQ(help.Err, "");
        EXPECT_THAT(help.Out, HasSubstr("convert"));
    }
}

TEST(MusicFileStories, StandardOutputThatTakesNothingIsAFailure) {
    const CliStory story;
    story.Bring("1-new.qlm");
    for (const std::string word : {"--help", "--version", "dump", "decipher", "layout"}) {
        const Finished run = story.Run({word, word.starts_with("-") ? word : "1-new.qlm"}, "/dev/full");
        EXPECT_EQ(run.Status, 1) << word;
        EXPECT_EQ(run.Err, "quillon-cli: standard output could not be written\n") << word;
    }
}

TEST(MusicFileStories, OutputMayBeTheInputAndScratchFilesGo) {
    const CliStory story;
    story.Bring("2-song.qlm");
    EXPECT_EQ(story.Run({"convert", "2-song.qlm", "2-song.qlm"}).Status, 0);
    EXPECT_TRUE(Slurp(story / "2-song.qlm") == Slurp(GoldenDir() / "qlm" / "2-song.qlm"));
    EXPECT_THAT(story.Files(), ElementsAre("2-song.qlm"));
    std::vector<std::string> left;
    for (const auto& entry : fs::recursive_directory_iterator(story / "base")) {
        if (entry.is_regular_file()) left.push_back(entry.path().filename().string());
    }
    EXPECT_THAT(left, IsEmpty());
}
