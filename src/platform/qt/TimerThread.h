// The multimedia timers of the real program: one thread sleeps until the next of them is due and posts its message.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/TimerHost.h"

namespace Quillon {

/// Set and killed on the windows' thread. A periodic timer is due at whole periods from its start, however late its
/// messages were; those that are due at one moment fire in the order in which they were armed. After KillEvent nothing
/// more is posted. The thread starts with the first timer and has real-time priority where the system grants it.
class TimerThread : public TimerHost {
public:
    /// The queue must outlive this.
    explicit TimerThread(UiQueue& queue);
    /// Ends the thread; timers that still run are gone.
    ~TimerThread() override;
    TimerThread(const TimerThread&) = delete;
    TimerThread& operator=(const TimerThread&) = delete;

    std::int32_t SetEvent(std::int32_t interval, std::int32_t resolution, std::int32_t window, bool periodic) override;
    void KillEvent(std::int32_t timer) override;
    UiQueue& Queue() override { return queue; }
    /// Timers that run.
    std::size_t Running();
    /// Nanoseconds.
    std::int64_t PerformanceCounter() const override;
    std::int64_t PerformanceFrequency() const override { return 1'000'000'000; }

private:
    using Clock = std::chrono::steady_clock;
    struct Armed {
        Clock::time_point Due;
        std::uint64_t Order;
        std::int32_t Timer;
        std::int32_t Window;
        std::chrono::milliseconds Every;  ///< 0 for one shot
    };

    bool StartThread();
    void Run();
    /// Called and returns with the lock held; ends early when something changed.
    void RestUntil(Clock::time_point due, std::unique_lock<std::mutex>& guard);
    std::vector<Armed>::iterator Next();
    void Fire(std::vector<Armed>::iterator timer);

    UiQueue& queue;
    std::mutex lock;
    std::condition_variable changed;
    std::vector<Armed> armed;
    std::uint64_t lastOrder = 0;
    std::int32_t lastTimer = 0;
    bool ends = false;
    std::thread thread;
};

}  // namespace Quillon
