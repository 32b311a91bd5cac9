// The player on the open document: fronts of the engine, and the handlers of its timers.
#include "core/mod_Common.h"
#include "playback/TabPlayer.h"
#include "playback/mod_Audition.h"

namespace Quillon::Playback {

PlayerState Player;

PlayerState::PlayerState() = default;
PlayerState::~PlayerState() = default;
PlayerState::PlayerState(PlayerState&&) noexcept = default;
PlayerState& PlayerState::operator=(PlayerState&&) noexcept = default;

void PlayerState::TellPlaysOn() {
    if (ToldPlaysOn) return;
    ToldPlaysOn = true;
    if (View) View->PlaysOn();
}

namespace {

PlayStage Stage() { return {Core::Open, Core::Settings, Player, Effects}; }

std::int16_t LastBar() { return Core::ToInt16(Core::Open.TabFile.BarInfos.UpperBound()); }

/// Makes a choice and silences what is not heard any more.
template <class Choose>
void Listen(const Choose& choose) {
    const int tracks = Core::Open.TabFile.Tracks.Count();
    std::vector<bool> heard;
    for (int track = 0; track < tracks; ++track) heard.push_back(Player.Listening.Hears(track));
    choose();
    for (int track = 0; track < tracks; ++track) {
        if (heard[static_cast<std::size_t>(track)] && !Player.Listening.Hears(track)) Silence(Stage(), track);
    }
}

/// Hands a step to an element while there is one: a message may come after the stop.
void Handle(void (*step)(const EffectStage&, int), int index) {
    const PlayStage* const heard = AuditionStage();
    if (Player.Memory) {
        Skipping([&] { step(Stage().ForEffects(), index); });
    } else if (heard) {
        Skipping([&] { step(heard->ForEffects(), index); });
    }
}

}  // namespace

void PlayTab(std::int16_t startBar, std::int16_t endBar) {
    if (IsPlaying()) StopTab();
    EndAudition();
    Start(Stage(), startBar, endBar);
}

void StopTab() { Stop(Stage()); }

bool IsPlaying() { return Player.Memory != nullptr; }

double TempoNow() { return IsPlaying() ? Player.TempoInUse : static_cast<double>(Core::Open.TabFile.Tempo); }

void StartSpeedTrainer(const TrainerFields& fields) {
    const auto lessOne = [](const std::string& text) { return Core::CInt(Core::ParseDouble(text) - 1); };
    SpeedTrainer trainer;
    trainer.FromBar = lessOne(fields.txtFromBar);
    trainer.ToBar = lessOne(fields.txtToBar);
    trainer.LoopsLeft = lessOne(fields.txtLoops);
    trainer.Tempo = Core::ParseInt32(fields.txtInitialTempo);
    trainer.FinalTempo = Core::ParseInt32(fields.txtFinalTempo);
    trainer.Step = Core::ParseInt32(fields.txtTempoIncrease);
    if (IsPlaying()) StopTab();
    Player.Trainer = trainer;
    Player.Trainer.Running = true;
    PlayTab(trainer.FromBar, LastBar());
    SetTempo(Stage(), trainer.Tempo);
}

void SetMute(int track, bool on) {
    Listen([&] { Player.Listening.SetMute(track, on); });
}

void SetSolo(int track, bool on) {
    Listen([&] { Player.Listening.SetSolo(track, on); });
}

void PlayTimer_Timer() { Tick(Stage()); }

void tmrMetronome_Timer() { Click(Stage()); }

void PlayChord(int track, int bar, int strum, bool clearFirst, bool strumUp) {
    const StrumPlace at{track, bar, strum};
    const Core::Strum* const found = FindStrum(Core::Open.TabFile, at);
    SoundStrum(Stage(), at, found ? *found : Core::Strum{}, clearFirst, strumUp);
}

void tmrBend_Timer(int index) { Handle(StepBend, index); }
void tmrTremBend_Timer(int index) { Handle(StepTremBend, index); }
void tmrVibrato_Timer(int index) { Handle(StepVibrato, index); }
void tmrSlide_Timer(int index) { Handle(StepSlide, index); }
void tmrTremPick_Timer(int index) { Handle(StepTremPick, index); }
void tmrTrill_Timer(int index) { Handle(StepTrill, index); }
void tmrGrace_Timer(int index) { Handle(StepGrace, index); }

}  // namespace Quillon::Playback
