// The MIDI outputs of the machine: the built-in synthesizer as the mapper, then the system's ports.
#pragma once

#include "platform/MidiDevice.h"
#include "platform/sound/RtMidiPorts.h"

namespace Quillon {

class FluidSynthesizer;

/// The libraries behind it are loaded when something is first asked of them.
class SystemMidi : public MidiOutputs {
public:
    /// The synthesizer must outlive this and the devices that it opens.
    explicit SystemMidi(FluidSynthesizer& builtIn);

    int Count() override;
    std::optional<std::string> Name(int number) override;
    std::unique_ptr<MidiDevice> Open(int number, int& error) override;
    std::string ErrorText(int error) override;

private:
    FluidSynthesizer& synthesizer;
    RtMidiPorts ports;
};

}  // namespace Quillon
