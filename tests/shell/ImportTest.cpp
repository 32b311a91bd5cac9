// Imports and exports of text tabs without their windows: questions, refusals, cancelling, the report.
#include <gmock/gmock.h>

#include "platform/UrlFetch.h"
#include "shell/AsciiImportModel.h"
#include "shell/Commands.h"
#include "shell/TextExportModel.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* Tab =
    "\n"
    "e|-0-2-3-5-|\n"
    "B|---------|\n"
    "G|---------|\n"
    "D|---------|\n"
    "A|---------|\n"
    "E|-3-------|\n"
    "\n\n\n";

/// Pages in memory.
struct Pages : UrlFetch {
    std::map<std::string, std::string> Held;
    std::vector<std::string> Asked;
    std::optional<std::string> Fetch(const std::string& url, const std::function<bool()>& goOn) override {
        Asked.push_back(url);
        if (!goOn()) return {};
        if (url == "http://example.org/moved") throw FetchMoved(url, "https://elsewhere.net/a");
        if (!Held.contains(url)) throw RunTimeError(68, url);
        return Held[url];
    }
};

class ImportTest : public ShellTest {
protected:
    ImportTest() {
        Start("");
        Services.Fetch = &pages;
    }
    std::filesystem::path Spilled(const char* name, const std::string& text) {
        Testing::Spill(folder / name, text);
        return folder / name;
    }
    /// What a person does: chooses the file, a reader, and imports.
    void ImportsWith(std::int16_t reader, const std::filesystem::path& path, int cancelAt = 1000) {
        Window().On<AsciiImportModel>([=, this](AsciiImportModel& model) {
            if (model.From == AsciiImportModel::Source::File && !model.IntoNew) {
                EXPECT_TRUE(model.ChooseFile(path));
            }
            model.Reader = reader;
            return done = model.Command2_Click([=](int percent) { return percent < cancelAt; });
        });
    }

    Pages pages;
    bool done = false;
};

TEST_F(ImportTest, AFileComesOntoTheCurrentTrackAfterAQuestion) {
    Box().Answers.assign(40, Answer::Yes);
    ImportsWith(ImportModel::Other, Spilled("a.txt", Tab));
    RunCommand(*FindCommand("mnuFileImportTab"));
    EXPECT_TRUE(done);
    EXPECT_EQ(Fret(), "0");
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[5].Fret, "3");
    EXPECT_TRUE(Open.FileChanged);
    ASSERT_TRUE(HasImportReport());
    EXPECT_THAT(LastReportText(), HasSubstr("Notes kept: 5\n"));
    EXPECT_THAT(Window().Status.back(), StartsWith("Imported. Notes kept: 5, lost: 0."));
    Window().SaveAnswer = folder / "report.txt";
    ImportReportModel report;
    report.Load();
    report.Save();
    EXPECT_EQ(Testing::Slurp(folder / "report.txt"), LastReportText());
}

TEST_F(ImportTest, NothingHappensWithoutAYesOrWhenCancelled) {
    const auto path = Spilled("a.txt", Tab);
    const Core::TabFile before = Open.TabFile;
    Box().Answers.assign(40, Answer::No);
    ImportsWith(ImportModel::Classic, path);
    RunCommand(*FindCommand("mnuFileImportTab"));
    EXPECT_FALSE(done);
    Box().Answers.assign(40, Answer::Yes);
    for (const std::int16_t reader : {ImportModel::Classic, ImportModel::Other}) {
        for (const int percent : {33, 66, 67}) {
            ImportsWith(reader, path, percent);
            RunCommand(*FindCommand("mnuFileImportTab"));
            EXPECT_FALSE(done);
        }
    }
    EXPECT_TRUE(Open.TabFile == before);
    EXPECT_FALSE(HasImportReport());
}

TEST_F(ImportTest, WhatIsWrongIsSaidAndTheDialogStays) {
    AsciiImportModel model;
    model.Load(AsciiImportModel::Source::File);
    model.Timing = "4/4";
    Box().Answers.assign(40, Answer::Yes);
    EXPECT_FALSE(model.Command2_Click({}));
    EXPECT_THAT(Box().Shown.back(), StartsWith("Please give a time signature"));
    model.Timing = "3:4";
    EXPECT_FALSE(model.Command2_Click({}));
    EXPECT_EQ(Box().Shown.back(), "Choose a file to import first.");
    // What the classic reader did before it met the damage stays, as its users know it.
    Edit("7");
    ASSERT_TRUE(model.ChooseFile(Spilled("bad.txt", "a < b")));
    model.EnforceTiming = true;
    EXPECT_FALSE(model.Command2_Click({}));
    EXPECT_THAT(Box().Shown.back(), HasSubstr("bad.txt: The text could not be imported."));
    EXPECT_EQ(Open.TabFile.BarInfos[0].TimeSigTop, 3);
}

TEST_F(ImportTest, BothReadersAreTriedOnCopies) {
    const Core::TabFile before = Open.TabFile;
    AsciiImportModel model;
    model.Load(AsciiImportModel::Source::File);
    EXPECT_EQ(model.Tried(ImportModel::Classic), nullptr);
    ASSERT_TRUE(
        model.ChooseFile(Spilled("a.txt", "e|-0-h2-|\nB|------|\nG|------|\nD|------|\nA|------|\nE|------|\n")));
    ASSERT_NE(model.Tried(ImportModel::Classic), nullptr);
    EXPECT_EQ(model.Tried(ImportModel::Classic)->Report.NotesKept, 0);  // no empty lines close the system
    EXPECT_EQ(model.Tried(ImportModel::Other)->Report.NotesKept, 2);
    EXPECT_TRUE(Open.TabFile == before);
    EXPECT_EQ(AsciiImportModel::DashOfText("8th Note"), 3);
    EXPECT_EQ(AsciiImportModel::DashOfText("whatever"), 6);
}

TEST_F(ImportTest, ATextIsOpenedAsANewSong) {
    Open.FileName = "old.qlm";
    ImportsWith(ImportModel::Other, "");
    EXPECT_TRUE(OpenDroppedFile(Spilled("a.TAB", Tab)));
    EXPECT_EQ(Fret(), "0");
    EXPECT_EQ(Open.FileName, "");
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_TRUE(Box().Shown.empty()) << "a new song has nothing to lose";
}

TEST_F(ImportTest, APageIsFetchedAfterAQuestionThatNamesItsHost) {
    pages.Held["http://example.org/a"] = std::string("<html><pre>") + Tab + "</pre></html>";
    Box().Answers.assign(40, Answer::Yes);
    Window().On<AsciiImportModel>([](AsciiImportModel& model) {
        model.Url = "http://example.org/a";
        model.Reader = ImportModel::Other;
        return model.Command2_Click({});
    });
    RunCommand(*FindCommand("mnuImportTabFromWeb"));
    EXPECT_EQ(Box().Shown.back(), "Fetch this page from example.org?");
    EXPECT_EQ(Fret(), "0");
    EXPECT_THAT(pages.Asked, ElementsAre("http://example.org/a"));

    AsciiImportModel moved;
    moved.Load(AsciiImportModel::Source::Web);
    moved.Url = "http://example.org/moved";
    pages.Held["https://elsewhere.net/a"] = Tab;
    EXPECT_TRUE(moved.Look({}));
    EXPECT_EQ(Box().Shown.back(), "Fetch this page from elsewhere.net?");
    Box().Answers.assign(1, Answer::Yes);
    EXPECT_FALSE(moved.Look({})) << "a yes for the first host is none for the other";
    Box().Answers.assign(40, Answer::Yes);

    AsciiImportModel missing;
    missing.Load(AsciiImportModel::Source::Web);
    missing.Url = "http://example.org/none";
    EXPECT_FALSE(missing.Command2_Click({}));
    EXPECT_THAT(Box().Shown.back(), StartsWith("The address could not be fetched."));
}

TEST_F(ImportTest, APageMayOfferAMusicFile) {
    Open.TabFile.Title = "Offered";
    ASSERT_TRUE(SaveFileAs(folder / "offered.qlm"));
    pages.Held["http://example.org/s.qlm"] = Testing::Slurp(folder / "offered.qlm");
    pages.Held["http://example.org/a"] =
        "<ql_qlm_addr='http://example.org/s.qlm'> <ql_res_text='More'> <ql_res_addr='http://x'>";
    ForceNewFile();
    Box().Answers.assign(40, Answer::Yes);
    AsciiImportModel model;
    model.Load(AsciiImportModel::Source::Web);
    model.Url = "http://example.org/a";
    EXPECT_TRUE(model.Command2_Click({}));
    EXPECT_EQ(Open.TabFile.Title, "Offered");
    EXPECT_EQ(Open.TabFile.RT, "More");
    EXPECT_EQ(Open.TabFile.RA, "http://x");
    EXPECT_EQ(Open.FileName, "");
}

TEST_F(ImportTest, AnAddressOnTheClipboardIsImportedAtTheStartWhereThatIsWanted) {
    pages.Held["http://example.org/a"] = Tab;
    Window().OnClipboard = " http://example.org/a ";
    StartTmrImport();
    EXPECT_TRUE(pages.Asked.empty()) << "off at first";
    SetImportsAtStart(true);
    Core::Settings.AutoASCII = true;
    Box().Answers.assign(40, Answer::Yes);
    StartTmrImport();
    EXPECT_EQ(Window().OnClipboard, "");
    EXPECT_THAT(pages.Asked, ElementsAre("http://example.org/a"));
    EXPECT_EQ(Fret(), "0");
}

TEST_F(ImportTest, AnExportAsksForItsNameAndKeepsItsSettings) {
    ASSERT_TRUE(SaveFileAs(folder / "song.qlm"));
    Window().On<TextExportModel>([](TextExportModel& model) {
        EXPECT_THAT(model.Sample(), HasSubstr("Tempo:60"));
        model.Warning = true;
        model.MaxLineLength = 40;
        return true;
    });
    for (const auto& [command, ending, start] :
         {std::tuple{"mnuFileExportASCII", ".txt", "####"}, std::tuple{"mnuFileExportHTML", ".html", "<html>"},
          std::tuple{"mnuFileExportPDF", ".pdf", "%PDF-1.2"}}) {
        Window().SaveAnswer = folder / (std::string("out") + ending);
        RunCommand(*FindCommand(command));
        EXPECT_EQ(Window().Suggested.filename(), std::string("song") + ending);
        EXPECT_THAT(Testing::Slurp(*Window().SaveAnswer), StartsWith(start));
    }
    EXPECT_EQ(Core::Settings.MaxLineLength, 40);
    EXPECT_TRUE(Core::Settings.IncludeCopyrightWarning);
}

TEST(UrlFetchTest, TheHostShownIsTheOneThatIsAsked) {
    for (const auto& [url, host] :
         {std::pair{"http://example.org/a", "example.org"}, std::pair{"HTTPS://Example.org:8080?x", "Example.org"},
          std::pair{"http://good.org@evil.org/", "evil.org"}, std::pair{"http://evil.org\\@good.org/", ""},
          std::pair{"ftp://example.org/", ""}, std::pair{"http://", ""}, std::pair{"file:///etc/passwd", ""},
          std::pair{"http://a b/", ""}}) {
        EXPECT_EQ(HostOfUrl(url), host) << url;
    }
}

}  // namespace
}  // namespace Quillon::Shell
