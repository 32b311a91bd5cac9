// Single functions of layout and notation against tables worked out independently.
#include <nlohmann/json.hpp>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/NotationParts.h"
#include "drawing/mod_PageLayout.h"
#include "tests/support/Golden.h"

using namespace Quillon;
using namespace Quillon::Drawing;
using nlohmann::json;

namespace {

const json& Vectors(const char* name) {
    static const json all = json::parse(Testing::Slurp(Testing::GoldenDir() / "layout" / "vectors.json"));
    return all.at(name);
}

Core::Track TrackWith(bool treble, bool bass, bool tab, int strings, bool lyricStaff) {
    Core::Track track;
    track.ShowTreble = treble;
    track.ShowBass = bass;
    track.ShowTab = tab;
    track.Strings = Core::ToInt16(strings);
    track.ShowStaff = lyricStaff;
    track.LyricsOfOtherTrack = lyricStaff ? 1 : 0;
    return track;
}

Core::Strum StrumOf(const json& from) {
    Core::Strum strum;
    strum.Length = from.at("Length");
    strum.Dotted = from.at("Dotted");
    strum.HasTuplet = from.at("HasTuplet");
    strum.Tuplet = from.at("Tuplet");
    return strum;
}

}  // namespace

TEST(LayoutVectors, PaperSize) {
    for (const json& row : Vectors("PaperSize")) {
        PageSetup page;
        page.PaperSizeIndex = row[0];
        page.IsLandscape = row[1];
        ApplyPaperSize(page);
        EXPECT_EQ(page.PageWidth, row[2]) << row;
        EXPECT_EQ(page.PageHeight, row[3]) << row;
    }
}

TEST(LayoutVectors, Heights) {
    for (const json& row : Vectors("RowHeight")) {
        EXPECT_EQ(RowHeight(TrackWith(row[0] == 1, row[1] == 1, row[2] == 1, row[3], row[4] == 1)), row[5]) << row;
    }
    for (const json& row : Vectors("TabOffset")) {
        EXPECT_EQ(TabOffset(TrackWith(row[0] == 1, row[1] == 1, true, 6, false)), row[2]) << row;
    }
    for (const json& row : Vectors("NotationBaseOffset")) {
        EXPECT_EQ(NotationBaseOffset(TrackWith(row[0] == 1, row[1] == 1, true, 6, false)), row[2]) << row;
    }
}

TEST(LayoutVectors, StrumLength) {
    for (const json& row : Vectors("StrumLength")) {
        EXPECT_DOUBLE_EQ(Core::StrumLength(row[0], row[1], row[2], row[3]), row[4].get<double>()) << row;
    }
}

TEST(LayoutVectors, PitchesAndHeights) {
    for (const json& row : Vectors("PitchToStaffY")) {
        EXPECT_EQ(PitchToStaffY(row[0], false), row[1]) << row;
        EXPECT_EQ(PitchToStaffY(row[0], true), row[2]) << row;
    }
    for (const json& row : Vectors("StaffYToPitch")) EXPECT_EQ(StaffYToPitch(row[0]), row[1]) << row;
    for (const json& row : Vectors("KeyUsesFlats")) EXPECT_EQ(KeyUsesFlats(row[0]), row[1]) << row;
    for (const json& row : Vectors("DrumLaneFromY_proposal")) EXPECT_EQ(DrumLaneFromY(row[0]), row[1]) << row;
    for (const json& row : Vectors("StringFromY")) EXPECT_EQ(StringFromY(row[0], 99), row[1]) << row;
}

TEST(LayoutVectors, Tuplets) {
    for (const json& row : Vectors("TupletNumber")) EXPECT_EQ(TupletNumber(row[0]), row[1]) << row;
    for (const json& row : Vectors("TupletCount")) {
        EXPECT_EQ(TupletCount(row[0], false), row[1]) << row;
        EXPECT_EQ(TupletCount(row[0], true), row[2]) << row;
    }
}

TEST(LayoutVectors, StemsGroupsAndHeads) {
    for (const json& row : Vectors("StemUp")) EXPECT_EQ(StemUp(row[0], false), row[1]) << row;
    for (const json& row : Vectors("BeamGroups")) {
        Core::Bar bar;
        bar.EditStrums().Resize(0);
        for (const json& strum : row["Strums"]) bar.EditStrums().Add(StrumOf(strum));
        Core::BarInfo info;
        info.TimeSigTop = row["Top"];
        info.TimeSigBottom = row["Bottom"];
        json groups = json::array();
        for (const BeamGroup& group : BeamGroups(Core::Track{}, bar, info)) groups.push_back({group.First, group.Last});
        EXPECT_EQ(groups, row["Groups"]) << row["why"];
    }
    for (const json& row : Vectors("HeadOffsets")) {
        Core::Strum strum;
        for (const json& note : row[0]) {
            strum.Notes.Edit(note[0].get<int>()).Fret =
                std::to_string(note[1].get<int>() - Core::DefaultStringPitch(note[0]));
        }
        json offsets = json::array();
        for (const Head& head : StrumHeads(Core::Track{}, strum, false)) offsets.push_back({head.String, head.DX});
        EXPECT_EQ(offsets, row[1]) << row;
    }
}

TEST(LayoutVectors, Keys) {
    for (const json& row : Vectors("KeyList_proposal")) {
        EXPECT_EQ(KeySigns(row[0]), row[3].get<int>() - row[4].get<int>()) << row;
    }
}

TEST(LayoutVectors, Pages) {
    for (const json& row : Vectors("PageLeftX")) {
        DocumentView view;
        view.ScaleWidth = row[0];
        EXPECT_EQ(PageLeftX(PageSetup{}, view), row[1]) << row;
    }
    for (const json& row : Vectors("RowsPerPage")) EXPECT_EQ(RowsPerPage(PageSetup{}, row[0], row[1]), row[2]) << row;
    // One bar a row: 30 bars of 20 strums of tab.
    Core::TabFile file;
    Core::Track& track = file.Tracks[0];
    track.ShowTreble = false;
    track.Bars.Resize(30);
    file.BarInfos.Resize(30);
    for (int bar = 0; bar < 30; ++bar) Core::SetBarStrums(track.Bars.Edit(bar), 19);
    for (const json& row : Vectors("FirstBarOfPage_asWritten")) {
        file.RowSpacing = row[0];
        for (int page = 0; page < 4; ++page) {
            EXPECT_EQ(FirstBarOfPage(PageSetup{}, file, 0, page), row[1][static_cast<std::size_t>(page)])
                << row << page;
        }
    }
}

TEST(Layout, RowsWithoutHeightFindNoRoom) {
    EXPECT_EQ(RowsPerPage(PageSetup{}, 50, -50), 0);
    EXPECT_LT(RowsPerPage(PageSetup{}, 50, -150), 0);
}

TEST(Layout, EveryColumnOfAStretchedBarIsHit) {
    Core::TabFile file;
    Core::SetBarStrums(file.Tracks[0].Bars.Edit(0), 2);
    for (Core::Strum& strum : file.Tracks[0].Bars.Edit(0).EditStrums()) strum.Length = 2;
    PageSetup page;
    LayOutTrack(page, {102, 35}, file, 0, 0);
    const Core::BarPlace& place = file.Tracks[0].Bars[0].Place;
    ASSERT_GT(place.StrumX[2], place.BarX + BarPixelWidth(file.Tracks[0].Bars[0], place.BarStep));
    for (int strum = 0; strum < 3; ++strum) {
        const Hit hit = HitTest(file, 0, place.StrumX[strum] + 1, place.BarY + 10);
        EXPECT_TRUE(hit.OnBar);
        EXPECT_EQ(hit.Strum, strum);
    }
}

TEST(Layout, AColumnBelongsToItsOwnBar) {
    Core::TabFile file;
    file.Tracks[0].Bars.Resize(2);
    file.BarInfos.Resize(2);
    Core::SetBarStrums(file.Tracks[0].Bars.Edit(0), 40);  // far past its time signature
    PageSetup page;
    LayOutTrack(page, {102, 35}, file, 0, 0);
    for (int bar = 0; bar < 2; ++bar) {
        const Core::BarPlace& place = file.Tracks[0].Bars[bar].Place;
        const Hit hit = HitTest(file, 0, place.StrumX[0], place.BarY + 10);
        EXPECT_EQ(hit.Bar, bar);
        EXPECT_EQ(hit.Strum, 0);
    }
}
