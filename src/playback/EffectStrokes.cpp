// Tremolo picking and trills: quick strokes on the effect channel, each silencing the one before.
#include "core/mod_Common.h"
#include "playback/EffectParts.h"
#include "playback/MIDI_CMD.h"
#include "playback/StrumSounds.h"

namespace Quillon::Playback {

void StepTremPick(const EffectStage& stage, int index) {
    ctlHiPreTimer& timer = stage.Timers.tmrTremPick[index];
    if (!timer.Enabled()) return;
    EffectArrays::TremPick& pick = ElementOf(stage.Arrays.TremPicks, index);
    if (pick.RepeatsLeft == 0) {
        timer.SetEnabled(false);
        return;
    }
    Skipping([&] { MidiChannelOff(pick.Channel); });
    Skipping([&] { MidiNoteOn(pick.Channel, Core::CInt(ValueOf(pick.Pitch)), pick.Velocity); });
    --pick.RepeatsLeft;
}

void PlayTremoloPicking(const EffectStage& stage, const EffectNote& note) {
    const int speed = StrokeSpeed(NoteOf(stage, note).Technique - Core::TremoloPicking8ths);
    const double length = stage.Strum64(note.At);
    const int index =
        TakeElement(stage.Timers.tmrTremPick, stage.Arrays.TremPicks, note.At.Track, [&](EffectArrays::TremPick& pick) {
            pick = {ShiftedPitch(stage, note), stage.TrackOf(note.At).EffectChannel, note.Velocity,
                    Core::CLng(length / speed)};
        });
    StartTimer(stage.Timers.tmrTremPick[index], stage.Tick() * speed);
    StepTremPick(stage, index);
}

void StepTrill(const EffectStage& stage, int index) {
    ctlHiPreTimer& timer = stage.Timers.tmrTrill[index];
    if (!timer.Enabled()) return;
    EffectArrays::Trill& trill = ElementOf(stage.Arrays.Trills, index);
    if (trill.StepsLeft == 0) {
        timer.SetEnabled(false);
        return;
    }
    Skipping([&] { MidiChannelOff(trill.Channel); });
    Skipping(
        [&] { MidiNoteOn(trill.Channel, Core::CInt(trill.OtherSide ? trill.Second : trill.First), trill.Velocity); });
    trill.OtherSide = !trill.OtherSide;
    --trill.StepsLeft;
}

void PlayTrill(const EffectStage& stage, const EffectNote& note) {
    const Core::Note& written = NoteOf(stage, note);
    const int speed = StrokeSpeed(written.TrillPeriod);
    if (speed == 0) return;
    // From the standard pitch: the track's tuning is not applied to trills. This is meant.
    const double open = Core::DefaultStringPitch(note.String) + note.Octave;
    const int index =
        TakeElement(stage.Timers.tmrTrill, stage.Arrays.Trills, note.At.Track, [&](EffectArrays::Trill& trill) {
            trill = {Core::CLng(2 * (stage.Strum64(note.At) / speed)),
                     open + ValueOf(written.Fret),
                     open + written.TrillFret,
                     false,
                     stage.TrackOf(note.At).EffectChannel,
                     note.Velocity};
        });
    StartTimer(stage.Timers.tmrTrill[index], stage.Tick() * speed / 2);
    StepTrill(stage, index);
}

}  // namespace Quillon::Playback
