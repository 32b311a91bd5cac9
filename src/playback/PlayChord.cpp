// One strum in sound: its chord symbol, its notes in the direction of the stroke, and the start of their effects.
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "playback/MIDI_CMD.h"
#include "playback/TabPlayer.h"

namespace Quillon::Playback {

namespace {

constexpr const char* Dead = "x";

void PlaySymbol(const Core::Track& track, const Core::Strum& chord) {
    if (!chord.HasChord) return;
    // The strings of the chord; one without a count may use all.
    const bool counted = chord.ChordValueB >= 1 && chord.ChordValueB <= Core::StringCount;
    const int strings = counted ? chord.ChordValueB : Core::StringCount;
    for (int string = 0; string < strings; ++string) {
        const std::string& fret = chord.ChordFrets.Read()[string];
        const std::int16_t mark = chord.ChordMarks.Read()[string];
        const int open = mark != 0 ? mark : Core::DefaultStringPitch(string);
        Skipping([&] {
            const std::int16_t velocity = Core::CInt(track.Volume / 50.0 * 127);  // limited by the device alone
            if (IsNumeric(fret)) MidiNoteOn(track.Channel, Core::CInt(ValueOf(fret) + open), velocity);
            if (fret != Dead) return;
            MidiNoteOn(track.Channel, Core::ToInt16(open), velocity);
            MidiNoteOff(track.Channel, Core::ToInt16(open));
        });
    }
}

void PlayDrums(const Core::Track& track, const Core::Strum& strum) {
    for (int string = 0; string < StringsInUse(track); ++string) {
        const Core::Note& note = strum.Notes[string];
        if (note.Fret.empty()) continue;
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
            if (note.Fret != letter.Letter) continue;
            const std::int16_t sound = track.PercStrings[string].*letter.Sound;
            if (sound == 0) break;
            Skipping(
                [&] { MidiNoteOn(PercussionChannel, Core::ToInt16(sound + DrumPitchBase), getVolume(track, note)); });
            break;
        }
    }
}

/// One string of a pitched strum.
class StringSound {
public:
    StringSound(const PlayStage& on, const StrumPlace& place, int index, std::int16_t channelOfStrum)
        : stage(on),
          at(place),
          string(index),
          channel(channelOfStrum),
          track(stage.File().Tracks[at.Track]),
          strum(*FindStrum(stage.File(), at)),
          note(strum.Notes[string]),
          octave(GetOctaveShift(track)) {}

    void Play() const {
        std::int16_t velocity = 0;
        Skipping([&] { velocity = getVolume(track, note); });
        if (IsNumeric(note.Fret)) PlayFret(velocity);
        if (stage.Player.Memory && stage.Player.Memory->PlayTimer.Enabled()) {
            Skipping([&] { PlayGraceNote(stage.ForEffects(), Effect(velocity)); });
        }
        if (note.Fret == Dead) {
            PlayNote(TextOf(Core::OpenPitch(track, string) + octave), Core::NoHarmonic, channel, velocity, true);
        }
    }

private:
    EffectNote Effect(std::int16_t velocity) const { return {at, string, octave, velocity}; }

    /// Several effects may start at one note; none at all leaves it plain.
    void PlayFret(std::int16_t velocity) const {
        const std::string pitch = TextOf(ValueOf(PitchText(track, note, string)) + octave);
        bool done = false;
        const auto effect = [&](bool wanted, void (*play)(const EffectStage&, const EffectNote&)) {
            if (!wanted || !stage.Player.Memory) return;
            Skipping([&] { play(stage.ForEffects(), Effect(velocity)); });
            done = true;
        };
        effect(note.HasBend, PlayBend);
        effect(note.HasTrill, PlayTrill);
        if (note.Technique == Core::Staccato || strum.Technique == Core::PalmMute) {
            PlayNote(pitch, note.Harmonic, channel, velocity, true);
            done = true;
        }
        effect(note.Technique == Core::LegatoSlide, PlaySlide);
        effect(note.Technique >= Core::TremoloPicking8ths && note.Technique <= Core::TremoloPicking32nds,
               PlayTremoloPicking);
        if (!done) PlayNote(pitch, note.Harmonic, channel, velocity, false);
    }

    const PlayStage& stage;
    const StrumPlace& at;
    int string;
    std::int16_t channel;
    const Core::Track& track;
    const Core::Strum& strum;
    const Core::Note& note;
    int octave;
};

}  // namespace

void PlayNote(const std::string& pitch, std::int32_t harmonic, std::int16_t channel, double velocity, bool offAtOnce) {
    Skipping([&] {
        const int written = Core::ToInt16(Core::CLng(std::trunc(ValueOf(pitch))));
        if (harmonic == Core::SemiHarmonic) {
            const std::int16_t softer = Core::CInt(velocity / 1.2);
            const std::int16_t high = Core::ToInt16(written + 12);
            const std::int16_t low = Core::ToInt16(written);
            for (const std::int16_t each : {high, low}) MidiNoteOn(channel, each, softer);
            if (!offAtOnce) return;
            for (const std::int16_t each : {low, high}) MidiNoteOff(channel, each);
            return;
        }
        const bool octave = harmonic >= Core::ArtificialHarmonic12 && harmonic <= Core::PitchHarmonic;
        const int higher = octave                                  ? 12
                           : harmonic == Core::ArtificialHarmonic5 ? 19
                           : harmonic == Core::ArtificialHarmonic7 ? 24
                                                                   : 0;
        const std::int16_t sounding = Core::ToInt16(written + higher);
        MidiNoteOn(channel, sounding, Core::CInt(velocity));
        if (offAtOnce) MidiNoteOff(channel, sounding);
    });
}

void SoundStrum(const PlayStage& stage, const StrumPlace& at, const Core::Strum& chord, bool clearFirst, bool strumUp) {
    if (clearFirst) MidiAllChannelsOff();
    const Core::Strum* const strum = FindStrum(stage.File(), at);
    if (!strum) return;
    const Core::Track& track = stage.File().Tracks[at.Track];
    if (track.IsDrum) return PlayDrums(track, *strum);
    for (const std::int16_t each : {track.Channel, track.EffectChannel}) {
        Skipping([&] { MidiSetInstrument(each, stage.Settings.OutputBank, track.Instrument); });
    }
    PlaySymbol(track, chord);
    if (strum->Hash == 1) return;

    std::int16_t channel = track.Channel;
    const auto strumEffect = [&](bool wanted, const auto& play) {
        if (!wanted) return;
        channel = track.EffectChannel;
        if (stage.Player.Memory) Skipping([&] { play(stage.ForEffects()); });
    };
    strumEffect(strum->HasTrem, [&](const EffectStage& effects) { PlayTremBend(effects, at); });
    strumEffect(strum->Technique == Core::Vibrato || strum->Technique == Core::WideVibrato,
                [&](const EffectStage& effects) { PlayVibrato(effects, at, strum->Technique == Core::WideVibrato); });
    const int strings = StringsInUse(track);
    for (int i = 0; i < strings; ++i) StringSound(stage, at, strumUp ? i : strings - 1 - i, channel).Play();
}

}  // namespace Quillon::Playback
