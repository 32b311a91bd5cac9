#include "core/mod_Common.h"
#include "playback/EffectParts.h"
#include "playback/MIDI_CMD.h"
#include "playback/StrumSounds.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Playback {

void StepSlide(const EffectStage& stage, int index) {
    ctlHiPreTimer& timer = stage.Timers.tmrSlide[index];
    if (!timer.Enabled()) return;
    EffectArrays::Slide& slide = ElementOf(stage.Arrays.Slides, index);
    if (slide.StepsLeft == 1) {  // a semitone short of the aim, which the next strum strikes
        timer.SetEnabled(false);
        return;
    }
    const double next = slide.Pitch + (slide.Up ? 1 : -1);
    Skipping([&] { MidiNoteOff(slide.Channel, Core::CInt(slide.Pitch)); });
    Skipping([&] { MidiNoteOn(slide.Channel, Core::CInt(next), slide.Velocity); });
    slide.Pitch = next;
    --slide.StepsLeft;
}

void PlaySlide(const EffectStage& stage, const EffectNote& note) {
    const Core::Track& track = stage.TrackOf(note.At);
    PlayNote(ShiftedPitch(stage, note), NoteOf(stage, note).Harmonic, track.EffectChannel, note.Velocity, false);
    const Core::Strum* const next = NextStrum(stage.File, note.At);
    const auto run = SlideOf(track, NoteOf(stage, note), next, note.String);
    if (!run) return;
    const int index =
        TakeElement(stage.Timers.tmrSlide, stage.Arrays.Slides, note.At.Track, [&](EffectArrays::Slide& slide) {
            slide = {run->Steps, run->Up, track.EffectChannel, run->From, note.Velocity};
        });
    if (run->Steps == 0) return;
    StartTimer(stage.Timers.tmrSlide[index], stage.Tick() * stage.Strum64(note.At) / run->Steps);
}

}  // namespace Quillon::Playback
