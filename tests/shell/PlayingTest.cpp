// Playing as the program runs it: commands, marker, bar and beat, the trainer, the selection and the track list.
#include "drawing/mod_HighLevelDrawing.h"
#include "editing/mod_Cursor.h"
#include "platform/headless/NoPicture.h"
#include "shell/Commands.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;
using Playback::IsPlaying;

class Playing : public ShellTest {
protected:
    Playing() {
        Start("");
        // Two tracks of four bars of quarters.
        Core::TabFile& file = Open.TabFile;
        file.Tempo = 120;
        file.Tracks.Add(file.Tracks[0]);
        file.BarInfos.Resize(4);
        for (Core::Track& track : file.Tracks) {
            track.Bars.Resize(4);
            for (int bar = 0; bar < 4; ++bar) {
                auto& strums = track.Bars.Edit(bar).EditStrums();
                strums.Resize(4);
                for (int strum = 0; strum < 4; ++strum) strums[strum].Length = 2;
                strums[0].Notes.Edit(0).Fret = "3";
            }
        }
        Draw();
        Window().Calls.clear();
    }
    static void Draw() {
        Drawing::Page.LayoutDirty = 1;
        NoPicture nothing;
        Drawing::DrawDocument(nothing);
    }
    static bool Do(const char* name) { return RunCommand(*FindCommand(name)); }
    void Run(std::int64_t ms) {
        const std::int64_t until = run->Clock.Now() + ms;
        while (run->Clock.Step(until)) {
        }
    }
    int Count(const std::string& call) { return static_cast<int>(std::ranges::count(Window().Calls, call)); }
};

TEST_F(Playing, WhileASongPlaysOnlyWhatMayChangeIsEnabled) {
    std::string enabled;
    const auto list = [&] {
        enabled.clear();
        for (const Command& command : Commands()) {
            if (IsEnabled(command)) enabled += std::string(command.Name) + " ";
        }
        return enabled;
    };
    const std::string before = list();
    EXPECT_EQ(before.find("mnuSoundStop"), std::string::npos);
    ASSERT_TRUE(Do("mnuSoundPlayFromStart"));
    EXPECT_TRUE(IsPlaying());
    EXPECT_TRUE(Drawing::View.Playing);
    EXPECT_EQ(list(),
              "mnuViewFretboard mnuViewPiano mnuSoundStop mnuSoundFollow mnuTrackMute mnuTrackSolo mnuToolsChords "
              "mnuToolsScales mnuToolsScaleFinder mnuToolsTuner mnuHelpKeyboard mnuHelpAbout ");
    EXPECT_FALSE(Do("mnuFileNew"));
    EXPECT_FALSE(Do("mnuSoundMetronome")) << "no click could begin now";
    EXPECT_TRUE(Do("mnuSoundStop"));
    EXPECT_FALSE(IsPlaying());
    EXPECT_FALSE(Drawing::View.Playing);
    EXPECT_EQ(list(), before);
    EXPECT_EQ(Window().Calls, (std::vector<std::string>{"playing", "stopped"}));
}

TEST_F(Playing, ClicksCanBeStoppedWhileASongPlays) {
    Core::Settings.Metronome = true;
    ASSERT_TRUE(Do("mnuSoundPlayFromStart"));
    EXPECT_TRUE(Do("mnuSoundMetronome"));
    EXPECT_FALSE(Core::Settings.Metronome);
    EXPECT_FALSE(Do("mnuSoundMetronome"));
}

TEST_F(Playing, EachCommandPlaysItsBarsAndEndsByItself) {
    Open.CurBar = 2;
    struct {
        const char* Name;
        int First;
        int Bars;
    } const cases[] = {{"mnuSoundPlayFromStart", 0, 4}, {"mnuSoundPlayFromHere", 2, 2}, {"mnuSoundPlayBar", 2, 1}};
    for (const auto& c : cases) {
        Window().Calls.clear();
        ASSERT_TRUE(Do(c.Name));
        EXPECT_EQ(Playback::Player.PlayBar, c.First) << c.Name;
        const std::int64_t start = run->Clock.Now();
        Run(60'000);
        EXPECT_FALSE(IsPlaying()) << c.Name;
        EXPECT_EQ(run->Clock.Running(), 0U) << c.Name;
        EXPECT_NEAR(static_cast<double>(run->Clock.Now() - start), c.Bars * 64 * 31, 5 * 31) << c.Name;
        EXPECT_GE(Count("scroll " + std::to_string(c.First)), 1) << c.Name;
        EXPECT_GE(Count("scroll " + std::to_string(c.First + c.Bars - 1)), 1) << c.Name;
        EXPECT_EQ(Window().Calls.back(), "stopped");
    }
}

TEST_F(Playing, AnyKeyStopsAndDoesNothingElseAndClicksDoNothing) {
    const Core::OpenDocument before = Open;
    Do("mnuSoundPlayFromStart");
    Run(200);
    Editing::picDocument_MouseDown(200, 400);
    EXPECT_TRUE(IsPlaying());
    Editing::picDocument_KeyDown(Editing::KeyRight, 0);
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Open.CurStrum, before.CurStrum);
    EXPECT_EQ(Open.CurBar, before.CurBar);
    EXPECT_EQ(run->Midi.Sent.back(), (SentMessage{176 + 15, 123, 0}));
    Editing::picDocument_KeyDown(Editing::KeyRight, 0);
    EXPECT_EQ(Open.CurStrum, before.CurStrum + 1);
}

TEST_F(Playing, AnotherDocumentStopsIt) {
    Testing::Spill(folder / "other.json", "{}");
    for (const auto& replace : std::initializer_list<std::function<void()>>{
             [] { ForceNewFile(); }, [&] { OpenFileByEnding(folder / "other.json"); }, [] { Stop(); }}) {
        Playback::PlayTab(0, 3);
        replace();
        EXPECT_FALSE(IsPlaying());
        EXPECT_EQ(run->Clock.Running(), 0U);
    }
    EXPECT_EQ(Playback::MidiOut.MidiHandle, 0);
    EXPECT_EQ(run->Midi.Opened, 0);
}

TEST_F(Playing, TheMarkerStandsByTheStrumThatTheCursorsTrackReached) {
    Do("mnuSoundPlayFromStart");
    Run(31 * 17);  // the second quarter has begun
    const auto marker = PlayMarkerNow();
    ASSERT_TRUE(marker);
    const Core::Track& track = Open.TabFile.Tracks[0];
    const Core::BarPlace& place = track.Bars[0].Place;
    EXPECT_EQ(marker->X, place.StrumX[1] - 4);
    EXPECT_EQ(marker->AnchorY, place.BarY + Drawing::TabOffset(track) + 20);
    EXPECT_LT(marker->Top, place.BarY);
    EXPECT_GT(marker->Top + marker->Height, place.BarY + Drawing::RowHeight(track));
    EXPECT_EQ(Window().Markers.back(), marker);
    ShowTrack(1);
    Draw();
    EXPECT_FALSE(PlayMarkerNow()) << "until the other track reaches a strum";
    Run(31 * 17);
    EXPECT_TRUE(PlayMarkerNow());
    Do("mnuSoundStop");
    EXPECT_FALSE(PlayMarkerNow());
    EXPECT_FALSE(PlayMarkerPlace(1, 0, 4)) << "past the end";
    EXPECT_FALSE(PlayMarkerPlace(1, 9, 0));
    Core::Settings.FollowTabPlayback = false;
    Window().Calls.clear();
    Do("mnuSoundPlayFromStart");
    Run(60'000);
    EXPECT_EQ(Count("scroll 0"), 0);
}

TEST_F(Playing, BarAndBeatAreToldWhenTheyChange) {
    Open.TabFile.Tracks[0].Bars.Edit(1).EditStrums().Resize(1);
    Open.TabFile.Tracks[0].Bars.Edit(1).EditStrums()[0].Length = 0;  // a whole note's beats count on
    Do("mnuSoundPlayFromStart");
    std::vector<std::string> told;
    while (run->Clock.Step(60'000)) {
        if (const auto text = PlayPlaceChanged()) told.push_back(*text);
    }
    ASSERT_EQ(told.size(), 16U);
    EXPECT_EQ(told[0], "Bar 1, beat 1 - 120 bpm");
    EXPECT_EQ(told[6], "Bar 2, beat 3 - 120 bpm");
    EXPECT_EQ(told[15], "Bar 4, beat 4 - 120 bpm");
}

TEST_F(Playing, SettingsOfPlayingAreWrittenAtOnce) {
    for (const char* name : {"mnuSoundMetronome", "mnuSoundCountIn", "mnuSoundFollow"}) {
        const bool before = IsChecked(*FindCommand(name));
        ASSERT_TRUE(Do(name));
        EXPECT_NE(IsChecked(*FindCommand(name)), before) << name;
    }
    Core::SettingsRecord kept;
    Core::ParseINISettings(Testing::Slurp(folder / "base/QL4.ini"), kept);
    EXPECT_TRUE(kept.Metronome);
    EXPECT_TRUE(kept.CountIn);
    EXPECT_FALSE(kept.FollowTabPlayback);
}

TEST_F(Playing, LoopAndTrainerTakeTheSelectedBars) {
    Open.CurBar = 2;
    Editing::SelectTo(1);
    EXPECT_EQ(SelectionBands().size(), 1U) << "both in one row";
    Do("mnuSoundLoop");
    Run(31 * 64 * 2 * 20);
    EXPECT_TRUE(IsPlaying());
    const Playback::SpeedTrainer& trainer = Playback::Player.Trainer;
    EXPECT_EQ(trainer.FromBar, 1);
    EXPECT_EQ(trainer.ToBar, 2);
    EXPECT_EQ(trainer.Tempo, 120);
    EXPECT_LT(trainer.LoopsLeft, 32766 - 15);
    Playback::StopTab();

    Window().On<SpeedTrainerModel>([](SpeedTrainerModel& model) {
        EXPECT_EQ(model.Fields.txtFromBar, "2");
        EXPECT_EQ(model.Fields.txtToBar, "3");
        EXPECT_EQ(model.Fields.txtInitialTempo, "72");
        EXPECT_EQ(model.Fields.txtFinalTempo, "120");
        EXPECT_EQ(model.Validate(), "");
        model.Fields.txtLoops = "2";
        return true;
    });
    Do("mnuSoundSpeedTrainer");
    EXPECT_TRUE(IsPlaying());
    Run(600'000);
    EXPECT_FALSE(IsPlaying()) << "its loops are spent";

    Editing::picDocument_KeyDown(Editing::KeyEscape, 0);
    EXPECT_TRUE(SelectionBands().empty());
    Do("mnuSoundLoop");
    EXPECT_EQ(trainer.FromBar, 2);
    EXPECT_EQ(trainer.ToBar, 2);
}

TEST_F(Playing, TheTrainerSaysWhatIsWrong) {
    using Fields = Playback::TrainerFields;
    const struct {
        std::string Fields::*Field;
        const char* Typed;
        const char* Complaint;
    } cases[] = {{&Fields::txtFromBar, "0", "str_TrainerBarMissing"},
                 {&Fields::txtToBar, "5", "str_TrainerBarMissing"},
                 {&Fields::txtToBar, "", "str_TrainerBarMissing"},
                 {&Fields::txtFromBar, "first", "str_TrainerBarMissing"},
                 {&Fields::txtLoops, "0", "str_TrainerLoops"},
                 {&Fields::txtLoops, "32768", "str_TrainerLoops"},
                 {&Fields::txtInitialTempo, "60.5", "str_TrainerTempo"},
                 {&Fields::txtFinalTempo, "99999999999", "str_TrainerTempo"},
                 {&Fields::txtInitialTempo, "121", "str_TrainerTempoOrder"},
                 {&Fields::txtTempoIncrease, "-1", "str_TrainerIncrease"},
                 {&Fields::txtTempoIncrease, " 4 ", ""}};
    for (const auto& c : cases) {
        SpeedTrainerModel model;
        model.Load();
        model.Fields.*c.Field = c.Typed;
        EXPECT_EQ(model.Validate(), c.Complaint) << c.Typed;
    }
    SpeedTrainerModel model;
    model.Load();
    model.Fields.txtFromBar = "3";
    model.Fields.txtToBar = "2";
    EXPECT_EQ(model.Validate(), "str_TrainerBarOrder");
    for (const float odd : {0.2F, 5000.0F}) {
        Open.TabFile.Tempo = odd;
        model.Load();
        EXPECT_EQ(model.Validate(), "") << odd;
    }
}

TEST_F(Playing, AClickInTheTrackListTakesTheTrackFromItsBeginning) {
    Open.CurBar = 3;
    EXPECT_EQ(MixTableTrack(19, 0), 0);
    EXPECT_EQ(MixTableTrack(20, 0), 0) << "a half goes to the even row";
    EXPECT_EQ(MixTableTrack(21, 0), 1);
    EXPECT_EQ(MixTableTrack(5, 1), 1);
    EXPECT_EQ(MixTableTrack(60, 0), -1);
    picMixTable_MouseDown(60, 0);
    EXPECT_EQ(Open.CurBar, 3);
    picMixTable_MouseDown(25, 0);
    EXPECT_EQ(Open.CurTrack, 1);
    EXPECT_EQ(Open.CurBar, 0);
    int asked = 0;
    Window().On<TrackPropertiesModel>([&](TrackPropertiesModel& model) { return asked += 1 + model.Index, false; });
    picMixTable_Open(5, 0);
    EXPECT_EQ(asked, 1);
    Playback::PlayTab(2, 3);
    Window().Calls.clear();
    picMixTable_Open(5, 0);
    picMixTable_MouseDown(5, 0);
    EXPECT_EQ(asked, 1) << "not while playing";
    EXPECT_EQ(Count("scroll 2"), 1);
    EXPECT_TRUE(IsPlaying());
}

}  // namespace
}  // namespace Quillon::Shell
