#include "shell/Boards.h"

#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_NoteEntry.h"
#include "shell/Commands.h"
#include "shell/RightMenu.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;

std::string Told(const std::optional<BoardCell>& cell) {
    return cell ? std::to_string(cell->String) + ":" + std::to_string(cell->Fret) : "-";
}

TEST(FretboardGeometryTest, APointIsTheCellThatItLiesOn) {
    struct Case {
        const char* Why;
        int Strings, Capo, Scroll;
        double Width;
        int First, Last;
        const char* Cells;  ///< of the open column, the first fret in view and the last, on the lowest string
    };
    const Case cases[] = {{"all", 6, 0, 0, 1000, 1, 24, "5:0 5:1 5:24"},
                          {"scrolled to the end", 6, 0, 99, 1000, 6, 29, "5:0 5:6 5:29"},
                          {"narrow", 6, 0, 0, 400, 1, 15, "5:0 5:1 5:15"},
                          {"bass", 4, 0, 0, 1000, 1, 24, "3:0 3:1 3:24"},
                          {"capo: frets count from it", 7, 2, 0, 1000, 1, 24, "6:0 - 6:22"},
                          {"one string", 1, 0, 0, 1000, 1, 24, "0:0 0:1 0:24"}};
    for (const Case& c : cases) {
        Core::Track track;
        track.Strings = static_cast<std::int16_t>(c.Strings);
        track.Capo = static_cast<std::int16_t>(c.Capo);
        const FretboardGeometry board(track, c.Scroll, c.Width, 180);
        EXPECT_EQ(board.First(), c.First) << c.Why;
        EXPECT_EQ(board.Last(), c.Last) << c.Why;
        const double y = board.StringY(c.Strings - 1) + 1;
        const double firstX = (board.WireX(board.First() - 1) + board.WireX(board.First())) / 2;
        EXPECT_EQ(Told(board.At(5, y)) + " " + Told(board.At(firstX, y)) + " " + Told(board.At(board.Right() - 1, y)),
                  c.Cells)
            << c.Why;
        // Where a note is drawn is where it is hit.
        for (int fret = 0; fret <= Editing::HighestFret; ++fret) {
            if (!board.Shows(fret)) continue;
            EXPECT_EQ(board.At(board.NoteX(fret), board.StringY(0)), (BoardCell{0, fret})) << c.Why << fret;
        }
        EXPECT_FALSE(board.At(c.Width / 2, board.Bottom() + 1));
        EXPECT_FALSE(board.At(-1, y));
    }
    const FretboardGeometry board(Core::Track{}, 0, 1000, 180);
    EXPECT_NEAR(board.WireX(12) - board.WireX(0), 2 * (board.WireX(24) - board.WireX(12)), 1e-6) << "an octave halves";
    EXPECT_EQ(board.ScrollTo(26), 2);
    EXPECT_EQ(board.ScrollTo(0), 0);
}

TEST(PianoGeometryTest, BlackKeysLieOverWhiteOnes) {
    const PianoGeometry piano(Core::Track{}, 1000, 120);
    EXPECT_EQ(piano.Whites().size(), 52U);
    EXPECT_EQ(piano.Blacks().size(), 36U);
    for (const auto* keys : {&piano.Whites(), &piano.Blacks()}) {
        for (const PianoGeometry::Key& key : *keys) {
            EXPECT_EQ(piano.At(key.X + key.Width / 2, PianoGeometry::KeyTop + key.Height - 2), key.Pitch);
        }
    }
    const PianoGeometry::Key& black = *piano.Find(61);
    EXPECT_EQ(piano.At(black.X + 1, 100), 60);
    EXPECT_EQ(PianoGeometry(Core::Track{}, 400, 120).Lowest(), 36) << "a guitar's octaves when there is little room";
    EXPECT_TRUE(PianoReaches(Core::Track{}, 40));
    EXPECT_FALSE(PianoReaches(Core::Track{}, 39));
}

class BoardsTest : public ShellTest {
protected:
    BoardsTest() {
        Start("");
        Core::SetBarStrums(Open.TabFile.Tracks[0].Bars.Edit(0), 3);
        for (int s = 0; s < 4; ++s) Core::EditStrum(0, 0, s).Length = 2;
    }
    static Core::Note& Note(int strum, int string) { return Core::EditStrum(0, 0, strum).Notes.Edit(string); }
    static std::string Shown() {
        std::string text;
        for (const BoardNote& note : BoardNow()) {
            text += std::to_string(note.String) + ":" + std::to_string(note.Fret) + "PGDCRd"[static_cast<int>(note.Is)];
            text += ' ';
        }
        return text;
    }
};

TEST_F(BoardsTest, TheyShowTheCursorsStrumAndThenWhatSounds) {
    Note(0, 0).Fret = "3";
    Note(0, 1).Fret = "x";
    Note(0, 2).Fret = "12";
    Note(0, 2).Tied = true;
    Note(1, 0).Fret = "5";
    Note(1, 0).Ghost = true;
    Core::Strum& chord = Core::EditStrum(0, 0, 2);
    chord.HasChord = true;
    chord.ChordFrets.Edit()[4] = "2";
    Core::EditStrum(0, 0, 3).Hash = 1;
    EXPECT_EQ(Shown(), "0:3P 1:0D 2:12P ");
    EXPECT_EQ(BoardText(), "String 1: G4, fret 3. String 2: dead note. String 3: G4, fret 12.");
    RunCommand(*FindCommand("mnuSoundPlayFromStart"));
    std::string shown, last;
    while (run->Clock.Step(60'000)) {
        if (!Sound.Playing || Shown() == last) continue;
        last = Shown();
        shown += "| " + last;
    }
    EXPECT_EQ(shown, "| 0:3P 1:0D 2:12P | 0:5G 2:12R | 4:2C ") << "the slash repeats the chord";
    EXPECT_EQ(Shown(), "0:3P 1:0D 2:12P ");
    Open.CurStrum = 4;
    EXPECT_EQ(Shown(), "") << "a cursor of another document";
}

TEST_F(BoardsTest, ClicksNeedThePasswordAndDoNothingWhilePlaying) {
    picFretboard_MouseDown({1, 3});
    EXPECT_EQ(Shown(), "1:3P ");
    picFretboard_RightMouseDown(1);
    picPiano_MouseDown(64);
    EXPECT_EQ(Shown(), "0:0P ");
    Open.TabFile.HasPassword = true;
    Open.TabFile.Password = "key";
    picPiano_MouseDown(67);
    SetTrackVolume(0, 99);
    EXPECT_EQ(Shown(), "0:0P ");
    EXPECT_EQ(Open.TabFile.Tracks[0].Volume, 50);
    Window().Password = "key";
    SetTrackVolume(0, 200);
    EXPECT_EQ(Open.TabFile.Tracks[0].Volume, 127);
    Playback::PlayTab(0, 0);
    picFretboard_MouseDown({1, 3});
    EXPECT_TRUE(Playback::IsPlaying());
    EXPECT_FALSE(Core::ReadStrum(0, 0, 0).Notes[1].Fret == "3");
}

TEST_F(BoardsTest, ASongIsWrittenByCommandsAndClicks) {
    Core::SetBarStrums(Open.TabFile.Tracks[0].Bars.Edit(0), 0);
    for (const int fret : {0, 2, 3, 5, 7}) {
        picFretboard_MouseDown({0, fret});
        RunCommand(*FindCommand("mnuGoNextBeat"));
    }
    EXPECT_EQ(Core::NumberOfBars(0), 1);
    RunCommand(*FindCommand("mnuGoPreviousBeat"));
    RunCommand(*FindCommand("mnuChordRest"));
    EXPECT_FALSE(Core::HasNotes(Core::ReadStrum(0, 1, 0)));
    EXPECT_EQ(Open.CurStrum, 1);
}

TEST_F(BoardsTest, TheRightMenuHoldsWhatCanBeDone) {
    const auto names = [] {
        std::string text;
        for (const RightMenuSection& section : RightMenu()) {
            text += "[" + std::string(section.Title) + "] ";
            for (const Command* command : section.Entries) text += std::string(command->Name) + " ";
        }
        return text;
    };
    const std::string plain = names();
    EXPECT_NE(plain.find("[str_RightMenuBar] mnuBarInsert "), std::string::npos) << plain;
    EXPECT_NE(plain.find("mnuBarShrink "), std::string::npos);
    EXPECT_EQ(plain.find("mnuEditPaste"), std::string::npos) << "nothing was copied";
    EXPECT_LT(plain.find("str_RightMenuChord"), plain.find("str_RightMenuBar"));
    Core::SetBarStrums(Open.TabFile.Tracks[0].Bars.Edit(0), 0);
    EXPECT_EQ(names().find("mnuBarShrink "), std::string::npos) << "the first bar's only strum";
}

TEST_F(BoardsTest, ASoundPastTheListIsNotShown) {
    Open.TabFile.Tracks[0].IsDrum = true;
    Open.TabFile.Tracks[0].PercStrings[0].dlx = 32000;
    Core::EditStrum(0, 0, 0).Notes.Edit(0).Fret = "x";
    EXPECT_EQ(BoardText(), Core::LanguageText("str_BoardNothing"));
}

TEST_F(BoardsTest, MuteAndSoloAreForgottenWithTheDocument) {
    EXPECT_TRUE(RunCommand(*FindCommand("mnuTrackMute")));
    EXPECT_TRUE(IsChecked(*FindCommand("mnuTrackMute")));
    EXPECT_FALSE(Open.FileChanged);
    ForceNewFile();
    EXPECT_FALSE(IsChecked(*FindCommand("mnuTrackMute")));
    ToggleSolo(5);
    EXPECT_TRUE(Playback::Player.Listening.Hears(0));
}

}  // namespace
}  // namespace Quillon::Shell
