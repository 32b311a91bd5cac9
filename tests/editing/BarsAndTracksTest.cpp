#include "editing/mod_BarsAndTracks.h"

#include <vector>

#include "platform/RunTimeError.h"
#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::Bar;
using Core::BarInfo;
using Core::Strum;
using Core::TabFile;
using Core::Track;

/// A document whose bars hold strums of these lengths; fret "b.s" on string 0 tells where each stood.
TabFile Document(const std::vector<std::vector<int>>& bars, int tracks = 1) {
    TabFile file;
    file.Tracks = Core::List<Track>(static_cast<std::size_t>(tracks));
    file.BarInfos.Resize(static_cast<int>(bars.size()));
    for (Track& track : file.Tracks) {
        track.Bars.Resize(static_cast<int>(bars.size()));
        for (int b = 0; b < track.Bars.Count(); ++b) {
            auto& strums = track.Bars.Edit(b).EditStrums();
            const auto& lengths = bars[static_cast<std::size_t>(b)];
            strums.Resize(static_cast<int>(lengths.size()));
            for (int s = 0; s < strums.Count(); ++s) {
                strums[s].Length = lengths[static_cast<std::size_t>(s)];
                strums[s].Notes.Edit(0).Fret = std::to_string(b) + std::to_string(s);
            }
        }
    }
    return file;
}

template <class Act>
void ExpectRaises(TabFile& file, Act act, const char* what) {
    const TabFile before = file;
    EXPECT_THROW(act(), RunTimeError) << what;
    EXPECT_TRUE(file == before) << what;
}

TEST(Strums, AreInsertedAndDeletedAsWholeRecords) {
    TabFile file = Document({{2, 3, 3}});
    file.Tracks[0].Bars.Edit(0).EditStrums()[1].Text = "la";
    InsertStrum(file, 0, 0, 1);
    EXPECT_EQ(TextOf(file), "2{0:00} 3\"la\" 3{0:01}\"la\" 3{0:02}") << "length and text stay in the new one";
    InsertStrum(file, 0, 0, 4);
    DeleteStrum(file, 0, 0, 0);
    DeleteStrum(file, 0, 0, 2);
    EXPECT_EQ(TextOf(file), "3\"la\" 3{0:01}\"la\" 0");
    ExpectRaises(
        file, [&] { InsertStrum(file, 0, 0, 4); }, "past the end");
    ExpectRaises(
        file, [&] { DeleteStrum(file, 0, 0, 3); }, "past the end");
    ExpectRaises(
        file, [&] { DeleteStrum(file, 0, 0, -1); }, "below 0");
    ExpectRaises(
        file, [&] { DeleteStrum(file, 1, 0, 0); }, "no such track");
    TabFile one = Document({{2}});
    ExpectRaises(
        one, [&] { DeleteStrum(one, 0, 0, 0); }, "a bar keeps a strum");
}

TEST(Bars, ShrinkByAStrumOrAsAWhole) {
    TabFile file = Document({{2, 2}, {2}, {3}});
    file.BarInfos.Edit(2).RepeatClose = 2;
    EXPECT_EQ(ShrinkBar(file, 0, 0), Dropped::Strum);
    EXPECT_EQ(ShrinkBar(file, 0, 0), Dropped::Nothing);
    EXPECT_EQ(ShrinkBar(file, 0, 1), Dropped::Bar);
    EXPECT_EQ(TextOf(file), "2{0:00} | 3{0:20}");
    EXPECT_EQ(file.BarInfos.Count(), 2);
    EXPECT_EQ(file.BarInfos[1].RepeatClose, 2) << "bars behind stay";
    TabFile several = Document({{2}, {2}}, 2);
    EXPECT_EQ(ShrinkBar(several, 0, 1), Dropped::Nothing);
    EXPECT_TRUE(several == Document({{2}, {2}}, 2));
}

TEST(Bars, AreInsertedWithTheSignaturesOfTheBarBehind) {
    TabFile file = Document({{2}, {2}}, 2);
    BarInfo& info = file.BarInfos.Edit(1);
    info.TimeSigTop = 3;
    info.TimeSigBottom = 8;
    info.RepeatOpen = true;
    info.Segno = 1;
    Bar& keyed = file.Tracks[1].Bars.Edit(1);
    keyed.Key = 9;
    keyed.KeyIsMinor = true;
    InsertBar(file, 1);
    InsertBar(file, 3);
    for (const int track : {0, 1}) EXPECT_EQ(TextOf(file, track), "2{0:00} | 2 | 2{0:10} | 2");
    for (const int bar : {1, 3}) {
        EXPECT_EQ(file.BarInfos[bar].TimeSigTop, 3);
        EXPECT_EQ(file.BarInfos[bar].TimeSigBottom, 8);
        EXPECT_FALSE(file.BarInfos[bar].RepeatOpen);
        EXPECT_EQ(file.BarInfos[bar].Segno, 0);
        EXPECT_EQ(file.Tracks[1].Bars[bar].Key, 9);
        EXPECT_TRUE(file.Tracks[1].Bars[bar].KeyIsMinor);
        EXPECT_EQ(file.Tracks[0].Bars[bar].Key, 0);
    }
    EXPECT_TRUE(file.BarInfos[2].RepeatOpen);
    ExpectRaises(
        file, [&] { InsertBar(file, 5); }, "past the end");
    RemoveBar(file, 0);
    RemoveBar(file, 0);
    EXPECT_EQ(TextOf(file), "2{0:10} | 2");
    EXPECT_TRUE(file.BarInfos[0].RepeatOpen);
    ExpectRaises(
        file, [&] { RemoveBar(file, 2); }, "past the end");
}

TEST(Bars, TheOnlyOneIsEmptiedAndNotRemoved) {
    TabFile file = Document({{3, 2}}, 2);
    RemoveBar(file, 0);
    for (const int track : {0, 1}) EXPECT_EQ(TextOf(file, track), "3");
    EXPECT_EQ(file.BarInfos.Count(), 1);
}

TEST(Bars, CantBeMoreThanAnIndexCounts) {
    TabFile file;
    file.Tracks[0].Bars.Resize(32768);
    file.BarInfos.Resize(32768);
    EXPECT_THROW(AppendBar(file), RunTimeError);
    EXPECT_EQ(file.Tracks[0].Bars.Count(), 32768);
}

TEST(Bars, FilledOnesTakeTheLargestRestsThatFit) {
    struct Case {
        int Top, Bottom;
        const char* Fixed;
    };
    const Case cases[] = {
        {4, 4, "2{0:00} 1 2"}, {7, 8, "2{0:00} 1 3"},    {1, 4, "2{0:00}"},
        {1, 8, "2{0:00}"},     {13, 4, "2{0:00} 0 0 0"}, {11, 32, "2{0:00} 4 5"},
    };
    for (const Case& each : cases) {
        TabFile file = Document({{2}});
        file.BarInfos.Edit(0).TimeSigTop = each.Top;
        file.BarInfos.Edit(0).TimeSigBottom = each.Bottom;
        FixBar(file, 0, 0);
        EXPECT_EQ(TextOf(file), each.Fixed) << each.Top << "/" << each.Bottom;
    }
}

TEST(Bars, FractionsOfA64thAreFilledWithTuplets) {
    const auto left = [](std::int32_t tuplet, int strums) {  // a bar of 1/32, two 64ths, some of it taken
        TabFile file = Document({{6}});
        file.BarInfos.Edit(0).TimeSigTop = 1;
        file.BarInfos.Edit(0).TimeSigBottom = 32;
        auto& list = file.Tracks[0].Bars.Edit(0).EditStrums();
        list.Resize(1 + strums);
        for (int s = 1; s <= strums; ++s) {
            list[s].Length = 6;
            list[s].HasTuplet = true;
            list[s].Tuplet = tuplet;
        }
        FixBar(file, 0, 0);
        std::string rests;
        for (int s = 1 + strums; s < file.Tracks[0].Bars[0].Strums().Count(); ++s) {
            rests += (rests.empty() ? "" : " ") + TextOf(file.Tracks[0].Bars[0].Strums()[s]);
        }
        return rests + (BarFullness(file, 0, 0) == Fullness::Full ? "" : " over");
    };
    EXPECT_EQ(left(0, 1), "6t2");         // 1/3
    EXPECT_EQ(left(1, 1), "6t1 6t5");     // 3/5 = 2/5 + 2/10
    EXPECT_EQ(left(8, 6), "0 over");      // 1/13 is below the ladder: a whole note, as meant
    EXPECT_EQ(left(8, 5), "6t4 0 over");  // 3/13 = 2/9 + next to nothing
}

TEST(Bars, OverfullOnesAreCutAndFilled) {
    TabFile file = Document({{2, 2, 2, 2, 2}, {0}, {1}, {2, 0}});
    file.Tracks[0].Bars.Edit(1).EditStrums()[0].Dotted = true;
    file.BarInfos.Edit(2).TimeSigTop = 3;
    file.BarInfos.Edit(2).TimeSigBottom = 8;
    FixAllBars(file, 0);
    EXPECT_EQ(TextOf(file), "2{0:00} 2{0:01} 2{0:02} 2{0:03} | 0{0:10} | 2{0:20} 3 | 2{0:30} 1 2");
    const TabFile fixed = file;
    FixAllBars(file, 0);
    EXPECT_TRUE(file == fixed);
}

TEST(Bars, ABarThatCantBeFilledRaisesAndStays) {
    TabFile file = Document({{2}});
    AppendBar(file);
    file.BarInfos.Edit(1).TimeSigTop = 2'000'000'000;
    ExpectRaises(
        file, [&] { FixAllBars(file, 0); }, "more strums than an index counts");
    RemoveBar(file, 1);
    file.BarInfos.Edit(0).TimeSigTop = 0;
    FixAllBars(file, 0);
    EXPECT_EQ(TextOf(file), "6{0:00}") << "nothing fits a bar of no length; the shortest stays";
}

TEST(Tracks, LyricsFollowThemAndTheLastOneStays) {
    TabFile file = Document({{2}, {2}}, 3);
    for (int t = 0; t < 3; ++t) file.Tracks[t].Name = std::string(1, static_cast<char>('A' + t));
    file.Tracks[0].LyricsOfOtherTrack = 1;
    file.Tracks[0].LyricsTrack = 2;
    const auto names = [&] {
        std::string text;
        for (const Track& track : file.Tracks) text += track.Name;
        return text;
    };
    EXPECT_FALSE(MoveTrackUp(file, 0));
    EXPECT_FALSE(MoveTrackDown(file, 2));
    EXPECT_TRUE(MoveTrackUp(file, 2));
    EXPECT_EQ(names(), "ACB");
    EXPECT_EQ(file.Tracks[0].LyricsTrack, 1);
    EXPECT_EQ(file.Tracks[2].LyricsTrack, 0) << "a track with lyrics of its own";
    EXPECT_TRUE(MoveTrackDown(file, 0));
    EXPECT_EQ(names(), "CAB");
    EXPECT_EQ(file.Tracks[1].LyricsTrack, 0);
    AddTrack(file, Track{});
    EXPECT_EQ(TextOf(file, 3), "2 | 2");
    EXPECT_TRUE(DeleteTrack(file, 0));
    EXPECT_EQ(names(), "ABTrack 1");
    EXPECT_EQ(file.Tracks[0].LyricsOfOtherTrack, 0) << "its words are gone";
    EXPECT_TRUE(DeleteTrack(file, 2));
    EXPECT_TRUE(DeleteTrack(file, 0));
    EXPECT_FALSE(DeleteTrack(file, 0));
    EXPECT_EQ(names(), "B");
    ExpectRaises(
        file, [&] { DeleteTrack(file, 1); }, "no such track");
    ExpectRaises(
        file, [&] { MoveTrackUp(file, 1); }, "no such track");
}

class OpenBars : public EntryTest {};

TEST_F(OpenBars, FrontsKeepTheCursorOnWhatIsLeft) {
    using Core::Open;
    Open.TabFile = Document({{2, 2}, {2, 2}, {2}});
    Open.CurBar = 2;
    ShrinkBar(0, 2);
    EXPECT_EQ(Cursor(), "1 1 0");
    ClearBar(0, 1);
    EXPECT_EQ(Cursor(), "1 0 0");
    Open.CurBar = 1;
    RemoveBar(1);
    EXPECT_EQ(Cursor(), "0 0 0");
    EXPECT_TRUE(Open.FileChanged);
    AddTrack(Track{});
    EXPECT_EQ(Open.CurTrack, 1);
    MoveTrackUp(1);
    EXPECT_EQ(Open.CurTrack, 0) << "on the same music";
    MoveTrackUp(1);
    EXPECT_EQ(Open.CurTrack, 1);
    DeleteTrack(0);
    EXPECT_EQ(Open.CurTrack, 0);
    EXPECT_EQ(Score(), "2");
}

}  // namespace
}  // namespace Quillon::Editing
