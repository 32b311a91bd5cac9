#include "shell/DialogModels.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

namespace fs = std::filesystem;
using Core::Open;
using Testing::Slurp;
using Testing::Spill;

class FileCommands : public ShellTest {
protected:
    FileCommands() { Start(""); }
};

TEST_F(FileCommands, ContinueWithOpAsksOnlyAboutChangesAndSavesOnYes) {
    struct {
        bool Changed;
        Answer Given;
        bool SaveChosen;
        bool DiskFull;
        bool GoesOn;
        bool StaysChanged;
    } const cases[] = {
        {false, Answer::Cancel, false, false, true, false},  // not asked
        {true, Answer::No, false, false, true, true},
        {true, Answer::Cancel, false, false, false, true},
        {true, Answer::Yes, true, false, true, false},
        {true, Answer::Yes, false, false, false, true},  // the save was cancelled
        {true, Answer::Yes, true, true, false, true},    // the save failed
    };
    for (const auto& c : cases) {
        Open.FileName.clear();
        Open.FileChanged = c.Changed;
        Box().Shown.clear();
        Box().Answers = {c.Given};
        run->Files.FullFor = c.DiskFull ? "chosen" : "";
        Window().SaveAnswer.reset();
        if (c.SaveChosen) Window().SaveAnswer = folder / "chosen.qlm";
        EXPECT_EQ(ContinueWithOp(), c.GoesOn);
        EXPECT_EQ(Open.FileChanged, c.StaysChanged);
        EXPECT_EQ(Box().Shown.size(), (c.Changed ? 1U : 0U) + (c.DiskFull ? 1U : 0U));
        if (c.Changed) {
            EXPECT_EQ(Box().Shown[0], "Save the changes to 'Unsaved.qlm' ?");
        }
    }
}

TEST_F(FileCommands, SaveNewOpenStory) {
    Edit("3");
    Open.TabFile.Title = "../Rain: 1/2";
    EXPECT_FALSE(mnuFileSave_Click());
    EXPECT_EQ(Window().Suggested.filename(), "Rain 12.qlm");
    Window().SaveAnswer = folder / "my song";  // gets its ending
    EXPECT_TRUE(mnuFileSave_Click());
    EXPECT_EQ(Window().Caption, "Quillon 4 - [my song.qlm]");
    EXPECT_FALSE(Open.FileChanged);
    Edit("4");
    Window().SaveAnswer.reset();
    EXPECT_TRUE(mnuFileSave_Click()) << "the name is held";
    EXPECT_FALSE(mnuFileSaveAs_Click());
    EXPECT_EQ(Window().Suggested, folder / "my song.qlm");

    mnuFileNew_Click();
    EXPECT_EQ(Window().Caption, "Quillon 4 - [Unsaved.qlm]");
    EXPECT_EQ(Fret(), "");
    EXPECT_TRUE(Box().Shown.empty());

    Drawing::View.VScroll = 7;
    Window().OpenAnswer = folder / "my song.qlm";
    mnuFileOpen_Click();
    EXPECT_EQ(Fret(), "4");
    EXPECT_EQ(Window().Caption, "Quillon 4 - [my song.qlm]");
    EXPECT_EQ(Drawing::View.VScroll, 0);

    Edit("5");
    Box().Answers = {Answer::Cancel};
    EXPECT_FALSE(OpenDroppedFile(folder / "other.qlm"));
    EXPECT_EQ(Fret(), "5") << "cancel keeps the document";
}

TEST_F(FileCommands, ASaveThatFailsKeepsFileNameAndChanges) {
    ASSERT_TRUE(SaveFileAs(folder / "song.qlm"));
    const std::string before = Slurp(folder / "song.qlm");
    Edit("5");
    run->Files.FullFor = "song";
    EXPECT_FALSE(mnuFileSave_Click());
    EXPECT_FALSE(SaveFileAs(folder / "another song.qlm"));
    EXPECT_EQ(Slurp(folder / "song.qlm"), before);
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_EQ(Open.FileName, (folder / "song.qlm").string());
    EXPECT_NE(Box().Shown.back().find("another song.qlm: No space left on device"), std::string::npos);
}

TEST_F(FileCommands, AnEndingThatIsAddedAsksBeforeItReplaces) {
    Spill(folder / "notes.txt.qlm", "precious");
    Window().SaveAnswer = folder / "notes.txt";
    Box().Answers = {Answer::No};
    EXPECT_FALSE(mnuFileSaveAs_Click());
    EXPECT_EQ(Slurp(folder / "notes.txt.qlm"), "precious");
    Box().Answers = {Answer::Yes};
    EXPECT_TRUE(mnuFileSaveAs_Click());
    EXPECT_FALSE(fs::exists(folder / "notes.txt"));
}

TEST_F(FileCommands, ADamagedFileOpensInPartWithoutItsName) {
    Spill(folder / "half.qlm", Core::EncipherMusicFile("Quillon 4.1\r\n<ª90><¦Half a song><¸0><\x90"
                                                       "0><l:x>\r\n"));
    EXPECT_TRUE(OpenFileByEnding(folder / "half.qlm"));
    EXPECT_EQ(Box().Shown.size(), 1U);
    EXPECT_EQ(Window().Caption, "Quillon 4 - [Unsaved.qlm]");
    EXPECT_TRUE(RecentFiles().empty());

    Spill(folder / "noise.qlm", "noise");
    EXPECT_FALSE(OpenFileByEnding(folder / "noise.qlm"));
    EXPECT_EQ(Box().Shown.size(), 2U);
}

TEST_F(FileCommands, RecentFilesKeepTheLastNine) {
    for (int i = 1; i <= 11; ++i) ASSERT_TRUE(SaveFileAs(folder / ("song" + std::to_string(i) + ".qlm")));
    ASSERT_TRUE(OpenFileByEnding(folder / "song5.qlm"));
    std::string names;
    for (const fs::path& path : RecentFiles()) names += RecentFileCaption(path) + ";";
    EXPECT_EQ(names,
              "- song5.qlm;- song11.qlm;- song10.qlm;- song9.qlm;- song8.qlm;- song7.qlm;- song6.qlm;- song4.qlm;"
              "- song3.qlm;");
    fs::remove(folder / "song11.qlm");
    mnuFileOpenRecentItem_Click(1);
    EXPECT_NE(Box().Shown.back().find("song11.qlm is no longer there"), std::string::npos);
    EXPECT_EQ(RecentFiles().size(), 8U);
    mnuFileOpenRecentItem_Click(1);
    EXPECT_EQ(Open.FileName, (folder / "song10.qlm").string());
    mnuFileOpenRecentItem_Click(9);
    mnuFileOpenRecentItem_Click(-1);
    const auto before = RecentFiles();
    Restart();
    EXPECT_EQ(RecentFiles(), before) << "kept over a crash";
}

TEST_F(FileCommands, APasswordIsAskedOnceAndForEveryFileAnew) {
    Open.TabFile.HasPassword = true;
    Open.TabFile.Password = "capo";
    ASSERT_TRUE(SaveFileAs(folder / "locked.qlm"));
    int edits = 0;
    Window().On<TrackPropertiesModel>([&](TrackPropertiesModel&) { return ++edits, false; });
    mnuTrackProperties_Click();  // no answer
    Window().Password = "kappo";
    mnuTrackProperties_Click();
    EXPECT_EQ(edits, 0);
    EXPECT_EQ(Box().Shown.size(), 1U);
    Window().Password = "capo";
    mnuTrackProperties_Click();
    Window().Password.reset();
    mnuTrackProperties_Click();
    EXPECT_EQ(edits, 2);
    ASSERT_TRUE(OpenFileByEnding(folder / "locked.qlm"));
    mnuTrackProperties_Click();
    EXPECT_EQ(edits, 2) << "opened again, locked again";
}

}  // namespace
}  // namespace Quillon::Shell
