#include "editing/mod_Retune.h"

#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::TabFile;

/// One bar of strums, each written as string:fret pairs.
TabFile Song(std::initializer_list<std::initializer_list<std::pair<int, const char*>>> strums) {
    TabFile file;
    auto& bar = file.Tracks[0].Bars.Edit(0);
    bar.EditStrums().Resize(static_cast<int>(strums.size()));
    int at = 0;
    for (const auto& notes : strums) {
        for (const auto& [string, fret] : notes) bar.EditStrums()[at].Notes.Edit(string).Fret = fret;
        ++at;
    }
    return file;
}

TEST(Retune, KeepsFretsOrPitchesAndSaysWhatCantBePlayed) {
    const TabFile song = Song({{{0, "3"}, {5, "0"}}, {{5, "5"}, {4, "x"}}});
    const TabFile low = Song({{{5, "3"}}, {{3, "2"}, {4, "2"}, {5, "0"}}});
    struct Case {
        const TabFile& Before;
        Retuning Wanted;
        const char* After;  ///< or the strum that can't be played
    };
    const Case cases[] = {
        {song, {{0, 0, 0, 0, 0, -2}, 6, false, {}}, "0{0:3 5:0} 0{4:x 5:5}"},
        {song, {{0, 0, 0, 0, 0, -2}, 6, true, {}}, "0{0:3 5:2} 0{4:x 5:7}"},
        {song, {{-1, -1, -1, -1, -1, -1}, 6, true, {}}, "0{0:4 5:1} 0{4:x 5:6}"},
        {song, {{2, 0, 0, 0, 0, 0}, 7, true, {}}, "0{0:1 5:0} 0{4:x 5:5}"},
        {song, {{2, 0, 0, 0, 0, 0}, 7, false, {}}, "0{0:3 5:0} 0{4:x 5:5}"},
        {song, {{0, 0, 0, 0, 0, 0}, 5, false, LostNotes::Remove}, "0{0:3} 0{4:x}"},
        {low, {{0, 0, 0, 0, 0, 0}, 5, false, LostNotes::Move}, "0"},   // nothing else reaches so low
        {low, {{0, 0, 0, 0, -5, 0}, 5, false, LostNotes::Move}, "1"},  // taken by what keeps its fret
        {low, {{0, 0, -5, -5, -5, 0}, 5, true, LostNotes::Move}, "0{4:3} 0{2:2 3:2 4:0}"},
    };
    for (const auto& [before, wanted, after] : cases) {
        TabFile file = before;
        const auto stuck = Retune(file, 0, wanted);
        if (stuck) {
            EXPECT_EQ(std::to_string(stuck->Strum), after);
            EXPECT_TRUE(file == before) << "a refusal changes nothing";
        } else {
            EXPECT_EQ(TextOf(file), after);
            EXPECT_EQ(file.Tracks[0].Tuning, wanted.Tuning);
            EXPECT_EQ(file.Tracks[0].Strings, wanted.Strings);
        }
    }
}

}  // namespace
}  // namespace Quillon::Editing
