#include "platform/qt/TimerThread.h"

#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>

#include <algorithm>
#include <csignal>
#include <limits>
#include <system_error>
#include <tuple>

namespace Quillon {

namespace {

constexpr std::size_t UsualTimers = 64;

// A core that slept wakes up some tenths of a millisecond late, and the windows' thread behind it once more. So this
// thread rises a little early and watches the clock: an eighth of its sleep at most, which bounds what it costs.
constexpr std::chrono::microseconds LongestWatch(250);
constexpr int SleepsToAWatch = 8;

/// What makes the calling thread wake up on time. A system that refuses leaves it as it is.
void AskForPunctuality() {
    ::prctl(PR_SET_TIMERSLACK, 1UL);  // nanoseconds; the usual 50,000 delay every sleep
    sched_param priority{};
    priority.sched_priority = ::sched_get_priority_min(SCHED_FIFO);
    ::pthread_setschedparam(::pthread_self(), SCHED_FIFO, &priority);
}

}  // namespace

TimerThread::TimerThread(UiQueue& to) : queue(to) { armed.reserve(UsualTimers); }

TimerThread::~TimerThread() {
    {
        const std::lock_guard guard(lock);
        ends = true;
    }
    changed.notify_one();
    if (thread.joinable()) thread.join();
}

bool TimerThread::StartThread() {
    if (thread.joinable()) return true;
    // Signals are for the program's first thread.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        thread = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        // No thread, no timer: the caller gets 0.
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread.joinable();
}

std::int32_t TimerThread::SetEvent(std::int32_t interval, std::int32_t, std::int32_t window, bool periodic) {
    const auto now = Clock::now();
    if (interval < 1 || !StartThread()) return 0;
    const std::chrono::milliseconds every(interval);
    bool isNext = false;
    {
        const std::lock_guard guard(lock);
        lastTimer = lastTimer == std::numeric_limits<std::int32_t>::max() ? 1 : lastTimer + 1;
        isNext = armed.empty() || now + every < Next()->Due;
        armed.push_back({now + every, ++lastOrder, lastTimer, window, periodic ? every : every.zero()});
    }
    if (isNext) changed.notify_one();
    return lastTimer;
}

void TimerThread::KillEvent(std::int32_t timer) {
    const std::lock_guard guard(lock);
    std::erase_if(armed, [timer](const Armed& each) { return each.Timer == timer; });
}

std::size_t TimerThread::Running() {
    const std::lock_guard guard(lock);
    return armed.size();
}

std::int64_t TimerThread::PerformanceCounter() const {
    return std::chrono::nanoseconds(Clock::now().time_since_epoch()).count();
}

std::vector<TimerThread::Armed>::iterator TimerThread::Next() {
    return std::ranges::min_element(armed, {}, [](const Armed& each) { return std::tuple(each.Due, each.Order); });
}

void TimerThread::Fire(std::vector<Armed>::iterator timer) {
    const std::int32_t window = timer->Window;
    if (timer->Every > timer->Every.zero()) {
        timer->Due += timer->Every;
        timer->Order = ++lastOrder;
    } else {
        armed.erase(timer);
    }
    queue.Post(window, CharMessage, TimerCharacter);
}

void TimerThread::Run() {
    AskForPunctuality();
    std::unique_lock guard(lock);
    while (!ends) {
        const auto next = Next();
        if (next == armed.end()) {
            changed.wait(guard);
        } else if (const auto due = next->Due; due <= Clock::now()) {
            Fire(next);
        } else {
            RestUntil(due, guard);
        }
    }
}

void TimerThread::RestUntil(Clock::time_point due, std::unique_lock<std::mutex>& guard) {
    const auto watch = std::min<Clock::duration>(LongestWatch, (due - Clock::now()) / SleepsToAWatch);
    if (changed.wait_until(guard, due - watch) == std::cv_status::no_timeout) return;
    // No timer that is set meanwhile can be due before the watch ends: the shortest interval is longer.
    guard.unlock();
    while (Clock::now() < due) {
    }
    guard.lock();
}

}  // namespace Quillon
