// The message queue of the windows' thread: whatever another thread has to say waits here for its turn.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

namespace Quillon {

/// Message of a typed character, and the character that a timer types.
constexpr int CharMessage = 258;
constexpr int TimerCharacter = 10;

class UiQueue {
public:
    /// What a window does with a message and its parameter.
    using Handler = std::function<void(int message, int parameter)>;

    virtual ~UiQueue() = default;
    /// From any thread: puts a message behind all that wait. None is merged or dropped while its window lives.
    virtual void Post(std::int32_t window, int message, int parameter) = 0;

    // On the windows' thread alone.
    /// A handle that no window had before, never 0.
    std::int32_t Register(Handler handler);
    /// Messages that still wait for the window are dropped when their turn comes.
    void Unregister(std::int32_t window);
    /// Calls the window's handler at once; the handler may unregister its own window.
    void Send(std::int32_t window, int message, int parameter);

private:
    std::unordered_map<std::int32_t, std::shared_ptr<const Handler>> windows;
    std::int32_t lastWindow = 0;
};

}  // namespace Quillon
