#include "platform/UiQueue.h"

#include <memory>
#include <utility>

namespace Quillon {

std::int32_t UiQueue::Register(Handler handler) {
    windows.emplace(++lastWindow, std::make_shared<const Handler>(std::move(handler)));
    return lastWindow;
}

void UiQueue::Unregister(std::int32_t window) { windows.erase(window); }

void UiQueue::Send(std::int32_t window, int message, int parameter) {
    const auto found = windows.find(window);
    if (found == windows.end()) return;
    const std::shared_ptr<const Handler> handler = found->second;  // outlives a window that goes while it runs
    (*handler)(message, parameter);
}

}  // namespace Quillon
