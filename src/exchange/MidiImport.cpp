#include "exchange/MidiImport.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "exchange/DrumLetters.h"
#include "exchange/MidiScore.h"
#include "exchange/NoteValues.h"
#include "exchange/TrackBars.h"

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
    /// `strumsLeft` is what all tracks together may still have, and counted down.
    TrackWriter(TabFile& into, int number, const MidiImportOptions& how, int& strumsLeft, ImportReport* to)
        : file(into), target(number), options(how), left(strumsLeft), report(to) {
        MeasureBar();
        StartBar();
    }

    /// A quarter note or a note of any length ends where this one starts, so many 64ths behind the start before.
    void Advance(double time) {
        wanted += time;
        if (options.Quantize) time = std::floor(time);
        while (time >= ShortestValue - Tolerance) {
            if (IsSilent() && time >= asked + Beyond && TakeSilentBar(time)) continue;
            if (Room() < ShortestValue - Tolerance) {
                NextBar();
                continue;
            }
            const NoteValue& value = LargestValue(std::min({time, Room(), std::floor(asked)}));
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
        Core::Strum& last = Current();
        if (Core::HasNotes(last)) {
            last.Length = 0;
            while (last.Length < SixtyFourth && Core::LengthCodeIn64ths(last.Length) > Room() + Tolerance) {
                ++last.Length;
            }
        }
        WriteBar();
        if (report && moved > 0) {
            report->Add({ImportFate::Moved, moved, target, -1, 0, "str_ImportDrifted", {std::to_string(moved)}});
        }
    }

private:
    static constexpr double Tolerance = 1e-9;
    static constexpr double ShortestValue = 2.0 / 13;
    static constexpr double Beyond = 1;  ///< 64ths behind a bar with which its values no longer depend on what follows

    /// A bar that nothing sounds in, as long silences bring them by the thousand: they share their strums.
    struct SilentBar {
        Core::Bar Written;
        std::vector<const NoteValue*> Values;
    };

    Track& Target() { return file.Tracks[target]; }
    Core::Strum& Current() { return strums.back(); }
    bool IsSilent() const { return strums.size() == 1 && used == 0 && !Core::HasNotes(strums.front()); }
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
    double Room() const { return asked - used; }
    void MeasureBar() { asked = Core::BarLengthIn64ths(file, bar); }

    void AddStrum() {
        if (left-- <= 0) RaiseOverflow();
        Core::ToInt16(std::ssize(strums));
        strums.emplace_back();
    }
    void StartBar() {
        strums.clear();
        AddStrum();
        strums.front() = EmptyBar().Strums()[0];
        used = 0;
        silence.reset();
    }

    void Close(const NoteValue& value) {
        Core::Strum& closed = Current();
        value.Give(closed);
        // Whether there is a note or not: what readers of these files expect.
        constexpr int TiedString = 5;
        if (options.Ties) closed.Notes.Edit(TiedString).Tied = true;
        used += Core::StrumLength(closed);
        written += Core::StrumLength(closed);
        if (silence) silence->Values.push_back(&value);
        if (Editing::FullnessOf(used, asked) != Editing::Fullness::Under) return NextBar();
        AddStrum();
    }

    /// A whole bar of a silence that goes on behind it. False when there is none of this time signature yet: the bar is
    /// then written as any other, and kept for the next time.
    bool TakeSilentBar(double& time) {
        const auto known = silentBars.find(Signature());
        if (known == silentBars.end()) {
            silence.emplace();
            return false;
        }
        for (const NoteValue* const value : known->second.Values) {
            time -= value->Length;
            written += Core::StrumLength(value->Code, value->Tuplet, value->HasTuplet, value->Dotted);
        }
        Target().Bars.Edit(bar) = known->second.Written;
        ++left;  // the one that was begun
        GoOn();
        return true;
    }

    std::pair<std::int32_t, std::int32_t> Signature() const {
        return {file.BarInfos[bar].TimeSigTop, file.BarInfos[bar].TimeSigBottom};
    }

    void WriteBar() {
        auto& into = Target().Bars.Edit(bar).EditStrums();
        into.Resize(static_cast<int>(strums.size()));
        std::move(strums.begin(), strums.end(), into.begin());
    }

    void NextBar() {
        WriteBar();
        if (silence) {
            Editing::FixBar(file, target, bar);
            silence->Written = Target().Bars[bar];
            silentBars.emplace(Signature(), std::move(*silence));
        }
        GoOn();
    }

    void GoOn() {
        if (bar == file.BarInfos.UpperBound()) {
            Core::BarInfo info;
            info.TimeSigTop = file.BarInfos[bar].TimeSigTop;
            info.TimeSigBottom = file.BarInfos[bar].TimeSigBottom;
            if ((file.BarInfos.Count() + 1) * file.Tracks.Count() > MostImportedBars) RaiseOverflow();
            Core::ToInt16(file.BarInfos.Count());
            file.BarInfos.Add(info);
        }
        ++bar;
        if (bar > Target().Bars.UpperBound()) Target().Bars.Add({});
        MeasureBar();
        StartBar();
    }

    TabFile& file;
    int target;
    const MidiImportOptions& options;
    int& left;
    int bar = 0;
    std::vector<Core::Strum> strums;   ///< of the bar; the last one is under way
    double asked = 0;                  ///< 64ths that the bar holds
    double used = 0;                   ///< of them those that end before the last strum
    std::optional<SilentBar> silence;  ///< while one is written for the first time
    std::map<std::pair<std::int32_t, std::int32_t>, SilentBar> silentBars;  ///< by time signature
    ImportReport* report;
    double wanted = 0;   ///< 64ths from the start of the song, as the file has them
    double written = 0;  ///< as the document has them
    int moved = 0;
};

/// A track as it is before its first note.
Track TrackOf(SmfCursor& cursor, const MidiImportOptions& options) {
    Track track;
    track.Name.clear();
    if (cursor.NumberOfEvents() > 0) {
        cursor.SetEventNumber(1);
        if (cursor.IsMeta(SmfTrackName)) track.Name = MidiText(cursor.Text());
    }
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
void FinishTrack(TabFile& file, int number, RestBars& rests) {
    Track& track = file.Tracks[number];
    for (int bar = 0; bar <= track.Bars.UpperBound(); ++bar) Editing::FixBar(file, number, bar);
    rests.FillUp(file, number);
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

std::string MidiFailureText(const RunTimeError& error) {
    constexpr int Overflow = 6;
    constexpr int BadFileFormat = 321;
    if (error.Number == Overflow) return Core::LanguageText("str_MidiTooLong");
    return error.Number == BadFileFormat ? Core::LanguageText("str_BadMidiFile") : error.Description();
}

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
    const std::vector<int> chosen = ChosenMidiTracks(midi, options.Tracks);
    if (chosen.empty()) RaiseSubscriptOutOfRange();
    Core::ToInt16(std::ssize(chosen) - 1);
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
    int strumsLeft = MostImportedStrums;
    for (int t = 0; t <= file.Tracks.UpperBound(); ++t) {
        cursor.SetTrackNumber(chosen[static_cast<std::size_t>(t)]);
        file.Tracks[t] = TrackOf(cursor, options);
        TrackWriter writer(file, t, options, strumsLeft, report);
        if (!WalkTrack(cursor, writer, percent)) return false;
    }
    RestBars rests(true);
    for (int t = 0; t <= file.Tracks.UpperBound(); ++t) {
        if (progress && !progress(99)) return false;
        FinishTrack(file, t, rests);
    }
    CheckStrums(file);
    TellSize(file, file.Tracks.Count(), report);
    return true;
}

bool AddMidiTrack(TabFile& file, const SmfFile& midi, const MidiImportOptions& options, const ImportProgress& progress,
                  ImportReport* report) {
    SmfCursor cursor(midi);
    if (options.Tracks.size() != 1) RaiseSubscriptOutOfRange();
    cursor.SetTrackNumber(options.Tracks.front());
    Percent percent(cursor.NumberOfEvents(), progress);
    Core::ToInt16(file.Tracks.Count());
    file.Tracks.Add(TrackOf(cursor, options));
    const int number = file.Tracks.UpperBound();
    int strumsLeft = MostImportedStrums;
    TrackWriter writer(file, number, options, strumsLeft, report);
    if (!WalkTrack(cursor, writer, percent)) return false;
    RestBars rests(true);
    FinishTrack(file, number, rests);
    if (!EvenOutBars(file, true, progress)) return false;
    CheckStrums(file);
    TellSize(file, 1, report);
    return true;
}

}  // namespace Quillon::Exchange
