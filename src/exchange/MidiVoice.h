// One track of a song as MIDI events: strum by strum, with the gestures of its effects.
//
// What is struck is what the player strikes (playback/StrumSounds.h). Its timers become places: a gesture that sends a
// message at each step writes an event at each.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "exchange/MidiTimeline.h"

namespace Quillon::Exchange {

/// How far and how often the wheel moves, as the settings have it; see Core::SettingsRecord.
struct MidiExportOptions {
    double BendCoefficient = 7.9;
    double VibratoBend = 4;
    double WideVibratoBend = 12;
    int VibratoCount = 6;
};

class MidiVoice {
public:
    MidiVoice(const Core::Track& of, const MidiExportOptions& how, MidiTimeline& to);

    /// Sounds a strum, up to `end`, where it is over or the bar cuts it. Places are 64ths from the start of the song
    /// and go up from call to call. `previous` and `next` are its neighbours on the paper, null outside the track.
    void Play(const Core::Strum& strum, double start, double end, const Core::Strum* previous, const Core::Strum* next);
    /// What still sounds ends.
    void Finish(double end);

private:
    /// What a string, or a string of a chord symbol, has sounding.
    struct Held {
        int Channel = 0;
        std::vector<int> Keys;
        int String = NoStringTold;
        std::int64_t Since = 0;  ///< tick of the last key
        std::string Fret;
        bool Tied = false;
        bool Rings = false;
        bool GoesOn = false;  ///< tied to what the strum before struck
    };
    /// A strum that is being written.
    struct Now;

    void EndWhatIsOver(const Now& now);
    void End(Held& held, double at);
    void PlaySymbol(const Now& now);
    void PlayDrums(const Now& now);
    void PlayString(const Now& now, int string);
    void PlayWheel(const Now& now);
    void PlayPlain(const Now& now, int string, double start);
    void PlayGrace(const Now& now, int string);
    void PlayTrill(const Now& now, int string);
    void PlayPicking(const Now& now, int string);
    void PlaySlide(const Now& now, int string);
    void PlayBend(const Now& now, int string);
    void PlayDead(double at, int channel);
    void Strike(Held& held, double at, int channel, int key, int velocity);
    /// Takes the place of what the string sounds; false when that has only just begun, or the strum is over.
    bool StepTo(const Now& now, int string, double at, int key);
    /// Notes one after the other on the effect channel, of which the last one sounds on.
    void PlayRun(const Now& now, int string, const std::vector<int>& keys, double apart);

    const Core::Track& track;
    const MidiExportOptions& options;
    MidiTimeline& timeline;
    int octave;
    int strings;
    std::array<Held, Core::StringCount> held;
    std::array<Held, Core::StringCount> symbol;
    Core::Strum lastChord;
    bool ringsOn = false;  ///< the strum before holds what is tied or rings
};

}  // namespace Quillon::Exchange
