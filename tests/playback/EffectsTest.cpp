#include <gmock/gmock.h>

#include "tests/playback/PlayFixture.h"

namespace Quillon::Playback {

namespace {

/// One track whose first bar is this strum and, when given, another behind it; wheel and notes go to channel 1.
std::string Song(const std::string& first, const std::string& second = "", const std::string& track = "") {
    return R"({"Tempo": 15, "Tracks": [{)" + track + R"("Bars": [{"Strums": [)" + first +
           (second.empty() ? "" : ", " + second) + "]}]}]}";
}

/// A quarter at 15 beats a minute: 16 ticks of 250 ms.
std::string Quarter(const std::string& note, const std::string& strum = "") {
    return R"({"Length": 2, )" + strum + R"("Notes": {"0": {)" + note + "}}}";
}

/// A curve of so many points: 0, 1, 2, 0 and so on, or all of one height.
std::string Curve(int points, int height = -1) {
    std::string text;
    for (int i = 0; i < points; ++i) text += (i > 0 ? ", " : "") + std::to_string(height < 0 ? i % 3 : height);
    return "[" + text + "]";
}

constexpr const char* Rest = R"({"Length": 2})";

TEST_F(PlayTest, ABendWalksItsCurveOnePointLate) {
    Load(Song(Quarter(R"("Fret": "5", "HasBend": true, "BendPoints": )" + Curve(26)), Rest));
    const auto all = Play();
    const auto wheel = Only(all, 225);
    ASSERT_EQ(wheel.size(), 261U);
    EXPECT_EQ(Strikes(all, 1), "250:69");
    // 4000 ms in 250 steps of 16; the last of them pass the strum's end.
    EXPECT_EQ(wheel[0], (TimedMessage{250, 225, 0, 64}));
    EXPECT_EQ(wheel[4].Data2, 64) << "below 0.5 the first point";
    EXPECT_EQ(wheel[6].Data2, 72) << "above it the second: 7.9";
    EXPECT_EQ(wheel[15], (TimedMessage{250 + 15 * 16, 225, 0, 68})) << "at 1.5 between the points 0 and 1";
    EXPECT_EQ(wheel[259].Time, 250 + 259 * 16);
    EXPECT_EQ(wheel.back(), (TimedMessage{250 + 260 * 16, 225, 0, 64}));
}

TEST_F(PlayTest, AFlatCurveStillSendsItsSteps) {
    Load(Song(Quarter(R"("Fret": "5", "HasBend": true)"), Rest));
    const auto wheel = Only(Play(), 225);
    EXPECT_EQ(wheel.size(), 261U);
    for (const TimedMessage& each : wheel) EXPECT_EQ(each.Data2, 64);
}

TEST_F(PlayTest, ATremoloBarHasNoNoteOfItsOwn) {
    Load(Song(Quarter(R"("Fret": "5")", R"("HasTrem": true, "TremPoints": )" + Curve(25) + ", "), Rest));
    const auto all = Play();
    const auto wheel = Only(all, 225);
    ASSERT_EQ(wheel.size(), 251U);
    EXPECT_EQ(Strikes(all, 1), "250:69") << "the plain note, on the channel that the wheel moves";
    EXPECT_EQ(wheel[240].Time, 250 + 240 * 17) << "4000 / 240 milliseconds, rounded";
    EXPECT_EQ(wheel.back().Data2, 64);
}

TEST_F(PlayTest, WheelValuesAreNotLimitedHere) {
    Core::Settings.BendCoefficient = 40;
    Load(Song(Quarter(R"("Fret": "5", "HasBend": true, "BendPoints": )" + Curve(26)), Rest));
    EXPECT_EQ(Only(Play(), 225)[6].Data2, 104);
    Core::Settings.BendCoefficient = 49000;
    Load(Song(Quarter(R"("Fret": "5", "HasBend": true, "BendPoints": )" + Curve(26, 1)), Rest));
    EXPECT_EQ(Only(Play(), 225).size(), 1U) << "what can't be sent is left out, and the walk goes on to its end";
}

TEST_F(PlayTest, AVibratoSwingsAround66AndRemembersItsSide) {
    Core::Settings.VibratoCount = 3;
    Load(Song(Quarter(R"("Fret": "5")", R"("Technique": 1, )")));
    const auto values = [](const std::vector<TimedMessage>& wheel) {
        std::vector<std::int16_t> found;
        for (const TimedMessage& each : wheel) found.push_back(each.Data2);
        return found;
    };
    const auto first = Only(Play(), 225);
    EXPECT_THAT(values(first), testing::ElementsAre(62, 70, 62)) << "and stays off its rest";
    EXPECT_EQ(first[1].Time, 250 + 1333);
    EXPECT_THAT(values(Only(Play(), 225)), testing::ElementsAre(70, 62, 70)) << "the element's last use left it there";
    Load(Song(Quarter(R"("Fret": "5")", R"("Technique": 2, )")));
    EXPECT_THAT(values(Only(Play(), 225)), testing::ElementsAre(54, 78, 54));
    Core::Settings.VibratoCount = 0;
    EXPECT_TRUE(Only(Play(), 225).empty());
}

TEST_F(PlayTest, ASlideEndsASemitoneShort) {
    const auto slide = [&](const char* from, const char* to, const std::string& track = "") {
        Load(Song(Quarter(R"("Fret": ")" + std::string(from) + R"(", "Technique": 8)"),
                  Quarter(R"("Fret": ")" + std::string(to) + R"(")"), track));
        return Strikes(Play(), 1);
    };
    EXPECT_EQ(slide("1", "4"), "250:65 1583:66 2916:67");
    EXPECT_EQ(slide("4", "1"), "250:68 1583:67 2916:66");
    EXPECT_EQ(slide("1", "2"), "250:65");
    EXPECT_EQ(slide("1", "1"), "250:65");
    EXPECT_EQ(slide("1", "x"), "250:65");
    EXPECT_EQ(slide("34", "37"), "250:98 1583:97 2916:96") << "as texts 101 sorts below 98";
    EXPECT_EQ(slide("1", "4", R"("OctaveUp": true, )"), "250:77 1583:78 2916:79");
    EXPECT_EQ(slide("1", "4", R"("OctaveUp": true, "OctaveDown": true, )"), "250:53 1583:66 2916:67")
        << "the steps add up both flags";
}

TEST_F(PlayTest, ASlideGoesOverTheBarLine) {
    Load(R"({"Tempo": 15, "Tracks": [{"Bars": [{"Strums": [)" + Quarter(R"("Fret": "1", "Technique": 8)") +
         R"(]}, {"Strums": [)" + Quarter(R"("Fret": "3")") + "]}]}]}");
    EXPECT_EQ(Strikes(Play(), 1), "250:65 2250:66");
}

TEST_F(PlayTest, PickingStrikesAnew) {
    const auto strikes = [&](int technique) {
        Load(Song(Quarter(R"("Fret": "1", "Technique": )" + std::to_string(technique)), "", R"("OctaveDown": true, )"));
        return Strikes(Play(), 1);
    };
    EXPECT_EQ(strikes(2), "250:53 2250:53");
    EXPECT_EQ(strikes(3), "250:53 1250:53 2250:53 3250:53");
    EXPECT_EQ(strikes(4).substr(0, 14), "250:53 750:53 ");
}

TEST_F(PlayTest, ATrillPassesTheTuningBy) {
    const auto strikes = [&](int period, const char* length = R"("Length": 2)") {
        Load(Song("{" + std::string(length) + R"(, "Notes": {"1": {"Fret": "3", "HasTrill": true, "TrillFret": 5,
                  "TrillPeriod": )" +
                      std::to_string(period) + "}}}",
                  "", R"("Tuning": [2, 2, 2, 2, 2, 2, 0], )"));
        return Strikes(Play(), 1);
    };
    EXPECT_EQ(strikes(0), "250:62 1250:64 2250:62 3250:64");
    EXPECT_EQ(strikes(0), "250:62 1250:64 2250:62 3250:64") << "each begins with the note itself";
    EXPECT_EQ(strikes(2).substr(0, 21), "250:62 500:64 750:62 ");
    EXPECT_EQ(strikes(0, R"("Length": 6)"), "") << "too short for a stroke: nothing sounds";
}

TEST_F(PlayTest, AGraceNoteSoundsItsLengthBeforeItsOwner) {
    const auto all = [&](const char* grace, const char* track = "") {
        Load(Song(R"({"Length": 2})", Quarter(R"("Fret": "5", "HasGrace": true, )" + std::string(grace)), track));
        return Play();
    };
    EXPECT_EQ(Strikes(all(R"("GraceFret": "3")"), 0), "3250:67 4250:69");
    EXPECT_EQ(Strikes(all(R"("GraceFret": "3", "GraceDuration": 1)"), 0), "3750:67 4250:69");
    EXPECT_EQ(Strikes(all(R"("GraceFret": "3", "GraceDuration": 2)", R"("Tuning": [1, 0, 0, 0, 0, 0, 0], )"), 0),
              "4000:68 4250:70");
    const auto dead = Only(all(R"("GraceFret": "x", "GraceDynamic": 3)"), 144, 64);
    ASSERT_EQ(dead.size(), 2U);
    EXPECT_EQ(dead[0], (TimedMessage{3250, 144, 64, 127}));
    EXPECT_EQ(dead[1], (TimedMessage{3250, 144, 64, 0}));
    EXPECT_EQ(Strikes(all(R"("GraceFret": "")"), 0), "4250:69");
}

TEST_F(PlayTest, PoolsGrowWhenAllAreBusyAndAreTakenAgain) {
    Load(Song(R"({"Length": 2, "Notes": {"0": {"Fret": "1", "HasBend": true}, "1": {"Fret": "1", "HasBend": true},
              "2": {"Fret": "1", "HasBend": true}}})",
              R"({"Length": 2, "Notes": {"0": {"Fret": "1", "HasBend": true}}})"));
    Begin();
    Run(300);
    EXPECT_EQ(Player.Memory->tmrBend.Count(), 3);
    EXPECT_EQ(Player.Memory->tmrBend.Running(), 3);
    // At 4250 the first strum's bends still walk their last steps: a fourth is loaded.
    Run(4255);
    EXPECT_EQ(Player.Memory->tmrBend.Count(), 4);
    Run(8000);
    EXPECT_EQ(Player.Memory->tmrBend.Running(), 1);
    EXPECT_EQ(Player.Memory->tmrBend.Count(), 4);
}

TEST_F(PlayTest, EffectsThatMeetOnOneNoteAllSound) {
    Load(Song(Quarter(R"("Fret": "1", "HasBend": true, "Technique": 1)")));
    const auto all = Play();
    EXPECT_EQ(Only(all, 145).size(), 1U) << "the bend's";
    const auto notes = Only(all, 144);
    ASSERT_EQ(notes.size(), 2U) << "the short one and its end, and no plain one";
    EXPECT_EQ(notes[1].Data2, 0);
}

}  // namespace

}  // namespace Quillon::Playback
