// The effects of a note or a strum as runs of notes or of wheel events.
#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/MidiVoiceParts.h"
#include "playback/MIDI_CMD.h"
#include "playback/PlayScore.h"
#include "playback/StrumSounds.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Exchange {

namespace {

/// Wheel events evenly over a strum, as far as it lasts, and the wheel's rest at its end.
template <class Height>
void SwingWheel(MidiTimeline& timeline, double start, double end, double apart, int count, int channel,
                const Height& height) {
    for (int k = 0; k < count && start + k * apart < end; ++k) timeline.Wheel(start + k * apart, channel, height(k));
    timeline.Wheel(end, channel, Playback::WheelCentre);
}

}  // namespace

double MidiVoice::Now::Length() const { return Core::StrumLength(Strum); }
double MidiVoice::Now::Strum64() const { return Core::RoundHalfEven(Length()); }

bool MidiVoice::StepTo(const Now& now, int string, double at, int key) {
    Held& sounding = held[static_cast<std::size_t>(string)];
    const bool tooSoon = !sounding.Keys.empty() && MidiTick(at) <= sounding.Since;
    if (tooSoon || MidiTick(at) >= MidiTick(now.End)) return false;
    for (const int each : sounding.Keys) timeline.NoteOff(at, sounding.Channel, each);
    sounding.Keys.clear();
    Strike(sounding, at, track.EffectChannel, key, Playback::getVolume(track, now.Strum.Notes[string]));
    return true;
}

void MidiVoice::PlayRun(const Now& now, int string, const std::vector<int>& keys, double apart) {
    for (std::size_t k = 0; k < keys.size(); ++k) {
        if (!StepTo(now, string, now.Start + static_cast<double>(k) * apart, keys[k])) break;
    }
}

void MidiVoice::PlayTrill(const Now& now, int string) {
    const Core::Note& note = now.Strum.Notes[string];
    const int speed = Playback::StrokeSpeed(note.TrillPeriod);
    if (speed == 0) return;
    // From the standard pitch, as the player trills: the track's tuning is not applied.
    const double open = Core::DefaultStringPitch(string) + octave;
    const int pitches[] = {Core::CInt(open + Playback::ValueOf(note.Fret)), Core::CInt(open + note.TrillFret)};
    std::vector<int> keys(static_cast<std::size_t>(Core::CLng(2 * (now.Strum64() / speed))));
    for (std::size_t k = 0; k < keys.size(); ++k) keys[k] = pitches[k % 2];
    PlayRun(now, string, keys, speed / 2.0);
}

void MidiVoice::PlayPicking(const Now& now, int string) {
    const Core::Note& note = now.Strum.Notes[string];
    const int speed = Playback::StrokeSpeed(note.Technique - Core::TremoloPicking8ths);
    const int key = Core::CInt(Core::OpenPitch(track, string) + Playback::ValueOf(note.Fret) + octave);
    PlayRun(now, string, std::vector(static_cast<std::size_t>(Core::CLng(now.Strum64() / speed)), key), speed);
}

void MidiVoice::PlaySlide(const Now& now, int string) {
    const Core::Note& note = now.Strum.Notes[string];
    const auto run = Playback::SlideOf(track, note, now.Next, string);
    Now onEffectChannel = now;
    onEffectChannel.Channel = track.EffectChannel;
    PlayPlain(onEffectChannel, string, now.Start);
    // As the player slides: a semitone short of the aim, which the next strum strikes.
    if (!run || run->Steps < 2) return;
    constexpr double Haste = 1.2;
    const double apart = now.Length() / (run->Steps * Haste);
    for (int k = 1; k < run->Steps; ++k) {
        StepTo(now, string, now.Start + k * apart, Core::CInt(run->From + (run->Up ? k : -k)));
    }
}

void MidiVoice::PlayBend(const Now& now, int string) {
    Now onEffectChannel = now;
    onEffectChannel.Channel = track.EffectChannel;
    PlayPlain(onEffectChannel, string, now.Start);
    const auto& curve = now.Strum.Notes[string].BendPoints.Read();
    SwingWheel(timeline, now.Start, now.End, now.Length() / Core::BendPointCount, Core::BendPointCount,
               track.EffectChannel, [&](int k) { return options.BendCoefficient * curve[k] + Playback::WheelCentre; });
}

void MidiVoice::PlayWheel(const Now& now) {
    const Core::Strum& strum = now.Strum;
    if (strum.Technique == Core::Vibrato || strum.Technique == Core::WideVibrato) {
        const double depth = strum.Technique == Core::WideVibrato ? options.WideVibratoBend : options.VibratoBend;
        const int count = std::max(options.VibratoCount, 0);
        SwingWheel(timeline, now.Start, now.End, now.Length() / std::max(count, 1), count, track.EffectChannel,
                   [&](int k) { return Playback::VibratoCentre + (k % 2 == 0 ? -depth : depth); });
        return;
    }
    const auto& curve = strum.TremPoints.Read();
    SwingWheel(timeline, now.Start, now.End, now.Length() / Core::TremPointCount, Core::TremPointCount,
               track.EffectChannel, [&](int k) { return options.BendCoefficient * curve[k] + Playback::WheelCentre; });
}

void MidiVoice::PlayGrace(const Now& now, int string) {
    const Core::Note& note = now.Strum.Notes[string];
    const bool dead = note.GraceFret == Playback::DeadFret;
    const double room = (now.End - now.Start) / 2;
    const double length = std::min<double>(Playback::GraceLength(note.GraceDuration), room);
    const std::int64_t mainTick = MidiTick(now.Start + length);
    const bool fits = mainTick > MidiTick(now.Start) && mainTick < MidiTick(now.End);
    if (!fits || (!dead && !Playback::IsNumeric(note.GraceFret))) return PlayPlain(now, string, now.Start);
    Held& sounding = held[static_cast<std::size_t>(string)];
    for (const int key : sounding.Keys) timeline.NoteOff(now.Start, sounding.Channel, key);
    sounding.Keys.clear();
    sounding.GoesOn = false;
    // On the notes' own channel, as the player sounds it: it is to keep clear of the wheel.
    if (dead) {
        PlayDead(now.Start, track.Channel);
    } else {
        const double pitch = Core::OpenPitch(track, string) + octave + Playback::ValueOf(note.GraceFret);
        Held grace;
        grace.String = string;
        Strike(grace, now.Start, track.Channel, Core::CInt(pitch), Playback::GraceVelocity(track, note.GraceDynamic));
        for (const int key : grace.Keys) timeline.NoteOff(now.Start + length, grace.Channel, key);
    }
    PlayPlain(now, string, now.Start + length);
}

}  // namespace Quillon::Exchange
