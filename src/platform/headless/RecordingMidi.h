// MIDI outputs without sound: what is sent is kept, or handed on, with its moment.
#pragma once

#include <functional>
#include <vector>

#include "platform/MidiDevice.h"

namespace Quillon {

/// A message as it was sent, signed and unmasked.
struct SentMessage {
    std::int16_t Status = 0;
    std::int16_t Data1 = 0;
    std::int16_t Data2 = 0;
    bool operator==(const SentMessage&) const = default;
};

/// One output, number 0 and mapper alike, named "Recording Device". What every opened device takes goes to Receive;
/// without one it is kept in Sent.
class RecordingMidi : public MidiOutputs {
public:
    std::function<void(const SentMessage&)> Receive;
    std::vector<SentMessage> Sent;
    bool Fails = false;  ///< every opening and every message is refused
    int Opened = 0;      ///< devices that are open now

    int Count() override { return 1; }
    std::optional<std::string> Name(int number) override;
    std::unique_ptr<MidiDevice> Open(int number, int& error) override;
    std::string ErrorText(int error) override;

private:
    class Device;
};

}  // namespace Quillon
