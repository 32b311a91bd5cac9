#include <filesystem>
#include <vector>

#include "core/mod_MusicFile.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/JsonDocument.h"
#include "tests/support/Fixture.h"
#include "tests/support/Golden.h"

namespace Quillon::Exchange {

namespace fs = std::filesystem;
using Core::TabFile;
using Testing::Slurp;

namespace {

std::vector<fs::path> Songs() {
    std::vector<fs::path> songs;
    for (const auto& entry : fs::directory_iterator(fs::path(QUILLON_SOURCE_DIR) / "examples")) {
        if (entry.path().extension() == ".json") songs.push_back(entry.path());
    }
    return songs;
}

}  // namespace

/// The songs are what a newcomer opens first: nothing in them may be lost, cut short or left half full.
TEST(Examples, ReadTheSameFromBothFilesAndHaveFullBars) {
    Testing::ServicesForTest services;
    const TabFile fresh = Core::MakeNewTabFile(services.Settings);
    ASSERT_FALSE(Songs().empty());
    for (fs::path path : Songs()) {
        SCOPED_TRACE(path.filename());
        const TabFile song = ReadJson(Slurp(path), services.Settings);
        EXPECT_TRUE(Core::SaveLosses(song).empty());

        path.replace_extension(".qlm");
        const auto music = Core::ReadTabFileText(Core::DecipherMusicFile(Slurp(path)), fresh);
        ASSERT_FALSE(music.Stopped) << music.Stopped->Message();
        EXPECT_TRUE(music.Document == song) << "make the music file anew, or compare quillon-cli dump of both";

        EXPECT_GE(song.BarInfos.Count(), 16);
        for (int t = 0; t < song.Tracks.Count(); ++t) {
            for (int bar = 0; bar < song.BarInfos.Count(); ++bar) {
                EXPECT_NEAR(Core::BarLength64ths(song.Tracks[t].Bars[bar]), Core::BarLengthIn64ths(song, bar), 1e-9)
                    << "track " << t << ", bar " << bar;
            }
        }
    }
}

}  // namespace Quillon::Exchange
