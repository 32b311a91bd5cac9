#include "library/NoteRun.h"

#include <memory>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "library/mod_Tuner.h"
#include "playback/MIDI_CMD.h"
#include "playback/ctlHiPreTimer.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Library {

namespace {

constexpr std::int16_t Channel = 0;
constexpr std::int16_t ReverbController = 91;
constexpr std::int16_t ReverbOn = 127;

void tmrRun_Timer();

struct Playing {
    NoteRun Run;
    int Next = 0;
    Playback::ctlHiPreTimer tmrRun{&tmrRun_Timer};
};
std::unique_ptr<Playing> Now;

void Wait(std::int32_t milliseconds) {
    Now->tmrRun.SetEnabled(false);
    Now->tmrRun.SetInterval(milliseconds);
    Now->tmrRun.SetEnabled(true);
}

void tmrRun_Timer() {
    if (!Now) return;
    const NoteRun& run = Now->Run;
    const int count = static_cast<int>(run.Pitches.size());
    if (Now->Next >= count) return StopRun();
    const int index = Now->Next++;
    const int pitch = run.Pitches[static_cast<std::size_t>(index)];
    if (!run.LetRing) Playback::MidiChannelOff(Channel);
    if (pitch >= 0 && pitch <= 127) Playback::MidiNoteOn(Channel, Core::ToInt16(pitch), run.Velocity);
    Wait(Now->Next < count ? run.Pause : run.LastRings);
    if (run.Sounds) run.Sounds(index);
}

}  // namespace

void PlayRun(NoteRun run) {
    StopRun();
    StopTuning();
    if (Playback::IsPlaying() || run.Pitches.empty()) return;
    Now = std::make_unique<Playing>();
    Now->Run = std::move(run);
    Playback::MidiChannelOff(Channel);
    Playback::MidiSetInstrument(Channel, Core::Settings.OutputBank, Now->Run.Program);
    Playback::MidiController(Channel, ReverbController, Now->Run.Reverb ? ReverbOn : std::int16_t{0});
    tmrRun_Timer();
}

void StopRun() {
    if (!Now) return;
    const auto ended = std::exchange(Now, nullptr);
    Playback::MidiChannelOff(Channel);
    // The song and the tuner sound on this channel too, and never set it.
    if (ended->Run.Reverb) Playback::MidiController(Channel, ReverbController, 0);
    if (ended->Run.Sounds) ended->Run.Sounds(-1);
}

bool IsRunPlaying() { return Now != nullptr; }

}  // namespace Quillon::Library
