#include "playback/MIDI_CMD.h"

#include "core/mod_Common.h"
#include "playback/MIDI_OUT.h"

namespace Quillon::Playback {

namespace {

enum Status : std::int16_t { NoteOn = 144, Controller = 176, Program = 192, PitchWheel = 224 };
enum Number : std::int16_t { BankSelect = 0, AllSoundOff = 120, AllNotesOff = 123 };
constexpr std::int16_t ChannelCount = 16;

void Send(Status status, std::int16_t channel, std::int16_t data1, std::int16_t data2) {
    MidiShortMessage(Core::ToInt16(status + channel), data1, data2);
}

}  // namespace

void MidiNoteOn(std::int16_t channel, std::int16_t note, std::int16_t velocity) {
    Send(NoteOn, channel, note, velocity);
}

void MidiNoteOff(std::int16_t channel, std::int16_t note) { Send(NoteOn, channel, note, 0); }

void MidiController(std::int16_t channel, std::int16_t controller, std::int16_t value) {
    Send(Controller, channel, controller, value);
}

void MidiPitchWheel(std::int16_t channel, std::int16_t low, std::int16_t high) { Send(PitchWheel, channel, low, high); }

void MidiSetInstrument(std::int16_t channel, std::int16_t bank, std::int16_t program) {
    MidiController(channel, BankSelect, bank);
    Send(Program, channel, program, 0);
}

void MidiChannelOff(std::int16_t channel) {
    MidiController(channel, AllSoundOff, 0);
    MidiController(channel, AllNotesOff, 0);
}

void MidiAllChannelsOff() {
    for (std::int16_t channel = 0; channel < ChannelCount; ++channel) MidiChannelOff(channel);
}

}  // namespace Quillon::Playback
