#include <algorithm>

#include "core/mod_Common.h"
#include "library/BuiltInTables.h"
#include "library/LineFile.h"
#include "library/mod_Chords.h"

namespace Quillon::Library {

ChordLibrary Chords{std::filesystem::path("Data") / "My Chords", ReadChord};

namespace {

constexpr std::int16_t NoFret = 20;    ///< base of a chord without any fret
constexpr std::int16_t MostFret = 99;  ///< that a file may name
constexpr std::int16_t LeastStrings = 4;
constexpr std::int16_t MostStrings = 7;
constexpr std::int16_t Thumb = 5;
constexpr std::int16_t MostPitch = 127;

/// Of a letter of several bytes, any but the first.
bool IsInsideLetter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

bool IsMute(std::string_view fret) { return fret == "x" || fret == "X"; }
bool IsUnused(std::string_view fret) { return Core::TrimBlanks(fret).empty(); }

/// As a file may have it: blanks around a number are none of it.
std::string FretText(const std::string& line) {
    const std::string text(Core::TrimBlanks(line));
    if (text.empty() || IsMute(text)) return text.empty() ? "" : "x";
    const std::int16_t fret = Core::ParseInt16(text);
    if (fret < 0 || fret > MostFret) RaiseOverflow();
    return std::to_string(fret);
}

}  // namespace

std::optional<int> AbsoluteFret(const ChordRec& chord, int string) {
    if (string < 0 || string >= chord.NumStrings) return std::nullopt;
    const std::string& fret = chord.Frets[string];
    if (IsMute(fret) || IsUnused(fret)) return std::nullopt;
    return chord.BaseFret + Core::ParseInt16(fret);
}

bool IsMuted(const ChordRec& chord, int string) {
    return string >= 0 && string < chord.NumStrings && IsMute(chord.Frets[string]);
}

std::optional<int> PitchOn(const ChordRec& chord, int string) {
    const auto fret = AbsoluteFret(chord, string);
    return fret ? std::optional<int>(chord.Tuning[string] + *fret) : std::nullopt;
}

std::vector<int> PitchesOf(const ChordRec& chord) {
    std::vector<int> pitches;
    for (int string = chord.NumStrings - 1; string >= 0; --string) {
        if (const auto pitch = PitchOn(chord, string)) pitches.push_back(*pitch);
    }
    return pitches;
}

std::string FingerText(const ChordRec& chord, int string) {
    const std::int16_t finger = chord.Fingers[string];
    return finger == 0 ? "" : finger == Thumb ? "T" : std::to_string(finger);
}

ChordRec MakeChord(int strings, bool flag, const Row<std::string, StringCount>& frets) {
    ChordRec chord;
    chord.NumStrings = Core::ToInt16(strings);
    chord.ChordFlag = flag;
    chord.BaseFret = NoFret;
    const auto isNumber = [](const std::string& fret) { return !IsMute(fret) && !IsUnused(fret); };
    for (const std::string& fret : frets) {
        if (isNumber(fret)) chord.BaseFret = std::min(chord.BaseFret, Core::ParseInt16(fret));
    }
    for (int string = 0; string < StringCount; ++string) {
        const std::string& fret = frets[string];
        chord.Frets[string] = isNumber(fret) ? std::to_string(Core::ParseInt16(fret) - chord.BaseFret) : fret;
    }
    return chord;
}

std::string WriteChord(const ChordRec& chord) {
    LineWriter file;
    file.Text(chord.ChordFlag ? "1" : "");
    file.Number(chord.BaseFret);
    file.Number(chord.NumStrings);
    for (const std::int16_t pitch : chord.Tuning) file.Number(pitch);
    for (const std::int16_t finger : chord.Fingers) file.Number(finger);
    for (const std::string& fret : chord.Frets) file.Text(fret.empty() ? " " : fret);
    return file.Bytes();
}

std::optional<ChordRec> ReadChord(std::string_view bytes) {
    try {
        LineReader file(bytes);
        ChordRec chord;
        chord.ChordFlag = file.Text() == "1";
        chord.BaseFret = file.Number(0, MostFret);
        chord.NumStrings = file.Number(LeastStrings, MostStrings);
        for (std::int16_t& pitch : chord.Tuning) pitch = file.NumberOr(pitch, 0, MostPitch);
        for (std::int16_t& finger : chord.Fingers) finger = file.NumberOr(0, 0, Thumb);
        for (std::string& fret : chord.Frets) fret = FretText(file.Text());
        return chord;
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

std::string FileNameOf(std::string_view name) {
    std::string result;
    for (const char letter : Core::TrimBlanks(name)) {
        const bool forbidden = std::string_view("/\\:*?\"<>|").find(letter) != std::string_view::npos;
        if (!forbidden && static_cast<unsigned char>(letter) >= ' ') result += letter;
    }
    constexpr std::size_t MostBytes = 200;  // file systems take 255, some that encipher names less
    if (result.size() > MostBytes) {
        result.resize(MostBytes + 1);
        while (IsInsideLetter(result.back())) result.pop_back();
        result.pop_back();
    }
    while (!result.empty() && (result.front() == '.' || result.front() == ' ')) result.erase(0, 1);
    while (!result.empty() && (result.back() == '.' || result.back() == ' ')) result.pop_back();
    return result;
}

void SaveChord(const std::string& name, const ChordRec& chord) {
    EnsureChords();
    Services.Files->Replace(Chords.FileOf(name), WriteChord(chord));
}

std::vector<NamedBytes> DefaultChords() {
    std::vector<NamedBytes> files;
    for (const auto& row : TableRows("Chords")) {
        constexpr std::size_t FirstFret = 2;
        constexpr int Strings = 6;
        Row<std::string, StringCount> frets;
        for (int string = 0; string < Strings; ++string) {
            frets[string] = row.at(FirstFret + static_cast<std::size_t>(string));
        }
        files.push_back({std::string(row.at(1)), WriteChord(MakeChord(Strings, false, frets))});
    }
    return files;
}

void CreateAllChords() {
    Services.Files->MakeFolder(Services.BaseFolder / "Data");
    Services.Files->ReplaceFolder(Chords.Folder(), DefaultChords());
}

void EnsureChords() {
    if (!Services.Files->Exists(Chords.Folder())) CreateAllChords();
}

}  // namespace Quillon::Library
