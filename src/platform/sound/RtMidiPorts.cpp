#include "platform/sound/RtMidiPorts.h"

#include <rtmidi_c.h>

#include <array>
#include <iostream>
#include <utility>

#include "platform/sound/SharedLibrary.h"

namespace Quillon {

namespace {

struct RtMidiLibrary {
    decltype(&::rtmidi_get_compiled_api) Systems;
    decltype(&::rtmidi_out_create) Create;
    decltype(&::rtmidi_out_free) Free;
    decltype(&::rtmidi_get_port_count) PortCount;
    decltype(&::rtmidi_get_port_name) PortName;
    decltype(&::rtmidi_open_port) OpenPort;
    decltype(&::rtmidi_out_send_message) Send;
};

std::optional<RtMidiLibrary> Load() {
    SharedLibrary library(QUILLON_RTMIDI);
    RtMidiLibrary rtMidi{};
    library.Find("rtmidi_get_compiled_api", rtMidi.Systems);
    library.Find("rtmidi_out_create", rtMidi.Create);
    library.Find("rtmidi_out_free", rtMidi.Free);
    library.Find("rtmidi_get_port_count", rtMidi.PortCount);
    library.Find("rtmidi_get_port_name", rtMidi.PortName);
    library.Find("rtmidi_open_port", rtMidi.OpenPort);
    library.Find("rtmidi_out_send_message", rtMidi.Send);
    if (!library.Complete()) return {};
    QuietSoundSystems(library);
    return rtMidi;
}

/// Nothing where the library is not installed.
const RtMidiLibrary* RtMidi() {
    static const std::optional<RtMidiLibrary> library = Load();
    return library ? &*library : nullptr;
}

/// RtMidi tells of every failure on the standard error stream, beside the result. It is no news on a machine that
/// lacks one of its sound systems.
class QuietErrors {
public:
    QuietErrors() : usual(std::cerr.rdbuf(nullptr)) {}
    ~QuietErrors() { std::cerr.rdbuf(usual); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    std::streambuf* usual;
};

struct RtMidiDelete {
    void operator()(RtMidiWrapper* client) const {
        const QuietErrors quiet;
        RtMidi()->Free(client);
    }
};
using Client = std::unique_ptr<RtMidiWrapper, RtMidiDelete>;

/// A client of a sound system; nothing when it does not run. Needs RtMidi() and quiet errors.
Client Connect(int system) {
    Client client(RtMidi()->Create(static_cast<RtMidiApi>(system), "Quillon"));
    if (client && !client->ok) client.reset();
    return client;
}

std::string PortName(const Client& client, unsigned index) {
    std::array<char, 256> name{};
    int room = name.size();
    if (RtMidi()->PortName(client.get(), index, name.data(), &room) < 0) return "";
    name.back() = '\0';
    return name.data();
}

class PortDevice : public MidiDevice {
public:
    explicit PortDevice(Client open) : client(std::move(open)) {}

    int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) override {
        const auto bytes = BytesOfMessage(status, data1, data2);
        if (!bytes) return MidiOk;
        const bool short2 = (bytes->Status & 0xE0) == 0xC0;  // a program or channel pressure has one data byte
        const std::array<unsigned char, 3> message = {bytes->Status, bytes->Data1, bytes->Data2};
        const QuietErrors quiet;
        return RtMidi()->Send(client.get(), message.data(), short2 ? 2 : 3) == 0 ? MidiOk : MidiNotOpen;
    }

private:
    Client client;
};

}  // namespace

int RtMidiPorts::Count() {
    ports.clear();
    if (!RtMidi()) return 0;
    std::array<RtMidiApi, RTMIDI_API_NUM> systems{};
    const int known = RtMidi()->Systems(systems.data(), systems.size());
    const QuietErrors quiet;
    for (int at = 0; at < known; ++at) {
        const int system = systems.at(static_cast<std::size_t>(at));
        if (system == RTMIDI_API_RTMIDI_DUMMY) continue;
        const Client client = Connect(system);
        if (!client) continue;
        const unsigned count = RtMidi()->PortCount(client.get());
        for (unsigned index = 0; index < count; ++index) {
            ports.push_back({system, index, PortName(client, index)});
        }
    }
    return static_cast<int>(ports.size());
}

std::optional<std::string> RtMidiPorts::Name(int number) const {
    if (number < 0 || number >= static_cast<int>(ports.size())) return {};
    const std::string& name = ports[static_cast<std::size_t>(number)].Name;
    if (name.empty()) return {};
    return name;
}

std::unique_ptr<MidiDevice> RtMidiPorts::Open(int number, int& error) {
    error = MidiNoDevice;
    if (!Name(number)) return {};
    const Port& wanted = ports[static_cast<std::size_t>(number)];
    const QuietErrors quiet;
    Client client = Connect(wanted.System);
    if (!client) return {};
    unsigned index = wanted.Index;
    if (PortName(client, index) != wanted.Name) {
        const unsigned count = RtMidi()->PortCount(client.get());
        index = 0;
        while (index < count && PortName(client, index) != wanted.Name) ++index;
        if (index == count) return {};
    }
    RtMidi()->OpenPort(client.get(), index, "Quillon");
    if (!client->ok) return {};
    error = MidiOk;
    return std::make_unique<PortDevice>(std::move(client));
}

}  // namespace Quillon
