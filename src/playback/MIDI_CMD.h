// The messages that the system sends. Channels count 0 to 15, programs 0 to 127, notes as MIDI has them, 60 being
// middle C. No argument is checked.
#pragma once

#include <cstdint>

namespace Quillon::Playback {

constexpr std::int16_t PercussionChannel = 9;
/// The pitch of a drum sound is its number in the list of sounds plus this.
constexpr int DrumPitchBase = 34;
/// High byte of the pitch wheel at rest.
constexpr std::int16_t WheelCentre = 64;

/// A velocity of 0 is a note off.
void MidiNoteOn(std::int16_t channel, std::int16_t note, std::int16_t velocity);
/// A note on of velocity 0: other note offs are never sent.
void MidiNoteOff(std::int16_t channel, std::int16_t note);
void MidiController(std::int16_t channel, std::int16_t controller, std::int16_t value);
/// The callers pass 0 as the low byte and work in the high one.
void MidiPitchWheel(std::int16_t channel, std::int16_t low, std::int16_t high);
/// Controller 0 with the bank, then the program. The usual bank is 128, past 7 bits, which drivers pass over: this
/// is meant.
void MidiSetInstrument(std::int16_t channel, std::int16_t bank, std::int16_t program);
/// Controllers 120 and 123, which silence the channel.
void MidiChannelOff(std::int16_t channel);
void MidiAllChannelsOff();

}  // namespace Quillon::Playback
