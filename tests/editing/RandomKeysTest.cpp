// Long random walks over random documents: nothing raises, the document stays whole, and undo leads back.
#include <cstdlib>
#include <random>

#include "editing/mod_BarsAndTracks.h"
#include "tests/editing/ScoreText.h"
#include "tests/support/RandomDocument.h"

namespace Quillon::Editing {
namespace {

using Core::Open;

constexpr int Documents = 24;

/// Keys in all; QUILLON_RANDOM_KEYS asks for a longer walk.
int Keys() {
    const char* const asked = std::getenv("QUILLON_RANDOM_KEYS");
    return asked ? std::max(Documents, std::atoi(asked)) : 12'000;
}

class RandomKeysTest : public EntryTest {
protected:
    void Begin(unsigned seed) {
        random.seed(seed);
        New();
        Open.TabFile = Testing::RandomDocument(seed, Testing::HeldBy::Json);
        for (Core::Track& track : Open.TabFile.Tracks) {
            for (std::int16_t& offset : track.Tuning) offset = static_cast<std::int16_t>(Between(-12, 12));
        }
        GoToTrack(Between(0, Open.TabFile.Tracks.UpperBound()));
    }
    int Between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random); }

    void GoToTrack(int track) {
        Open.CurTrack = static_cast<std::int16_t>(track);
        Open.InputMode = Between(0, 2) == 0 ? Core::NotationInput : Core::TabInput;
        ClampCursor();
    }
    /// Any code now and then; else one that means something, the ways onwards more often.
    void PressKey() {
        static constexpr int common[] = {KeyLeft,   KeyRight, KeyRight,     KeyUp,     KeyDown,        KeyDelete,
                                         KeyInsert, KeyEnter, KeyBackspace, KeypadAdd, KeypadSubtract, KeyPeriod};
        static constexpr std::string_view letters = "BHSGTVUDCLRMNOXF0123456789";
        int code = Between(1, 255);
        switch (Between(0, 9)) {
            case 0:
                break;
            case 1:
            case 2:
            case 3:
                code = letters[static_cast<std::size_t>(Between(0, static_cast<int>(letters.size()) - 1))];
                break;
            default:
                code = common[Between(0, static_cast<int>(std::size(common)) - 1)];
                break;
        }
        picDocument_KeyDown(code, Between(0, 3) == 0 ? 1 : 0);
    }
    /// An operation of menus and dialogs at a random place that exists.
    void Operate() {
        const int track = Between(0, Open.TabFile.Tracks.UpperBound());
        const int bar = Between(0, Core::NumberOfBars(track));
        const int strum = Between(0, Core::NumberOfStrums(track, bar));
        switch (Between(0, 13)) {
            case 0:
                return InsertStrum(track, bar, strum);
            case 1:
                if (Core::NumberOfStrums(track, bar) > 0) DeleteStrum(track, bar, strum);
                return;
            case 2:
                return ClearBar(track, bar);
            case 3:
                ShrinkBar(track, bar);
                return;
            case 4:
                return FixBar(track, bar);
            case 5:
                if (Between(0, 9) == 0) FixAllBars(track);
                return;
            case 6:
                return AppendBar();
            case 7:
                return InsertBar(bar);
            case 8:
            case 9:
                return RemoveBar(bar);
            case 10:
                if (Open.TabFile.Tracks.Count() < 5) AddTrack(Core::Track{});
                return;
            case 11:
                DeleteTrack(track);
                return;
            case 12:
                MoveTrackUp(track);
                return;
            default:
                MoveTrackDown(track);
                return;
        }
    }

    static bool CursorIsValid() {
        if (Open.CurTrack < 0 || Open.CurTrack > Open.TabFile.Tracks.UpperBound()) return false;
        const Core::Track& track = Open.TabFile.Tracks[Open.CurTrack];
        return Open.CurBar >= 0 && Open.CurBar <= track.Bars.UpperBound() && Open.CurStrum >= 0 &&
               Open.CurStrum <= track.Bars[Open.CurBar].Strums().UpperBound() && Open.CurString >= 0 &&
               Open.CurString <= LastString(track);
    }
    static bool DocumentIsWhole() {
        for (const Core::Track& track : Open.TabFile.Tracks) {
            if (track.Bars.Count() != Open.TabFile.BarInfos.Count()) return false;
            for (const Core::Bar& bar : track.Bars) {
                if (bar.Strums().Count() < 1) return false;
            }
        }
        return Open.TabFile.Tracks.Count() >= 1 && Open.TabFile.BarInfos.Count() >= 1;
    }

    std::mt19937 random;
};

TEST_F(RandomKeysTest, KeysAreAllTakenBackByUndo) {
    Core::Settings.UndoLevels = 32'767;
    for (unsigned seed = 1; seed <= Documents; ++seed) {
        SCOPED_TRACE(seed);
        Begin(seed);
        const Core::TabFile before = Open.TabFile;
        for (int key = 0; key < Keys() / Documents; ++key) {
            ASSERT_NO_THROW(PressKey());
            ASSERT_TRUE(CursorIsValid()) << "after key " << key;
        }
        ASSERT_TRUE(DocumentIsWhole());
        EXPECT_FALSE(Open.TabFile == before);
        for (int steps = Steps(); steps > 0; --steps) Type("Z");
        EXPECT_TRUE(Open.TabFile == before);
        EXPECT_TRUE(CursorIsValid());
        EXPECT_FALSE(CanUndo());
    }
}

TEST_F(RandomKeysTest, OperationsBetweenKeysKeepTheDocumentWhole) {
    for (unsigned seed = 101; seed <= 100 + Documents; ++seed) {
        SCOPED_TRACE(seed);
        Begin(seed);
        for (int step = 0; step < Keys() / Documents; ++step) {
            if (Between(0, 3) == 0) {
                ASSERT_NO_THROW(Operate());
            } else {
                ASSERT_NO_THROW(PressKey());
            }
            if (Between(0, 19) == 0) GoToTrack(Between(0, Open.TabFile.Tracks.UpperBound()));
            ASSERT_TRUE(CursorIsValid()) << "after step " << step;
            ASSERT_TRUE(step % 50 != 0 || DocumentIsWhole()) << "after step " << step;
        }
        ASSERT_TRUE(DocumentIsWhole());
    }
}

}  // namespace
}  // namespace Quillon::Editing
