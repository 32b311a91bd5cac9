// The chord manager without its window: searching, choosing, hearing, adding to the song.
#include "tools/ChordManager.h"

#include <algorithm>

#include "core/mod_TabFileManipulation.h"
#include "library/NoteRun.h"
#include "playback/StrumSounds.h"
#include "shell/Commands.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Tools {
namespace {

using Core::Open;
using Kind = Library::ChordFilter::Kind;

struct FakeView : ChordView {
    int Views = 0, Choices = 0;
    void RefreshView() override { ++Views; }
    void RefreshChosen() override { ++Choices; }
};

class ChordManagerTest : public Shell::ShellTest {
protected:
    ChordManagerTest() {
        Shell::Start("");
        Shell::LoadMIDI();
        ChordManager_Load(view);
    }
    ~ChordManagerTest() override { ChordManager_Unload(); }

    std::filesystem::path FileOf(const char* name) { return Library::Chords.FileOf(name); }
    void Find(const char* name) {
        txtSearch_Change(name);
        const auto found = std::ranges::find(ChordManager.lstChords, name);
        ASSERT_NE(found, ChordManager.lstChords.end()) << name;
        ChooseChord(static_cast<int>(found - ChordManager.lstChords.begin()), Choose::Only);
    }
    static const Core::Strum& Strum() { return Core::ReadStrum(Open.CurTrack, Open.CurBar, Open.CurStrum); }
    static std::string Frets() {
        std::string text;
        for (int s = 0; s < Core::StringCount; ++s) text += Strum().Notes[s].Fret + ",";
        return text;
    }
    std::vector<int> Struck() {
        std::vector<int> keys;
        for (const SentMessage& sent : run->Midi.Sent) {
            constexpr int NoteOn = 0x90;
            if (sent.Status == NoteOn && sent.Data2 > 0) keys.push_back(sent.Data1);
        }
        return keys;
    }

    FakeView view;
};

TEST_F(ChordManagerTest, SearchesAndCounts) {
    EXPECT_EQ(ChordCountText(), "1,555 of 1,555 chords");
    txtSearch_Change("cM7");
    EXPECT_TRUE(std::ranges::count(ChordManager.lstChords, "C m7"));
    EXPECT_EQ(CurrentChord(), ChordManager.lstChords.front()) << "what is typed can be heard at once";
    for (int box = 0; box < 6; ++box) txtTabSearch_Change(box, std::string(1, "320003"[box]));
    EXPECT_EQ(ChordManager.lstChords.size(), 7U);
    EXPECT_EQ(ChordCountText(), "7 of 1,555 chords");
    optString_Click(4);
    EXPECT_TRUE(ChordManager.lstChords.empty());
    EXPECT_EQ(CurrentChord(), "");
    mnuSearchTab_Click();
    EXPECT_EQ(ChordManager.lstChords.size(), 7U) << "a panel keeps what it says";

    // Another program's doing, good and bad; the count knows what was read.
    run->Files.Replace(FileOf("Broken"), "hello");
    run->Files.Replace(FileOf("Mine"), Library::WriteChord(*Library::Chords.Find("G-Gmaj (2)")));
    const int views = view.Views;
    ChordFolderChanged();
    EXPECT_EQ(ChordCountText(), "8 of 1,557 chords, 1 file passed by");
    EXPECT_EQ(view.Views, views + 1);
    ChordFolderChanged();
    EXPECT_EQ(view.Views, views + 1) << "nothing changed";
    Find("Broken");
    PlayCurrentChord();
    ASSERT_FALSE(run->Window.Status.empty());
    EXPECT_NE(run->Window.Status.back().find("Broken"), std::string::npos);
    mnuSearchClear_Click();
    EXPECT_EQ(ChordManager.lstChords.size(), 1557U);
    EXPECT_EQ(CurrentChord(), "Broken") << "the place is kept";
}

TEST_F(ChordManagerTest, ChoosesAsAListDoes) {
    const auto chosen = [] { return ChosenChords().size(); };
    ChooseChord(5, Choose::Only);
    ChooseChord(8, Choose::Range);
    EXPECT_EQ(chosen(), 4U);
    ChooseChord(3, Choose::Range);
    EXPECT_EQ(chosen(), 3U) << "from the anchor";
    ChooseChord(20, Choose::Toggle);
    EXPECT_EQ(chosen(), 4U);
    ChooseChord(20, Choose::Toggle);
    ChooseChord(30, Choose::Move);
    EXPECT_EQ(chosen(), 3U);
    EXPECT_EQ(CurrentChord(), ChordManager.lstChords[30]);
    txtSearch_Change(ChordManager.lstChords[4]);
    EXPECT_EQ(ChosenChords().front(), ChordManager.lstChords.front()) << "only what is shown is meant";
    ChooseAllChords();
    EXPECT_EQ(chosen(), ChordManager.lstChords.size());
    ChooseChord(1'000'000, Choose::Only);
    ChooseChord(-1, Choose::Range);
    EXPECT_EQ(chosen(), ChordManager.lstChords.size());
}

TEST_F(ChordManagerTest, IsHeardFromTheLowestStringUntilStopped) {
    Find("G-Gmaj (2)");
    ChordManager.Lefthanded = true;  // a matter of drawing alone
    run->Midi.Sent.clear();
    PlayCurrentChord();
    EXPECT_EQ(ChordManager.Sounding, "G-Gmaj (2)");
    EXPECT_TRUE(Shell::IsEnabled(*Shell::FindCommand("mnuSoundStop")));
    while (run->Clock.Step(60'000)) continue;
    EXPECT_EQ(Struck(), (std::vector<int>{43, 47, 50, 55, 59, 67}));
    EXPECT_EQ(ChordManager.Sounding, "");
    EXPECT_FALSE(Library::IsRunPlaying());

    // The reverb goes with the chord: the song's first track has the same channel.
    Core::Settings.ChordReverb = true;
    PlayCurrentChord();
    EXPECT_TRUE(std::ranges::count(run->Midi.Sent, SentMessage{0xB0, 91, 127}));
    StopChord();
    EXPECT_EQ(run->Midi.Sent.back(), (SentMessage{0xB0, 91, 0}));

    // Stop, a song that begins, and the window that goes end it.
    void (*const ends[])() = {Shell::mnuSoundStop_Click, Shell::mnuSoundPlayFromStart_Click, ChordManager_Unload};
    for (const auto end : ends) {
        PlayCurrentChord();
        EXPECT_TRUE(Library::IsRunPlaying());
        end();
        EXPECT_FALSE(Library::IsRunPlaying());
        Playback::StopTab();
    }
    ChordManager_Load(view);

    Core::Settings.PlayChordsOnLoad = true;
    ChooseChord(7, Choose::Only);
    EXPECT_TRUE(Library::IsRunPlaying());
    StopChord();
    ChooseChord(9, Choose::Range);
    EXPECT_FALSE(Library::IsRunPlaying()) << "a range is chosen in silence";
}

TEST_F(ChordManagerTest, IsAddedAsNotesAtItsPitches) {
    Find("G-Gmaj (2)");
    AddChordAsNotes();
    EXPECT_EQ(Frets(), "3,0,0,0,2,3,,");
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_EQ(ChordAtCursor(), "G");
    EXPECT_EQ(run->Window.Status.back(), "G-Gmaj (2) was added as notes.");

    // Muted strings become dead notes, and what stood there goes with its marks.
    Core::EditStrum(0, 0, 0).Notes.Edit(5).Tied = true;
    run->Files.Replace(FileOf("Mine"),
                       Library::WriteChord(Library::MakeChord(6, false, {"0", "1", "0", "2", "3", "x"})));
    ChordFolderChanged();
    Find("Mine");
    AddChordAsNotes();
    EXPECT_EQ(Frets(), "0,1,0,2,3,x,,");
    EXPECT_FALSE(Strum().Notes[5].Tied);
    EXPECT_EQ(run->Window.Status.back(), "Mine was added as notes, in place of those that stood here.");
    AddChordAsNotes();
    EXPECT_EQ(run->Window.Status.back(), "Mine was added as notes.") << "nothing went";

    // Strings tuned otherwise: the pitches stay, on frets of theirs.
    Open.TabFile.Tracks[0].Tuning = {-2, -2, -2, -2, -2, -2, 0};
    AddChordAsNotes();
    EXPECT_EQ(Frets(), "2,3,2,4,5,x,,");
    EXPECT_EQ(ChordAtCursor(), "C");
    const auto before = Open.TabFile;
    Open.TabFile.Tracks[0].Strings = 4;
    Open.TabFile.Tracks[0].Tuning = {-24, -24, -24, -24, 0, 0, 0};
    const auto bass = Open.TabFile;
    AddChordAsNotes();
    EXPECT_EQ(Open.TabFile, bass) << "five notes have no place on four strings";
    EXPECT_EQ(run->Window.Status.back(), "The strings of this track can't play Mine.");
    Open.TabFile = before;

    Open.TabFile.Tracks[0].IsDrum = true;
    EXPECT_FALSE(CanAddChord());
    Open.TabFile.Tracks[0].IsDrum = false;
    Shell::Sound.Playing = true;
    EXPECT_FALSE(CanAddChord());
    Shell::Sound.Playing = false;
    Open.TabFile.HasPassword = true;
    Open.TabFile.Password = "secret";
    const std::string locked = Frets();
    Find("G-Gmaj (2)");
    AddChordAsNotes();
    AddChordAsDiagram();
    EXPECT_EQ(Frets(), locked);
    EXPECT_FALSE(Strum().HasChord);
}

TEST_F(ChordManagerTest, IsAddedAsADiagramThatSoundsAlike) {
    Find("C m7");
    const Library::ChordRec chord = *Library::Chords.Find("C m7");
    Core::Settings.HideChordManager = true;
    Shell::ShowTool(Shell::ToolWindow::Chords, true);
    AddChordAsDiagram();
    EXPECT_FALSE(Shell::IsToolShown(Shell::ToolWindow::Chords));
    ASSERT_TRUE(Strum().HasChord);
    EXPECT_EQ(Strum().ChordName, "C m7");
    EXPECT_EQ(run->Window.Status.back(), "C m7 was added as a diagram.");
    EXPECT_EQ(Strum().ChordValueA, chord.BaseFret);
    EXPECT_EQ(Strum().ChordValueB, 6);
    EXPECT_EQ(Strum().ChordMarks.Read(), chord.Tuning);
    std::vector<int> sounds;
    for (const auto& struck : Playback::SymbolSounds(Open.TabFile.Tracks[0], Strum())) {
        if (!struck.Dead) sounds.insert(sounds.begin(), struck.Pitch);
    }
    EXPECT_EQ(sounds, Library::PitchesOf(chord)) << "on any strings, for it brings its own";
    mnuSearchChordsInCurrentFile_Click();
    EXPECT_EQ(ChordManager.lstChords, std::vector<std::string>{"C m7"});
    Core::EditStrum(0, 0, 0).HasChord = false;
    ChordCursorMoved();
    EXPECT_TRUE(ChordManager.lstChords.empty());
    Core::EditStrum(0, 0, 0).HasChord = true;
    Find("G-Gmaj");
    AddChordAsDiagram();
    EXPECT_EQ(run->Window.Status.back(), "G-Gmaj was added as a diagram, in place of C m7.");
}

TEST_F(ChordManagerTest, RemembersItsLook) {
    mnuDisplay_Click(6);
    mnuViewLefty_Click();
    mnuWindowsColors_Click();
    EXPECT_EQ(Services.Settings->Get("Chords", "Lefthanded"), "1");
    ChordManager_Unload();
    ChordManager_Load(view);
    EXPECT_EQ(ChordManager.DisplayMode, 6);
    EXPECT_TRUE(ChordManager.Lefthanded);
    EXPECT_FALSE(ChordManager.WindowsColors);
    for (const char* const damaged : {"7", "-1", "x", "99999"}) {
        Services.Settings->Save("Chords", "DisplayMode", damaged);
        ChordManager_Load(view);
        EXPECT_EQ(ChordManager.DisplayMode, 5) << damaged;
    }
}

}  // namespace
}  // namespace Quillon::Tools
