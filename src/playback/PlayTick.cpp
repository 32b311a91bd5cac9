// The tick: every track goes one 64th on, in its order; the last one moves the bar.
//
// A condition that can't be worked out, because an index lies outside, skips what it guards, whichever way it would
// have gone; a track outside its strums is so simply idle.
#include <algorithm>

#include "core/mod_Common.h"
#include "playback/MIDI_CMD.h"
#include "playback/TabPlayer.h"

namespace Quillon::Playback {

using Core::ToInt16;

namespace {

enum class After { GoOn, Leave };

/// One tick of one track.
class TrackTick {
public:
    TrackTick(const PlayStage& on, int index)
        : stage(on),
          player(on.Player),
          track(index),
          isLast(index == player.PlayLastTrack),
          playStrum(player.PlayStrum[static_cast<std::size_t>(index)]),
          elapsed(player.PlayElapsed[static_cast<std::size_t>(index)]) {}

    /// `need` is the length of the strum that plays; a track outside its strums takes that of the track before.
    After Run(double& need);

private:
    StrumPlace Place() const { return {track, player.PlayBar, playStrum}; }
    const Core::Strum* Strum() const { return FindStrum(stage.File(), Place()); }
    /// A track outside the bar knows no last strum, and stands on none.
    bool OnLastStrum() const {
        const Core::Bar* const bar = FindBar(stage.File(), track, player.PlayBar);
        return bar && playStrum == bar->Strums().UpperBound();
    }
    void RewindTracks();
    /// False when the trainer's loop took over.
    bool AskTrainer();
    void EndStrum();
    void EndBar();
    void Damp();
    void Sound(const Core::Strum& strum);

    const PlayStage& stage;
    PlayerState& player;
    int track;
    bool isLast;
    std::int16_t& playStrum;
    double& elapsed;
};

After TrackTick::Run(double& need) {
    if (isLast) player.NoteRepeat(stage.File());
    if (const Core::Strum* const strum = Strum()) need = Core::StrumLength(*strum);
    if (elapsed >= need) {
        if (!AskTrainer()) return After::Leave;
        EndStrum();
    }
    if (elapsed == 0) {
        const bool marks = stage.Settings.FollowTabPlayback && track == stage.Open.CurTrack;
        if (marks && player.View) Skipping([&] { player.View->MoveMarker(track, player.PlayBar, playStrum); });
        Damp();
        if (isLast && player.PlayBar == player.PlayEndBar + 1) {
            Stop(stage);
            return After::Leave;
        }
        if (const Core::Strum* const strum = Strum()) {
            if (const double tempo = TempoOfText(strum->Text); tempo > 0) SetTempo(stage, tempo);
            Sound(*strum);
        }
    }
    elapsed += 1;
    return After::GoOn;
}

bool TrackTick::AskTrainer() {
    SpeedTrainer& trainer = player.Trainer;
    if (!trainer.Running || !OnLastStrum() || player.PlayBar != trainer.ToBar) return true;
    if (trainer.LoopsLeft == 0) {
        Stop(stage);
        return false;
    }
    Skipping([&] {
        const std::int32_t raised = Core::ToInt32(std::int64_t{trainer.Tempo} + trainer.Step);
        if (raised <= trainer.FinalTempo) trainer.Tempo = raised;
        SetTempo(stage, std::min(raised, trainer.FinalTempo));
    });
    player.PlayBar = trainer.FromBar;
    RewindTracks();
    Skipping([&] { trainer.LoopsLeft = ToInt16(trainer.LoopsLeft - 1); });
    Tick(stage);
    return false;
}

void TrackTick::RewindTracks() {
    for (std::int16_t& strum : player.PlayStrum) strum = -1;
}

void TrackTick::EndStrum() {
    elapsed = 0;
    if (OnLastStrum()) EndBar();
    Skipping([&] { playStrum = ToInt16(playStrum + 1); });
}

void TrackTick::EndBar() {
    if (!isLast) return;
    const BarWalk::Step step = player.BarWalk::EndBar(stage.File());
    if (step == BarWalk::Step::Stays) return;
    RewindTracks();
    const bool leftSong = !FindBarInfo(stage.File(), player.PlayBar) && player.PlayBar != player.PlayEndBar + 1;
    if (step == BarWalk::Step::Circles || leftSong) player.TellPlaysOn();
}

void TrackTick::Damp() {
    if (!player.Listening.Hears(track)) return;
    const Core::Track& own = stage.File().Tracks[track];
    if (own.Reverb) return;
    const bool first = player.PlayBar == 0 && playStrum == 0;
    const Core::Strum* const before = PreviousStrum(stage.File(), Place());
    if (!before && !first) return;
    if (before && (IsTie(own, *before) || IsRing(own, *before))) return;
    if (own.IsDrum) return;
    Skipping([&] { MidiChannelOff(own.Channel); });
    Skipping([&] { MidiChannelOff(own.EffectChannel); });
}

void TrackTick::Sound(const Core::Strum& strum) {
    if (strum.Hash == 1) {
        const Core::Strum* const before = PreviousStrum(stage.File(), Place());
        const Core::Strum& previous = before ? *before : strum;  // the song's first is its own
        if (previous.Hash != 1) player.LastChord = previous;
        if (strum.HasChord) player.LastChord = strum;
    }
    if (!player.Listening.Hears(track)) return;
    SoundStrum(stage, Place(), strum.Hash == 1 ? player.LastChord : strum, false, strum.Stroke == 1);
}

void ScrollAtBarStart(const PlayStage& stage) {
    const PlayerState& player = stage.Player;
    const auto track = static_cast<std::size_t>(stage.Open.CurTrack);
    if (!stage.Settings.FollowTabPlayback || !player.View || track >= player.PlayStrum.size()) return;
    if (player.PlayStrum[track] != 0 || player.PlayElapsed[track] > 1) return;
    Skipping([&] { player.View->ScrollToBar(player.PlayBar); });
}

}  // namespace

void Tick(const PlayStage& stage) {
    PlayerState& player = stage.Player;
    if (!player.Memory || !player.Memory->PlayTimer.Enabled()) return;
    // Written at each tick, so that it starts the timer anew and a tempo text lasts for one tick only: this is meant.
    if (!player.Trainer.Running) SetTempo(stage, stage.File().Tempo);
    player.PlayLastTrack = ToInt16(stage.File().Tracks.UpperBound());
    ScrollAtBarStart(stage);
    double need = 0;
    for (int track = 0; track <= player.PlayLastTrack && track < static_cast<int>(player.PlayStrum.size()); ++track) {
        if (TrackTick(stage, track).Run(need) == After::Leave) return;
    }
}

}  // namespace Quillon::Playback
