// The state of sixteen MIDI channels, for a synthesizer that comes later than its messages.
#pragma once

#include <array>
#include <cstdint>

#include "platform/MidiDevice.h"

namespace Quillon {

class FluidSound;

/// What the channels were told, notes apart.
class ChannelMemory {
public:
    ChannelMemory();
    void Take(const MidiBytes& message);
    void PlayTo(FluidSound& sound) const;

private:
    static constexpr int Unknown = -1;
    struct Channel {
        std::array<std::int8_t, 120> Controllers{};  ///< those from 120 on are commands
        std::int16_t Program = Unknown;
        std::int32_t Wheel = Unknown;
    };
    std::array<Channel, 16> channels;
};

}  // namespace Quillon
