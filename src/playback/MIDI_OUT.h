// The one MIDI output of the system: the list of devices, opening and closing, and the sending of short messages.
//
// A message leaves at the moment it is sent. A device that fails, or none at all, means silence: nothing is raised,
// and the callers run on as if the notes had sounded.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/MidiDevice.h"

namespace Quillon::Playback {

/// An entry of the device list: the device's name, and its number as the system counts.
struct DeviceEntry {
    std::string Name;
    std::int32_t ItemData = MidiMapper;
    bool operator==(const DeviceEntry&) const = default;
};
using DeviceList = std::vector<DeviceEntry>;

struct MidiOutState {
    std::int32_t MidiHandle = 0;  ///< of the open output, 0 for none
    std::unique_ptr<MidiDevice> Device;
    int LastError = MidiOk;  ///< of the latest call that failed since the device was opened
};
extern MidiOutState MidiOut;

/// Clears the list and adds the mapper, then every port whose name can be read.
void MidiFillDeviceList(DeviceList& list);
/// Closes what is open and opens a device by its number; true when MidiHandle is not 0 then.
bool MidiOpen(std::int16_t device);
void MidiClose();
/// Sends one message; status with its channel, data as worked out, also past 7 bits.
void MidiShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2);
/// data2 * 65536 + data1 * 256 + status; raises "Overflow".
std::int32_t MidiPackMessage(std::int16_t status, std::int16_t data1, std::int16_t data2);
/// Takes note of an error code of the output; shows nothing.
void MidiOutError(int error);
/// What the latest failure was, in the system's words; "" for none.
std::string MidiOutErrorText();

}  // namespace Quillon::Playback
