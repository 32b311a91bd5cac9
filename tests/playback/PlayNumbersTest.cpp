#include "platform/RunTimeError.h"
#include "playback/PlayScore.h"
#include "tests/playback/PlayFixture.h"

namespace Quillon::Playback {

namespace {

TEST(PlayNumbersTest, ClicksAreRightInFourFourAlone) {
    struct Case {
        int Top, Bottom, Tick, Interval, Beats;
    };
    const Case cases[] = {
        {4, 4, 31, 496, 4},  {3, 4, 31, 661, 3}, {6, 8, 31, 661, 6}, {2, 2, 31, 496, 2},      {8, 1, 31, 62, 8},
        {33, 4, 31, 496, 4}, {4, 3, 31, 496, 4}, {0, 0, 31, 496, 4}, {1, 32, 1000, 32767, 1}, {32, 32, 31, 496, 32},
    };
    for (const Case& each : cases) {
        Core::BarInfo info;
        info.TimeSigTop = each.Top;
        info.TimeSigBottom = each.Bottom;
        EXPECT_EQ(GetMetronomeInterval(info, each.Tick, false), each.Interval) << each.Top << "/" << each.Bottom;
        EXPECT_EQ(GetMetronomeInterval(info, each.Tick, true), each.Beats) << each.Top << "/" << each.Bottom;
    }
}

TEST(PlayNumbersTest, VelocitiesFollowVolumeDynamicAndGhost) {
    Core::Track track;
    Core::Note note;
    const auto velocity = [&](int volume, int dynamic, bool ghost) {
        track.Volume = static_cast<std::int16_t>(volume);
        note.Dynamic = dynamic;
        note.Ghost = ghost;
        return getVolume(track, note);
    };
    // 63.5 rounds to 64; MF is 4 of 7.
    EXPECT_EQ(velocity(50, 0, false), 100);
    EXPECT_EQ(velocity(50, 3, false), 127);
    EXPECT_EQ(velocity(50, 3, true), 64) << "limited before it is halved; 63.5 to the even neighbour";
    EXPECT_EQ(velocity(50, 7, false), 64);
    EXPECT_EQ(velocity(0, 7, false), 0);
    EXPECT_EQ(velocity(25, 6, false), 41);
    EXPECT_EQ(velocity(50, 99, false), 64);
}

TEST(PlayNumbersTest, TempoTexts) {
    const std::pair<const char*, double> cases[] = {
        {"t=96", 96}, {" T= 1 20", 120}, {"t = 96", 0}, {"t=t=80", 80}, {"80 t=", 80}, {"t=-5", 0}, {"t=0", 0},
        {"t=", 0},    {"96", 0},         {"t=9x", 0},   {"t=1e999", 0}, {"t", 0},      {"", 0},     {"t=96.5", 96.5}};
    for (const auto& [text, tempo] : cases) EXPECT_EQ(TempoOfText(text), tempo) << text;
}

TEST(PlayNumbersTest, TheBusiestTrackOfABarIsTheFirstOfEqualOnes) {
    Core::TabFile file;
    file.Tracks = Core::List<Core::Track>(3);
    for (int track = 1; track < 3; ++track) file.Tracks[track].Bars.Edit(0).EditStrums().Resize(4);
    EXPECT_EQ(TrackWithMostStrumsOnBar(file, 0), 1);
    EXPECT_EQ(TrackWithMostStrumsOnBar(file, 9), 0);
}

TEST(PlayNumbersTest, FretsThatAreNumbers) {
    for (const char* text : {"5", "12", "-3", " 7 ", "1.5"}) EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", "x", " ", "5a", "nan", "inf", "1e999"}) EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST_F(PlayTest, HarmonicsSoundHigher) {
    const auto sent = [&](int harmonic, bool off) {
        messages.clear();
        PlayNote("60.9", harmonic, 2, 100, off);
        std::string text;
        for (const TimedMessage& each : messages) {
            text += std::to_string(each.Data1) + "/" + std::to_string(each.Data2) + " ";
        }
        return text;
    };
    EXPECT_EQ(sent(Core::NoHarmonic, false), "60/100 ");
    EXPECT_EQ(sent(Core::NaturalHarmonic, true), "60/100 60/0 ");
    EXPECT_EQ(sent(Core::ArtificialHarmonic5, false), "79/100 ");
    EXPECT_EQ(sent(Core::ArtificialHarmonic7, false), "84/100 ");
    for (const int harmonic : {4, 5, 6}) EXPECT_EQ(sent(harmonic, true), "72/100 72/0 ");
    EXPECT_EQ(sent(Core::SemiHarmonic, true), "72/83 60/83 60/0 72/0 ");
}

TEST_F(PlayTest, TrainerFieldsMustBeNumbers) {
    EXPECT_THROW(StartSpeedTrainer({"1", "1", "two", "60", "90", "5"}), RunTimeError);
    EXPECT_THROW(StartSpeedTrainer({"1", "1", "99999", "60", "90", "5"}), RunTimeError);
    EXPECT_FALSE(IsPlaying());
    StartSpeedTrainer({"1", "1", "2", "60", "90", "5"});
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(TempoNow(), 60);
    EXPECT_EQ(Player.Memory->PlayTimer.Interval(), 62);
}

}  // namespace

}  // namespace Quillon::Playback
