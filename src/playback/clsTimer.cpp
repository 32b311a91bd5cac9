#include "playback/clsTimer.h"

#include <array>
#include <charconv>

#include "core/mod_Common.h"
#include "platform/Services.h"
#include "platform/TimerHost.h"

namespace Quillon::Playback {

clsTimer::clsTimer() : frequency(Services.Timers ? Services.Timers->PerformanceFrequency() : 0) {}

std::int64_t clsTimer::Counter() const { return Services.Timers ? Services.Timers->PerformanceCounter() : 0; }

void clsTimer::StartTimer() { start = stop = Counter(); }

void clsTimer::StopTimer() { stop = Counter(); }

double clsTimer::Elapsed() const {
    if (frequency == 0) return 0;
    return static_cast<double>(stop - start) * 1000 / static_cast<double>(frequency);
}

std::string clsTimer::ElapsedText() const {
    std::array<char, 64> figures{};
    const auto end = std::to_chars(figures.begin(), figures.end(), Elapsed(), std::chars_format::fixed, 2).ptr;
    std::string text(figures.begin(), end);
    const char group = Core::DecimalSign == ',' ? '.' : ',';
    const auto point = static_cast<std::ptrdiff_t>(text.size()) - 3;
    text[static_cast<std::size_t>(point)] = Core::DecimalSign;
    for (std::ptrdiff_t at = point - 3; at > (text.front() == '-' ? 1 : 0); at -= 3) {
        text.insert(static_cast<std::size_t>(at), 1, group);
    }
    return text;
}

}  // namespace Quillon::Playback
