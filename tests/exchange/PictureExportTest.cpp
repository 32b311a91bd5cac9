#include "exchange/PictureExport.h"

#include <gtest/gtest.h>

#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/headless/NoPicture.h"
#include "platform/portable/PosixFiles.h"
#include "tests/support/Golden.h"

namespace Quillon::Exchange {
namespace {

class PictureExportTest : public testing::Test {
protected:
    PictureExportTest() {
        Services.Files = &files;
        Core::Open = {};
        Drawing::Page = {};
        // Ten bars to a row at most: enough of them for a second page.
        Core::Track& track = Core::Open.TabFile.Tracks[0];
        track.Bars.Resize(120);
        Core::Open.TabFile.BarInfos.Resize(120);
    }
    ~PictureExportTest() override {
        Services = {};
        Core::Open = {};
        Drawing::Page = {};
    }
    /// Stands for an encoder: the file's bytes are the picture's size.
    static std::string Size(const Sheet& sheet, const std::function<void(Picture&)>& paint) {
        NoPicture picture;
        paint(picture);
        return std::to_string(static_cast<int>(sheet.Width)) + "x" + std::to_string(static_cast<int>(sheet.Height));
    }

    Testing::ScratchFolder folder;
    PosixFiles files;
};

TEST_F(PictureExportTest, PagesAreNumberedBeforeTheEndingUnlessThereIsOne) {
    const auto all = ExportPictures(folder / "my.song.PNG", {}, Size);
    ASSERT_GT(all.size(), 1U);
    EXPECT_EQ(all[0], folder / "my.song-1.PNG");
    EXPECT_EQ(all[1], folder / "my.song-2.PNG");
    EXPECT_EQ(Testing::Slurp(all[1]), "795x1124");
    EXPECT_FALSE(files.Exists(folder / "my.song.PNG"));
    EXPECT_EQ(ExportPictures(folder / "one.svg", {.Page = 2}, Size),
              std::vector<std::filesystem::path>{folder / "one.svg"});
    Core::Open.TabFile.Tracks[0].Bars.Resize(1);
    EXPECT_EQ(ExportPictures(folder / "short.svg", {}, Size).front(), folder / "short.svg");
}

TEST_F(PictureExportTest, APageOrTrackThatIsNotThereWritesNothing) {
    for (const PictureOptions& wrong : {PictureOptions{.Track = 1}, PictureOptions{.Track = -1},
                                        PictureOptions{.Page = 99}, PictureOptions{.Page = -1}}) {
        EXPECT_THROW(ExportPictures(folder / "no.png", wrong, Size), RunTimeError);
    }
    EXPECT_TRUE(files.FilesIn(folder / "").empty());
}

TEST_F(PictureExportTest, KindsByEnding) {
    EXPECT_EQ(PictureKindOf("a.SVG"), PictureKind::Svg);
    EXPECT_EQ(PictureKindOf("a.jpeg"), PictureKind::Jpeg);
    EXPECT_EQ(PictureKindOf("a.b.bmp"), PictureKind::Bmp);
    EXPECT_EQ(PictureKindOf("png"), std::nullopt);
}

}  // namespace
}  // namespace Quillon::Exchange
