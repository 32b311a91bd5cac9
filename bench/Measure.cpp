#include "bench/Measure.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <new>
#include <stdexcept>
#include <vector>

namespace {

std::atomic<std::size_t> liveBytes = 0;
std::atomic<std::size_t> allocations = 0;

// What stands behind operator new can only be the C library's own.
// NOLINTBEGIN(cppcoreguidelines-no-malloc)
void* Counted(std::size_t size) {
    void* held = std::malloc(size ? size : 1);
    if (!held) throw std::bad_alloc();
    liveBytes += malloc_usable_size(held);
    ++allocations;
    return held;
}

void Uncounted(void* held) {
    liveBytes -= malloc_usable_size(held);
    std::free(held);
}
// NOLINTEND(cppcoreguidelines-no-malloc)

}  // namespace

// The hooks behind LiveBytes and Allocations. Over-aligned forms keep the library's own: no record of the document uses
// them.
void* operator new(std::size_t size) { return Counted(size); }
void* operator new[](std::size_t size) { return Counted(size); }
void operator delete(void* held) noexcept { Uncounted(held); }
void operator delete[](void* held) noexcept { Uncounted(held); }
void operator delete(void* held, std::size_t) noexcept { Uncounted(held); }
void operator delete[](void* held, std::size_t) noexcept { Uncounted(held); }

namespace Quillon::Bench {

namespace {

bool overLimit = false;

}  // namespace

double MedianSeconds(int runs, const std::function<void()>& act, const std::function<void()>& before) {
    using Clock = std::chrono::steady_clock;
    std::vector<double> seconds;
    for (int run = -1; run < runs; ++run) {
        if (before) before();
        const auto start = Clock::now();
        act();
        if (run >= 0) seconds.push_back(std::chrono::duration<double>(Clock::now() - start).count());
    }
    std::ranges::sort(seconds);
    return seconds.at(seconds.size() / 2);
}

double Times::Part(double part) {
    if (all.empty()) throw std::logic_error("nothing was taken");
    std::ranges::sort(all);
    return all.at(static_cast<std::size_t>(part * static_cast<double>(all.size() - 1)));
}

double ResidentBytes() {
    std::ifstream statm("/proc/self/statm");
    double pages = 0;
    double resident = 0;
    statm >> pages >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

std::size_t LiveBytes() { return liveBytes; }

std::size_t Allocations() { return allocations; }

void Row(std::string_view name, double measured, double limit, std::string_view unit) {
    const bool kept = measured <= limit;
    overLimit = overLimit || !kept;
    std::printf("%-52.*s %10.3f   at most %8.3f %-8.*s %s\n", static_cast<int>(name.size()), name.data(), measured,
                limit, static_cast<int>(unit.size()), unit.data(), kept ? "ok" : "OVER");
    std::fflush(stdout);
}

void Row(std::string_view name, double measured, std::string_view unit) {
    std::printf("%-52.*s %10.3f                    %.*s\n", static_cast<int>(name.size()), name.data(), measured,
                static_cast<int>(unit.size()), unit.data());
    std::fflush(stdout);
}

int Status() { return overLimit ? 1 : 0; }

}  // namespace Quillon::Bench
