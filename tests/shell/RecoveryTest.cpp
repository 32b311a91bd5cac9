#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

namespace fs = std::filesystem;
using Core::Open;
using Testing::Slurp;
using Testing::Spill;

class RecoveryStory : public ShellTest {
protected:
    RecoveryStory() { Start(""); }
    fs::path CopyFolder() const { return folder / "base/Data/Recovery"; }
    std::vector<std::string> Copies() {
        auto names = run->Files.FilesIn(CopyFolder());
        std::erase_if(names, [](const std::string& name) { return name.ends_with(".lock"); });
        return names;
    }
    /// Edits, waits for the copy, and crashes.
    void CrashWith(const char* fret) {
        Edit(fret);
        tmrRecovery_Timer(0);
        Restart();
    }
};

TEST_F(RecoveryStory, ACopyFollowsEveryChangeWithinTenSeconds) {
    static_assert(RecoveryTick + RecoveryPause <= 10000);
    tmrRecovery_Timer(0);
    EXPECT_TRUE(Copies().empty()) << "nothing changed yet";
    Edit("1");
    std::int64_t now = 0;
    for (const char* fret : {"1", "2", "3"}) {
        Edit(fret);
        const std::int64_t changed = now;
        while (true) {
            now += RecoveryTick;
            tmrRecovery_Timer(now);
            const auto copies = Copies();
            if (!copies.empty() && ParseRecovery(Slurp(CopyFolder() / copies[0])).Document == Open.TabFile) break;
            ASSERT_LE(now - changed, 10000);
        }
        EXPECT_LE(now - changed, 10000);
    }
    now += 60000;
    const auto before = fs::last_write_time(CopyFolder() / Copies()[0]);
    EXPECT_FALSE(RecoveryDue(now)) << "the same document is not written again";
    tmrRecovery_Timer(now);
    EXPECT_EQ(fs::last_write_time(CopyFolder() / Copies()[0]), before);
}

TEST_F(RecoveryStory, TheCopyGoesWithSaveNewAndStop) {
    const std::function<void()> ends[] = {[&] { SaveFileAs(folder / "song.qlm"); }, [] { ForceNewFile(); },
                                          [&] { OpenFileByEnding(folder / "song.qlm"); },
                                          [] {
                                              Open.FileChanged = false;
                                              tmrRecovery_Timer(1000000);
                                          },
                                          [&] {
                                              Box().Answers = {Answer::No};
                                              EXPECT_TRUE(Stop());
                                          }};
    for (const auto& end : ends) {
        Edit("1");
        tmrRecovery_Timer(0);
        ASSERT_EQ(Copies().size(), 1U);
        end();
        EXPECT_TRUE(Copies().empty());
    }
    EXPECT_TRUE(run->Files.FilesIn(CopyFolder()).empty()) << "the lock too";
}

TEST_F(RecoveryStory, AfterACrashTheCopyIsOfferedWithItsFileAndTime) {
    ASSERT_TRUE(SaveFileAs(folder / "song.qlm"));
    CrashWith("12");

    Box().Answers = {Answer::Cancel};
    Start("");
    EXPECT_NE(Box().Shown.back().find((folder / "song.qlm").string()), std::string::npos) << Box().Shown.back();
    EXPECT_NE(Box().Shown.back().find(" from 20"), std::string::npos) << Box().Shown.back();
    EXPECT_EQ(Fret(), "");

    Restart();
    Box().Answers = {Answer::Yes};
    Start("");
    EXPECT_EQ(Fret(), "12");
    EXPECT_EQ(Open.FileName, (folder / "song.qlm").string());
    EXPECT_EQ(Window().Caption, "Quillon 4 - [song.qlm]");
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_EQ(Copies().size(), 1U) << "safe against the next crash from the first moment";

    Restart();  // that crash
    Box().Answers = {Answer::No};
    Start("");
    EXPECT_EQ(Fret(), "");
    Restart();
    Start("");
    EXPECT_TRUE(Box().Shown.empty()) << "deleted";
}

TEST_F(RecoveryStory, ARunningProgramsCopyIsNotTaken) {
    Edit("1");
    tmrRecovery_Timer(0);
    RecoveryState theirs = std::move(Recovery);  // the first program goes on running
    Recovery = {};
    {
        Life second(folder / "base");
        Start("");
        EXPECT_TRUE(second.Box.Shown.empty());
        Edit("2");
        tmrRecovery_Timer(0);
        EXPECT_EQ(second.Files.FilesIn(CopyFolder()).size(), 4U) << "each its own copy and lock";
    }
    {
        Life third(folder / "base");
        third.Box.Answers = {Answer::Yes};
        Start("");
        EXPECT_EQ(Fret(), "2") << "the second one's, whose program ended";
        EXPECT_EQ(third.Box.Shown.size(), 1U);
    }
}

TEST_F(RecoveryStory, WhatAMusicFileCannotHoldSurvivesACrash) {
    Core::EditStrum(0, 0, 0).Notes.Edit(1).Harmonic = Core::NaturalHarmonic;
    Core::EditStrum(0, 0, 0).Notes.Edit(1).Fret = "12";
    Open.TabFile.Title = "♭ < ££$";
    Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()[0].Syllables.Edit()[0] = "la";
    const Core::TabFile before = Open.TabFile;
    CrashWith("3");
    Box().Answers = {Answer::Yes};
    Start("");
    EXPECT_EQ(Fret(), "3");
    Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Clear(0);
    EXPECT_TRUE(Open.TabFile == before);
}

TEST_F(RecoveryStory, CodesOutsideTheirTablesSurviveToo) {
    Core::EditStrum(0, 0, 0).Length = 99;
    CrashWith("3");
    Box().Answers = {Answer::Yes};
    Start("");
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Length, 99);
}

TEST_F(RecoveryStory, ADamagedCopyIsSetAsideAndToldOnce) {
    Edit("1");
    const std::string whole = FormatRecovery({"", "now", Open.TabFile});
    const std::string broken[] = {"",
                                  "{",
                                  "null\n",
                                  "{\"Kind\":\"json\"}\n{}x",
                                  "{\"Kind\":\"text\"}\nQuillon 4.1",
                                  whole.substr(0, whole.size() - 8)};
    int number = 1;
    for (const std::string& bytes : broken) Spill(CopyFolder() / (std::to_string(number++) + ".recovery"), bytes);
    Restart();
    Start("");
    EXPECT_GE(Box().Shown.size(), 4U);
    for (const std::string& name : Copies()) EXPECT_TRUE(name.ends_with(".damaged")) << name;
    Restart();
    Start("");
    EXPECT_TRUE(Box().Shown.empty());
}

TEST_F(RecoveryStory, AFullDiskIsToldOnceInTheStatusBarAndTriedAgain) {
    Edit("1");
    run->Files.FullFor = "Recovery";
    for (std::int64_t now = 0; now < 100000; now += RecoveryTick) tmrRecovery_Timer(now);
    EXPECT_EQ(std::count_if(Window().Status.begin(), Window().Status.end(),
                            [](const std::string& text) { return text.find("rescue") != std::string::npos; }),
              1);
    EXPECT_TRUE(Box().Shown.empty()) << "no box in the middle of typing";
    run->Files.FullFor.clear();
    tmrRecovery_Timer(200000);
    EXPECT_EQ(Copies().size(), 1U);
}

TEST_F(RecoveryStory, WhenTheNewCopyCannotBeWrittenTheOldOneStays) {
    CrashWith("7");
    Box().Answers = {Answer::Yes};
    run->Files.FullFor = "Recovery";
    Start("");
    EXPECT_EQ(Fret(), "7");
    EXPECT_EQ(Copies().size(), 1U);
}

}  // namespace
}  // namespace Quillon::Shell
