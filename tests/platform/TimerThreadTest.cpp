#include "platform/qt/TimerThread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <functional>
#include <map>
#include <numeric>
#include <thread>

#include "platform/qt/WindowQueue.h"

namespace Quillon {

namespace {

/// Lives as long as all tests of this program, as the library wants it.
void EnsureApplication() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) static QCoreApplication application(argc, argv);
}

/// Pumps messages until something is so. A test that waits for ever is ended by its runner.
void PumpUntil(const std::function<bool()>& done) {
    while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

class WindowQueueTest : public testing::Test {
protected:
    WindowQueueTest() { EnsureApplication(); }
};

TEST_F(WindowQueueTest, EveryMessageOfEveryThreadArrivesInItsOrder) {
    WindowQueue queue;
    constexpr int Threads = 4;
    constexpr int Each = 5000;
    std::vector<std::vector<int>> seen(Threads);
    std::vector<std::int32_t> windows;
    for (int at = 0; at < Threads; ++at) {
        windows.push_back(queue.Register([&seen, at](int message, int parameter) {
            EXPECT_EQ(message, CharMessage);
            seen.at(static_cast<std::size_t>(at)).push_back(parameter);
        }));
    }
    std::vector<std::thread> threads;
    for (const std::int32_t window : windows) {
        threads.emplace_back([&queue, window] {
            for (int count = 0; count < Each; ++count) queue.Post(window, CharMessage, count);
        });
    }
    PumpUntil([&] {
        return std::accumulate(seen.begin(), seen.end(), std::size_t{0},
                               [](std::size_t sum, const auto& one) { return sum + one.size(); }) == Threads * Each;
    });
    for (std::thread& thread : threads) thread.join();
    std::vector<int> expected(Each);
    std::iota(expected.begin(), expected.end(), 0);
    for (const auto& one : seen) EXPECT_EQ(one, expected);
}

TEST_F(WindowQueueTest, AHandlerThatPumpsGetsTheNextOnesInOrder) {
    WindowQueue queue;
    std::vector<int> order;
    const std::int32_t window = queue.Register([&](int, int parameter) {
        order.push_back(parameter);
        if (parameter == 1) PumpUntil([&] { return order.size() >= 3; });
        if (parameter == 2) queue.Post(1, CharMessage, 4);
        order.push_back(-parameter);
    });
    for (const int parameter : {1, 2, 3}) queue.Post(window, CharMessage, parameter);
    PumpUntil([&] { return order.size() == 8; });
    // The pumping handler goes on once its own wake-up is through, which is after 3.
    EXPECT_EQ(order, (std::vector<int>{1, 2, -2, 3, -3, -1, 4, -4}));
}

TEST_F(WindowQueueTest, PaintingHasItsTurnWhileMessagesPostMessages) {
    WindowQueue queue;
    bool painted = false;
    int handled = 0;
    std::int32_t window = 0;
    window = queue.Register([&](int, int) {
        ++handled;
        if (!painted) queue.Post(window, CharMessage, 0);
    });
    queue.Post(window, CharMessage, 0);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { painted = true; }, Qt::QueuedConnection);
    PumpUntil([&] { return painted; });
    EXPECT_LT(handled, 1000);
}

TEST_F(WindowQueueTest, AWindowThatIsGoneGetsNothing) {
    WindowQueue queue;
    int first = 0;
    int second = 0;
    const std::int32_t gone = queue.Register([&](int, int) { ++first; });
    const std::int32_t stays = queue.Register([&](int, int) { ++second; });
    queue.Post(gone, CharMessage, 0);
    queue.Post(stays, CharMessage, 0);
    queue.Unregister(gone);
    PumpUntil([&] { return second == 1; });
    EXPECT_EQ(first, 0);
}

class TimerThreadTest : public WindowQueueTest {
protected:
    /// A window that counts its events under its own name.
    std::int32_t Window(char name) {
        return queue.Register([this, name](int message, int parameter) {
            EXPECT_EQ(message, CharMessage);
            EXPECT_EQ(parameter, TimerCharacter);
            ++fired[name];
            order += name;
        });
    }

    WindowQueue queue;
    TimerThread timers{queue};
    std::map<char, int> fired;
    std::string order;
};

TEST_F(TimerThreadTest, PeriodicTimersRepeatAndOneShotsDoNot) {
    const std::int32_t once = timers.SetEvent(1, 1, Window('o'), false);
    const std::int32_t every = timers.SetEvent(2, 1, Window('p'), true);
    EXPECT_NE(once, 0);
    EXPECT_NE(every, once);
    PumpUntil([&] { return fired['p'] >= 5; });
    EXPECT_EQ(fired['o'], 1);
    timers.KillEvent(once);
    timers.KillEvent(every);
    timers.KillEvent(12345);
    EXPECT_EQ(timers.SetEvent(0, 1, Window('x'), true), 0);
}

TEST_F(TimerThreadTest, AnEarlierTimerIsNotHeldUpByTheSleepUntilALaterOne) {
    timers.SetEvent(1'000'000, 1, Window('l'), false);
    timers.SetEvent(1, 1, Window('e'), false);
    PumpUntil([&] { return fired['e'] == 1; });
    EXPECT_EQ(fired['l'], 0);
}

TEST_F(TimerThreadTest, NothingIsDroppedWhileTheWindowsThreadIsBusy) {
    // Two timers of one period, armed in turn, fire in turn however late their messages are handled.
    const std::int32_t window = Window('b');
    std::int32_t busy = 0;
    busy = queue.Register([&](int, int) {
        const std::int64_t until = timers.PerformanceCounter() + 20 * timers.PerformanceFrequency() / 1000;
        while (timers.PerformanceCounter() < until) {
        }
        order += 'B';
    });
    timers.SetEvent(1, 1, busy, false);
    const std::int64_t start = timers.PerformanceCounter();
    const std::int32_t every = timers.SetEvent(1, 1, window, true);
    PumpUntil([&] { return fired['b'] >= 20; });
    // As many as the periods that have passed: none may come early.
    EXPECT_LE(fired['b'], (timers.PerformanceCounter() - start) / 1'000'000);
    timers.KillEvent(every);
    EXPECT_EQ(std::count(order.begin(), order.end(), 'B'), 1);
}

TEST_F(TimerThreadTest, AStoppedTimerPostsNothingMore) {
    for (int round = 0; round < 50; ++round) {
        const std::int32_t timer = timers.SetEvent(1, 1, Window('s'), true);
        const int before = fired['s'];
        PumpUntil([&] { return fired['s'] > before; });
        timers.KillEvent(timer);
        // What was posted before the stop comes ahead of a message posted now.
        bool reached = false;
        const std::int32_t mark = queue.Register([&](int, int) { reached = true; });
        queue.Post(mark, CharMessage, 0);
        PumpUntil([&] { return reached; });
        const int after = fired['s'];
        bool again = false;
        timers.SetEvent(3, 1, queue.Register([&](int, int) { again = true; }), false);
        PumpUntil([&] { return again; });
        EXPECT_EQ(fired['s'], after);
    }
}

TEST_F(TimerThreadTest, EndsWithTimersThatStillRun) {
    for (int round = 0; round < 100; ++round) {
        TimerThread own(queue);
        for (int timer = 0; timer < 8; ++timer) own.SetEvent(1, 1, Window('e'), true);
        if (round % 4 == 0) QCoreApplication::processEvents();
    }
}

}  // namespace

}  // namespace Quillon
