#include "core/mod_TabFileManipulation.h"

#include <array>

#include "core/mod_Common.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"

namespace Quillon::Core {

int DefaultStringPitch(int string) {
    if (string < 0 || string >= StringCount) RaiseSubscriptOutOfRange();
    return StandardPitches[string];
}

int OpenPitch(const Track& track, int string) { return DefaultStringPitch(string) + track.Tuning[string]; }

double LengthCodeIn64ths(std::int32_t length) { return length >= 0 && length <= 6 ? 64 >> length : 0; }

double TupletFactor(std::int32_t tuplet) {
    static constexpr std::array<int, 9> figures = {3, 5, 6, 7, 9, 10, 11, 12, 13};
    if (tuplet < 0 || tuplet > 8) return 1;
    return 2.0 / figures[static_cast<std::size_t>(tuplet)];
}

double StrumLength(std::int32_t lengthCode, std::int32_t tupletKind, bool isTuplet, bool isDotted) {
    double length = LengthCodeIn64ths(lengthCode);
    if (isTuplet) length *= TupletFactor(tupletKind);
    if (isDotted) length *= 1.5;
    return length;
}

double StrumLength(const Strum& strum) {
    return StrumLength(strum.Length, strum.Tuplet, strum.HasTuplet, strum.Dotted);
}

double BarLength64ths(const Bar& bar) {
    double sum = 0;
    for (const Strum& strum : bar.Strums()) sum += StrumLength(strum);
    return sum;
}

double BarLengthIn64ths(const TabFile& file, int bar) {
    if (bar > file.BarInfos.UpperBound()) return 0;
    const BarInfo& info = file.BarInfos[bar];
    if (info.TimeSigBottom == 0) return 0;
    return static_cast<double>(info.TimeSigTop) / info.TimeSigBottom * 64;
}

void ClearStrum(Strum& strum) {
    for (int s = 0; s < StringCount; ++s) {
        if (strum.Notes.IsDefault(s)) continue;
        Note& note = strum.Notes.Edit(s);
        note.Fret.clear();
        note.Accentuate = note.HasBend = note.HasGrace = note.HasTrill = note.LetRing = note.Tied = note.Ghost = false;
        note.Harmonic = note.Technique = note.Dynamic = note.LeftFinger = note.RightFinger = 0;
    }
    strum.Dotted = strum.HasTrem = strum.HasTuplet = false;
    strum.Stroke = strum.Technique = 0;
}

void SetBarStrums(Bar& bar, int newUpperBound) {
    if (newUpperBound < 0) RaiseSubscriptOutOfRange();
    bar.EditStrums().Resize(newUpperBound + 1);
}

bool HasNotes(const Strum& strum) {
    for (int s = 0; s < StringCount; ++s) {
        if (!strum.Notes[s].Fret.empty()) return true;
    }
    return false;
}

namespace {

/// Defaults of new files. A value that can't be read counts as missing.
class Defaults {
public:
    explicit Defaults(const SettingsStore& store) : settings(store) {}

    std::string Text(const char* key, const char* otherwise = "") const {
        return settings.Get("DefaultInfo", key, otherwise);
    }
    template <class T>
    T Value(const char* key, T otherwise, T (*parse)(std::string_view)) const {
        const auto text = settings.Find("DefaultInfo", key);
        if (!text) return otherwise;
        try {
            return parse(*text);
        } catch (const RunTimeError&) {
            return otherwise;
        }
    }
    bool Flag(const char* key, bool otherwise = false) const { return Value(key, otherwise, &ParseBool); }

private:
    const SettingsStore& settings;
};

}  // namespace

TabFile MakeNewTabFile(const SettingsStore& settings) {
    const Defaults defaults(settings);
    TabFile file;
    file.Author = defaults.Text("3");
    file.Artist = defaults.Text("1");
    file.Album = defaults.Text("2");
    file.Copyright = defaults.Text("4");
    file.TabbedBy = defaults.Text("5");
    file.Instructions = defaults.Text("6");
    file.Notice = defaults.Text("7");
    file.Notes = defaults.Text("8");
    file.Tempo = defaults.Value("12", 60.0F, &ParseSingle);
    if (!(file.Tempo > 0)) file.Tempo = 60;
    file.Shuffle = defaults.Flag("9");
    file.RowSpacing = defaults.Value("11", std::int16_t{100}, &ParseInt16);
    file.AlwaysCharts = defaults.Flag("10", true);
    file.ShowHeader = defaults.Flag("13");
    file.FontBold = defaults.Flag("GFONTBOLD");
    file.FontItalic = defaults.Flag("GFONTITALIC");
    file.FontName = defaults.Text("GFONTNAME", "Times New Roman");
    file.FontSize = defaults.Value("GFONTSIZE", std::int16_t{19}, &ParseInt16);
    file.FontStrike = defaults.Flag("GFONTSTRIKE");
    file.FontUnderline = defaults.Flag("GFONTUNDERLINE");
    file.FontColor = defaults.Value("GFONTCOLOR", 0, &ParseInt32);
    file.LineColor = defaults.Value("COLOR3", 0, &ParseInt32);
    file.NoteFontBold = defaults.Flag("GNOTEBOLD");
    file.NoteFontItalic = defaults.Flag("GNOTEITALIC");
    file.NoteFontName = defaults.Text("GNOTENAME", "Arial");
    file.NoteFontSize = defaults.Value("GNOTESIZE", std::int16_t{8}, &ParseInt16);
    file.NoteFontStrike = defaults.Flag("GNOTESTRIKE");
    file.NoteFontUnderline = defaults.Flag("GNOTEUNDERLINE");
    file.NoteFontColor = defaults.Value("GNOTECOLOR", 0, &ParseInt32);
    file.Tracks[0].Bars.Edit(0).EditStrums()[0].Length = 2;
    return file;
}

std::int16_t NumberOfBars(int track) { return ToInt16(Open.TabFile.Tracks[track].Bars.UpperBound()); }

std::int16_t NumberOfStrums(int track, int bar) { return ToInt16(ReadBar(track, bar).Strums().UpperBound()); }

const Bar& ReadBar(int track, int bar) { return Open.TabFile.Tracks[track].Bars[bar]; }

Bar& EditBar(int track, int bar) { return Open.TabFile.Tracks[track].Bars.Edit(bar); }

const Strum& ReadStrum(int track, int bar, int strum) { return ReadBar(track, bar).Strums()[strum]; }

Strum& EditStrum(int track, int bar, int strum) { return EditBar(track, bar).EditStrums()[strum]; }

void SetBarStrums(int track, int bar, int newUpperBound) {
    SetBarStrums(EditBar(track, bar), newUpperBound);
    Open.FileChanged = true;
}

void SetTimeSignature(int bar, std::int32_t top, std::int32_t bottom) {
    BarInfo& info = Open.TabFile.BarInfos.Edit(bar);
    info.TimeSigTop = top;
    info.TimeSigBottom = bottom;
}

void SetTrackTuning(int track, const Row<std::int16_t, StringCount>& fromLowest, std::int16_t strings) {
    Track& target = Open.TabFile.Tracks[track];
    for (int s = 0; s < StringCount; ++s) target.Tuning[s] = fromLowest[StringCount - 1 - s];
    target.Strings = strings;
}

double BarLengthIn64ths(int track, int bar) {
    return bar > NumberOfBars(track) ? 0 : BarLengthIn64ths(Open.TabFile, bar);
}

void ClearStrum(int track, int bar, int strum) { ClearStrum(EditStrum(track, bar, strum)); }

void NewTabFile() {
    Open.FileChanged = true;
    Open.TabFile = MakeNewTabFile(*Services.Settings);
    Open.CurTrack = Open.CurBar = Open.CurStrum = Open.CurString = 0;
}

}  // namespace Quillon::Core
