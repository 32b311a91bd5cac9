#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_TabFileManipulation.h"
#include "platform/RunTimeError.h"
#include "tests/support/Fixture.h"

using namespace Quillon;
using namespace Quillon::Core;
using namespace Quillon::Testing;

class MusicFileFronts : public testing::Test {
protected:
    ServicesForTest services;
    std::filesystem::path song = services.Base / "song.qlm";
};

TEST_F(MusicFileFronts, SavedFileOpensAgain) {
    NewTabFile();
    Open.TabFile.Title = "Étude";
    ASSERT_TRUE(ForceSaveFile(song));
    EXPECT_NE(Slurp(song).substr(0, 7), "Quillon");
    const TabFile saved = Open.TabFile;

    NewTabFile();
    Open.CurString = 3;
    EXPECT_EQ(ForceOpenFile(song), OpenOutcome::Opened);
    EXPECT_EQ(Open.TabFile.Title, saved.Title);
    EXPECT_EQ(Open.FileName, song.string());
    EXPECT_FALSE(Open.FileChanged);
    EXPECT_EQ(Open.CurString, 0);
    EXPECT_TRUE(services.Messages.Texts.empty());
}

TEST_F(MusicFileFronts, DamagedFileKeepsWhatWasReadAndHoldsNoName) {
    Spill(song, EncipherMusicFile("Quillon 4.1\r\n<\xA6Half><l:x><l:3>"));
    Open.FileName = "before.qlm";
    EXPECT_EQ(ForceOpenFile(song), OpenOutcome::Damaged);
    EXPECT_EQ(Open.TabFile.Title, "Half");
    EXPECT_EQ(Open.FileName, "") << "a save must not put half a song in the place of the whole";
    EXPECT_EQ(services.Messages.Texts,
              std::vector<std::string>{"Type mismatch. Tag Number: 2 Source (Tag) Data: l:x>"});
}

TEST_F(MusicFileFronts, OtherKindsLeaveTheDocumentAlone) {
    const std::pair<std::string, OpenOutcome> rows[] = {{"not music", OpenOutcome::UnknownKind},
                                                        {"", OpenOutcome::UnknownKind},
                                                        {"Quillon 3.6\r\nrest", OpenOutcome::OldKind}};
    for (const auto& [bytes, outcome] : rows) {
        Open.TabFile.Title = "Kept";
        Open.FileName = "kept.qlm";
        Spill(song, bytes);
        EXPECT_EQ(ForceOpenFile(song), outcome);
        EXPECT_EQ(Open.TabFile.Title, "Kept");
        EXPECT_EQ(Open.FileName, "kept.qlm");
    }
    EXPECT_EQ(services.Messages.Texts.front(), LanguageText("str_UnknownFile"));
    EXPECT_EQ(services.Messages.Texts.back(), LanguageText("str_OldFile"));
}

TEST_F(MusicFileFronts, LossAsksOnceAndNoSavesNothing) {
    NewTabFile();
    Open.TabFile.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Edit(0).Harmonic = 1;
    Open.TabFile.Title = "Ω";
    Spill(song, "old");
    EXPECT_FALSE(ForceSaveFile(song));
    EXPECT_EQ(Slurp(song), "old");
    ASSERT_EQ(services.Messages.Texts.size(), 1U);
    for (const char* part : {"song.qlm", "track 1, bar 1, beat 1", "Ω"}) {
        EXPECT_NE(services.Messages.Texts[0].find(part), std::string::npos) << part;
    }
    services.Messages.Reply = Answer::Yes;
    EXPECT_TRUE(ForceSaveFile(song));
    EXPECT_NE(DecipherMusicFile(Slurp(song)).find("<\xA6?>"), std::string::npos);
}

TEST_F(MusicFileFronts, UnwritableTargetRaisesAndLeavesNothingBehind) {
    NewTabFile();
    EXPECT_THROW(ForceSaveFile(services.Base / "missing" / "song.qlm"), RunTimeError);
    EXPECT_THROW(ForceOpenFile(services.Base / "missing.qlm"), RunTimeError);
    EXPECT_EQ(Open.TabFile.Title, "Untitled");
}
