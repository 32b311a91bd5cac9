#include "core/mod_Common.h"
#include "playback/EffectParts.h"
#include "playback/MIDI_CMD.h"
#include "playback/StrumSounds.h"

namespace Quillon::Playback {

void StepGrace(const EffectStage& stage, int index) {
    ctlHiPreTimer& timer = stage.Timers.tmrGrace[index];
    if (!timer.Enabled()) return;
    const EffectArrays::Grace& grace = ElementOf(stage.Arrays.Graces, index);
    Skipping([&] { MidiChannelOff(grace.Channel); });
    Skipping([&] {
        const std::int16_t pitch = Core::CInt(grace.Pitch);
        MidiNoteOn(grace.Channel, pitch, grace.Velocity);
        if (grace.Dead != 0) MidiNoteOff(grace.Channel, pitch);
    });
    timer.SetEnabled(false);
}

void PlayGraceNote(const EffectStage& stage, const EffectNote& note) {
    const Core::Track& track = stage.TrackOf(note.At);
    const Core::Strum* const next = NextStrum(stage.File, note.At);
    if (!next) return;
    const Core::Note& owner = next->Notes[note.String];
    const bool dead = owner.GraceFret == DeadFret;
    if (!owner.HasGrace || (!dead && !IsNumeric(owner.GraceFret))) return;
    const double open = Core::OpenPitch(track, note.String) + note.Octave;
    const int index =
        TakeElement(stage.Timers.tmrGrace, stage.Arrays.Graces, note.At.Track, [&](EffectArrays::Grace& grace) {
            grace = {dead ? open : Core::RoundHalfEven(open + ValueOf(owner.GraceFret)),
                     static_cast<std::uint8_t>(dead ? 1 : 0), track.Channel, GraceVelocity(track, owner.GraceDynamic)};
        });
    // By the ticks as they run now, unlike the other effects: it sounds its own length before the next strum.
    const double ticks = stage.Strum64(note.At) - GraceLength(owner.GraceDuration);
    StartTimer(stage.Timers.tmrGrace[index], stage.Timers.PlayTimer.Interval() * ticks);
}

}  // namespace Quillon::Playback
