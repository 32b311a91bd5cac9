#include "exchange/MidiVoice.h"

#include <algorithm>

#include "core/mod_TabFileManipulation.h"
#include "exchange/MidiVoiceParts.h"
#include "playback/MIDI_CMD.h"
#include "playback/PlayScore.h"
#include "playback/StrumSounds.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Exchange {

MidiVoice::MidiVoice(const Core::Track& of, const MidiExportOptions& how, MidiTimeline& to)
    : track(of),
      options(how),
      timeline(to),
      octave(Playback::GetOctaveShift(of)),
      strings(Playback::StringsInUse(of)) {}

void MidiVoice::Play(const Core::Strum& strum, double start, double end, const Core::Strum* previous,
                     const Core::Strum* next) {
    if (strum.Hash == 1) {
        const Core::Strum& before = previous ? *previous : strum;  // the song's first is its own
        if (before.Hash != 1) lastChord = before;
        if (strum.HasChord) lastChord = strum;
    }
    if (MidiTick(end) <= MidiTick(start)) return;  // what ends as it begins would never be heard to end
    const bool shakes = strum.Technique == Core::Vibrato || strum.Technique == Core::WideVibrato;
    const bool wheels = strum.HasTrem || shakes;
    const Now now{strum, next, start, end, wheels ? int{track.EffectChannel} : int{track.Channel}};
    if (track.IsDrum) return PlayDrums(now);
    EndWhatIsOver(now);
    PlaySymbol(now);
    ringsOn = Playback::IsTie(track, strum) || Playback::IsRing(track, strum);
    if (strum.Hash == 1) return;
    if (wheels && Core::HasNotes(strum)) PlayWheel(now);
    for (int i = 0; i < strings; ++i) {
        const int string = strum.Stroke == 1 ? i : strings - 1 - i;
        Playback::Skipping([&] { PlayString(now, string); });
    }
}

void MidiVoice::EndWhatIsOver(const Now& now) {
    for (int string = 0; string < Core::StringCount; ++string) {
        Held& sounding = held[static_cast<std::size_t>(string)];
        const std::string& fret = now.Strum.Hash == 1 ? std::string() : now.Strum.Notes[string].Fret;
        const bool goesOn = sounding.Tied && fret == sounding.Fret;
        const bool ringsOver = (sounding.Tied || sounding.Rings) && ringsOn && fret.empty();
        if (!goesOn && !ringsOver) End(sounding, now.Start);
        sounding.GoesOn = goesOn;
    }
    if (ringsOn) return;
    for (Held& sounding : symbol) End(sounding, now.Start);
}

void MidiVoice::End(Held& sounding, double at) {
    for (const int key : sounding.Keys) timeline.NoteOff(at, sounding.Channel, key);
    sounding = {};
}

void MidiVoice::Finish(double end) {
    for (auto* const all : {&held, &symbol}) {
        for (Held& sounding : *all) End(sounding, end);
    }
}

void MidiVoice::Strike(Held& sounding, double at, int channel, int key, int velocity) {
    constexpr int HighestKey = 127;
    if (key < 0 || key > HighestKey || velocity <= 0) return;
    for (auto* const all : {&held, &symbol}) {
        for (Held& other : *all) {
            // A key that rings is ended before it is struck anew: its end would end this one too.
            if (other.Channel != channel || other.Since >= MidiTick(at)) continue;
            if (std::erase(other.Keys, key) > 0) timeline.NoteOff(at, channel, key);
        }
    }
    timeline.NoteOn(at, channel, key, velocity, sounding.String);
    sounding.Channel = channel;
    sounding.Since = MidiTick(at);
    sounding.Keys.push_back(key);
}

void MidiVoice::PlayDead(double at, int channel) {
    constexpr int DeadKey = 127;
    timeline.NoteOn(at, channel, DeadKey, 0);
}

void MidiVoice::PlaySymbol(const Now& now) {
    const Core::Strum& chord = now.Strum.Hash == 1 ? lastChord : now.Strum;
    std::size_t slot = 0;
    for (const Playback::Struck& key : Playback::SymbolSounds(track, chord)) {
        if (key.Dead) {
            PlayDead(now.Start, track.Channel);
        } else {
            End(symbol.at(slot), now.Start);
            Strike(symbol.at(slot++), now.Start, track.Channel, key.Pitch, key.Velocity);
        }
    }
}

void MidiVoice::PlayDrums(const Now& now) {
    for (int string = 0; string < strings; ++string) {
        const Core::Note& note = now.Strum.Notes[string];
        Playback::Skipping([&] {
            const auto pitch = Playback::DrumPitch(track, string, note.Fret);
            if (!pitch) return;
            Held sounding;
            sounding.String = string;
            Strike(sounding, now.Start, Playback::PercussionChannel, *pitch, Playback::getVolume(track, note));
            End(sounding, now.End);
        });
    }
}

void MidiVoice::PlayString(const Now& now, int string) {
    const Core::Note& note = now.Strum.Notes[string];
    if (note.Fret == Playback::DeadFret) return PlayDead(now.Start, now.Channel);
    if (!Playback::IsNumeric(note.Fret)) return;
    Held& sounding = held[static_cast<std::size_t>(string)];
    sounding.String = string;
    sounding.Fret = note.Fret;
    sounding.Tied = note.Tied;
    sounding.Rings = note.LetRing;
    if (note.HasTrill) return PlayTrill(now, string);
    if (note.HasGrace) return PlayGrace(now, string);
    if (note.Technique >= Core::TremoloPicking8ths && note.Technique <= Core::TremoloPicking32nds) {
        return PlayPicking(now, string);
    }
    if (note.Technique == Core::LegatoSlide) return PlaySlide(now, string);
    if (note.HasBend) return PlayBend(now, string);
    PlayPlain(now, string, now.Start);
}

void MidiVoice::PlayPlain(const Now& now, int string, double start) {
    const Core::Note& note = now.Strum.Notes[string];
    Held& sounding = held[static_cast<std::size_t>(string)];
    if (!sounding.GoesOn) {
        const double pitch = Core::OpenPitch(track, string) + Playback::ValueOf(note.Fret) + octave;
        const double velocity = Playback::getVolume(track, note);
        for (const Playback::Struck& key : Playback::HarmonicSounds(pitch, note.Harmonic, velocity)) {
            Strike(sounding, start, now.Channel, key.Pitch, key.Velocity);
        }
    }
    if (note.Technique == Core::Staccato || now.Strum.Technique == Core::PalmMute) {
        End(sounding, std::min(start + 1, now.End));
    }
}

}  // namespace Quillon::Exchange
