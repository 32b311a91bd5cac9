#include "exchange/MidiExport.h"

#include <algorithm>
#include <bit>
#include <map>
#include <vector>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/MidiTimeline.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "playback/BarWalk.h"
#include "playback/MIDI_CMD.h"
#include "playback/PlayScore.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Exchange {

using Core::TabFile;
using Core::Track;

namespace {

/// A bar as it is played, in 64ths from the start of the song.
struct PlayedBar {
    int Bar = 0;
    double Start = 0;
    double End = 0;
};

std::vector<PlayedBar> PlayedBars(const TabFile& file) {
    std::vector<PlayedBar> bars;
    const Track& conductor = file.Tracks[file.Tracks.UpperBound()];
    double at = 0;
    for (const int bar : Playback::BarsInPlayingOrder(file, MostExportedBars).Bars) {
        const Core::Bar* const played = bar <= conductor.Bars.UpperBound() ? &conductor.Bars[bar] : nullptr;
        if (!played) break;  // nobody would move the bar on
        const double end = at + Core::BarLength64ths(*played);
        bars.push_back({bar, at, end});
        at = end;
    }
    return bars;
}

double SongEnd(const std::vector<PlayedBar>& bars) { return bars.empty() ? 0 : bars.back().End; }

/// Calls `visit(strum's place, start, end)` for each strum of a track that is played.
template <class Visit>
void ForEachStrum(const TabFile& file, int track, const PlayedBar& played, const Visit& visit) {
    const Core::Bar* const bar = Playback::FindBar(file, track, played.Bar);
    if (!bar) return;
    double start = played.Start;
    for (int strum = 0; strum <= bar->Strums().UpperBound() && start < played.End; ++strum) {
        const double end = start + Core::StrumLength(bar->Strums()[strum]);
        visit(Playback::StrumPlace{track, played.Bar, strum}, start, std::min(end, played.End));
        start = end;
    }
}

std::string TempoBytes(double tempo) {
    constexpr double MicrosecondsOfMinute = 60'000'000;
    constexpr double Slowest = 0xFFFFFF;  // of three bytes
    const double quarter = tempo > 0 ? std::clamp(MicrosecondsOfMinute / tempo, 1.0, Slowest) : Slowest;
    const auto microseconds = static_cast<std::uint32_t>(Core::RoundHalfEven(quarter));
    std::string bytes;
    for (int shift = 16; shift >= 0; shift -= 8) bytes += static_cast<char>(microseconds >> shift & 0xFFU);
    return bytes;
}

/// The song's tempo and what its tempo texts set, of several at one tick the last track's.
std::vector<SmfEvent> TempoTrack(const TabFile& file, const std::vector<PlayedBar>& bars) {
    struct Mark {
        double Place, Tempo;
    };
    std::map<std::int64_t, Mark> marks{{0, {0, file.Tempo}}};  // by tick
    for (const PlayedBar& played : bars) {
        for (int track = 0; track <= file.Tracks.UpperBound(); ++track) {
            ForEachStrum(file, track, played, [&](const Playback::StrumPlace& place, double start, double) {
                const double tempo = Playback::TempoOfText(Playback::FindStrum(file, place)->Text);
                if (tempo > 0) marks[MidiTick(start)] = {start, tempo};
            });
        }
    }
    MidiTimeline timeline;
    for (const auto& [tick, mark] : marks) timeline.Meta(mark.Place, SmfTempo, TempoBytes(mark.Tempo));
    return timeline.Events(0);
}

std::string SignatureBytes(const Core::BarInfo& info) {
    constexpr char ClocksOfQuarter = 24;
    constexpr char ThirtySecondsOfQuarter = 8;
    const auto bottom = static_cast<std::uint32_t>(std::max(info.TimeSigBottom, 1));
    std::string bytes(1, static_cast<char>(std::clamp(info.TimeSigTop, 1, 255)));
    bytes += static_cast<char>(std::bit_width(bottom) - 1);
    return bytes + ClocksOfQuarter + ThirtySecondsOfQuarter;
}

std::vector<SmfEvent> TrackEvents(const TabFile& file, int number, const std::vector<PlayedBar>& bars,
                                  const MidiExportOptions& options) {
    const Track& track = file.Tracks[number];
    MidiTimeline notes;
    MidiVoice voice(track, options, notes);
    std::string signature = SignatureBytes(file.BarInfos[0]);
    for (const PlayedBar& played : bars) {
        const std::string now = SignatureBytes(file.BarInfos[played.Bar]);
        if (now != signature) notes.Meta(played.Start, SmfTimeSignature, now);
        signature = now;
        ForEachStrum(file, number, played, [&](const Playback::StrumPlace& place, double start, double end) {
            voice.Play(*Playback::FindStrum(file, place), start, end, Playback::PreviousStrum(file, place),
                       Playback::NextStrum(file, place));
        });
    }
    voice.Finish(SongEnd(bars));
    notes.AddFingering(SongEnd(bars), track);

    MidiTimeline head;
    const int channel = track.IsDrum ? Playback::PercussionChannel : track.Channel;
    head.Program(0, channel, track.Instrument);
    head.Meta(0, SmfTrackName, Core::ToWindows1252(track.Name));
    head.Meta(0, SmfTimeSignature, SignatureBytes(file.BarInfos[0]));
    const bool effects = !track.IsDrum && track.EffectChannel != track.Channel && notes.Uses(track.EffectChannel);
    if (effects) head.Program(0, track.EffectChannel, track.Instrument);
    std::vector<SmfEvent> events = head.Events(0);
    events.pop_back();  // its end
    for (SmfEvent& event : notes.Events(SongEnd(bars))) events.push_back(std::move(event));
    return events;
}

}  // namespace

SmfFile MidiOfDocument(const TabFile& file, const MidiExportOptions& options) {
    const std::vector<PlayedBar> bars = PlayedBars(file);
    SmfFile midi;
    midi.TicksPerQuarter = MidiTicksPerQuarter;
    midi.Tracks.push_back(TempoTrack(file, bars));
    for (int track = 0; track <= file.Tracks.UpperBound(); ++track) {
        midi.Tracks.push_back(TrackEvents(file, track, bars, options));
    }
    return midi;
}

MidiExportOptions MidiOptionsOfSettings() {
    return {Core::Settings.BendCoefficient, Core::Settings.VibratoBend, Core::Settings.WideVibratoBend,
            Core::Settings.VibratoCount};
}

void ExportMidi(const std::filesystem::path& path) {
    Services.Files->Replace(path, WriteSmf(MidiOfDocument(Core::Open.TabFile, MidiOptionsOfSettings())));
}

}  // namespace Quillon::Exchange
