// How a measurement is taken and told: a row with its name, what came out, its limit, and whether it keeps it.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace Quillon::Bench {

/// Median seconds of one call, over `runs` calls after one that warms up. `before` runs untimed ahead of each.
double MedianSeconds(int runs, const std::function<void()>& act, const std::function<void()>& before = {});

/// Milliseconds of single acts, told by their parts: 0.5 is the median, 1 the worst.
class Times {
public:
    template <class Act>
    void Take(Act&& act) {
        const auto start = std::chrono::steady_clock::now();
        act();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        all.push_back(taken.count());
    }
    double Part(double part);

private:
    std::vector<double> all;
};

/// Resident memory of this process in bytes.
double ResidentBytes();

/// Bytes that operator new has handed out so far and operator delete has not taken back, as the heap rounds them.
std::size_t LiveBytes();
/// Calls of operator new so far, of all threads.
std::size_t Allocations();

/// Prints a row of the table. Measured and limit are in `unit`; smaller is better.
void Row(std::string_view name, double measured, double limit, std::string_view unit);
/// Prints a row that has no limit of its own.
void Row(std::string_view name, double measured, std::string_view unit);

/// 1 when a row was over its limit, else 0: the status to leave with.
int Status();

}  // namespace Quillon::Bench
