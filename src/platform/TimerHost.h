// The multimedia timers of an operating system: a thread that does nothing but post to the windows' queue.
#pragma once

#include <cstdint>

#include "platform/UiQueue.h"

namespace Quillon {

struct TimerHost {
    virtual ~TimerHost() = default;

    struct Capabilities {
        std::int32_t MinPeriod = 1;  ///< milliseconds
        std::int32_t MaxPeriod = 1'000'000;
    };
    virtual Capabilities GetDevCaps() const { return {}; }

    /// From `interval` milliseconds on from now, once or periodically, posts TimerCharacter as a CharMessage to the
    /// window. `resolution` is the accuracy wanted, in milliseconds. A handle, or 0 when no timer could be had.
    /// A periodic timer is armed anew at the moment it fires, before its message is handled.
    virtual std::int32_t SetEvent(std::int32_t interval, std::int32_t resolution, std::int32_t window,
                                  bool periodic) = 0;
    /// A spent or unknown handle is no error. A message posted before still arrives.
    virtual void KillEvent(std::int32_t timer) = 0;

    /// The queue that it posts to.
    virtual UiQueue& Queue() = 0;

    /// A counter that only grows, and its steps a second.
    virtual std::int64_t PerformanceCounter() const = 0;
    virtual std::int64_t PerformanceFrequency() const = 0;
};

}  // namespace Quillon
