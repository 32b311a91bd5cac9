// Start and stop of the player, and its metronome.
#include "playback/TabPlayer.h"

#include "core/mod_Common.h"
#include "playback/MIDI_CMD.h"

namespace Quillon::Playback {

namespace {

constexpr std::int16_t ClickChannel = 0;
constexpr std::int16_t ClickProgram = 115;
constexpr std::int16_t ClickNote = 90;
constexpr std::int16_t ClickVelocity = 127;

/// What the metronome makes of the bar that plays; one outside the song counts as 4/4.
std::int16_t MetronomeInterval(const PlayStage& stage, bool wantBeats) {
    const Core::BarInfo* const info = FindBarInfo(stage.File(), stage.Player.PlayBar);
    return GetMetronomeInterval(info ? *info : Core::BarInfo{}, stage.Player.Memory->PlayTimer.Interval(), wantBeats);
}

/// The first tick comes at once.
void StartTicks(const PlayStage& stage) {
    if (stage.Player.Memory->PlayTimer.Enabled()) return;
    stage.Player.Memory->PlayTimer.SetEnabled(true);
    Tick(stage);
}

}  // namespace

void SetTempo(const PlayStage& stage, double tempo) {
    Skipping([&] {
        stage.Player.Memory->PlayTimer.SetInterval(Core::CLng(3750 / tempo));
        stage.Player.TempoInUse = tempo;
    });
}

void Start(const PlayStage& stage, std::int16_t startBar, std::int16_t endBar) {
    PlayerState& player = stage.Player;
    if (player.View) player.View->PlayingStarts();
    player.LastChord = {};
    player.Memory = std::make_unique<frmPlayMemory>();
    SetTempo(stage, stage.File().Tempo);
    const auto tracks = static_cast<std::size_t>(stage.File().Tracks.Count());
    player.PlayElapsed.assign(tracks, 0);
    player.PlayStrum.assign(tracks, 0);
    static_cast<BarWalk&>(player).Start(stage.File(), startBar);
    player.PlayEndBar = endBar;
    player.ToldPlaysOn = false;

    frmPlayMemory& timers = *player.Memory;
    if (stage.Settings.CountIn || stage.Settings.Metronome) {
        timers.tmrMetronome.SetInterval(MetronomeInterval(stage, false));
        player.BeatsLeft = stage.Settings.CountIn ? MetronomeInterval(stage, true) : std::int16_t{0};
        timers.tmrMetronome.SetEnabled(true);
    } else {
        timers.PlayTimer.SetEnabled(true);
    }
}

void Stop(const PlayStage& stage) {
    const bool played = stage.Player.Memory != nullptr;
    stage.Player.Trainer.Running = false;
    stage.Player.Memory.reset();
    MidiAllChannelsOff();
    if (played && stage.Player.View) stage.Player.View->PlayingStopped();
}

void Silence(const PlayStage& stage, int track) {
    if (!stage.Player.Memory) return;
    stage.Player.Memory->StopEffectsOf(track);
    const Core::Track& silent = stage.File().Tracks[track];
    const auto channelOf = [](const Core::Track& each) { return each.IsDrum ? PercussionChannel : each.Channel; };
    const auto isShared = [&](std::int16_t channel) {
        for (int other = 0; other <= stage.File().Tracks.UpperBound(); ++other) {
            const Core::Track& each = stage.File().Tracks[other];
            const bool uses = channelOf(each) == channel || (!each.IsDrum && each.EffectChannel == channel);
            if (uses && stage.Player.Listening.Hears(other)) return true;
        }
        return false;
    };
    const auto end = [&](std::int16_t channel) {
        if (isShared(channel)) return;
        Skipping([&] { MidiChannelOff(channel); });
    };
    end(channelOf(silent));
    if (silent.IsDrum || isShared(silent.EffectChannel)) return;
    end(silent.EffectChannel);
    Skipping([&] { MidiPitchWheel(silent.EffectChannel, 0, WheelCentre); });  // no bend is left to bring it back
}

void Click(const PlayStage& stage) {
    PlayerState& player = stage.Player;
    if (!player.Memory || !player.Memory->tmrMetronome.Enabled()) return;
    if (player.BeatsLeft == 0) {
        if (!stage.Settings.Metronome) {
            player.Memory->tmrMetronome.SetEnabled(false);
            return StartTicks(stage);
        }
        player.BeatsLeft = MetronomeInterval(stage, true);
        StartTicks(stage);
        if (!player.Memory) return;  // the song ended with its first tick
    }
    player.Memory->tmrMetronome.SetInterval(MetronomeInterval(stage, false));
    MidiSetInstrument(ClickChannel, stage.Settings.OutputBank, ClickProgram);
    MidiNoteOn(ClickChannel, ClickNote, ClickVelocity);
    --player.BeatsLeft;
}

}  // namespace Quillon::Playback
