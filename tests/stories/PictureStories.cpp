#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using testing::HasSubstr;
using testing::StartsWith;

TEST(PictureStories, EachKindIsWrittenByItsEnding) {
    const CliStory story;
    story.Bring("2-song.qlm");
    const std::pair<const char*, const char*> kinds[] = {
        {"song.svg", "<"}, {"song.PNG", "\x89PNG"}, {"song.jpg", "\xFF\xD8"}, {"song.bmp", "BM"}};
    for (const auto& [name, start] : kinds) {
        const Finished run = story.Run({"convert", "2-song.qlm", name, "--page", "1"});
        EXPECT_EQ(run.Status, 0) << run.Err;
        EXPECT_EQ(run.Out, "");
        EXPECT_THAT(Slurp(story / name), StartsWith(start));
    }
    // Twice the dots make twice the pixels: the width stands at byte 16 of a PNG, highest byte first.
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "fine.png", "--page", "1", "--dpi", "192"}).Status, 0);
    const auto width = [&](const char* name) {
        const std::string bytes = Slurp(story / name);
        return static_cast<unsigned char>(bytes.at(18)) * 256 + static_cast<unsigned char>(bytes.at(19));
    };
    EXPECT_EQ(width("song.PNG"), 794);
    EXPECT_EQ(width("fine.png"), 1587);
}

TEST(PictureStories, FilesTellTheirResolutionAndAbsurdOnesAreRefused) {
    const CliStory story;
    story.Bring("2-song.qlm");
    const auto number = [](const std::string& bytes, std::size_t at, std::initializer_list<std::size_t> places) {
        unsigned value = 0;
        for (const std::size_t place : places) value = value << 8 | static_cast<unsigned char>(bytes.at(at + place));
        return value;
    };
    for (const char* name : {"a.png", "a.jpg", "a.bmp"}) {
        ASSERT_EQ(story.Run({"convert", "2-song.qlm", name, "--page", "1", "--dpi", "300"}).Status, 0);
    }
    constexpr unsigned DotsOfAMetre = 11811;
    const std::string png = Slurp(story / "a.png");
    EXPECT_EQ(number(png, png.find("pHYs") + 4, {0, 1, 2, 3}), DotsOfAMetre);
    EXPECT_EQ(number(Slurp(story / "a.bmp"), 38, {3, 2, 1, 0}), DotsOfAMetre);
    const std::string jpeg = Slurp(story / "a.jpg");
    EXPECT_EQ(number(jpeg, jpeg.find("JFIF") + 7, {0}), 1U) << "dots to the inch";
    EXPECT_EQ(number(jpeg, jpeg.find("JFIF") + 8, {0, 1}), 300U);
    const Finished run = story.Run({"convert", "2-song.qlm", "huge.png", "--page", "1", "--dpi", "2400"});
    EXPECT_EQ(run.Status, 1);
    EXPECT_THAT(run.Err, HasSubstr("19843 by 28063 pixels"));
    EXPECT_FALSE(std::filesystem::exists(story / "huge.png"));
}

TEST(PictureStories, APageThatIsNotThereIsOneClearLineAndNoFile) {
    const CliStory story;
    story.Bring("2-song.qlm");
    const Finished run = story.Run({"convert", "2-song.qlm", "song.svg", "--page", "9"});
    EXPECT_EQ(run.Status, 1);
    EXPECT_THAT(run.Err, HasSubstr("page 9"));
    EXPECT_EQ(story.Run({"convert", "2-song.qlm", "song.png", "--dpi", "0"}).Status, 2);
    EXPECT_THAT(story.Files(), testing::ElementsAre("2-song.qlm"));
}

TEST(PictureStories, AnEngravedPdfIsTheSameEveryTime) {
    ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
    const CliStory story;
    story.Bring("2-song.qlm");
    const auto pages = [&](const char* name) {
        const std::string bytes = Slurp(story / name);
        EXPECT_THAT(bytes, StartsWith("%PDF-"));
        std::size_t count = 0;
        for (std::size_t at = bytes.find("/Type/Page/"); at != bytes.npos; at = bytes.find("/Type/Page/", at + 1)) {
            ++count;
        }
        return count;
    };
    for (const char* name : {"a.pdf", "b.PDF"}) {
        const Finished run = story.Run({"convert", "2-song.qlm", name, "--engraved", "--all-tracks"});
        EXPECT_EQ(run.Status, 0) << run.Err;
    }
    EXPECT_EQ(Slurp(story / "a.pdf"), Slurp(story / "b.PDF"));
    ::unsetenv("SOURCE_DATE_EPOCH");
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "one.pdf", "--engraved", "--page", "1"}).Status, 0);
    EXPECT_EQ(pages("one.pdf"), 1U);
    EXPECT_GT(pages("a.pdf"), 1U);
    const std::vector<std::pair<int, std::vector<std::string>>> wrong = {
        {1, {"no.pdf", "--engraved", "--page", "99"}},
        {2, {"no.png", "--engraved"}},
        {2, {"no.pdf", "--all-tracks"}},
        {2, {"no.pdf", "--engraved", "--all-tracks", "--track", "0"}},
    };
    for (const auto& [status, words] : wrong) {
        std::vector<std::string> line = {"convert", "2-song.qlm"};
        line.insert(line.end(), words.begin(), words.end());
        EXPECT_EQ(story.Run(line).Status, status) << words.front();
    }
    EXPECT_FALSE(std::filesystem::exists(story / "no.pdf"));
}
