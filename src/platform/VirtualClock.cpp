#include "platform/VirtualClock.h"

#include <algorithm>
#include <tuple>

namespace Quillon {

void VirtualClock::MessagesInTurn::Post(std::int32_t window, int message, int parameter) {
    Messages.push_back({window, message, parameter});
}

void VirtualClock::MessagesInTurn::SendAll() {
    while (NextMessage < Messages.size()) {
        const Waiting next = Messages[NextMessage++];
        Send(next.Window, next.Message, next.Parameter);
    }
    Messages.clear();
    NextMessage = 0;
}

std::vector<VirtualClock::Armed>::iterator VirtualClock::Next() {
    return std::ranges::min_element(armed, {}, [](const Armed& each) { return std::tuple(each.Due, each.Order); });
}

std::optional<std::int64_t> VirtualClock::NextDue() const {
    if (armed.empty()) return {};
    return std::ranges::min(armed, {}, &Armed::Due).Due;
}

bool VirtualClock::Step(std::int64_t limit) {
    queue.SendAll();
    const auto next = Next();
    if (next == armed.end() || next->Due > limit) return false;
    now = next->Due;
    queue.Post(next->Window, CharMessage, TimerCharacter);
    if (next->Every > 0) {
        next->Due += next->Every;
        next->Order = ++lastOrder;
    } else {
        armed.erase(next);
    }
    queue.SendAll();
    return true;
}

std::int32_t VirtualClock::SetEvent(std::int32_t interval, std::int32_t, std::int32_t window, bool periodic) {
    armed.push_back({now + interval, ++lastOrder, ++lastTimer, window, periodic ? interval : 0});
    return lastTimer;
}

void VirtualClock::KillEvent(std::int32_t timer) {
    std::erase_if(armed, [timer](const Armed& each) { return each.Timer == timer; });
}

}  // namespace Quillon
