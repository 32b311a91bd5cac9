// A timer of milliseconds whose event runs on the windows' thread, in turn with all other messages.
//
// The system's timer thread only posts a character to the control's window; the control raises Timer when the
// character comes. So events never interrupt a handler: they queue up while one runs, and none is merged or dropped.
// A message posted just before a stop still comes after it, and handlers must tolerate that.
#pragma once

#include <cstdint>
#include <functional>

namespace Quillon {
struct TimerHost;
}

namespace Quillon::Playback {

class ctlHiPreTimer {
public:
    /// `timer` is the handler of the Timer event; it may destroy the control. Runs on Services.Timers; without them
    /// the timer can't be enabled.
    explicit ctlHiPreTimer(std::function<void()> timer);
    /// Stops the system timer first.
    ~ctlHiPreTimer();
    ctlHiPreTimer(const ctlHiPreTimer&) = delete;
    ctlHiPreTimer& operator=(const ctlHiPreTimer&) = delete;

    /// Handle of the control's window, 0 without timers.
    std::int32_t hwnd() const { return window; }

    /// True from a successful start on; a one shot stays enabled after it fired, until it is stopped.
    bool Enabled() const { return enabled; }
    void SetEnabled(bool value);
    /// Taken at the next start.
    bool Periodic() const { return periodic; }
    void SetPeriodic(bool value) { periodic = value; }
    /// Milliseconds, at least 1. Writing it restarts a running timer, phase included.
    std::int32_t Interval() const { return interval; }
    void SetInterval(std::int32_t value);
    /// Accuracy asked for in milliseconds, kept within what the system can; taken at the next start.
    std::int32_t Resolution() const { return resolution; }
    void SetResolution(std::int32_t value);

private:
    bool Start();
    void Stop();

    TimerHost* host;
    std::int32_t window = 0;
    std::int32_t TimerId = 0;
    std::int32_t interval = 1000;
    std::int32_t resolution = 10000;
    bool periodic = false;
    bool enabled = false;
};

}  // namespace Quillon::Playback
