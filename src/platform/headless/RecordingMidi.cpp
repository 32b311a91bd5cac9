#include "platform/headless/RecordingMidi.h"

namespace Quillon {

class RecordingMidi::Device : public MidiDevice {
public:
    explicit Device(RecordingMidi& outputs) : owner(outputs) { ++owner.Opened; }
    ~Device() override { --owner.Opened; }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) override {
        if (owner.Fails) return MidiNotOpen;
        const SentMessage message{status, data1, data2};
        if (owner.Receive) {
            owner.Receive(message);
        } else {
            owner.Sent.push_back(message);
        }
        return MidiOk;
    }

private:
    RecordingMidi& owner;
};

std::optional<std::string> RecordingMidi::Name(int number) {
    if (number != MidiMapper && number != 0) return {};
    return "Recording Device";
}

std::unique_ptr<MidiDevice> RecordingMidi::Open(int number, int& error) {
    if (Fails || !Name(number)) {
        error = MidiNoDevice;
        return {};
    }
    return std::make_unique<Device>(*this);
}

std::string RecordingMidi::ErrorText(int error) { return error == MidiOk ? "" : "The recording device refused."; }

}  // namespace Quillon
