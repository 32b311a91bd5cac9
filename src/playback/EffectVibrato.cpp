#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "playback/EffectParts.h"
#include "playback/MIDI_CMD.h"
#include "playback/StrumSounds.h"

namespace Quillon::Playback {

void StepVibrato(const EffectStage& stage, int index) {
    ctlHiPreTimer& timer = stage.Timers.tmrVibrato[index];
    if (!timer.Enabled()) return;
    EffectArrays::Vibrato& vibrato = ElementOf(stage.Arrays.Vibratos, index);
    if (vibrato.StepsLeft == 0) {
        timer.SetEnabled(false);  // the wheel stays where the last step put it
        return;
    }
    const double depth = vibrato.Wide ? stage.Settings.WideVibratoBend : stage.Settings.VibratoBend;
    Skipping(
        [&] { MidiPitchWheel(vibrato.Channel, 0, Core::CInt(VibratoCentre + (vibrato.OtherSide ? depth : -depth))); });
    vibrato.OtherSide = !vibrato.OtherSide;
    --vibrato.StepsLeft;
}

void PlayVibrato(const EffectStage& stage, const StrumPlace& at, bool wide) {
    const int index =
        TakeElement(stage.Timers.tmrVibrato, stage.Arrays.Vibratos, at.Track, [&](EffectArrays::Vibrato& vibrato) {
            // The side stays as the element's last use left it.
            vibrato.StepsLeft = stage.Settings.VibratoCount;
            vibrato.Wide = wide;
            vibrato.Channel = stage.TrackOf(at).EffectChannel;
        });
    StartTimer(stage.Timers.tmrVibrato[index], stage.Tick() * stage.Strum64(at) / stage.Settings.VibratoCount);
    StepVibrato(stage, index);
}

}  // namespace Quillon::Playback
