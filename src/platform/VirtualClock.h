// Timers on a clock of their own: a handler takes no time, and an hour of music passes in a blink, the same each time.
//
// The next timer is the one that is due first; of those due at the same millisecond, the one that was armed first.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/TimerHost.h"

namespace Quillon {

class VirtualClock : public TimerHost {
public:
    /// Milliseconds since the start.
    std::int64_t Now() const { return now; }
    /// When the next timer is due; nothing when none runs.
    std::optional<std::int64_t> NextDue() const;
    /// Goes on to the next timer and runs its handler. False, and nothing runs, when none is due up to `limit`.
    bool Step(std::int64_t limit);
    /// Timers that run.
    std::size_t Running() const { return armed.size(); }

    std::int32_t SetEvent(std::int32_t interval, std::int32_t resolution, std::int32_t window, bool periodic) override;
    void KillEvent(std::int32_t timer) override;
    UiQueue& Queue() override { return queue; }
    std::int64_t PerformanceCounter() const override { return now; }
    std::int64_t PerformanceFrequency() const override { return 1000; }

private:
    struct Waiting {
        std::int32_t Window;
        int Message;
        int Parameter;
    };
    /// Hands on what was posted in its order.
    struct MessagesInTurn : UiQueue {
        void Post(std::int32_t window, int message, int parameter) override;
        void SendAll();
        std::vector<Waiting> Messages;
        std::size_t NextMessage = 0;
    };
    struct Armed {
        std::int64_t Due;
        std::uint64_t Order;
        std::int32_t Timer;
        std::int32_t Window;
        std::int32_t Every;  ///< 0 for one shot
    };

    std::vector<Armed>::iterator Next();

    MessagesInTurn queue;
    std::vector<Armed> armed;
    std::int64_t now = 0;
    std::uint64_t lastOrder = 0;
    std::int32_t lastTimer = 0;
};

}  // namespace Quillon
