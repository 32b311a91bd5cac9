#include "exchange/AlignedImport.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "exchange/AlignedTrack.h"
#include "exchange/MidiGrid.h"
#include "exchange/MidiScore.h"
#include "exchange/TrackBars.h"
#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

using Core::TabFile;

namespace {

constexpr double UsualTempo = 120;

/// In hundredths, as a file's microseconds are rounded themselves.
double RoundTempo(double tempo) {
    constexpr double Hundredths = 100;
    return std::max(Core::RoundHalfEven(tempo * Hundredths) / Hundredths, 1 / Hundredths);
}

/// The document's number of a key signature: 0 is none, then C and one to seven sharps, then one to five flats.
std::int32_t KeyNumber(int sharps) {
    constexpr int MostFlats = 5;
    constexpr int Circle = 12;
    if (sharps < -MostFlats) sharps += Circle;
    return sharps >= 0 ? sharps + 1 : 8 - sharps;
}

void WriteBarInfos(TabFile& file, const MidiGrid& grid) {
    const auto& bars = grid.Bars();
    file.BarInfos.Resize(1);
    file.BarInfos.Resize(static_cast<int>(bars.size()));
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        file.BarInfos.Edit(bar) = {.TimeSigTop = bars[bar].Top, .TimeSigBottom = bars[bar].Bottom};
    }
}

/// A key signature holds from the bar line that it stands at, or the next.
void WriteKeys(TabFile& file, const MidiGrid& grid, const MidiScore& score) {
    std::size_t next = 0;
    for (std::size_t bar = 0; bar < grid.Bars().size(); ++bar) {
        const std::int64_t line = grid.Bars()[bar].Start + UnitsPer64th;
        while (next < score.Keys.size() && grid.PlaceOf(score.Keys[next].Tick) <= line) ++next;
        if (next == 0) continue;
        for (Core::Track& track : file.Tracks) {
            track.Bars.Edit(bar).Key = KeyNumber(score.Keys[next - 1].Sharps);
            track.Bars.Edit(bar).KeyIsMinor = score.Keys[next - 1].Minor;
        }
    }
}

void NameTrack(Core::Track& track, const MidiPart& part, bool sharesTrack) {
    const std::string program = Core::InstrumentNames()[static_cast<std::size_t>(part.Program)];
    track.Instrument = static_cast<std::int16_t>(part.Program);
    track.InstrumentName = part.Instrument.empty() ? program : part.Instrument;
    track.Channel = static_cast<std::int16_t>(part.Channel);
    track.EffectChannel = static_cast<std::int16_t>(part.EffectChannel);
    const std::string own = part.IsDrum ? "Drums" : program;
    track.Name = part.Name.empty() ? own : sharesTrack ? part.Name + " - " + own : part.Name;
}

/// Writes tempo changes as texts of strums, which the player reads: each on the strum nearest to it, of the first track
/// that has one there.
class TempoTexts {
public:
    TempoTexts(TabFile& into, const std::vector<std::vector<StrumStart>>& of) : file(into), starts(of) {}

    void Write(std::int64_t place, double tempo, ImportReport& report) {
        int track = -1;
        const StrumStart* nearest = nullptr;
        constexpr std::size_t MostTracks = 16;  // where to look for a strum
        for (std::size_t t = 0; t < std::min(starts.size(), MostTracks); ++t) {
            const StrumStart* const found = Nearest(starts[t], place);
            if (!found || (nearest && std::abs(found->Place - place) >= std::abs(nearest->Place - place))) continue;
            nearest = found;
            track = static_cast<int>(t);
        }
        if (!nearest) return;
        std::string& text = file.Tracks[track].Bars.Edit(nearest->Bar).EditStrums()[nearest->Strum].Text;
        const std::string number = Core::FormatDouble(tempo);
        if (!text.empty())
            report.Add({ImportFate::Lost, 0, track, nearest->Bar, 0, "str_ImportTempo", {text.substr(2)}});
        text = "t=" + number;
    }

private:
    static const StrumStart* Nearest(const std::vector<StrumStart>& list, std::int64_t place) {
        const auto behind = std::ranges::lower_bound(list, place, {}, &StrumStart::Place);
        if (list.empty()) return nullptr;
        if (behind == list.end()) return &list.back();
        if (behind == list.begin()) return &*behind;
        const auto before = std::prev(behind);
        return place - before->Place < behind->Place - place ? &*before : &*behind;
    }

    TabFile& file;
    const std::vector<std::vector<StrumStart>>& starts;
};

void WriteTempos(TabFile& file, const MidiGrid& grid, const MidiScore& score,
                 const std::vector<std::vector<StrumStart>>& starts, ImportReport& report) {
    double tempo = UsualTempo;
    TempoTexts texts(file, starts);
    bool isFirst = true;
    for (const MidiScore::Tempo& change : score.Tempos) {
        const double now = RoundTempo(change.QuartersPerMinute);
        const std::int64_t place = grid.PlaceOf(change.Tick);
        if (isFirst && place < UnitsPerBeat) {
            tempo = now;
            file.Tempo = static_cast<float>(now);
        } else if (now != tempo) {
            texts.Write(place, now, report);
            tempo = now;
        }
        isFirst = false;
    }
}

/// Puts the parts in tracks from `first` on. False when it was ended.
bool WriteTracks(TabFile& file, int first, const MidiGrid& grid, const MidiScore& score,
                 const MidiImportOptions& options, ImportReport& report, const ImportProgress& progress,
                 std::vector<std::vector<StrumStart>>& starts) {
    AlignedRoom room;
    std::map<int, int> partsOfTrack;
    for (const MidiPart& part : score.Parts) ++partsOfTrack[part.Track];
    file.Tracks.Resize(Core::ToInt16(first + std::ssize(score.Parts)));
    for (std::size_t index = 0; index < score.Parts.size(); ++index) {
        const MidiPart& part = score.Parts[index];
        const int number = first + static_cast<int>(index);
        AlignedTrack made = AlignPart(grid, part, number, room, report);
        NameTrack(made.Track, part, partsOfTrack[part.Track] > 1);
        made.Track.Reverb = options.Reverb;
        file.Tracks[number] = std::move(made.Track);
        starts.push_back(std::move(made.Starts));
        constexpr int BeforeThem = 20;  // percent
        const auto parts = static_cast<int>(score.Parts.size());
        if (progress && !progress(BeforeThem + (99 - BeforeThem) * (static_cast<int>(index) + 1) / parts)) return false;
    }
    if (grid.BarsCut() > 0) {
        report.Add({ImportFate::Moved, 0, -1, -1, 0, "str_ImportBarsCut", {std::to_string(grid.BarsCut())}});
    }
    if (score.Texts > 0) {
        report.Add({ImportFate::Lost, 0, -1, -1, 0, "str_ImportTexts", {std::to_string(score.Texts)}});
    }
    report.Tracks = static_cast<int>(score.Parts.size());
    return true;
}

MidiScore ReadParts(const SmfFile& midi, const MidiImportOptions& options) {
    MidiScore score = ReadMidiScore(midi, options.Tracks);
    if (score.Parts.empty()) score.Parts.emplace_back();
    return score;
}

}  // namespace

bool ImportAligned(TabFile& file, const SmfFile& midi, const std::string& title, const MidiImportOptions& options,
                   ImportReport& report, const ImportProgress& progress) {
    report = {};
    const MidiScore score = ReadParts(midi, options);
    if (progress && !progress(0)) return false;
    const MidiGrid grid(score, static_cast<int>(score.Parts.size()));
    file.Title = title;
    file.Tempo = static_cast<float>(UsualTempo);
    WriteBarInfos(file, grid);
    std::vector<std::vector<StrumStart>> starts;
    file.Tracks.Resize(0);
    if (!WriteTracks(file, 0, grid, score, options, report, progress, starts)) return false;
    CheckStrums(file);
    WriteKeys(file, grid, score);
    WriteTempos(file, grid, score, starts, report);
    report.Bars = file.BarInfos.Count();
    return true;
}

bool AddAlignedTrack(TabFile& file, const SmfFile& midi, const MidiImportOptions& options, ImportReport& report,
                     const ImportProgress& progress) {
    report = {};
    if (options.Tracks.size() != 1) RaiseSubscriptOutOfRange();
    MidiScore score = ReadParts(midi, options);
    // The bars of the document hold, to its end and beyond.
    score.Signatures.clear();
    double quarters = 0;
    for (const Core::BarInfo& info : file.BarInfos) {
        const auto tick = static_cast<std::int64_t>(Core::RoundHalfEven(quarters * score.TicksPerQuarter));
        score.Signatures.push_back({tick, info.TimeSigTop, info.TimeSigBottom});
        quarters += 4.0 * info.TimeSigTop / std::max(info.TimeSigBottom, 1);
    }
    score.End = std::max(score.End, static_cast<std::int64_t>(quarters * score.TicksPerQuarter));
    const MidiGrid grid(score, file.Tracks.Count() + static_cast<int>(score.Parts.size()));
    std::vector<std::vector<StrumStart>> starts;
    if (!WriteTracks(file, file.Tracks.Count(), grid, score, options, report, progress, starts)) return false;
    if (!EvenOutBars(file, true, progress)) return false;
    CheckStrums(file);
    report.Bars = file.BarInfos.Count();
    return true;
}

}  // namespace Quillon::Exchange
