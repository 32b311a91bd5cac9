#include "playback/mod_Audition.h"

#include <algorithm>
#include <memory>

#include "core/mod_Common.h"
#include "playback/MIDI_CMD.h"
#include "playback/TabPlayer.h"

namespace Quillon::Playback {

namespace {

constexpr std::int32_t UpStroke = 1;

void tmrAudition_Timer();

struct Hearing {
    Core::OpenDocument Document;
    StrumPlace At;
    PlayerState Player;
    EffectArrays Arrays;
    ctlHiPreTimer tmrAudition{&tmrAudition_Timer};
    bool Ahead = false;  ///< its grace notes sound, itself not yet
    PlayStage Stage{Document, Core::Settings, Player, Arrays};
};
std::unique_ptr<Hearing> Heard;

const Core::Strum& StrumHeard() { return *FindStrum(Heard->Document.TabFile, Heard->At); }

/// The timer calls back after so many 64ths at the file's tempo, and `more` milliseconds.
void WaitFor(double length, double more) {
    constexpr double longest = 60'000;
    Heard->tmrAudition.SetEnabled(false);
    Heard->tmrAudition.SetInterval(
        Core::CLng(std::clamp(Heard->Stage.ForEffects().Tick() * length + more, 1.0, longest)));
    Heard->tmrAudition.SetEnabled(true);
}

void SoundIt() {
    constexpr double ringing = 300;
    Heard->Ahead = false;
    SoundStrum(Heard->Stage, Heard->At, StrumHeard(), true, StrumHeard().Stroke == UpStroke);
    WaitFor(Core::StrumLength(StrumHeard()), ringing);
}

void tmrAudition_Timer() {
    if (!Heard) return;
    if (!Heard->Ahead) return EndAudition();
    SoundIt();
}

/// Length code of a grace note's duration, 0 to 2: a 16th, a 32nd, a 64th. -1 for none.
std::int32_t GraceCode(const Core::Strum& strum) {
    std::int32_t code = -1;
    for (int string = 0; string < Core::StringCount; ++string) {
        const Core::Note& note = strum.Notes[string];
        if (note.HasGrace && note.GraceDuration >= 0 && note.GraceDuration <= 2) {
            code = code < 0 ? note.GraceDuration + 4 : std::min(code, note.GraceDuration + 4);
        }
    }
    return code;
}

}  // namespace

const PlayStage* AuditionStage() { return Heard ? &Heard->Stage : nullptr; }

void Audition(Core::TabFile file, const StrumPlace& at) {
    EndAudition();
    if (Player.Memory || !FindStrum(file, at)) return;
    Heard = std::make_unique<Hearing>();
    Heard->At = at;
    Heard->Document.TabFile = std::move(file);
    Heard->Player.Memory = std::make_unique<frmPlayMemory>();
    const std::int32_t grace = GraceCode(StrumHeard());
    if (grace < 0) return SoundIt();
    // Grace notes belong to the strum before: an empty one of just their length is put there.
    Core::List<Core::Strum>& strums = Heard->Document.TabFile.Tracks[at.Track].Bars.Edit(at.Bar).EditStrums();
    Core::Strum before;
    before.Length = grace;
    strums.Add({});
    std::rotate(strums.begin() + at.Strum, strums.end() - 1, strums.end());
    strums[at.Strum] = before;
    ++Heard->At.Strum;
    Heard->Ahead = true;
    SoundStrum(Heard->Stage, at, before, true, false);  // for the instrument
    for (int string = 0; string < StringsInUse(Heard->Document.TabFile.Tracks[at.Track]); ++string) {
        const Core::Track& track = Heard->Document.TabFile.Tracks[at.Track];
        Skipping([&] { PlayGraceNote(Heard->Stage.ForEffects(), {at, string, GetOctaveShift(track), 0}); });
    }
    WaitFor(Core::StrumLength(before), 0);
}

void EndAudition() {
    if (!Heard) return;
    const std::int16_t channel = Heard->Document.TabFile.Tracks[Heard->At.Track].EffectChannel;
    Heard.reset();
    MidiAllChannelsOff();
    MidiPitchWheel(channel, 0, WheelCentre);
}

bool IsAuditioning() { return Heard != nullptr; }

}  // namespace Quillon::Playback
