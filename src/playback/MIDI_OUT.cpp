#include "playback/MIDI_OUT.h"

#include "core/mod_Common.h"
#include "platform/Services.h"

namespace Quillon::Playback {

MidiOutState MidiOut;

namespace {

std::int32_t lastHandle = 0;

}  // namespace

void MidiFillDeviceList(DeviceList& list) {
    list.clear();
    if (!Services.Midi) return;
    if (const auto name = Services.Midi->Name(MidiMapper)) list.push_back({*name, MidiMapper});
    const int count = Services.Midi->Count();
    for (int device = 0; device < count; ++device) {
        if (const auto name = Services.Midi->Name(device)) list.push_back({*name, device});
    }
}

bool MidiOpen(std::int16_t device) {
    MidiClose();
    MidiOut.LastError = MidiOk;
    int error = MidiNoDevice;
    if (Services.Midi) MidiOut.Device = Services.Midi->Open(device, error);
    if (MidiOut.Device) {
        MidiOut.MidiHandle = ++lastHandle;
    } else {
        MidiOutError(error);
    }
    return MidiOut.MidiHandle != 0;
}

void MidiClose() {
    MidiOut.Device.reset();
    MidiOut.MidiHandle = 0;
}

void MidiShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) {
    const int error = MidiOut.Device ? MidiOut.Device->ShortMessage(status, data1, data2) : MidiNotOpen;
    if (error != MidiOk) MidiOutError(error);
}

std::int32_t MidiPackMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) {
    return Core::ToInt32(std::int64_t{data2} * 65536 + std::int64_t{data1} * 256 + status);
}

void MidiOutError(int error) { MidiOut.LastError = error; }

std::string MidiOutErrorText() {
    if (MidiOut.LastError == MidiOk || !Services.Midi) return "";
    return Services.Midi->ErrorText(MidiOut.LastError);
}

}  // namespace Quillon::Playback
