#include "exchange/LinesImport.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_BarsAndTracks.h"
#include "exchange/LinesAbove.h"
#include "exchange/LinesHeader.h"
#include "exchange/LinesStrums.h"
#include "exchange/TrackBars.h"

namespace Quillon::Exchange {

using Core::Strum;

namespace {

ImportRemark Remark(ImportFate fate, int notes, const char* key, std::vector<std::string> fields = {}) {
    ImportRemark remark;
    remark.Fate = fate;
    remark.Notes = notes;
    remark.Key = key;
    remark.Fields = std::move(fields);
    return remark;
}

/// One bar on its way to the document.
struct BarAndAbove {
    TabBar Bar;
    int System = 0;
    bool ByTime = false;  ///< cut out of a line without bar lines
};

class Importer {
public:
    Importer(Core::TabFile& into, int to, std::string_view bytes, const LinesImportOptions& how, ImportReport& tells)
        : file(into),
          track(into.Tracks[to]),
          options(how),
          report(tells),
          lines(ColumnsOf(TextOfPage(Utf8OfBytes(bytes)))),
          joined(Mend(lines)),
          found(FindSystems(lines)),
          header(HeaderOf(lines, found)) {}

    bool Import(const ImportProgress& progress) {
        constexpr int found33 = 33, read66 = 66;
        ApplyHeader();
        if (progress && !progress(found33)) return false;
        ReadBars();
        SettleWords(lines, above);
        TellPlayers();
        if (progress && !progress(read66)) return false;
        Core::ToInt16(static_cast<std::int64_t>(bars.size()));
        FitBars();
        if (!WriteBars(progress)) return false;
        if (!EvenOutBars(file, true, progress)) return false;
        TellCounts();
        return true;
    }

private:
    static int Mend(std::vector<TextColumns>& text) {
        UnquoteLines(text);
        return JoinBrokenLines(text);
    }
    static std::size_t At(int place) { return static_cast<std::size_t>(place); }

    // The whole --------------------------------------------------------------------------------------------------

    void ApplyHeader() {
        if (found.Strings > 0) {
            const auto tuning = found.Tuning ? found.Tuning : header.Tuning;
            // Without a word about it the tuning stays, if there is one for so many strings.
            if (tuning || track.Strings != found.Strings) track.Tuning = tuning ? *tuning : UsualTuning(found.Strings);
            track.Strings = static_cast<std::int16_t>(found.Strings);
        }
        if (header.Capo) track.Capo = static_cast<std::int16_t>(*header.Capo);
        if (!options.Details) return;
        const auto take = [](std::string& field, const std::string& value) {
            if (!value.empty()) field = value;
        };
        take(file.Title, header.Title);
        take(file.Artist, header.Artist);
        take(file.Author, header.Author);
        take(file.Album, header.Album);
        take(file.TabbedBy, header.TabbedBy);
        if (header.Tempo) file.Tempo = static_cast<float>(*header.Tempo);
    }

    bool IsOnlyTrack() const { return file.Tracks.Count() == 1; }

    /// Bars of the track are emptied, and all have the time signature wanted. Repeats of other tracks' bars stay.
    void FitBars() {
        std::vector<std::pair<std::int32_t, bool>> keys;
        for (const Core::Bar& bar : track.Bars) keys.emplace_back(bar.Key, bar.KeyIsMinor);
        const int count = std::max(static_cast<int>(bars.size()), 1);
        track.Bars.Resize(0);
        track.Bars.Resize(count);
        for (int b = 0; b < count; ++b) {
            const auto& [key, minor] = keys[std::min(At(b), keys.size() - 1)];
            track.Bars.Edit(b).Key = key;
            track.Bars.Edit(b).KeyIsMinor = minor;
        }
        const int infos = std::max(IsOnlyTrack() ? 0 : file.BarInfos.Count(), count);
        const Core::BarInfo last = file.BarInfos[file.BarInfos.UpperBound()];
        const int before = file.BarInfos.Count();
        file.BarInfos.Resize(infos);
        for (int b = 0; b < infos; ++b) {
            Core::BarInfo& info = file.BarInfos.Edit(b);
            if (b >= before) {
                info.TimeSigTop = last.TimeSigTop;
                info.TimeSigBottom = last.TimeSigBottom;
            }
            if (IsOnlyTrack()) {
                const Core::BarInfo plain{info.TimeSigTop, info.TimeSigBottom};
                info = plain;
            }
            SetTiming(info, At(b) < bars.size() ? bars[At(b)].System : 0);
        }
    }
    /// A text says it of its own bars; those of other tracks are theirs.
    std::optional<TimeSignature> TimingOf(int system) const {
        if (options.Timing) return options.Timing;
        if (!IsOnlyTrack()) return {};
        if (found.Systems.empty()) return header.Timing;
        const int line = found.Systems[At(system)].FirstLine;
        const auto behind = std::ranges::lower_bound(header.Timings, line, {}, [](const auto& t) { return t.first; });
        return behind == header.Timings.begin() ? header.Timing : std::prev(behind)->second;
    }
    void SetTiming(Core::BarInfo& info, int system) const {
        const auto timing = TimingOf(system);
        if (!timing) return;
        info.TimeSigTop = timing->Top;
        info.TimeSigBottom = timing->Bottom;
    }
    /// Length of a bar that may not be there yet, 64ths.
    double LengthOf(int bar, int system) const {
        Core::BarInfo info = file.BarInfos[std::min(bar, file.BarInfos.UpperBound())];
        SetTiming(info, system);
        constexpr double whole = 64;
        return info.TimeSigBottom > 0 && info.TimeSigTop > 0 ? whole * info.TimeSigTop / info.TimeSigBottom : whole;
    }

    // Systems and bars -------------------------------------------------------------------------------------------

    void ReadBars() {
        int behind = 0;  // the system before
        std::vector<bool> taken = found.Used;
        for (std::size_t i = 0; i < taken.size(); ++i) taken[i] = taken[i] || header.Used[i];
        for (int s = 0; s < static_cast<int>(found.Systems.size()); ++s) {
            const TabSystem& system = found.Systems[At(s)];
            SystemBars read = BarsOf(lines, system);
            int notes = 0;
            for (const TabBar& bar : read.Bars) notes += static_cast<int>(bar.Notes.size());
            report.NotesFound += notes;
            above.push_back(AboveOf(lines, system, behind, taken, ColumnsWithNotes(read)));
            for (const int line : above.back().Used) taken[At(line)] = true;
            TellSystem(system, read, s);
            const auto add = [&](TabBar bar, bool byTime) {
                if (!byTime) samples.push_back({bar.Width, NoteColumns(bar)});
                bars.push_back({std::move(bar), s, byTime});
            };
            for (TabBar& bar : read.Bars) {
                if (read.HasBarLines) {
                    add(std::move(bar), false);
                    continue;
                }
                const double column = Core::LengthCodeIn64ths(options.Dash);
                for (TabBar& part : CutByTime(bar, column, LengthOf(static_cast<int>(bars.size()), s))) {
                    add(std::move(part), true);
                }
            }
            behind = system.LastLine + 1;
        }
        report.Systems = static_cast<int>(found.Systems.size());
        std::vector<StringLine> strays = found.Strays;
        for (const StringLine& ruler : found.Rulers) {
            if (!taken[At(ruler.Line)]) strays.push_back(ruler);
        }
        std::ranges::sort(strays, {}, &StringLine::Line);
        for (const StringLine& stray : strays) {
            const int notes = FretsOn(lines, stray);
            if (notes == 0) continue;
            report.NotesFound += notes;
            ImportRemark remark = Remark(ImportFate::Lost, notes, "str_ImportStrayLine", {std::to_string(notes)});
            remark.Line = stray.Line + 1;
            report.Add(std::move(remark));
        }
    }

    /// Columns of the text in which a system has notes.
    static std::vector<int> ColumnsWithNotes(const SystemBars& system) {
        std::vector<int> columns;
        for (const TabBar& bar : system.Bars) {
            for (const int column : NoteColumns(bar)) columns.push_back(bar.Origin + column);
        }
        return columns;
    }
    void TellSystem(const TabSystem& system, const SystemBars& read, int number) {
        const auto tell = [&](ImportFate fate, const char* key, std::vector<std::string> fields) {
            ImportRemark remark = Remark(fate, 0, key, std::move(fields));
            remark.Line = system.FirstLine + 1;
            remark.Bar = static_cast<int>(bars.size());
            report.Add(std::move(remark));
        };
        const int strings = static_cast<int>(system.Strings.size());
        if (strings != found.Strings) {
            tell(ImportFate::Moved, "str_ImportOtherStrings",
                 {std::to_string(number + 1), std::to_string(strings), std::to_string(found.Strings)});
        }
        if (!read.HasBarLines) tell(ImportFate::Moved, "str_ImportNoBarLines", {std::to_string(number + 1)});
        if (read.Lost.empty()) return;
        std::string signs;
        for (const auto& [sign, times] : read.Lost) {
            signs += (signs.empty() ? "" : " ") + (sign > ' ' && sign < OtherSign ? std::string(1, sign) : "?");
            if (times > 1) signs += "(" + std::to_string(times) + ")";
        }
        tell(ImportFate::Lost, "str_ImportSignsLost", {signs});
    }

    /// Parts of several players follow each other here, and lines were joined; that is told.
    void TellPlayers() {
        const auto tell = [&](const char* key, int count, int line) {
            if (count == 0) return;
            ImportRemark remark = Remark(ImportFate::Moved, 0, key, {std::to_string(count)});
            remark.Line = line;
            report.Add(std::move(remark));
        };
        const std::vector<int> others = OtherPlayers(found.Systems, above);
        const int first = others.empty() ? 0 : found.Systems[At(others.front())].FirstLine + 1;
        tell("str_ImportPlayers", static_cast<int>(others.size()), first);
        tell("str_ImportJoined", joined, 0);
    }

    // Writing ----------------------------------------------------------------------------------------------------

    bool WriteBars(const ImportProgress& progress) {
        const BarMargins common = CommonMargins(samples, LengthOf(0, 0));
        std::size_t first = 0;  // bar of its system
        for (std::size_t b = 0; b < bars.size(); ++b) {
            if (b > 0 && bars[b].System != bars[b - 1].System) first = b;
            WriteBar(static_cast<int>(b), bars[b], bars[b].ByTime ? BarMargins{0, 0, true} : common);
            const bool last = b + 1 == bars.size() || bars[b + 1].System != bars[b].System;
            if (last) Decorate(static_cast<int>(first), static_cast<int>(b), above[At(bars[b].System)]);
            constexpr int from = 66, share = 33;
            if (last && progress && !progress(from + static_cast<int>(share * (b + 1) / bars.size()))) return false;
        }
        if (bars.empty()) Editing::FixBar(file, TrackNumber(), 0);
        return true;
    }
    int TrackNumber() const {
        for (int t = 0; t < file.Tracks.Count(); ++t) {
            if (&file.Tracks[t] == &track) return t;
        }
        return 0;
    }

    std::vector<LengthAbove> LengthsOver(const BarAndAbove& bar) const {
        std::vector<LengthAbove> over;
        const auto& all = above[At(bar.System)].Lengths;
        auto length = std::ranges::lower_bound(all, bar.Bar.Origin - 1, {}, &LengthAbove::Column);
        for (; length != all.end() && length->Column < bar.Bar.Origin + bar.Bar.Width; ++length) {
            over.push_back(*length);
            over.back().Column -= bar.Bar.Origin;
        }
        return over;
    }

    void WriteBar(int number, BarAndAbove& from, const BarMargins& margins) {
        TimedBar timed = StrumsOf(from.Bar, LengthOf(number, from.System), margins, LengthsOver(from));
        report.NotesKept += timed.Kept;
        const auto tell = [&](ImportFate fate, int notes, const char* key) {
            ImportRemark remark = Remark(fate, notes, key, {std::to_string(notes)});
            remark.Bar = number;
            remark.Line = found.Systems[At(from.System)].FirstLine + 1;
            report.Add(std::move(remark));
        };
        if (timed.Lost > 0) tell(ImportFate::Lost, timed.Lost, "str_ImportSameString");
        if (timed.TooLong) tell(ImportFate::Moved, 0, "str_ImportLongBar");
        Core::BarInfo& info = file.BarInfos.Edit(number);
        if (from.Bar.Opens) info.RepeatOpen = true;
        if (from.Bar.Closes > 0) info.RepeatClose = static_cast<std::int16_t>(std::min(from.Bar.Closes, 32767));
        auto& strums = track.Bars.Edit(number).EditStrums();
        strums.Resize(static_cast<int>(timed.Strums.size()));
        for (std::size_t s = 0; s < timed.Strums.size(); ++s) {
            strums[s] = std::move(timed.Strums[s]);
            places.push_back({from.Bar.Origin + timed.Columns[s], number, static_cast<int>(s)});
        }
        from.Bar.Notes = {};
    }

    /// A strum of the system that is being written, and the column of the text that it begins at.
    struct Place {
        int Column;
        int Bar;
        int Strum;
    };
    Strum& StrumAt(const Place& place) { return track.Bars.Edit(place.Bar).EditStrums()[place.Strum]; }
    const Strum& ReadAt(const Place& place) const { return track.Bars[place.Bar].Strums()[place.Strum]; }

    /// The last strum that begins at a column or before it, a column of slack allowed; the first for what is before
    /// all.
    std::size_t PlaceAt(int column) const {
        const auto behind = std::ranges::upper_bound(places, column + 1, {}, &Place::Column);
        return behind == places.begin() ? 0 : static_cast<std::size_t>(behind - places.begin()) - 1;
    }

    /// What stands above a system goes to its strums.
    void Decorate(int first, int last, AboveSystem& system) {
        if (!places.empty()) {
            if (!system.Section.empty()) StrumAt({0, first, 0}).Text = system.Section;
            for (const EndingAbove& ending : system.Endings) {
                constexpr int slack = 3;  // a bracket may begin a little before its bar
                std::string& text = StrumAt({0, places[PlaceAt(ending.Column + slack)].Bar, 0}).Text;
                text += (text.empty() ? "" : " ") + ending.Text;
            }
            for (const SignAbove& sign : system.Signs) GiveSign(sign);
            GiveChords(system.Chords);
            for (std::size_t line = 0; line < system.Lyrics.size(); ++line) {
                GiveLyrics(system.Lyrics[line].Syllables, static_cast<int>(line));
            }
            for (const TimesAbove& times : system.Repeats) {
                const int bar = std::clamp(places[PlaceAt(times.Column)].Bar, first, last);
                file.BarInfos.Edit(bar).RepeatClose = static_cast<std::int16_t>(times.Times - 1);
            }
        }
        if (system.Times > 1) GiveTimes(first, last, system.Times);
        for (const int line : system.Used) header.Used[At(line)] = true;
        places.clear();
        system = {};
    }

    /// Words about the whole system: they count its one repeat, or make it one.
    void GiveTimes(int first, int last, int times) {
        int closes = 0, opens = 0, closing = last;
        for (int b = first; b <= last; ++b) {
            opens += file.BarInfos[b].RepeatOpen ? 1 : 0;
            if (file.BarInfos[b].RepeatClose == 0) continue;
            ++closes;
            closing = b;
        }
        if (closes > 1) return;
        if (closes + opens == 0) file.BarInfos.Edit(first).RepeatOpen = true;
        file.BarInfos.Edit(closing).RepeatClose = static_cast<std::int16_t>(times - 1);
    }

    void GiveSign(const SignAbove& sign) {
        std::size_t place = PlaceAt(sign.From);
        const bool range = sign.To > sign.From;
        if (range && places[place].Column < sign.From - 1 && place + 1 < places.size()) ++place;
        for (bool once = true; place < places.size() && (once || places[place].Column <= sign.To); ++place) {
            once = false;
            if (!Core::HasNotes(ReadAt(places[place]))) continue;
            Strum& strum = StrumAt(places[place]);
            if (sign.Beat != 0) {
                strum.Technique = sign.Beat;
                continue;
            }
            for (int s = 0; s < Core::StringCount; ++s) {
                if (!strum.Notes[s].Fret.empty()) strum.Notes.Edit(s).LetRing = true;
            }
        }
    }

    void GiveChords(const std::vector<WordAbove>& chords) {
        for (const WordAbove& chord : chords) {
            Strum& strum = StrumAt(places[PlaceAt(chord.Column)]);
            if (strum.HasChord) {
                report.Add(Remark(ImportFate::Lost, 0, "str_ImportChordLost", {chord.Text}));
                continue;
            }
            strum.HasChord = true;
            strum.ChordName = chord.Text;
        }
    }

    /// Each syllable to the next strum with notes from its column on; those left over share the last one.
    void GiveLyrics(const std::vector<WordAbove>& syllables, int line) {
        std::size_t next = 0;  // place that is free
        std::size_t end = places.size();
        while (end > 0 && !Core::HasNotes(ReadAt(places[end - 1]))) --end;
        for (const WordAbove& syllable : syllables) {
            std::size_t place = std::max(PlaceAt(syllable.Column), next);
            while (place < end && !Core::HasNotes(ReadAt(places[place]))) ++place;
            if (place >= end) {
                if (next == 0) {
                    report.Add(Remark(ImportFate::Lost, 0, "str_ImportWordLost", {syllable.Text}));
                    continue;
                }
                std::string& text = StrumAt(places[next - 1]).Syllables.Edit()[line];
                text += (text.ends_with('-') ? "" : " ") + syllable.Text;
                continue;
            }
            StrumAt(places[place]).Syllables.Edit()[line] = syllable.Text;
            next = place + 1;
        }
    }

    void TellCounts() {
        report.Tracks = 1;
        report.Bars = static_cast<int>(bars.size());
        int words = 0, first = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].IsBlank() || found.Used[i] || header.Used[i]) continue;
            if (lines[i].Columns.find_first_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ") ==
                std::string::npos) {
                continue;
            }
            if (words++ == 0) first = static_cast<int>(i) + 1;
        }
        if (words == 0) return;
        ImportRemark remark = Remark(ImportFate::Lost, 0, "str_ImportTextLost", {std::to_string(words)});
        remark.Line = first;
        report.Add(std::move(remark));
    }

    Core::TabFile& file;
    Core::Track& track;
    const LinesImportOptions& options;
    ImportReport& report;
    std::vector<TextColumns> lines;
    int joined;  ///< lines that were broken in two
    FoundSystems found;
    TabHeader header;
    std::vector<BarAndAbove> bars;
    std::vector<AboveSystem> above;  ///< by system
    std::vector<BarColumns> samples;
    std::vector<Place> places;  ///< of the system that is being written, by column
};

}  // namespace

bool ImportTextLines(Core::TabFile& file, int track, std::string_view bytes, const LinesImportOptions& options,
                     ImportReport& report, const ImportProgress& progress) {
    report = {};
    return Importer(file, track, bytes, options, report).Import(progress);
}

}  // namespace Quillon::Exchange
