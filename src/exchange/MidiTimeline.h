// The events of one MIDI track on their way into a file, each at its place in the music.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/FingeringEvent.h"
#include "platform/SmfCursor.h"

namespace Quillon::Exchange {

/// Of exported files. A tick is rounded from the exact place, never from the one before, so that nothing drifts.
constexpr int MidiTicksPerQuarter = 960;
constexpr int MidiTicksPer64th = MidiTicksPerQuarter / 16;

/// Places are 64ths from the start of the song; channels count from 0. What lies outside what MIDI takes is limited.
class MidiTimeline {
public:
    /// `string` is what Fingering tells of the note.
    void NoteOn(double at, int channel, int key, int velocity, int string = NoStringTold);
    void NoteOff(double at, int channel, int key);
    /// The high byte; the low one is 0.
    void Wheel(double at, int channel, double high);
    void Program(double at, int channel, int program);
    void Meta(double at, SmfMeta type, std::string bytes);

    /// The event that tells on which strings the notes are played; see FingeringEvent.h. At the end of the track.
    void AddFingering(double at, const Core::Track& track);

    /// Outside 0 to 15 it is the nearest of them, as in the messages.
    bool Uses(int channel) const { return (channelsUsed >> std::clamp(channel, 0, 15) & 1U) != 0; }
    /// The events in their order, offs first of those at one tick, and the track's end.
    std::vector<SmfEvent> Events(double end) const;

private:
    struct Timed {
        std::int64_t Tick = 0;
        bool IsOff = false;
        int String = NoStringTold;
        SmfEvent Event;
    };
    void Add(double at, SmfEvent event);
    std::vector<const Timed*> InOrder() const;
    void AddMessage(double at, unsigned command, int channel, int data1, int data2);

    std::vector<Timed> events;
    unsigned channelsUsed = 0;
};

/// The tick of a place.
std::int64_t MidiTick(double at);

}  // namespace Quillon::Exchange
