// The engine behind mod_TabPlayer: one stage of playing, on a document, settings and player given.
#pragma once

#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "playback/PlayScore.h"
#include "playback/frmPlayMemory.h"
#include "playback/mod_Effects.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Playback {

struct PlayStage {
    const Core::OpenDocument& Open;
    const Core::SettingsRecord& Settings;
    PlayerState& Player;
    EffectArrays& Effects;

    const Core::TabFile& File() const { return Open.TabFile; }
    EffectStage ForEffects() const { return {Open.TabFile, Settings, *Player.Memory, Effects}; }
};

void Start(const PlayStage& stage, std::int16_t startBar, std::int16_t endBar);
void Stop(const PlayStage& stage);
/// One 64th of every track.
void Tick(const PlayStage& stage);
/// Ends what sounds of a track, unless a track that is heard shares its channels.
void Silence(const PlayStage& stage, int track);
/// One click of the metronome, or the end of the count-in.
void Click(const PlayStage& stage);
/// Writes the interval of the ticks by a tempo; one that gives no interval leaves it.
void SetTempo(const PlayStage& stage, double tempo);

/// The stage on which a strum is heard by itself (see mod_Audition.h); null when none is.
const PlayStage* AuditionStage();

/// Sounds a strum with the chord symbol of another one, `chord`, or with its own.
void SoundStrum(const PlayStage& stage, const StrumPlace& at, const Core::Strum& chord, bool clearFirst, bool strumUp);

}  // namespace Quillon::Playback
