#include "editing/mod_BarClipboard.h"

#include "tests/editing/ScoreText.h"

namespace Quillon::Editing {
namespace {

using Core::TabFile;
using Core::Track;

/// Tracks of bars of a quarter each, with the letters of a word as their frets; "-" for none.
TabFile Song(std::initializer_list<const char*> words) {
    TabFile file;
    file.Tracks = Core::List<Track>(words.size());
    int t = 0;
    for (const std::string word : words) {
        Track& track = file.Tracks[t++];
        const int bars = static_cast<int>(word.size());
        track.Bars.Resize(bars);
        file.BarInfos.Resize(bars);
        for (int b = 0; b < bars; ++b) {
            auto& strum = track.Bars.Edit(b).EditStrums()[0];
            strum.Length = 2;
            const char letter = word[static_cast<std::size_t>(b)];
            if (letter != '-') strum.Notes.Edit(0).Fret = std::string(1, letter);
        }
    }
    return file;
}

std::string Words(const TabFile& file) {
    std::string text;
    for (const Track& track : file.Tracks) {
        EXPECT_EQ(track.Bars.Count(), file.BarInfos.Count());
        if (!text.empty()) text += " ";
        for (const Core::Bar& bar : track.Bars) {
            const std::string& fret = bar.Strums()[0].Notes[0].Fret;
            text += fret.empty() ? "-" : fret;
        }
    }
    return text;
}

TEST(BarClipboard, CutsCopiesAndPastes) {
    struct Case {
        BarRange Bars;
        int From;
        int To;
        int At;
        PasteMode Mode;
        int Times;
        const char* AfterCut;
        const char* AfterPaste;  ///< into the song as it was before the cut
    };
    using enum PasteMode;
    const Case cases[] = {
        {{1, 2}, AllTracks, 0, 0, Insert, 1, "03 47", "120123 564567"},
        {{1, 2}, AllTracks, 0, 4, Insert, 2, "03 47", "01231212 45675656"},
        {{0, 0}, AllTracks, 0, 3, Overwrite, 2, "123 567", "01200 45644"},
        {{0, 3}, AllTracks, 0, 0, Overwrite, 1, "- -", "0123 4567"},
        {{1, 2}, 0, 1, 0, Insert, 1, "0--3 4567", "--0123 124567"},
        {{1, 2}, 0, 1, 3, Overwrite, 1, "0--3 4567", "0123- 45612"},
        {{3, 3}, 1, 1, 4, Overwrite, 1, "0123 456-", "0123- 45677"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.AfterPaste);
        const TabFile song = Song({"0123", "4567"});
        TabFile pasted = song, cut = song;
        const CopiedBars copied = CopyBars(song, each.Bars, each.From);
        CutBars(cut, each.Bars, each.From);
        EXPECT_EQ(Words(cut), each.AfterCut);
        PasteBars(pasted, copied, each.To, each.At, each.Mode, each.Times);
        EXPECT_EQ(Words(pasted), each.AfterPaste);
    }
}

TEST(BarClipboard, SignaturesComeWithBarsAndSignsOnlyWithAllTracks) {
    TabFile song = Song({"0123", "4567"});
    song.BarInfos.Edit(1) = {.TimeSigTop = 3, .TimeSigBottom = 8, .Segno = 1, .RepeatClose = 2};
    const CopiedBars one = CopyBars(song, {1, 1}, 0);
    const CopiedBars all = CopyBars(song, {1, 1}, AllTracks);
    TabFile file = song;
    PasteBars(file, one, 0, 3, PasteMode::Overwrite, 1);
    EXPECT_TRUE(file.BarInfos[3] == song.BarInfos[3]) << "the other track's music stands there too";
    PasteBars(file, one, 0, 4, PasteMode::Insert, 1);
    EXPECT_EQ(file.BarInfos[4].TimeSigTop, 3);
    EXPECT_EQ(file.BarInfos[4].RepeatClose, 0);
    PasteBars(file, all, 0, 0, PasteMode::Overwrite, 1);
    EXPECT_TRUE(file.BarInfos[0] == song.BarInfos[1]);
}

TEST(BarClipboard, RefusesWhatFitsNowhereAndChangesNothing) {
    TabFile song = Song({"01", "23"});
    song.Tracks[1].IsDrum = true;
    const CopiedBars strings = CopyBars(song, {0, 0}, 0);
    const CopiedBars all = CopyBars(song, {0, 1}, AllTracks);
    EXPECT_EQ(CanPaste(song, strings, 0), PasteFault::None);
    EXPECT_EQ(CanPaste(song, strings, 1), PasteFault::DrumsAndStrings);
    EXPECT_EQ(CanPaste(Song({"0"}), all, 0), PasteFault::TooFewTracks);
    EXPECT_EQ(CanPaste(Song({"0", "1"}), all, 0), PasteFault::DrumsAndStrings);
    TabFile three = Song({"0", "-", "1"});
    three.Tracks[1].IsDrum = true;
    PasteBars(three, all, 0, 1, PasteMode::Insert, 1);
    EXPECT_EQ(Words(three), "001 -23 1--") << "a track that was not copied gets empty bars";
    const TabFile before = song;
    EXPECT_THROW(PasteBars(song, all, 0, 2, PasteMode::Overwrite, 32767), RunTimeError);
    EXPECT_THROW(PasteBars(song, all, 0, 3, PasteMode::Insert, 1), RunTimeError);
    EXPECT_THROW(PasteBars(song, strings, 2, 0, PasteMode::Insert, 1), RunTimeError) << "a track that is not there";
    EXPECT_THROW(CopyBars(song, {0, 2}, 0), RunTimeError);
    EXPECT_THROW(CutBars(song, {1, 0}, 0), RunTimeError);
    EXPECT_TRUE(song == before);
}

}  // namespace
}  // namespace Quillon::Editing
