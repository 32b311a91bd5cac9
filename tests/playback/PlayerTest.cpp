#include <gmock/gmock.h>

#include <limits>
#include <map>
#include <random>
#include <set>

#include "playback/MIDI_CMD.h"
#include "tests/playback/PlayFixture.h"

namespace Quillon::Playback {

namespace {

using testing::ElementsAre;

/// A bar of one 64th on string 0.
std::string Short(int fret) {
    return R"({"Strums": [{"Length": 6, "Notes": {"0": {"Fret": ")" + std::to_string(fret) + R"("}}}]})";
}

TEST_F(PlayTest, RepeatsAndSignsTakeTheirBarsInOrder) {
    struct Case {
        const char* Why;
        const char* Infos;  ///< of four bars
        int From, To;
        std::vector<int> Bars;
        int PlaysOn = 0;
    };
    const Case cases[] = {
        {"plain", "{}, {}, {}, {}", 0, 3, {0, 1, 2, 3}},
        {"a part", "{}, {}, {}, {}", 1, 2, {1, 2}},
        {"a count is the jumps back", R"({}, {"RepeatOpen": true}, {"RepeatClose": 1}, {})", 0, 3, {0, 1, 2, 1, 2, 3}},
        {"three jumps", R"({"RepeatOpen": true, "RepeatClose": 3}, {}, {}, {})", 0, 1, {0, 0, 0, 0, 1}},
        {"two repeats",
         R"({"RepeatClose": 1}, {"RepeatOpen": true}, {"RepeatClose": 1}, {})",
         0,
         3,
         {0, 0, 1, 2, 1, 2, 3}},
        {"a single bar follows its repeat", R"({}, {"RepeatOpen": true, "RepeatClose": 1}, {}, {})", 1, 1, {1, 1}},
        {"starting inside goes back to the first bar",
         R"({"RepeatOpen": true}, {}, {"RepeatClose": 1}, {})",
         1,
         3,
         {1, 2, 0, 1, 2, 3}},
        {"the sign, once", R"({}, {"Segno": 1}, {"DalSegno": 1}, {})", 0, 3, {0, 1, 2, 1, 2, 3}},
        {"without a sign from the top", R"({}, {}, {"DalSegno": 1}, {})", 0, 3, {0, 1, 2, 0, 1, 2, 3}},
        {"to the coda after the sign alone",
         R"({"Segno": 1}, {"ToCoda": 1}, {"DalSegno": 1}, {"CodaMark": 1})",
         0,
         3,
         {0, 1, 2, 0, 1, 3}},
        {"signs are not looked at within a repeat",
         R"({"RepeatOpen": true}, {"DalSegno": 1, "RepeatClose": 1}, {}, {})",
         0,
         3,
         {0, 1, 0, 1, 0, 1, 0, 1, 2, 3}},
        {"the coda behind the end is left for ever",
         R"({"ToCoda": 1, "Segno": 1}, {"DalSegno": 1}, {}, {"CodaMark": 1})",
         0,
         1,
         {0, 1, 0, 3},
         1},
        {"no coda: the song never ends", R"({"ToCoda": 1, "Segno": 1, "DalSegno": 1}, {}, {}, {})", 0, 3, {}, 1},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.Why);
        LoadBars(Short(0) + "," + Short(1) + "," + Short(2) + "," + Short(3), each.Infos);
        view = {};
        Begin(static_cast<std::int16_t>(each.From), static_cast<std::int16_t>(each.To));
        Run(300);
        std::vector<int> bars;
        for (const View::Place& place : view.Marks) {
            if (place.Strum == 0 && place.Bar <= std::min(3, each.PlaysOn ? 3 : each.To)) bars.push_back(place.Bar);
        }
        if (!each.Bars.empty()) {
            EXPECT_EQ(bars, each.Bars);
        }
        EXPECT_EQ(view.TimesPlaysOn, each.PlaysOn);
        EXPECT_EQ(IsPlaying(), each.PlaysOn == 1);
        if (IsPlaying()) StopTab();
    }
}

TEST_F(PlayTest, TheLastTrackConductsAndTheOthersFollowATickLater) {
    Load(R"({"Tempo": 3750, "Tracks": [
        {"Channel": 0, "Bars": [{"Strums": [{"Length": 5, "Notes": {"0": {"Fret": "0"}}}]},
                                {"Strums": [{"Length": 5, "Notes": {"0": {"Fret": "1"}}}]}]},
        {"Channel": 2, "Bars": [{"Strums": [{"Length": 4, "Notes": {"0": {"Fret": "2"}}}, {"Length": 3}]},
                                {"Strums": [{"Length": 4, "Notes": {"0": {"Fret": "3"}}}]}]},
        {"Channel": 4, "Bars": [{"Strums": [{"Length": 3, "Notes": {"0": {"Fret": "4"}}}]},
                                {"Strums": [{"Length": 4, "Notes": {"0": {"Fret": "5"}}}]}]}]})");
    const auto all = Play();
    EXPECT_EQ(Strikes(all, 4), "1:68 9:69");
    // The first waits past its end, the second is cut; both begin one tick behind the third.
    EXPECT_EQ(Strikes(all, 0), "1:64 10:65");
    EXPECT_EQ(Strikes(all, 2), "1:66 10:67");
}

TEST_F(PlayTest, NotesRingUntilTheNextThatIsNeitherTiedNorRinging) {
    const auto offs = [&](const char* first, const char* track) {
        Load(R"({"Tempo": 3750, "Tracks": [{)" + std::string(track) + R"("Bars": [{"Strums": [)" + first +
             R"(, {"Length": 6, "Notes": {"0": {"Fret": "2"}}}]}]}]})");
        int count = 0;
        for (const TimedMessage& each : Only(Play(), 176, 120)) count += each.Time == 2;
        return count;
    };
    EXPECT_EQ(offs(R"({"Length": 6, "Notes": {"0": {"Fret": "1"}}})", ""), 1);
    EXPECT_EQ(offs(R"({"Length": 6, "Notes": {"0": {"Fret": "1", "Tied": true}}})", ""), 0);
    EXPECT_EQ(offs(R"({"Length": 6, "Notes": {"0": {"Fret": "1", "LetRing": true}}})", ""), 0);
    EXPECT_EQ(offs(R"({"Length": 6, "Notes": {"3": {"Tied": true}}})", ""), 0) << "a flag counts without a note";
    EXPECT_EQ(offs(R"({"Length": 6, "Notes": {"5": {"Tied": true}}})", R"("Strings": 4, )"), 1) << "not in use";
    EXPECT_EQ(offs(R"({"Length": 6, "Notes": {"0": {"Fret": "1"}}})", R"("Reverb": true, )"), 0);
    EXPECT_EQ(offs(R"({"Length": 6, "Notes": {"0": {"Fret": "o"}}})", R"("IsDrum": true, )"), 0);
}

TEST_F(PlayTest, TempoTextsLastOneTick) {
    LoadBars(R"({"Strums": [{"Length": 4, "Text": "fast T= 125", "Notes": {"0": {"Fret": "0"}}}]})");
    EXPECT_EQ(Play().back().Time, 1 + 4) << "not wholly a number";
    LoadBars(R"({"Strums": [{"Length": 4, "Text": " T= 1 25 ", "Notes": {"0": {"Fret": "0"}}}]})");
    EXPECT_EQ(Play().back().Time, 1 + 30 + 3) << "blanks do not matter";
}

TEST_F(PlayTest, ASongTooSlowOrTooLongIsIdleAndStops) {
    LoadBars(Short(1));
    Core::Open.TabFile.Tempo = 1e-20F;
    Begin();
    EXPECT_TRUE(Run(900).empty());
    StopTab();
    Core::Open.TabFile.Tempo = 3750;
    Begin(5, 9);
    Run(500);
    EXPECT_TRUE(IsPlaying());
    StopTab();
    EXPECT_EQ(clock.Running(), 0U);
}

TEST_F(PlayTest, AChannelBeyondAllNumbersSilencesWhatIsOnItAlone) {
    struct Case {
        const char* Channels;
        const char* Strikes;  ///< on channel 0
    };
    const Case cases[] = {{R"("EffectChannel": 32767, )", "9:71 10:69 13:72"},
                          {R"("Channel": 32767, "EffectChannel": 32767, )", ""}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.Channels);
        Load(R"({"Tempo": 3750, "Tracks": [{)" + std::string(each.Channels) + R"("Bars": [{"Strums": [
            {"Length": 4, "Notes": {"0": {"Fret": "0", "HasBend": true}, "1": {"Fret": "1", "Technique": 2}}},
            {"Length": 4, "Technique": 1, "HasTrem": true, "Notes": {"0": {"Fret": "0", "HasTrill": true}}},
            {"Length": 4, "Notes": {"0": {"Fret": "7"}}},
            {"Length": 4, "Notes": {"0": {"Fret": "8", "HasGrace": true, "GraceFret": "5"}}}]}]},
            {"Channel": 2, "Bars": [{"Strums": [{"Length": 2, "Notes": {"0": {"Fret": "9"}}}]}]}]})");
        const auto all = Play();
        EXPECT_FALSE(IsPlaying());
        EXPECT_EQ(Strikes(all, 2), "1:73");
        EXPECT_EQ(Strikes(all, 0), each.Strikes);
    }
}

TEST_F(PlayTest, AWindowThatCantShowItsMarkerPlaysOn) {
    struct Failing : PlayView {
        void ScrollToBar(int) override { throw RunTimeError(6, "Overflow"); }
        void MoveMarker(int, int, int) override { throw RunTimeError(6, "Overflow"); }
    } failing;
    Player.View = &failing;
    LoadBars(Short(1) + "," + Short(2));
    EXPECT_EQ(Strikes(Play(), 0), "1:65 2:66");
}

TEST_F(PlayTest, ATrainerPastTheRangeOfItsNumbersGoesOn) {
    LoadBars(Short(0));
    const std::int32_t least = std::numeric_limits<std::int32_t>::min();
    StartSpeedTrainer({"1", "1", "3", std::to_string(least), "1", "-1"});
    Run(100);
    EXPECT_EQ(Player.Trainer.Tempo, least);
    EXPECT_FALSE(IsPlaying()) << "its loops are spent";

    StartSpeedTrainer({"1", "1", "-32767", "3750", "3750", "0"});
    Run(100);
    EXPECT_EQ(Player.Trainer.LoopsLeft, std::numeric_limits<std::int16_t>::min());
    EXPECT_TRUE(IsPlaying());
    StopTab();
}

TEST_F(PlayTest, TheClicksLeadAndKeepTheirInterval) {
    LoadBars(R"({"Strums": [{"Length": 3, "Notes": {"0": {"Fret": "0"}}}]})", R"({"TimeSigTop": 2})");
    const auto clicks = [&] {
        std::string times;
        for (const TimedMessage& each : Only(Play(), 144, 90)) times += std::to_string(each.Time) + " ";
        return times;
    };
    // 4/2 of 16 ticks of a millisecond: right in 4/4 alone.
    Core::Settings.CountIn = true;
    EXPECT_EQ(clicks(), "32 64 ");
    EXPECT_EQ(Strikes(Play(), 0), "32:90 64:90 96:64");
    Core::Settings.Metronome = true;
    EXPECT_EQ(clicks(), "32 64 96 ");
    Core::Settings.CountIn = false;
    EXPECT_EQ(Strikes(Play(), 0), "32:64 32:90") << "the tick comes before its click";
}

TEST_F(PlayTest, StopTakesAllTimersAndTellsTheWindow) {
    Load(Testing::Slurp(Testing::GoldenDir() / "play/effects.json"));
    Begin();
    EXPECT_EQ(view.Starts, 1);
    while (clock.Now() < 120) clock.Step(120 + clock.Now());
    ASSERT_GT(clock.Running(), 1U);
    messages.clear();
    const std::int32_t window = Player.Memory->PlayTimer.hwnd();
    clock.Queue().Post(window, CharMessage, TimerCharacter);
    StopTab();
    EXPECT_EQ(clock.Running(), 0U);
    EXPECT_EQ(view.Stops, 1);
    EXPECT_EQ(Run().size(), 32U) << "the stop's own messages alone";
    PlayTimer_Timer();
    tmrMetronome_Timer();
    tmrBend_Timer(0);
    StopTab();
    EXPECT_EQ(view.Stops, 1);
}

TEST_F(PlayTest, SlashesRepeatTheChordBeforeAndLeaveTheSongAsItWas) {
    Load(R"({"Tempo": 3750, "Tracks": [{"Volume": 50, "Bars": [{"Strums": [
        {"Length": 6, "HasChord": true, "ChordValueB": 2, "ChordFrets": ["1", "x", "9", "", "", "", ""]},
        {"Length": 6, "Hash": 1, "Notes": {"0": {"Fret": "7"}}}, {"Length": 6, "Hash": 1},
        {"Length": 6, "Hash": 1, "HasChord": true, "ChordFrets": ["5", "", "", "", "", "", ""]}]}]}]})");
    const Core::TabFile before = Core::Open.TabFile;
    EXPECT_EQ(Strikes(Play(), 0), "1:65 1:59 2:65 2:59 3:65 3:59 4:69");
    EXPECT_TRUE(Core::Open.TabFile == before);
}

TEST_F(PlayTest, TheMarkerFollowsTheCursorsTrackAndScrollsOnceABar) {
    LoadBars(Short(0) + "," + Short(1));
    Play();
    const std::vector<View::Place> marks = {{0, 0}, {1, 0}, {2, 0}};
    EXPECT_EQ(view.Marks, marks);
    EXPECT_THAT(view.Scrolled, ElementsAre(0, 0, 1));
    view = {};
    Core::Settings.FollowTabPlayback = false;
    Play();
    EXPECT_TRUE(view.Marks.empty());
    EXPECT_TRUE(view.Scrolled.empty());
}

/// Keeps the notes that sound by what a device makes of the messages.
class SoundingNotes {
public:
    void Take(const TimedMessage& message) {
        const int channel = message.Status & 15;
        if ((message.Status & 0xF0) == 144) {
            if (message.Data2 > 0) {
                notes[channel].insert(message.Data1);
            } else {
                notes[channel].erase(message.Data1);
            }
        }
        if ((message.Status & 0xF0) == 176 && message.Data1 >= 120) notes.erase(channel);
    }
    int Count() const {
        int count = 0;
        for (const auto& [channel, each] : notes) count += static_cast<int>(each.size());
        return count;
    }

private:
    std::map<int, std::multiset<int>> notes;
};

TEST_F(PlayTest, AStopAtAnyMomentLeavesSilence) {
    Load(Testing::Slurp(Testing::GoldenDir() / "play/effects.json"));
    Core::Settings.Metronome = true;
    std::mt19937 random(5);
    int soundedBefore = 0;
    for (int round = 0; round < 10'000; ++round) {
        Begin();
        const auto moment = static_cast<std::int64_t>(random() % 900);
        const auto ties = random() % 4;  // also between two handlers of one millisecond
        while (clock.NextDue() && *clock.NextDue() < started + moment) clock.Step(started + moment);
        for (unsigned i = 0; i < ties; ++i) clock.Step(started + moment);
        SoundingNotes notes;
        for (const TimedMessage& each : messages) notes.Take(each);
        soundedBefore += notes.Count() > 0;
        StopTab();
        for (const TimedMessage& each : messages) notes.Take(each);
        ASSERT_EQ(notes.Count(), 0) << "stopped at " << moment;
        ASSERT_EQ(clock.Running(), 0U);
        const std::size_t sent = messages.size();
        ASSERT_EQ(Run(5000).size(), sent) << "something was sent after the stop";
    }
    EXPECT_GT(soundedBefore, 4'000);
}

}  // namespace

}  // namespace Quillon::Playback
