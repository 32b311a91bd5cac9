#include "playback/EffectParts.h"

#include "core/mod_Common.h"

namespace Quillon::Playback {

EffectArrays Effects;

double EffectStage::Tick() const { return 3750 / static_cast<double>(File.Tempo); }

double EffectStage::Strum64(const StrumPlace& at) const { return Core::RoundHalfEven(Core::StrumLength(StrumOf(at))); }

void StartTimer(ctlHiPreTimer& timer, double milliseconds) {
    timer.SetInterval(Core::CLng(milliseconds));
    timer.SetEnabled(true);
}

std::string ShiftedPitch(const EffectStage& stage, const EffectNote& note) {
    return TextOf(ValueOf(PitchText(stage.TrackOf(note.At), NoteOf(stage, note), note.String)) + note.Octave);
}

}  // namespace Quillon::Playback
