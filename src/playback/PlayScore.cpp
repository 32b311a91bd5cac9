#include "playback/PlayScore.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/mod_Common.h"

namespace Quillon::Playback {

using Core::Bar;
using Core::Strum;
using Core::TabFile;

namespace {

template <class List>
bool Holds(const List& list, int index) {
    return index >= 0 && index <= list.UpperBound();
}

}  // namespace

const Bar* FindBar(const TabFile& file, int track, int bar) {
    if (!Holds(file.Tracks, track) || !Holds(file.Tracks[track].Bars, bar)) return nullptr;
    return &file.Tracks[track].Bars[bar];
}

const Strum* FindStrum(const TabFile& file, const StrumPlace& place) {
    const Bar* const bar = FindBar(file, place.Track, place.Bar);
    if (!bar || !Holds(bar->Strums(), place.Strum)) return nullptr;
    return &bar->Strums()[place.Strum];
}

const Core::BarInfo* FindBarInfo(const TabFile& file, int bar) {
    return Holds(file.BarInfos, bar) ? &file.BarInfos[bar] : nullptr;
}

const Strum* PreviousStrum(const TabFile& file, const StrumPlace& place) {
    if (place.Strum > 0) return FindStrum(file, {place.Track, place.Bar, place.Strum - 1});
    if (place.Strum < 0) return nullptr;
    const Bar* const before = FindBar(file, place.Track, place.Bar - 1);
    return before ? &before->Strums()[before->Strums().UpperBound()] : nullptr;
}

const Strum* NextStrum(const TabFile& file, const StrumPlace& place) {
    const Bar* const bar = FindBar(file, place.Track, place.Bar);
    if (!bar) return nullptr;
    if (place.Strum < bar->Strums().UpperBound()) return FindStrum(file, {place.Track, place.Bar, place.Strum + 1});
    return FindStrum(file, {place.Track, place.Bar + 1, 0});
}

int StringsInUse(const Core::Track& track) { return std::clamp<int>(track.Strings, 0, Core::StringCount); }

namespace {

/// Frets are figures nearly always: this keeps the tick from the general reader.
bool ReadFigures(std::string_view text, int& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size();
}

}  // namespace

bool IsNumeric(const std::string& text) {
    int figures = 0;
    if (ReadFigures(text, figures)) return true;
    if (Core::TrimBlanks(text).empty() || text == "x") return false;
    bool numeric = false;
    Skipping([&] { numeric = std::isfinite(Core::ParseDouble(text)); });
    return numeric;
}

double ValueOf(const std::string& text) {
    int figures = 0;
    if (ReadFigures(text, figures)) return figures;
    double value = 0;
    Skipping([&] { value = Core::ParseDouble(text); });
    return value;
}

std::string TextOf(double number) { return Core::FormatDouble(number); }

std::string PitchText(const Core::Track& track, const Core::Note& note, int string) {
    if (!IsNumeric(note.Fret)) return "";
    return TextOf(Core::OpenPitch(track, string) + ValueOf(note.Fret));
}

}  // namespace Quillon::Playback
