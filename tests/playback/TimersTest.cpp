#include <gtest/gtest.h>

#include <optional>

#include "core/mod_Common.h"
#include "platform/VirtualClock.h"
#include "playback/clsTimer.h"
#include "playback/ctlHiPreTimer.h"
#include "tests/support/Fixture.h"

namespace Quillon::Playback {

namespace {

class TimersTest : public testing::Test {
protected:
    /// Runs all that is due up to a moment and gives when the handler was called.
    std::vector<std::int64_t> RunTo(std::int64_t limit) {
        fired.clear();
        while (clock.Step(limit)) {
        }
        return fired;
    }

    ctlHiPreTimer NewTimer() {
        Services.Timers = &clock;
        return ctlHiPreTimer([this] { fired.push_back(clock.Now()); });
    }

    Testing::ServicesForTest services;
    VirtualClock clock;
    std::vector<std::int64_t> fired;
    ctlHiPreTimer timer = NewTimer();
};

TEST_F(TimersTest, FreshTimersHaveTheirDefaults) {
    EXPECT_FALSE(timer.Enabled());
    EXPECT_FALSE(timer.Periodic());
    EXPECT_EQ(timer.Interval(), 1000);
    EXPECT_EQ(timer.Resolution(), 10000);
    EXPECT_NE(timer.hwnd(), 0);
}

TEST_F(TimersTest, ValuesAreKeptInTheirRange) {
    timer.SetInterval(0);
    EXPECT_EQ(timer.Interval(), 1);
    timer.SetInterval(-20);
    EXPECT_EQ(timer.Interval(), 1);
    timer.SetResolution(0);
    EXPECT_EQ(timer.Resolution(), 1);
    timer.SetResolution(2'000'000);
    EXPECT_EQ(timer.Resolution(), 1'000'000);
}

TEST_F(TimersTest, AOneShotFiresOnceAndStaysEnabled) {
    timer.SetInterval(10);
    timer.SetEnabled(true);
    EXPECT_EQ(RunTo(100), std::vector<std::int64_t>{10});
    EXPECT_TRUE(timer.Enabled());
    timer.SetEnabled(false);
    EXPECT_FALSE(timer.Enabled());
}

TEST_F(TimersTest, WritingTheIntervalRestartsThePhase) {
    timer.SetPeriodic(true);
    timer.SetInterval(10);
    timer.SetEnabled(true);
    EXPECT_EQ(RunTo(25), (std::vector<std::int64_t>{10, 20}));
    ctlHiPreTimer other([this] { timer.SetInterval(7); });
    other.SetInterval(5);
    other.SetEnabled(true);
    EXPECT_EQ(RunTo(50), (std::vector<std::int64_t>{32, 39, 46}));
}

TEST_F(TimersTest, OfThoseDueTogetherTheFirstArmedRunsFirst) {
    ctlHiPreTimer other([this] { fired.push_back(-clock.Now()); });
    for (ctlHiPreTimer* each : {&timer, &other}) {
        each->SetPeriodic(true);
        each->SetInterval(each == &timer ? 10 : 5);
        each->SetEnabled(true);
    }
    // The other was armed anew at 5 and 15, later than the one at 0 and 10.
    EXPECT_EQ(RunTo(20), (std::vector<std::int64_t>{-5, 10, -10, -15, 20, -20}));
}

TEST_F(TimersTest, ACharacterTenByOtherMeansRaisesTimer) {
    clock.Queue().Send(timer.hwnd(), CharMessage, 65);
    clock.Queue().Send(timer.hwnd(), CharMessage, TimerCharacter);
    EXPECT_EQ(fired.size(), 1U);
}

TEST_F(TimersTest, AHandlerMayDestroyItsTimer) {
    std::optional<ctlHiPreTimer> own;
    own.emplace([&] {
        own.reset();
        fired.push_back(clock.Now());
    });
    own->SetPeriodic(true);
    own->SetInterval(3);
    own->SetEnabled(true);
    EXPECT_EQ(RunTo(30), std::vector<std::int64_t>{3});
    EXPECT_EQ(clock.Running(), 0U);
}

TEST_F(TimersTest, AMessagePostedBeforeAStopStillComes) {
    timer.SetInterval(10);
    timer.SetEnabled(true);
    clock.Queue().Post(timer.hwnd(), CharMessage, TimerCharacter);
    timer.SetEnabled(false);
    EXPECT_EQ(RunTo(100), std::vector<std::int64_t>{0});
}

TEST_F(TimersTest, WithoutTimersNothingIsEnabled) {
    Services.Timers = nullptr;
    ctlHiPreTimer none([] {});
    none.SetEnabled(true);
    EXPECT_FALSE(none.Enabled());
}

TEST_F(TimersTest, TheStopwatchGroupsThousands) {
    clsTimer watch;
    watch.StartTimer();
    ctlHiPreTimer late([] {});
    late.SetInterval(1'234'567);
    late.SetEnabled(true);
    RunTo(2'000'000);
    watch.StopTimer();
    EXPECT_EQ(watch.Elapsed(), 1'234'567);
    EXPECT_EQ(watch.ElapsedText(), "1,234,567.00");
    Core::DecimalSign = ',';
    EXPECT_EQ(watch.ElapsedText(), "1.234.567,00");
    Core::DecimalSign = '.';
    watch.StartTimer();
    EXPECT_EQ(watch.ElapsedText(), "0.00");
}

}  // namespace

}  // namespace Quillon::Playback
