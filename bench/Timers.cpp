// How late timers come, on the thread of the windows, beside a loop that only sleeps.
//
// Takes the seconds of each measurement, 60 when left out. Four of them: a timer of 31 ms, and one of 1 ms with eight
// of them running, each with a second core that is idle and one that is loaded.
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <thread>
#include <vector>

#include "bench/Measure.h"
#include "platform/qt/TimerThread.h"
#include "platform/qt/WindowQueue.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

constexpr std::int64_t Nanoseconds = 1'000'000'000;
constexpr double Limit = 1.5;
using Lateness = std::vector<double>;  ///< milliseconds

std::int64_t Now() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * Nanoseconds + now.tv_nsec;
}

double MillisecondsSince(std::int64_t due) { return static_cast<double>(Now() - due) / 1e6; }

Lateness Sleep(std::int64_t start, std::int64_t period, std::int64_t count) {
    Lateness late;
    late.reserve(static_cast<std::size_t>(count));
    for (std::int64_t at = 1; at <= count; ++at) {
        const std::int64_t due = start + at * period;
        const timespec until = {due / Nanoseconds, due % Nanoseconds};
        while (::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) != 0) {
        }
        late.push_back(MillisecondsSince(due));
    }
    return late;
}

/// Lateness of all timers together.
Lateness RunTimers(int timers, int periodMs, std::int64_t count) {
    WindowQueue queue;
    TimerThread host(queue);
    Lateness late;
    late.reserve(static_cast<std::size_t>(count * timers));
    std::vector<std::int32_t> running;
    for (int each = 0; each < timers; ++each) {
        const std::int64_t start = Now();
        std::int64_t fired = 0;
        const std::int32_t window = queue.Register([&, start, fired](int, int) mutable {
            const std::int64_t due = start + ++fired * periodMs * (Nanoseconds / 1000);
            if (fired <= count) late.push_back(MillisecondsSince(due));
        });
        running.push_back(host.SetEvent(periodMs, 1, window, true));
    }
    while (late.size() < static_cast<std::size_t>(count * timers)) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    for (const std::int32_t timer : running) host.KillEvent(timer);
    return late;
}

double Quantile(Lateness& sorted, double part) {
    return sorted.at(static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1)));
}

void Print(const char* name, const Lateness& sorted) {
    constexpr std::array<double, 10> Edges = {0.02, 0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 1e9};
    std::printf("  %-10s", name);
    auto from = sorted.begin();
    for (const double edge : Edges) {
        const auto to = std::upper_bound(from, sorted.end(), edge);
        std::printf("%8.3f", 100.0 * static_cast<double>(to - from) / static_cast<double>(sorted.size()));
        from = to;
    }
    std::printf("\n");
}

void Measure(const std::string& what, int timers, int periodMs, double seconds) {
    const auto count = static_cast<std::int64_t>(seconds * 1000 / periodMs);
    Lateness bare;
    // Half a period apart, so that the two do not wait for each other.
    const std::int64_t period = periodMs * (Nanoseconds / 1000);
    std::thread sleeper([&] { bare = Sleep(Now() + period / 2, period, count); });
    Lateness ours = RunTimers(timers, periodMs, count);
    sleeper.join();

    std::ranges::sort(bare);
    std::ranges::sort(ours);
    std::printf("%s: percent of the events that are late by up to so many milliseconds\n", what.c_str());
    std::printf("  %-10s%8s%8s%8s%8s%8s%8s%8s%8s%8s%8s\n", "", "0.02", "0.05", "0.1", "0.2", "0.5", "1", "2", "5", "10",
                "more");
    Print("sleeping", bare);
    Print("handler", ours);
    for (const auto& [name, part] : {std::pair("median", 0.5), std::pair("99th percentile", 0.99)}) {
        const double theirs = Quantile(bare, part);
        const double mine = Quantile(ours, part);
        std::printf("  %s: sleeping %.3f ms, handler %.3f ms\n", name, theirs, mine);
        Row(what + ", " + name, mine / theirs, Limit, "times");
    }
}

class LoadedCore {
public:
    LoadedCore() : child(::fork()) {
        if (child != 0) return;
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        for (volatile unsigned spin = 0;;) spin = spin + 1;
    }
    ~LoadedCore() {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    LoadedCore(const LoadedCore&) = delete;
    LoadedCore& operator=(const LoadedCore&) = delete;

private:
    pid_t child;
};

void MeasureBoth(const std::string& load, double seconds) {
    Measure("31 ms, " + load, 1, 31, seconds);
    Measure("Eight of 1 ms, " + load, 8, 1, seconds);
}

}  // namespace

int main(int argc, char** argv) {
    const double seconds = argc > 1 ? std::atof(argv[1]) : 60;
    if (seconds <= 0) return 2;
    const QCoreApplication application(argc, argv);
    MeasureBoth("a core idle", seconds);
    const LoadedCore load;
    MeasureBoth("a core loaded", seconds);
    return Status();
}
