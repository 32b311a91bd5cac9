#include "exchange/MidiTimeline.h"

#include <algorithm>
#include <tuple>

#include "core/mod_Common.h"
#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

namespace {

constexpr unsigned NoteOffCommand = 0x80;
constexpr unsigned NoteOnCommand = 0x90;
constexpr unsigned ProgramCommand = 0xC0;
constexpr unsigned WheelCommand = 0xE0;

std::uint8_t DataByte(int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 127)); }

}  // namespace

std::int64_t MidiTick(double at) { return static_cast<std::int64_t>(Core::RoundHalfEven(at * MidiTicksPer64th)); }

void MidiTimeline::NoteOn(double at, int channel, int key, int velocity, int string) {
    AddMessage(at, NoteOnCommand, channel, key, velocity);
    events.back().String = string;
}

void MidiTimeline::NoteOff(double at, int channel, int key) { AddMessage(at, NoteOffCommand, channel, key, 0); }

void MidiTimeline::Wheel(double at, int channel, double high) {
    AddMessage(at, WheelCommand, channel, 0, static_cast<int>(Core::RoundHalfEven(std::clamp(high, 0.0, 127.0))));
}

void MidiTimeline::Program(double at, int channel, int program) { AddMessage(at, ProgramCommand, channel, program, 0); }

void MidiTimeline::Meta(double at, SmfMeta type, std::string bytes) {
    Add(at, {0, SmfEvent::Meta, type, 0, std::move(bytes)});
}

void MidiTimeline::AddMessage(double at, unsigned command, int channel, int data1, int data2) {
    const unsigned used = static_cast<unsigned>(std::clamp(channel, 0, 15));
    channelsUsed |= 1U << used;
    Add(at, {0, static_cast<std::uint8_t>(command | used), DataByte(data1), DataByte(data2), ""});
}

void MidiTimeline::Add(double at, SmfEvent event) {
    const bool isOff = event.Status >> 4 == NoteOffCommand >> 4;
    events.push_back({MidiTick(at), isOff, NoStringTold, std::move(event)});
}

void MidiTimeline::AddFingering(double at, const Core::Track& track) {
    std::vector<int> keys;
    std::vector<int> strings;
    for (const Timed* const each : InOrder()) {
        if (each->Event.Status >> 4 != NoteOnCommand >> 4 || each->Event.Data2 == 0) continue;
        keys.push_back(each->Event.Data1);
        strings.push_back(each->String);
    }
    std::string bytes = FingeringBytes(track, keys, strings);
    if (!bytes.empty()) Add(at, {0, SmfEvent::Meta, SmfSequencerOwn, 0, std::move(bytes)});
}

std::vector<const MidiTimeline::Timed*> MidiTimeline::InOrder() const {
    std::vector<const Timed*> ordered;
    ordered.reserve(events.size());
    for (const Timed& each : events) ordered.push_back(&each);
    std::ranges::stable_sort(ordered, {}, [](const Timed* each) { return std::tuple(each->Tick, !each->IsOff); });
    return ordered;
}

std::vector<SmfEvent> MidiTimeline::Events(double end) const {
    std::vector<SmfEvent> track;
    track.reserve(events.size() + 1);
    std::int64_t before = 0;
    const auto put = [&](std::int64_t tick, SmfEvent event) {
        const std::int64_t delta = tick - before;
        if (delta > INT32_MAX) Core::ToInt32(delta);  // the file can't hold it either
        event.Delta = static_cast<std::uint32_t>(delta);
        before = tick;
        track.push_back(std::move(event));
    };
    for (const Timed* const each : InOrder()) put(each->Tick, each->Event);
    put(std::max(MidiTick(end), before), {0, SmfEvent::Meta, SmfEndOfTrack, 0, ""});
    return track;
}

}  // namespace Quillon::Exchange
