#include "exchange/MidiImport.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "exchange/DrumLetters.h"
#include "exchange/MidiScore.h"
#include "exchange/NoteValues.h"
#include "exchange/TrackBars.h"
#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

using Core::TabFile;
using Core::Track;

namespace {

constexpr int HighestFret = 29;
constexpr int FirstDrumNote = 34;  ///< sound 1 is the note above it

TimeSignature FileTimeSignature(SmfCursor& cursor) {
    TimeSignature found;
    cursor.SetTrackNumber(1);
    for (int event = 1; event <= cursor.NumberOfEvents(); ++event) {
        cursor.SetEventNumber(event);
        if (!cursor.IsMeta(SmfTimeSignature)) continue;
        found.Top = cursor.Numerator() == 0 ? 4 : cursor.Numerator();
        // The power stands for the value shown, not for an exponent: what readers of these files expect.
        switch (cursor.DenominatorPower()) {
            case 1:
                found.Bottom = 2;
                break;
            case 4:
                found.Bottom = 8;
                break;
            case 8:
                found.Bottom = 16;
                break;
            case 16:
                found.Bottom = 32;
                break;
            default:
                found.Bottom = 4;
                break;
        }
    }
    return found;
}

float FileTempo(SmfCursor& cursor) {
    constexpr float Usual = 120;
    constexpr int MicrosecondsOfMinute = 60'000'000;
    cursor.SetTrackNumber(1);
    for (int event = 1; event <= cursor.NumberOfEvents(); ++event) {
        cursor.SetEventNumber(event);
        if (!cursor.IsMeta(SmfTempo)) continue;
        return cursor.Tempo() == 0 ? Usual : static_cast<float>(MicrosecondsOfMinute / cursor.Tempo());
    }
    return Usual;
}

/// Text of the first such event of the cursor's track; nothing without one.
std::optional<std::string> FirstText(SmfCursor& cursor, SmfMeta type) {
    for (int event = 1; event <= cursor.NumberOfEvents(); ++event) {
        cursor.SetEventNumber(event);
        if (cursor.IsMeta(type)) return MidiText(cursor.Text());
    }
    return {};
}

/// The list entry of the cursor's track.
std::string EntryOf(SmfCursor& cursor) {
    const auto name = FirstText(cursor, SmfTrackName);
    if (name && !name->empty()) return *name;
    return "Track " + std::to_string(cursor.TrackNumber()) + (name ? " (null)" : "");
}

/// The dynamic of a velocity.
std::int32_t DynamicOf(int velocity) {
    const double loudness = Core::RoundHalfEven(velocity / 127.0 * 50);
    std::int32_t dynamic = 7;
    for (const auto& [least, code] : {std::pair{7, 6}, {14, 5}, {21, 4}, {28, 0}, {35, 1}, {42, 2}, {45, 3}}) {
        if (loudness >= least) dynamic = code;
    }
    return dynamic;
}

/// Walks one MIDI track and writes one track of the document, whose bars grow as it goes.
class TrackWriter {
public:
    TrackWriter(TabFile& into, int number, const MidiImportOptions& how, ImportReport* to)
        : file(into), target(number), options(how), report(to) {}

    /// A quarter note or a note of any length ends where this one starts, so many 64ths behind the start before.
    void Advance(double time) {
        wanted += time;
        if (options.Quantize) time = std::floor(time);
        while (time >= ShortestValue - Tolerance) {
            if (Room() < ShortestValue - Tolerance) {
                NextBar();
                continue;
            }
            const NoteValue& value = LargestValue(std::min({time, Room(), Capacity()}));
            time -= value.Length;
            Close(value);
        }
    }

    void PlacePitch(int pitch, int velocity, int channel) {
        for (int string = 0; string < Core::StringCount; ++string) {
            if (!Current().Notes[string].Fret.empty()) continue;
            const int fret = pitch - Core::OpenPitch(Target(), string);
            if (fret >= 0 && fret <= HighestFret) {
                Core::Note& note = Current().Notes.Edit(string);
                note.Fret = std::to_string(fret);
                note.Dynamic = DynamicOf(velocity);
                Target().Channel = Target().EffectChannel = static_cast<std::int16_t>(channel);
                if (string == Core::StringCount - 1) Target().Strings = Core::StringCount;
                return Keep();
            }
            if (fret < 0 && string == Core::StringCount - 2) Target().Strings = Core::StringCount;
        }
        Lose(pitch);
    }

    void PlaceDrum(int pitch) {
        Target().IsDrum = true;
        const auto sound = static_cast<std::int16_t>(pitch - FirstDrumNote);
        for (int string = 0; string < Core::StringCount; ++string) {
            if (!Current().Notes[string].Fret.empty()) continue;
            const char* const letter = LetterForDrum(Target().PercStrings[string], sound);
            if (!letter) continue;
            Current().Notes.Edit(string).Fret = letter;
            return Keep();
        }
        Lose(pitch);
    }

    /// The last strum has nothing behind it to end it: the longest plain value that fits.
    void Finish() {
        constexpr std::int32_t SixtyFourth = 6;
        if (!Core::HasNotes(Current())) return;
        Core::Strum& last = Current();
        last.Length = 0;
        while (last.Length < SixtyFourth && Core::LengthCodeIn64ths(last.Length) > Room() + Tolerance) ++last.Length;
        if (report && moved > 0) {
            report->Add({ImportFate::Moved, moved, target, -1, 0, "str_ImportDrifted", {std::to_string(moved)}});
        }
    }

private:
    static constexpr double Tolerance = 1e-9;
    static constexpr double ShortestValue = 2.0 / 13;

    Track& Target() { return file.Tracks[target]; }
    Core::Strum& Current() { return Target().Bars.Edit(bar).EditStrums()[strum]; }
    void Keep() {
        if (!report) return;
        ++report->NotesFound;
        ++report->NotesKept;
        constexpr double Heard = 1;  // 64ths
        if (std::abs(written - wanted) > Heard) ++moved;
    }
    void Lose(int pitch) {
        if (!report) return;
        ++report->NotesFound;
        report->Add({ImportFate::Lost, 1, target, bar, 0, "str_ImportNoString", {Core::NoteName(pitch)}});
    }
    double Capacity() const { return std::floor(Core::BarLengthIn64ths(file, bar)); }
    double Room() const { return Core::BarLengthIn64ths(file, bar) - used; }

    void Close(const NoteValue& value) {
        Core::Strum& closed = Current();
        value.Give(closed);
        // Whether there is a note or not: what readers of these files expect.
        constexpr int TiedString = 5;
        if (options.Ties) closed.Notes.Edit(TiedString).Tied = true;
        used += Core::StrumLength(closed);
        written += Core::StrumLength(closed);
        if (Editing::BarFullness(file, target, bar) != Editing::Fullness::Under) return NextBar();
        auto& strums = Target().Bars.Edit(bar).EditStrums();
        strum = strums.Count();
        strums.Resize(strum + 1);
    }

    void NextBar() {
        if (bar == file.BarInfos.UpperBound()) {
            Core::BarInfo info;
            info.TimeSigTop = file.BarInfos[bar].TimeSigTop;
            info.TimeSigBottom = file.BarInfos[bar].TimeSigBottom;
            if ((file.BarInfos.Count() + 1) * file.Tracks.Count() > MostImportedBars) Core::ToInt16(MostImportedBars);
            Core::ToInt16(file.BarInfos.Count());
            file.BarInfos.Add(info);
        }
        ++bar;
        strum = 0;
        used = 0;
        if (bar > Target().Bars.UpperBound()) Target().Bars.Add(EmptyBar());
        Target().Bars.Edit(bar).EditStrums().Resize(1);
    }

    TabFile& file;
    int target;
    const MidiImportOptions& options;
    int bar = 0;
    int strum = 0;
    double used = 0;  ///< 64ths of the bar that end before the strum
    ImportReport* report;
    double wanted = 0;   ///< 64ths from the start of the song, as the file has them
    double written = 0;  ///< as the document has them
    int moved = 0;
};

/// A track as it is before its first note.
Track TrackOf(SmfCursor& cursor, const MidiImportOptions& options) {
    Track track;
    track.Name.clear();
    cursor.SetEventNumber(1);
    if (cursor.IsMeta(SmfTrackName)) track.Name = MidiText(cursor.Text());
    track.InstrumentName = FirstText(cursor, SmfInstrumentName).value_or("");
    for (const std::string& text : {track.Name, EntryOf(cursor), track.InstrumentName}) {
        if (Core::UpperAscii(text).find("BASS") == std::string::npos) continue;
        constexpr std::int16_t Octave = 12;
        track.Strings = Core::StringCount;
        for (std::int16_t& offset : track.Tuning) offset = -Octave;
    }
    track.Reverb = options.Reverb;
    track.Bars.Edit(0) = EmptyBar();
    return track;
}

/// Counts events for a progress in percent.
class Percent {
public:
    Percent(int of, const ImportProgress& to) : all(of), progress(to) {}
    bool Count() {
        const int percent = all == 0 ? 100 : static_cast<int>(std::int64_t{++done} * 100 / all);
        if (percent == told || !progress) return true;
        told = percent;
        return progress(percent);
    }

private:
    int all;
    const ImportProgress& progress;
    int done = 0;
    int told = -1;
};

bool WalkTrack(SmfCursor& cursor, TrackWriter& writer, Percent& percent) {
    constexpr double QuarterIn64ths = 16;
    constexpr int NoteOn = 9;
    std::int64_t ticks = 0;
    for (int event = 1; event <= cursor.NumberOfEvents(); ++event) {
        if (!percent.Count()) return false;
        cursor.SetEventNumber(event);
        ticks += cursor.DeltaTicks();
        if (cursor.Status() >> 4 != NoteOn || cursor.Data1() == 0 || cursor.Data2() == 0) continue;
        if (ticks > 0) writer.Advance(static_cast<double>(ticks) / cursor.TicksPerQuarter() * QuarterIn64ths);
        ticks = 0;
        const int channel = cursor.Status() & 0xF;
        if (channel == MidiDrumChannel) {
            writer.PlaceDrum(cursor.Data1());
        } else {
            writer.PlacePitch(cursor.Data1(), cursor.Data2(), channel);
        }
    }
    writer.Finish();
    return true;
}

/// Fills the bars of a new track, and gives it a name where it has none.
void FinishTrack(TabFile& file, int number) {
    Track& track = file.Tracks[number];
    while (track.Bars.Count() < file.BarInfos.Count()) track.Bars.Add(EmptyBar());
    for (int bar = 0; bar <= track.Bars.UpperBound(); ++bar) Editing::FixBar(file, number, bar);
    if (track.Name.empty() && track.InstrumentName.empty()) {
        track.Name = "Untitled Track";
        track.InstrumentName = "A. Guitar (Nylon)";
    }
    if (track.Name.empty()) track.Name = track.InstrumentName;
    if (track.InstrumentName.empty()) track.InstrumentName = track.Name;
}

void TellSize(const TabFile& file, int tracks, ImportReport* report) {
    if (!report) return;
    report->Tracks = tracks;
    report->Bars = file.BarInfos.Count();
}

}  // namespace

std::vector<std::string> MidiTrackEntries(const SmfFile& midi) {
    SmfCursor cursor(midi);
    std::vector<std::string> entries;
    for (int track = 1; track <= cursor.NumberOfTracks(); ++track) {
        cursor.SetTrackNumber(track);
        entries.push_back(EntryOf(cursor));
    }
    return entries;
}

bool ImportMidi(TabFile& file, const SmfFile& midi, const std::string& title, const MidiImportOptions& options,
                const ImportProgress& progress, ImportReport* report) {
    SmfCursor cursor(midi);
    std::vector<int> chosen = options.Tracks;
    if (chosen.empty()) {
        for (int track = 1; track <= cursor.NumberOfTracks(); ++track) chosen.push_back(track);
    }
    int events = 0;
    for (const int track : chosen) {
        cursor.SetTrackNumber(track);
        events += cursor.NumberOfEvents();
    }
    file.Tempo = FileTempo(cursor);
    const TimeSignature signature = FileTimeSignature(cursor);
    file.Title = title;
    file.BarInfos.Resize(1);
    file.BarInfos.Edit(0) = {.TimeSigTop = signature.Top, .TimeSigBottom = signature.Bottom};
    file.Tracks.Resize(static_cast<int>(chosen.size()));
    Percent percent(events, progress);
    for (int t = 0; t <= file.Tracks.UpperBound(); ++t) {
        cursor.SetTrackNumber(chosen[static_cast<std::size_t>(t)]);
        file.Tracks[t] = TrackOf(cursor, options);
        TrackWriter writer(file, t, options, report);
        if (!WalkTrack(cursor, writer, percent)) return false;
    }
    for (int t = 0; t <= file.Tracks.UpperBound(); ++t) FinishTrack(file, t);
    TellSize(file, file.Tracks.Count(), report);
    return true;
}

bool AddMidiTrack(TabFile& file, const SmfFile& midi, const MidiImportOptions& options, const ImportProgress& progress,
                  ImportReport* report) {
    SmfCursor cursor(midi);
    if (options.Tracks.size() != 1) RaiseSubscriptOutOfRange();
    cursor.SetTrackNumber(options.Tracks.front());
    Percent percent(cursor.NumberOfEvents(), progress);
    file.Tracks.Add(TrackOf(cursor, options));
    const int number = file.Tracks.UpperBound();
    TrackWriter writer(file, number, options, report);
    if (!WalkTrack(cursor, writer, percent)) return false;
    FinishTrack(file, number);
    EvenOutBars(file, true);
    TellSize(file, 1, report);
    return true;
}

}  // namespace Quillon::Exchange
