#include <cmath>

#include "core/mod_Common.h"
#include "playback/EffectParts.h"
#include "playback/MIDI_CMD.h"
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
    const std::string fromText = PitchText(track, NoteOf(stage, note), note.String);
    const std::string toText = next ? PitchText(track, next->Notes[note.String], note.String) : "";
    if (fromText.empty() || toText.empty()) return;
    // Both flags count here, one after the other, unlike elsewhere.
    const int shift = (track.OctaveDown ? -12 : 0) + (track.OctaveUp ? 12 : 0);
    const double from = ValueOf(fromText) + shift;
    const double to = ValueOf(toText) + shift;
    const double steps = std::abs(Core::RoundHalfEven(to - from));
    const int index =
        TakeElement(stage.Timers.tmrSlide, stage.Arrays.Slides, note.At.Track, [&](EffectArrays::Slide& slide) {
            // Compared as texts: "100" sorts below "98", and such a slide goes down. This is meant.
            slide = {Core::CLng(steps), TextOf(to) > TextOf(from), track.EffectChannel, from, note.Velocity};
        });
    if (steps == 0) return;
    StartTimer(stage.Timers.tmrSlide[index], stage.Tick() * stage.Strum64(note.At) / steps);
}

}  // namespace Quillon::Playback
