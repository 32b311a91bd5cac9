// The player's arithmetic: lengths, tempos, velocities, and where the signs stand.
#include <algorithm>
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "playback/PlayScore.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Playback {

using Core::RoundHalfEven;
using Core::TabFile;
using Core::Track;

double GetNumOf64ths(int duration, int tuplet, bool hasTuplet, bool dotted) {
    return Core::StrumLength(duration, tuplet, hasTuplet, dotted);
}

std::int16_t GetMetronomeInterval(const Core::BarInfo& info, std::int32_t tickInterval, bool wantBeats) {
    constexpr std::int32_t Denominators[] = {1, 2, 4, 8, 16, 32};
    const bool topListed = info.TimeSigTop >= 1 && info.TimeSigTop <= 32;
    const std::int32_t numerator = topListed ? info.TimeSigTop : 4;
    if (wantBeats) return Core::ToInt16(numerator);
    const bool bottomListed = std::ranges::find(Denominators, info.TimeSigBottom) != std::end(Denominators);
    const std::int32_t denominator = bottomListed ? info.TimeSigBottom : 4;
    constexpr double Longest = 32767;
    const double interval = static_cast<double>(denominator) / numerator * tickInterval * 16;
    return Core::CInt(std::min(interval, Longest));
}

namespace {

std::int16_t FirstBarWith(const TabFile& file, std::int16_t Core::BarInfo::*mark) {
    for (int bar = 0; bar <= file.BarInfos.UpperBound(); ++bar) {
        if (file.BarInfos[bar].*mark != 0) return Core::ToInt16(bar);
    }
    return 0;
}

bool AnyNote(const Track& track, const Core::Strum& strum, bool Core::Note::*flag) {
    for (int string = 0; string < StringsInUse(track); ++string) {
        if (strum.Notes[string].*flag) return true;
    }
    return false;
}

}  // namespace

std::int16_t GetSignLocation(const TabFile& file) { return FirstBarWith(file, &Core::BarInfo::Segno); }

std::int16_t GetCodaLocation(const TabFile& file) { return FirstBarWith(file, &Core::BarInfo::CodaMark); }

int GetOctaveShift(const Track& track) { return track.OctaveDown ? -12 : track.OctaveUp ? 12 : 0; }

std::int16_t getVolume(const Track& track, const Core::Note& note) {
    constexpr int Loudness[] = {4, 5, 6, 7, 3, 2, 1, 0};  // of MF F FF FFF MP P PP PPP
    constexpr double Loudest = 127;
    const double base = RoundHalfEven(track.Volume / 50.0 * 63.5);
    const int loudness = note.Dynamic >= 0 && note.Dynamic <= 7 ? Loudness[note.Dynamic] : 0;
    const double velocity = std::min(RoundHalfEven(loudness / 7.0 * 63.5 + base), Loudest);
    return Core::CInt(note.Ghost ? velocity / 2 : velocity);
}

bool IsTie(const Track& track, const Core::Strum& strum) { return AnyNote(track, strum, &Core::Note::Tied); }

bool IsRing(const Track& track, const Core::Strum& strum) { return AnyNote(track, strum, &Core::Note::LetRing); }

int TrackWithMostStrumsOnBar(const TabFile& file, int bar) {
    int most = 0;
    int strums = -1;
    for (int track = 0; track <= file.Tracks.UpperBound(); ++track) {
        const Core::Bar* const found = FindBar(file, track, bar);
        if (!found || found->Strums().Count() <= strums) continue;
        most = track;
        strums = found->Strums().Count();
    }
    return most;
}

double TempoOfText(std::string_view text) {
    constexpr std::string_view Mark = "t=";
    if (text.size() < Mark.size()) return 0;
    std::string rest = Core::LowerAscii(text);
    if (rest.find(Mark) == std::string::npos) return 0;
    std::erase(rest, ' ');
    for (auto at = rest.find(Mark); at != std::string::npos; at = rest.find(Mark, at)) rest.erase(at, Mark.size());
    const double tempo = IsNumeric(rest) ? ValueOf(rest) : 0;
    return tempo > 0 ? tempo : 0;
}

}  // namespace Quillon::Playback
