// The MIDI ports of the machine through RtMidi: those of every sound system that the library knows here.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/MidiDevice.h"

namespace Quillon {

class RtMidiPorts {
public:
    /// Looks for ports anew and gives how many there are. They are numbered by sound system, then as it counts them.
    int Count();
    /// Of a port that the latest Count found.
    std::optional<std::string> Name(int number) const;
    /// Opens a port that the latest Count found, by its name where it has moved meanwhile. Nothing when it is gone.
    std::unique_ptr<MidiDevice> Open(int number, int& error);

private:
    struct Port {
        int System = 0;  ///< as RtMidi numbers them
        unsigned Index = 0;
        std::string Name;
    };
    std::vector<Port> ports;
};

}  // namespace Quillon
