// The open document played on a virtual clock into a device of the caller's: traces, and sound files faster than life.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/VirtualClock.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Playback {

struct OfflineOptions {
    std::int16_t StartBar = 0;
    std::int16_t EndBar = 0;
    std::optional<TrainerFields> Trainer;  ///< plays the trainer's bars in place of these
    std::int64_t MaxMs = 24LL * 60 * 60 * 1000;
};

/// A message with its moment in milliseconds since the call of PlayTab.
struct TimedMessage {
    std::int64_t Time = 0;
    std::int16_t Status = 0;
    std::int16_t Data1 = 0;
    std::int16_t Data2 = 0;
};

/// Plays until no timer runs or the limit is past; what the handlers due at the limit send still counts. Real playing
/// must be stopped; the device, the timers and the view in use are put aside meanwhile and put back at the end.
/// `receive` takes every message in its order. `goOn`, when given, is asked as time moves on, with the milliseconds
/// played; false ends the playing. False when it was ended so.
bool PlayOffline(const OfflineOptions& options, const std::function<void(const TimedMessage&)>& receive,
                 const std::function<bool(std::int64_t)>& goOn = {});

}  // namespace Quillon::Playback
