// Bends and tremolo-bar dips: the pitch wheel follows a curve over the length of the strum.
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "playback/EffectParts.h"
#include "playback/MIDI_CMD.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Playback {

namespace {

/// Points of the curve that are passed at each step.
constexpr double Stride = 0.1;

/// Height of the curve at a position. It lags by one point behind its first step: at 1.5 it lies between the points
/// 0 and 1. This is meant.
double HeightAt(const EffectArrays::Bend& bend) {
    const double position = bend.Position;
    const double whole = std::floor(position);
    const auto point = static_cast<int>(whole);
    if (point > 0) return (position - whole) * (bend.Curve[point] - bend.Curve[point - 1]) + bend.Curve[point - 1];
    return bend.Curve[static_cast<int>(Core::RoundHalfEven(position))];
}

void Step(const EffectStage& stage, TimerPool& pool, std::vector<EffectArrays::Bend>& states, int index, int limit) {
    if (!pool[index].Enabled()) return;
    EffectArrays::Bend& bend = ElementOf(states, index);
    if (bend.Position >= static_cast<float>(limit)) {
        pool[index].SetEnabled(false);
        MidiPitchWheel(bend.Channel, 0, WheelCentre);
        return;
    }
    Skipping([&] {
        MidiPitchWheel(bend.Channel, 0, Core::CInt(stage.Settings.BendCoefficient * HeightAt(bend) + WheelCentre));
    });
    bend.Position = static_cast<float>(static_cast<double>(bend.Position) + Stride);
}

}  // namespace

void StepBend(const EffectStage& stage, int index) {
    Step(stage, stage.Timers.tmrBend, stage.Arrays.Bends, index, Core::BendPointCount);
}

void StepTremBend(const EffectStage& stage, int index) {
    Step(stage, stage.Timers.tmrTremBend, stage.Arrays.TremBends, index, Core::TremPointCount);
}

void PlayBend(const EffectStage& stage, const EffectNote& note) {
    const std::int16_t channel = stage.TrackOf(note.At).EffectChannel;
    PlayNote(ShiftedPitch(stage, note), NoteOf(stage, note).Harmonic, channel, note.Velocity, false);
    const int index =
        TakeElement(stage.Timers.tmrBend, stage.Arrays.Bends, note.At.Track, [&](EffectArrays::Bend& bend) {
            bend = {0, NoteOf(stage, note).BendPoints.Read(), channel};
        });
    StartTimer(stage.Timers.tmrBend[index], stage.Tick() * stage.Strum64(note.At) / (25 / Stride));
    StepBend(stage, index);
}

void PlayTremBend(const EffectStage& stage, const StrumPlace& at) {
    const int index =
        TakeElement(stage.Timers.tmrTremBend, stage.Arrays.TremBends, at.Track, [&](EffectArrays::Bend& bend) {
            bend.Position = 0;
            bend.Channel = stage.TrackOf(at).EffectChannel;
            const auto& points = stage.StrumOf(at).TremPoints.Read();
            for (int i = 0; i < Core::TremPointCount; ++i) bend.Curve[i] = points[i];
        });
    StartTimer(stage.Timers.tmrTremBend[index], stage.Tick() * stage.Strum64(at) / (24 / Stride));
    StepTremBend(stage, index);
}

}  // namespace Quillon::Playback
