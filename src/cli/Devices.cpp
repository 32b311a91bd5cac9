// quillon-cli devices
#include <CLI/CLI.hpp>

#include "cli/Commands.h"
#include "playback/MIDI_OUT.h"

namespace Quillon::Cli {

namespace {

int Devices() {
    Playback::DeviceList list;
    Playback::MidiFillDeviceList(list);
    std::string lines;
    for (std::size_t position = 0; position < list.size(); ++position) {
        lines += std::to_string(position) + " " + std::to_string(list[position].ItemData) + " " + list[position].Name;
        lines += '\n';
    }
    Print(lines);
    return Done;
}

}  // namespace

void AddDevices(CLI::App& app, Work& work) {
    CLI::App* command =
        app.add_subcommand("devices", "Lists the MIDI outputs: position in the list, device number, name");
    command->callback([&work] { work = [] { return Devices(); }; });
}

}  // namespace Quillon::Cli
