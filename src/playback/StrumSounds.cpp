#include "playback/StrumSounds.h"

#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "playback/MIDI_CMD.h"
#include "playback/PlayScore.h"

namespace Quillon::Playback {

std::vector<Struck> HarmonicSounds(double pitch, std::int32_t harmonic, double velocity) {
    const int written = Core::ToInt16(Core::CLng(std::trunc(pitch)));
    if (harmonic == Core::SemiHarmonic) {
        const std::int16_t softer = Core::CInt(velocity / 1.2);
        return {{Core::ToInt16(written + 12), softer}, {Core::ToInt16(written), softer}};
    }
    const bool octave = harmonic >= Core::ArtificialHarmonic12 && harmonic <= Core::PitchHarmonic;
    const int higher = octave                                  ? 12
                       : harmonic == Core::ArtificialHarmonic5 ? 19
                       : harmonic == Core::ArtificialHarmonic7 ? 24
                                                               : 0;
    return {{Core::ToInt16(written + higher), Core::CInt(velocity)}};
}

std::vector<Struck> SymbolSounds(const Core::Track& track, const Core::Strum& chord) {
    std::vector<Struck> struck;
    if (!chord.HasChord) return struck;
    // The strings of the chord; one without a count may use all.
    const bool counted = chord.ChordValueB >= 1 && chord.ChordValueB <= Core::StringCount;
    const int strings = counted ? chord.ChordValueB : Core::StringCount;
    for (int string = 0; string < strings; ++string) {
        const std::string& fret = chord.ChordFrets.Read()[string];
        const std::int16_t mark = chord.ChordMarks.Read()[string];
        const int open = mark != 0 ? mark : Core::DefaultStringPitch(string);
        Skipping([&] {
            const std::int16_t velocity = Core::CInt(track.Volume / 50.0 * 127);  // limited by the device alone
            if (IsNumeric(fret)) struck.push_back({Core::CInt(ValueOf(fret) + open), velocity});
            if (fret == DeadFret) struck.push_back({Core::ToInt16(open), velocity, true});
        });
    }
    return struck;
}

std::optional<std::int16_t> DrumPitch(const Core::Track& track, int string, const std::string& letter) {
    for (const Core::PercussionLetter& each : Core::PercussionLetters()) {
        if (letter != each.Letter) continue;
        const std::int16_t sound = track.PercStrings[string].*each.Sound;
        if (sound == 0) return {};
        return Core::ToInt16(sound + DrumPitchBase);
    }
    return {};
}

std::int16_t GraceVelocity(const Core::Track& track, std::int32_t dynamic) {
    constexpr double Values[] = {90, 100, 110, 127, 80, 70, 60, 50};  // of MF F FF FFF MP P PP PPP at full volume
    const double value = dynamic >= 0 && dynamic <= 7 ? Values[dynamic] : 0;
    return Core::CInt(track.Volume / 50.0 * (value / 127) * 127);
}

int GraceLength(std::int32_t duration) { return duration == 0 ? 4 : duration == 1 ? 2 : duration == 2 ? 1 : 0; }

std::optional<SlideRun> SlideOf(const Core::Track& track, const Core::Note& from, const Core::Strum* next, int string) {
    const std::string fromText = PitchText(track, from, string);
    const std::string toText = next ? PitchText(track, next->Notes[string], string) : "";
    if (fromText.empty() || toText.empty()) return {};
    // Both flags count here, one after the other, unlike elsewhere.
    const int shift = (track.OctaveDown ? -12 : 0) + (track.OctaveUp ? 12 : 0);
    const double start = ValueOf(fromText) + shift;
    const double to = ValueOf(toText) + shift;
    const double steps = std::abs(Core::RoundHalfEven(to - start));
    // Compared as texts: "100" sorts below "98", and such a slide goes down. This is meant.
    return SlideRun{start, Core::CLng(steps), TextOf(to) > TextOf(start)};
}

int StrokeSpeed(std::int32_t rate) {
    constexpr int Speeds[] = {8, 4, 2};
    return rate >= 0 && rate <= 2 ? Speeds[rate] : 0;
}

}  // namespace Quillon::Playback
