#include "exchange/PrintJob.h"

#include <gmock/gmock.h>

#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "platform/headless/NoPicture.h"
#include "platform/headless/PictureLog.h"
#include "platform/portable/PosixFiles.h"
#include "tests/support/Golden.h"

namespace Quillon::Exchange {
namespace {

using Core::Open;
using testing::HasSubstr;
using testing::Not;

class PrintJobTest : public testing::Test {
protected:
    PrintJobTest() {
        Services.Files = &files;
        Open = {};
        Drawing::Page = {};
        Open.TabFile.Title = "Song";
        Open.TabFile.Artist = "Singer";
        Open.TabFile.Tracks.Resize(2);
        Open.TabFile.Tracks[0].Name = "Lead";
        Open.TabFile.Tracks[1].Name = "Rhythm";
        for (int track : {0, 1}) Open.TabFile.Tracks[track].Bars.Resize(120);
        Open.TabFile.BarInfos.Resize(120);
    }
    ~PrintJobTest() override {
        Services = {};
        Open = {};
        Drawing::Page = {};
    }
    static std::string Log(PrintJob& job, int page) {
        PictureLog log;
        job.Draw(log, page);
        return log.Text();
    }

    Testing::ScratchFolder folder;
    PosixFiles files;
};

/// Keeps what it is given.
struct RememberingFile : PageFile {
    Picture& BeginPage(const Sheet& sheet) override {
        Told += "page " + std::to_string(static_cast<int>(sheet.Width)) + " ";
        return Nothing;
    }
    void BeginChapter(std::string_view title) override { Told.append(title).append(": "); }
    std::string Finish(const PageFileInfo& info) override { return Told + info.Title + " by " + info.Author; }
    std::string Told;
    NoPicture Nothing;
};

TEST_F(PrintJobTest, OneTrackOrAllOneBehindTheOther) {
    PrintJob one({.Track = 1});
    const int pages = one.Pages();
    ASSERT_GT(pages, 1);
    PrintJob all({.AllTracks = true});
    ASSERT_EQ(all.Pages(), 2 * pages);
    EXPECT_EQ(all.TrackOf(pages - 1), 0);
    EXPECT_EQ(all.TrackOf(pages), 1);
    EXPECT_TRUE(all.BeginsTrack(pages));
    EXPECT_FALSE(all.BeginsTrack(pages + 1));
    // The pages of a job are counted through.
    const auto number = [](int page, int of) {
        return "Page " + std::to_string(page) + " of " + std::to_string(of) + "\"";
    };
    EXPECT_THAT(Log(all, pages + 1), HasSubstr(number(pages + 2, 2 * pages)));
    EXPECT_THAT(Log(one, 1), HasSubstr(number(2, pages)));
    // Alike in whatever order, and whatever was laid out in between.
    const std::string wanted = Log(all, pages + 1);
    Log(all, 0);
    Drawing::LayOutTrack(Drawing::Page, {17, 4}, Open.TabFile, 1, 99);
    EXPECT_EQ(Log(all, pages + 1), wanted);
    EXPECT_THROW(PrintJob({.Track = 2}), RunTimeError);
}

TEST_F(PrintJobTest, HeaderAndFooterSayWhatWasChosen) {
    PrintJob job({.AllTracks = true});
    EXPECT_THAT(Log(job, 0), HasSubstr("Lead"));
    const std::string second = Log(job, 1);
    EXPECT_THAT(second, HasSubstr("Song"));
    EXPECT_THAT(second, HasSubstr("Singer"));
    RunningFields fields{};
    fields[3] = RunningField::FileName;
    fields[4] = RunningField::Date;
    Open.FileName = "/somewhere/song.qlm";
    setenv("SOURCE_DATE_EPOCH", "0", 1);
    PrintJob other({.Track = 0, .Fields = fields});
    const std::string page = Log(other, 1);
    unsetenv("SOURCE_DATE_EPOCH");
    EXPECT_THAT(page, HasSubstr("song.qlm"));
    EXPECT_THAT(page, HasSubstr("1970-01-01"));
    EXPECT_THAT(page, Not(HasSubstr("Singer")));
    Open.TabFile.Tracks.Resize(1);
    PrintJob alone({});
    EXPECT_THAT(Log(alone, 1), Not(HasSubstr("Lead"))) << "a single track needs no name";
}

TEST_F(PrintJobTest, CopiesComeSetBySetOrPageByPage) {
    EXPECT_EQ(PagesInOrder(1, 3), (std::vector{1, 2, 3}));
    EXPECT_EQ(PagesInOrder(1, 2, 2), (std::vector{1, 2, 1, 2}));
    EXPECT_EQ(PagesInOrder(1, 2, 3, false), (std::vector{1, 1, 1, 2, 2, 2}));
    RememberingFile file;
    Open.TabFile.Tracks[0].Bars.Resize(1);
    Open.TabFile.Tracks[1].Bars.Resize(1);
    PrintJob({.AllTracks = true}).Print(file, PagesInOrder(0, 1, 2));
    EXPECT_EQ(file.Told, "Lead: page 795 Rhythm: page 795 Lead: page 795 Rhythm: page 795 ");
}

TEST_F(PrintJobTest, FieldsAreKeptAndDamagedOnesAreNot) {
    MemoryStore store;
    EXPECT_EQ(LoadRunningFields(store), DefaultRunningFields);
    RunningFields fields{};
    fields[5] = RunningField::Album;
    SaveRunningFields(store, fields);
    EXPECT_EQ(LoadRunningFields(store), fields);
    store.Save("Print", "FooterRight", "99");
    store.Save("Print", "HeaderLeft", "x");
    EXPECT_EQ(LoadRunningFields(store)[5], RunningField::Page);
    EXPECT_EQ(LoadRunningFields(store)[0], RunningField::Title);
}

TEST_F(PrintJobTest, AFileOfAllPagesOrOne) {
    RememberingFile one;
    ExportEngravedPdf(folder / "a.pdf", {.Track = 1}, 2, one);
    EXPECT_EQ(Testing::Slurp(folder / "a.pdf"), "Rhythm: page 795 Song by Singer");
    RememberingFile all;
    ExportEngravedPdf(folder / "b.pdf", {.AllTracks = true}, 0, all);
    EXPECT_THAT(Testing::Slurp(folder / "b.pdf"),
                testing::MatchesRegex("Lead: (page 795 )+Rhythm: (page 795 )+Song.*"));
    RememberingFile none;
    EXPECT_THROW(ExportEngravedPdf(folder / "c.pdf", {}, 99, none), RunTimeError);
    EXPECT_FALSE(files.Exists(folder / "c.pdf"));
}

}  // namespace
}  // namespace Quillon::Exchange
