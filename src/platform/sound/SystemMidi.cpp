#include "platform/sound/SystemMidi.h"

#include <cstdlib>

#include "platform/sound/FluidSynthesizer.h"

namespace Quillon {

SystemMidi::SystemMidi(FluidSynthesizer& builtIn) : synthesizer(builtIn) {
    // A sound server that does not run is not wanted. This is the last moment: other threads may read it later.
    ::setenv("JACK_NO_START_SERVER", "1", 0);
}

int SystemMidi::Count() { return ports.Count(); }

std::optional<std::string> SystemMidi::Name(int number) {
    if (number == MidiMapper) return "Quillon Synthesizer";
    return ports.Name(number);
}

std::unique_ptr<MidiDevice> SystemMidi::Open(int number, int& error) {
    if (number != MidiMapper) return ports.Open(number, error);
    error = MidiOk;
    return synthesizer.Open();
}

std::string SystemMidi::ErrorText(int error) {
    switch (error) {
        case MidiOk:
            return "";
        case MidiNoDevice:
            return "The MIDI output is not there, or another program has it.";
        case MidiNotOpen:
            return "The MIDI output takes no messages.";
        default:
            return "The MIDI output failed with code " + std::to_string(error) + ".";
    }
}

}  // namespace Quillon
