#include "editing/mod_Lyrics.h"

#include "core/mod_MusicFile.h"
#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Syllables = std::vector<std::string>;

TEST(Lyrics, TextIsDividedAndJoined) {
    struct Case {
        const char* Text;
        Syllables Parts;
        const char* Joined;
    };
    const Case cases[] = {
        {"", {}, ""},
        {"Hal-lo  you\nthere ", {"Hal-", "lo", "you", "there"}, "Hal-lo you there"},
        {"love__ me_do", {"love", "", "", "me", "", "do"}, "love__ me_ do"},
        {"_a-_ b", {"", "a-", "", "b"}, "_ a-_b"},
        {"of~the \\_ x\\-y \\~ rock-", {"of the", "_", "x-y", "~", "rock-"}, "of~the \\_ x\\-y \\~ rock-"},
        {"la - la --", {"la", "-", "la", "-", "-"}, "la - la - -"},
        {"end__ ", {"end", "", ""}, "end"},
        {"\\", {"\\"}, "\\\\"},
    };
    for (const auto& [text, parts, joined] : cases) {
        EXPECT_EQ(DivideLyrics(text), parts) << text;
        EXPECT_EQ(JoinLyrics(parts), joined);
        Syllables again = DivideLyrics(joined);
        again.resize(parts.size());
        EXPECT_EQ(again, parts) << joined;
    }
    for (const char* odd : {"a- ", " -", "--", "\\-", "a b-c_", "\n", "ü-ß"}) {
        EXPECT_EQ(DivideLyrics(JoinLyrics({odd, "x"})), (Syllables{odd, "x"})) << odd;
    }
}

TEST(Lyrics, GoToStrumsWithNotesAndThroughTheMusicFile) {
    Core::TabFile file;
    Core::Track& track = file.Tracks[0];
    auto& strums = track.Bars.Edit(0).EditStrums();
    strums.Resize(4);
    EXPECT_EQ(LyricPlaces(track).size(), 4U) << "all, as none has a note";
    strums[1].Notes.Edit(0).Fret = "5";
    strums[3].Notes.Edit(2).Fret = "x";
    strums[2].Syllables.Edit()[4] = "kept";
    EXPECT_EQ(LyricPlaces(track), (std::vector<LyricPlace>{{0, 1}, {0, 2}, {0, 3}}));

    const Syllables line = DivideLyrics("Hal-_lo");
    for (std::size_t i = 0; i < line.size(); ++i) strums[static_cast<int>(i) + 1].Syllables.Edit()[0] = line[i];
    EXPECT_EQ(Core::PackLyrics(track)[0], "`££$Hal-££$`££$lo");
    Core::Track read = track;
    for (auto& strum : read.Bars.Edit(0).EditStrums()) strum.Syllables.Clear();
    read.Lyrics = Core::PackLyrics(track);
    Core::UnpackLyrics(read);
    EXPECT_TRUE(read == track);
}

}  // namespace
}  // namespace Quillon::Editing
