// Text tabs, pages and text PDFs by the command line.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "tests/stories/RunCli.h"

using namespace Quillon::Testing;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(TextStories, OptionsGoBeforeTheSettings) {
    const CliStory story;
    story.Bring("2-song.qlm");
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "long.txt"}).Status, 0);
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "short.TAB", "--max-line", "1", "--warning"}).Status, 0);
    const std::string wide = Slurp(story / "long.txt");
    const std::string narrow = Slurp(story / "short.TAB");
    EXPECT_THAT(wide, Not(HasSubstr("private research")));
    EXPECT_THAT(narrow, StartsWith("####"));
    EXPECT_GT(std::ranges::count(narrow, '\n'), std::ranges::count(wide, '\n'));
    EXPECT_EQ(story.Run({"convert", "2-song.qlm", "x.txt", "--max-line", "0"}).Status, 2);
    EXPECT_EQ(story.Run({"convert", "2-song.qlm", "x.txt", "--track", "9"}).Status, 1);
}

TEST(TextStories, APdfIsDatedByTheEnvironment) {
    const CliStory story;
    story.Bring("2-song.qlm");
    ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "a.pdf"}).Status, 0);
    ASSERT_EQ(story.Run({"convert", "2-song.qlm", "b.pdf"}).Status, 0);
    ::unsetenv("SOURCE_DATE_EPOCH");
    EXPECT_THAT(Slurp(story / "a.pdf"), HasSubstr("/CreationDate (D:20010909014640)"));
    EXPECT_EQ(Slurp(story / "a.pdf"), Slurp(story / "b.pdf"));
}
