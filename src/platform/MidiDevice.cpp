#include "platform/MidiDevice.h"

#include <algorithm>

namespace Quillon {

namespace {

constexpr int LastDataByte = 127;

bool Fits(std::int16_t data) { return data >= 0 && data <= LastDataByte; }

std::uint8_t Limited(std::int16_t data) {
    return static_cast<std::uint8_t>(std::clamp<std::int16_t>(data, 0, LastDataByte));
}

}  // namespace

std::optional<MidiBytes> BytesOfMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) {
    if (status < 0x80 || status > 0xEF) return {};
    const auto kind = status & 0xF0;
    const bool firstLimited = kind == 0xE0;
    const bool secondLimited = kind == 0xE0 || kind == 0x90 || kind == 0x80;
    if (!firstLimited && !Fits(data1)) return {};
    if (!secondLimited && !Fits(data2)) return {};
    return MidiBytes{static_cast<std::uint8_t>(status), Limited(data1), Limited(data2)};
}

}  // namespace Quillon
