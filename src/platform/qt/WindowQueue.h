// The message queue of the windows' thread in the real program.
//
// Messages wait in one line behind a lock. A counter of the kernel is readable as long as any waits, and wakes the
// event loop of whatever window library level it runs in: a dialog that pumps messages goes on where the handler that
// opened it stood. Each wake-up handles what waited when it began, and for a few milliseconds at most, so that painting
// and keys have their turn under any load: a song that asks for more timers than the machine can serve can be stopped.
#pragma once

#include <QSocketNotifier>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/UiQueue.h"

namespace Quillon {

class WindowQueue : public UiQueue {
public:
    /// On the windows' thread, with an application object. Raises RunTimeError 7 when the system gives no counter.
    WindowQueue();
    /// Messages that still wait are dropped. Whoever posts must have ended.
    ~WindowQueue() override;
    WindowQueue(const WindowQueue&) = delete;
    WindowQueue& operator=(const WindowQueue&) = delete;

    /// Allocates only when more messages wait than ever before. Past a million that wait, as only a song beyond every
    /// machine brings about, further ones are lost.
    void Post(std::int32_t window, int message, int parameter) override;

private:
    struct Waiting {
        std::int32_t Window = 0;
        int Message = 0;
        int Parameter = 0;
    };

    void HandleWaiting();
    bool TakeUpTo(std::uint64_t last, Waiting& taken);

    std::mutex lock;
    std::vector<Waiting> ring;  ///< its size is a power of two
    std::uint64_t posted = 0;   ///< messages so far
    std::uint64_t taken = 0;
    int counter;
    std::unique_ptr<QSocketNotifier> notifier;
};

}  // namespace Quillon
