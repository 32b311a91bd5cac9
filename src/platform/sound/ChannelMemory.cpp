#include "platform/sound/ChannelMemory.h"

#include "platform/sound/FluidSound.h"

namespace Quillon {

ChannelMemory::ChannelMemory() {
    for (Channel& channel : channels) channel.Controllers.fill(Unknown);
}

void ChannelMemory::Take(const MidiBytes& message) {
    Channel& channel = channels[message.Status & 0x0FU];
    switch (message.Status & 0xF0) {
        case 0xB0:
            if (message.Data1 < channel.Controllers.size()) {
                channel.Controllers[message.Data1] = static_cast<std::int8_t>(message.Data2);
            }
            break;
        case 0xC0:
            channel.Program = message.Data1;
            break;
        case 0xE0:
            channel.Wheel = message.Data2 * 128 + message.Data1;
            break;
        default:
            break;
    }
}

void ChannelMemory::PlayTo(FluidSound& sound) const {
    for (std::uint8_t number = 0; number < channels.size(); ++number) {
        const Channel& channel = channels[number];
        const auto status = [number](int kind) { return static_cast<std::uint8_t>(kind | number); };
        for (std::uint8_t controller = 0; controller < channel.Controllers.size(); ++controller) {
            const std::int8_t value = channel.Controllers[controller];
            if (value != Unknown) sound.Play({status(0xB0), controller, static_cast<std::uint8_t>(value)});
        }
        if (channel.Program != Unknown) sound.Play({status(0xC0), static_cast<std::uint8_t>(channel.Program), 0});
        if (channel.Wheel != Unknown) {
            sound.Play({status(0xE0), static_cast<std::uint8_t>(channel.Wheel % 128),
                        static_cast<std::uint8_t>(channel.Wheel / 128)});
        }
    }
}

}  // namespace Quillon
