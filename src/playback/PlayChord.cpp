// One strum in sound: its chord symbol, its notes in the direction of the stroke, and the start of their effects.
#include "core/mod_Common.h"
#include "playback/MIDI_CMD.h"
#include "playback/StrumSounds.h"
#include "playback/TabPlayer.h"

namespace Quillon::Playback {

namespace {

void PlaySymbol(const Core::Track& track, const Core::Strum& chord) {
    for (const Struck& key : SymbolSounds(track, chord)) {
        MidiNoteOn(track.Channel, key.Pitch, key.Velocity);
        if (key.Dead) MidiNoteOff(track.Channel, key.Pitch);
    }
}

void PlayDrums(const Core::Track& track, const Core::Strum& strum) {
    for (int string = 0; string < StringsInUse(track); ++string) {
        const Core::Note& note = strum.Notes[string];
        if (note.Fret.empty()) continue;
        Skipping([&] {
            const auto pitch = DrumPitch(track, string, note.Fret);
            if (pitch) MidiNoteOn(PercussionChannel, *pitch, getVolume(track, note));
        });
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
        if (note.Fret == DeadFret) {
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
        const std::vector<Struck> keys = HarmonicSounds(ValueOf(pitch), harmonic, velocity);
        for (const Struck& key : keys) MidiNoteOn(channel, key.Pitch, key.Velocity);
        if (!offAtOnce) return;
        for (auto key = keys.rbegin(); key != keys.rend(); ++key) MidiNoteOff(channel, key->Pitch);
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
