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

TEST(TextStories, AReportTellsWhatAnImportLeftOut) {
    const CliStory story;
    Spill(story / "two.txt", "\r\n0-h2\r\n1---\r\n\r\n\r\n3--4\r\n\r\n");
    const auto told = story.Run({"convert", "two.txt", "two.qlm", "--report", "--reader", "classic"});
    EXPECT_EQ(told.Status, 0);
    EXPECT_THAT(told.Out, StartsWith("Systems: 2\nTracks: 1\nBars: 2\nNotes found: 5\nNotes kept: 3\n"));
    EXPECT_THAT(told.Out, HasSubstr("System 2 has no two empty lines behind it; notes left out: 2\n"));
    EXPECT_EQ(story.Run({"convert", "two.qlm", "two.json", "--report"}).Out, "");
    EXPECT_EQ(story.Run({"convert", "two.txt", "x.qlm", "--reader", "other"}).Status, 2);
}

TEST(TextStories, ATextIsReadByItsLinesAndGoesIntoADocument) {
    const CliStory story;
    Spill(story / "a.txt",
          "Title: Crane\n\ne|-0-2-3-5-|\nB|---------|\nG|---------|\nD|---------|\nA|---------|\nD|-3-------|\n");
    const auto told = story.Run({"convert", "a.txt", "a.json", "--reader", "lines", "--report"});
    EXPECT_EQ(told.Status, 0);
    EXPECT_THAT(told.Out, StartsWith("Systems: 1\nTracks: 1\nBars: 1\nNotes found: 5\nNotes kept: 5\n"));
    EXPECT_THAT(Slurp(story / "a.json"), HasSubstr("\"Title\": \"Crane\""));
    story.Bring("2-song.qlm");
    const std::vector<std::string> into = {"convert", "a.txt",      "b.json",  "--reader", "lines",
                                           "--into",  "2-song.qlm", "--track", "1"};
    EXPECT_EQ(story.Run(into).Status, 1);
    std::vector<std::string> agreed = into;
    agreed.push_back("--yes");
    EXPECT_EQ(story.Run(agreed).Status, 0);
    EXPECT_THAT(Slurp(story / "b.json"), Not(HasSubstr("Crane")));
    agreed[8] = "9";
    EXPECT_EQ(story.Run(agreed).Status, 1);
    EXPECT_EQ(story.Run({"convert", "2-song.qlm", "x.json", "--reader", "lines"}).Status, 2);
}
