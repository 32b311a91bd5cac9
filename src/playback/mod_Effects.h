// The gestures that unfold during a note: bends, tremolo-bar dips, vibrato, slides, tremolo picking, trills and grace
// notes. Each of each note has a timer of its own, so that any number run at once beside the tick.
//
// Wheel work is on the track's effect channel, as a wheel message moves every note of its channel. Two notes of one
// strum share it: the last message wins. Lengths are worked out from the file's tempo, in doubles from left to right.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Values.h"
#include "core/mod_TabFileStructure.h"
#include "playback/PlayScore.h"
#include "playback/frmPlayMemory.h"

namespace Quillon::Core {
struct SettingsRecord;
}

namespace Quillon::Playback {

/// What the elements of the pools keep, by the element's index. They outlive the timers: the next playing finds a
/// vibrato's side as the last one left it.
struct EffectArrays {
    /// A curve walked in tenths of its points; the tremolo bar's uses the first 25.
    struct Bend {
        float Position = 0;  ///< a single: its rounding decides the number of steps
        Core::Row<double, Core::BendPointCount> Curve;
        std::int16_t Channel = 0;
    };
    struct Vibrato {
        int StepsLeft = 0;
        bool Wide = false;
        bool OtherSide = false;
        std::int16_t Channel = 0;
    };
    struct Slide {
        int StepsLeft = 0;
        bool Up = false;
        std::int16_t Channel = 0;
        double Pitch = 0;
        std::int16_t Velocity = 0;
    };
    struct TremPick {
        std::string Pitch;
        std::int16_t Channel = 0;
        std::int16_t Velocity = 0;
        int RepeatsLeft = 0;
    };
    struct Trill {
        int StepsLeft = 0;
        double First = 0;
        double Second = 0;
        bool OtherSide = false;
        std::int16_t Channel = 0;
        std::int16_t Velocity = 0;
    };
    struct Grace {
        double Pitch = 0;
        std::uint8_t Dead = 0;
        std::int16_t Channel = 0;
        std::int16_t Velocity = 0;
    };

    std::vector<Bend> Bends;
    std::vector<Bend> TremBends;
    std::vector<Vibrato> Vibratos;
    std::vector<Slide> Slides;
    std::vector<TremPick> TremPicks;
    std::vector<Trill> Trills;
    std::vector<Grace> Graces;
};
extern EffectArrays Effects;

/// What an effect works with while the player sounds a strum.
struct EffectStage {
    const Core::TabFile& File;
    const Core::SettingsRecord& Settings;
    frmPlayMemory& Timers;
    EffectArrays& Arrays;

    const Core::Track& TrackOf(const StrumPlace& at) const { return File.Tracks[at.Track]; }
    const Core::Strum& StrumOf(const StrumPlace& at) const { return TrackOf(at).Bars[at.Bar].Strums()[at.Strum]; }
    /// Milliseconds of a 64th at the file's tempo.
    double Tick() const;
    /// The strum's length in whole 64ths.
    double Strum64(const StrumPlace& at) const;
};

/// A note of a strum, with what its effect needs.
struct EffectNote {
    StrumPlace At;
    int String = 0;
    int Octave = 0;  ///< semitones
    std::int16_t Velocity = 0;
};

void PlayBend(const EffectStage& stage, const EffectNote& note);
void PlayTremBend(const EffectStage& stage, const StrumPlace& at);
void PlayVibrato(const EffectStage& stage, const StrumPlace& at, bool wide);
/// Sounds the note and goes on by semitones to the one before the next note's pitch on the string.
void PlaySlide(const EffectStage& stage, const EffectNote& note);
void PlayTremoloPicking(const EffectStage& stage, const EffectNote& note);
void PlayTrill(const EffectStage& stage, const EffectNote& note);
/// The grace note that the next note on the string carries: it sounds ahead of its owner, within this strum. Does
/// nothing when there is none.
void PlayGraceNote(const EffectStage& stage, const EffectNote& note);

// Steps of an element, for tests and the handlers.
void StepBend(const EffectStage& stage, int index);
void StepTremBend(const EffectStage& stage, int index);
void StepVibrato(const EffectStage& stage, int index);
void StepSlide(const EffectStage& stage, int index);
void StepTremPick(const EffectStage& stage, int index);
void StepTrill(const EffectStage& stage, int index);
void StepGrace(const EffectStage& stage, int index);

void tmrBend_Timer(int index);
void tmrTremBend_Timer(int index);
void tmrVibrato_Timer(int index);
void tmrSlide_Timer(int index);
void tmrTremPick_Timer(int index);
void tmrTrill_Timer(int index);
void tmrGrace_Timer(int index);

}  // namespace Quillon::Playback
