#include <memory>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "library/ChordNaming.h"
#include "library/NoteRun.h"
#include "library/mod_Tuner.h"
#include "playback/MIDI_CMD.h"
#include "playback/ctlHiPreTimer.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Library {

TunerState Tuner;

namespace {

constexpr std::int16_t Channel = 0;
constexpr std::int16_t SteelGuitar = 25;
constexpr std::int16_t Loudest = 127;
constexpr int MostPitch = 127;
constexpr std::int32_t AfterLast = 2500;  ///< ms that the last string may ring

void TickUp();
void TickDown();
void TickWait();

struct Running {
    int Index = 0;  ///< the string that is next
    int Last = 0;
    bool Alone = false;  ///< one string, which sounds whether it is checked or not
    Playback::ctlHiPreTimer tmrPlayUp{&TickUp};
    Playback::ctlHiPreTimer tmrPlayDown{&TickDown};
    Playback::ctlHiPreTimer tmrWait{&TickWait};  ///< lets the last string ring
};
std::unique_ptr<Running> Run;

void Sound(int string) {
    Playback::MidiSetInstrument(Channel, Core::Settings.OutputBank, SteelGuitar);
    if (!Run->Alone && !Tuner.Chk[string]) return;
    const int offset = Tuner.Tuning.Tuning[string];
    // The names reach an octave; a track may have a bass's strings.
    const bool named = offset >= -TunerReach && offset <= TunerReach;
    const int pitch = named ? TunerPitch(string, TunerName(string, offset)) : Core::DefaultStringPitch(string) + offset;
    if (!Tuner.LetRing) Playback::MidiAllChannelsOff();
    if (pitch >= 0 && pitch <= MostPitch) Playback::MidiNoteOn(Channel, Core::ToInt16(pitch), Loudest);
    if (Tuner.StringSounds) Tuner.StringSounds(string);
}

/// Sounds the string at the running index and moves that on; behind the last string it waits for the end.
void Tick(Playback::ctlHiPreTimer& timer, int step) {
    timer.SetEnabled(false);
    const int string = Run->Index;
    const bool last = string == Run->Last;
    Run->Index += step;
    Playback::ctlHiPreTimer& next = last ? Run->tmrWait : timer;
    // A string that is to be passed over takes no time.
    next.SetInterval(last ? AfterLast : Tuner.Chk[string] ? Tuner.Pause : 1);
    next.SetEnabled(true);
    Sound(string);
}

void TickUp() {
    if (Run) Tick(Run->tmrPlayUp, -1);
}

void TickDown() {
    if (Run) Tick(Run->tmrPlayDown, 1);
}

void TickWait() { StopTuning(); }

/// From one string to another, each in turn.
bool Start(int from, int to) {
    StopTuning();
    StopRun();
    if (Playback::IsPlaying()) return false;
    Run = std::make_unique<Running>();
    Run->Index = from;
    Run->Last = to;
    return true;
}

int LowestString() { return Tuner.Tuning.NumStrings - 1; }

}  // namespace

std::string TunerName(int string, int offset) {
    if (offset < -TunerReach || offset > TunerReach) RaiseSubscriptOutOfRange();
    const std::string name = PitchClassName(Core::DefaultStringPitch(string) + offset);
    return (offset < 0 ? "-" : offset > 0 ? "+" : "") + name;
}

int TunerPitch(int string, const std::string& name) {
    for (int offset = -TunerReach; offset <= TunerReach; ++offset) {
        if (TunerName(string, offset) == name) return Core::DefaultStringPitch(string) + offset;
    }
    RaiseTypeMismatch();
}

void PlayTuningUp() {
    if (Start(LowestString(), 0)) TickUp();
}

void PlayTuningDown() {
    if (Start(0, LowestString())) TickDown();
}

void PlayTuningString(int string) {
    if (string < 0 || string > LowestString() || !Start(string, string)) return;
    Run->Alone = true;
    TickDown();
}

void StopTuning() {
    if (!Run) return;
    Run.reset();
    Playback::MidiAllChannelsOff();
    if (Tuner.StringSounds) Tuner.StringSounds(-1);
}

bool IsTuningPlaying() { return Run != nullptr; }

}  // namespace Quillon::Library
