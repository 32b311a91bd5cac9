#include "platform/portable/PosixFiles.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#include <functional>
#include <random>

#include "platform/RunTimeError.h"
#include "tests/support/Golden.h"

namespace Quillon {
namespace {

namespace fs = std::filesystem;
using Testing::ScratchFolder;
using Testing::Slurp;
using Testing::Spill;

int NumberRaised(const std::function<void()>& act) {
    try {
        act();
    } catch (const RunTimeError& error) {
        EXPECT_NE(error.Description().find("song"), std::string::npos) << "names the file: " << error.Description();
        EXPECT_EQ(error.Description().find(".quillon-"), std::string::npos) << error.Description();
        return error.Number;
    }
    return 0;
}

std::size_t EntriesOf(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(PosixFiles, ReplacesKeepingModeAndLinks) {
    ScratchFolder folder;
    PosixFiles files;
    files.Replace(folder / "song", "first");
    EXPECT_EQ(Slurp(folder / "song"), "first");
    fs::permissions(folder / "song", fs::perms(0640));
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("../song", folder / "elsewhere" / "near");
    fs::create_symlink(folder / "elsewhere" / "near", folder / "far");

    files.Replace(folder / "far", std::string_view("se\0cond", 7));

    EXPECT_TRUE(fs::is_symlink(folder / "far"));
    EXPECT_EQ(Slurp(folder / "song"), std::string_view("se\0cond", 7));
    EXPECT_EQ(fs::status(folder / "song").permissions(), fs::perms(0640));
    EXPECT_EQ(EntriesOf(folder.Path()), 3U) << "nothing is left behind";

    fs::create_symlink("not there yet", folder / "dangling");
    files.Replace(folder / "dangling", "made");
    EXPECT_EQ(Slurp(folder / "not there yet"), "made");
}

TEST(PosixFiles, WhatCannotBeDoneRaisesItsNumberAndLeavesAllAsItWas) {
    ScratchFolder folder;
    PosixFiles files(1000);
    Spill(folder / "song", std::string(1001, 'x'));
    fs::create_directory(folder / "songs");
    fs::create_symlink("song loop", folder / "song loop");

    EXPECT_EQ(NumberRaised([&] { files.Read(folder / "no song"); }), 53);
    EXPECT_EQ(NumberRaised([&] { files.Read(folder / "song"); }), 7);
    EXPECT_EQ(NumberRaised([&] { files.Read(folder / "songs"); }), 75);
    EXPECT_EQ(NumberRaised([&] { files.Read("/dev/zero/song"); }), 53);
    EXPECT_EQ(NumberRaised([&] { files.Replace(folder / "songs", ""); }), 75);
    EXPECT_EQ(NumberRaised([&] { files.Replace(folder / "nowhere" / "song", ""); }), 53);
    EXPECT_EQ(NumberRaised([&] { files.Replace(folder / "song loop", ""); }), 75);
    EXPECT_EQ(NumberRaised([&] { files.MakeFolder(folder / "song"); }), 75);
    EXPECT_NO_THROW(files.Delete(folder / "no song"));
    EXPECT_EQ(EntriesOf(folder.Path()), 3U);
}

TEST(PosixFiles, AFileThatMayNotBeWrittenStays) {
    if (::geteuid() == 0) GTEST_SKIP() << "the superuser may write everything";
    ScratchFolder folder;
    PosixFiles files;
    files.Replace(folder / "song", "kept");
    fs::permissions(folder / "song", fs::perms(0444));
    EXPECT_EQ(NumberRaised([&] { files.Replace(folder / "song", "lost"); }), 70);
    EXPECT_EQ(Slurp(folder / "song"), "kept");
}

TEST(PosixFiles, AFullDiskKeepsTheOldFile) {
    ScratchFolder folder;
    PosixFiles files;
    files.Replace(folder / "song", "kept");
    const pid_t child = ::fork();
    if (child == 0) {  // the limit on a file's size fails like a full disk, half way through the write
        const rlimit most{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &most);
        int number = 0;
        try {
            files.Replace(folder / "song", std::string(1 << 20, 'x'));
        } catch (const RunTimeError& error) {
            number = error.Number;
        }
        ::_exit(number);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(Slurp(folder / "song"), "kept");
    EXPECT_EQ(EntriesOf(folder.Path()), 1U);
}

TEST(PosixFiles, AKillDuringASaveLeavesAWholeFile) {
    ScratchFolder folder;
    std::mt19937 dice(4);
    const auto isWhole = [&] {
        const std::string text = Slurp(folder / "song");
        return text == "0" || (!text.empty() && text == std::string(std::size_t{1} << (text[0] % 20), text[0]));
    };
    PosixFiles().Replace(folder / "song", "0");
    for (int round = 0; round < 25; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            PosixFiles files;
            for (char fill = 'a';; fill = fill == 'z' ? 'a' : static_cast<char>(fill + 1)) {
                files.Replace(folder / "song", std::string(std::size_t{1} << (fill % 20), fill));
            }
        }
        for (int looks = static_cast<int>(dice() % 400); looks >= 0; --looks) EXPECT_TRUE(isWhole()) << "while saving";
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_TRUE(isWhole()) << "after the kill";
    }

    // What the kills left behind is no file to anyone, and goes with a later save.
    PosixFiles files;
    EXPECT_EQ(files.FilesIn(folder.Path()), std::vector<std::string>{"song"});
    Spill(folder / ".quillon-1-1.new", "half");
    const timespec old[2] = {{std::time(nullptr) - 7200, 0}, {std::time(nullptr) - 7200, 0}};
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
        ::utimensat(AT_FDCWD, entry.path().c_str(), old, 0);
    }
    files.Replace(folder / "song", "whole");
    EXPECT_EQ(EntriesOf(folder.Path()), 1U);
}

TEST(PosixFiles, LocksNestInOneProgramAndKeepOutAnother) {
    ScratchFolder folder;
    PosixFiles ours;
    PosixFiles theirs;
    auto outer = ours.Lock(folder / "lock");
    auto inner = ours.TryLock(folder / "lock");
    ASSERT_TRUE(inner);
    EXPECT_FALSE(theirs.TryLock(folder / "lock"));
    outer.reset();
    EXPECT_FALSE(theirs.TryLock(folder / "lock")) << "the inner one still holds";
    inner.reset();
    auto other = theirs.TryLock(folder / "lock");
    EXPECT_TRUE(other);
    fs::remove(folder / "lock");
    EXPECT_TRUE(ours.TryLock(folder / "lock")) << "a deleted lock file keeps nobody out";
}

}  // namespace
}  // namespace Quillon
