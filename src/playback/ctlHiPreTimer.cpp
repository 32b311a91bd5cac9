#include "playback/ctlHiPreTimer.h"

#include <algorithm>
#include <utility>

#include "platform/Services.h"
#include "platform/TimerHost.h"

namespace Quillon::Playback {

ctlHiPreTimer::ctlHiPreTimer(std::function<void()> timer) : host(Services.Timers) {
    if (!host) return;
    window = host->Queue().Register([handler = std::move(timer)](int message, int parameter) {
        if (message == CharMessage && parameter == TimerCharacter) handler();
    });
    SetResolution(resolution);
}

ctlHiPreTimer::~ctlHiPreTimer() {
    Stop();
    if (host) host->Queue().Unregister(window);
}

bool ctlHiPreTimer::Start() {
    Stop();
    if (host) TimerId = host->SetEvent(interval, resolution, window, periodic);
    return TimerId != 0;
}

void ctlHiPreTimer::Stop() {
    if (TimerId == 0) return;
    host->KillEvent(TimerId);
    TimerId = 0;
}

void ctlHiPreTimer::SetEnabled(bool value) {
    if (value) {
        enabled = Start();
    } else {
        Stop();
        enabled = false;
    }
}

void ctlHiPreTimer::SetInterval(std::int32_t value) {
    interval = std::max(value, 1);
    SetEnabled(Enabled());
}

void ctlHiPreTimer::SetResolution(std::int32_t value) {
    if (!host) return;
    const auto [least, most] = host->GetDevCaps();
    resolution = std::clamp(value, least, most);
}

}  // namespace Quillon::Playback
