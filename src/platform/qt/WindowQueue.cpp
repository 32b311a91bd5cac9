#include "platform/qt/WindowQueue.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <chrono>

#include "platform/RunTimeError.h"

namespace Quillon {

namespace {

constexpr std::size_t FirstRoom = 256;
constexpr std::size_t MostRoom = std::size_t{1} << 20;
/// How long handlers may run before painting and keys have their turn.
constexpr std::chrono::milliseconds Turn(8);

}  // namespace

WindowQueue::WindowQueue() : ring(FirstRoom), counter(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (counter < 0) RaiseOutOfMemory();
    notifier = std::make_unique<QSocketNotifier>(counter, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [this] { HandleWaiting(); });
}

WindowQueue::~WindowQueue() {
    notifier.reset();
    ::close(counter);
}

void WindowQueue::Post(std::int32_t window, int message, int parameter) {
    const std::lock_guard guard(lock);
    if (posted - taken == ring.size()) {
        if (ring.size() == MostRoom) return;
        std::vector<Waiting> larger(ring.size() * 2);
        for (std::uint64_t at = taken; at != posted; ++at) larger[at % larger.size()] = ring[at % ring.size()];
        ring.swap(larger);
    }
    ring[posted % ring.size()] = {window, message, parameter};
    if (posted++ == taken) ::eventfd_write(counter, 1);
}

bool WindowQueue::TakeUpTo(std::uint64_t last, Waiting& message) {
    const std::lock_guard guard(lock);
    if (taken >= last) return false;
    message = ring[taken % ring.size()];
    if (++taken == posted) {
        eventfd_t ignored = 0;
        ::eventfd_read(counter, &ignored);
    }
    return true;
}

void WindowQueue::HandleWaiting() {
    std::uint64_t last = 0;
    {
        const std::lock_guard guard(lock);
        last = posted;
    }
    // A handler may pump messages itself, which takes the next ones from here.
    const auto end = std::chrono::steady_clock::now() + Turn;
    Waiting message;
    while (TakeUpTo(last, message)) {
        Send(message.Window, message.Message, message.Parameter);
        if (std::chrono::steady_clock::now() >= end) return;
    }
}

}  // namespace Quillon
