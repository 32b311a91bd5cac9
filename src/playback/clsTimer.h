// A stopwatch on the system's performance counter.
#pragma once

#include <cstdint>
#include <string>

namespace Quillon::Playback {

class clsTimer {
public:
    /// Reads the counter's frequency, once.
    clsTimer();
    void StartTimer();
    void StopTimer();
    /// Milliseconds from the start to the stop; 0 without timers.
    double Elapsed() const;
    /// The same with two decimals and with thousands grouped: "1,234.50".
    std::string ElapsedText() const;

private:
    std::int64_t Counter() const;

    std::int64_t frequency = 0;
    std::int64_t start = 0;
    std::int64_t stop = 0;
};

}  // namespace Quillon::Playback
