#include <algorithm>
#include <array>

#include "core/mod_Common.h"
#include "library/LineFile.h"
#include "library/mod_Tunings.h"

namespace Quillon::Library {

using Core::StringCount;

TuningLibrary Tunings{std::filesystem::path("Data") / "My Tunings", ReadTuning};

namespace {

constexpr int Standard = 12;    ///< value of a string that is as usual
constexpr int MostValue = 127;  ///< far past any string

struct DefaultTuning {
    const char* Name;
    std::array<int, StringCount> Values;  ///< as in the file, the lowest string first
};

/// "Open F" and "Open G" come twice: the library holds the second of each, as it always did.
constexpr DefaultTuning Defaults[] = {
    {"Standard Tuning", {12, 12, 12, 12, 12, 12, 12}}, {"Dropped D", {12, 10, 12, 12, 12, 12, 12}},
    {"Open A", {12, 12, 12, 14, 14, 14, 12}},          {"Open C", {12, 8, 10, 10, 12, 13, 12}},
    {"Open C Minor", {12, 8, 10, 10, 12, 13, 11}},     {"Open D", {12, 10, 12, 12, 11, 10, 10}},
    {"Open D Minor", {12, 10, 12, 12, 10, 10, 10}},    {"Open Dsus4", {12, 10, 12, 12, 12, 10, 10}},
    {"Open E", {12, 12, 14, 14, 13, 12, 12}},          {"Open E Minor", {12, 12, 14, 14, 12, 12, 12}},
    {"Open Esus11", {12, 12, 12, 14, 12, 12, 12}},     {"Open F", {12, 8, 8, 10, 10, 10, 8}},
    {"Open F", {12, 13, 12, 10, 10, 13, 13}},          {"Open G", {12, 10, 10, 12, 12, 12, 10}},
    {"Open G", {12, 15, 14, 12, 12, 12, 10}},          {"Alternate I", {12, 12, 10, 12, 9, 10, 12}},
    {"Alternate II", {12, 8, 10, 12, 14, 5, 15}},      {"Alternate III", {12, 8, 10, 12, 12, 12, 12}},
    {"Nashville", {12, 24, 24, 24, 24, 12, 12}},       {"Down a step", {11, 11, 11, 11, 11, 11, 11}},
    {"Down 2 steps", {10, 10, 10, 10, 10, 10, 10}},    {"Up a step", {13, 13, 13, 13, 13, 13, 13}},
    {"Up 2 steps", {14, 14, 14, 14, 14, 14, 14}},      {"6 String Bass", {12, 7, 7, 7, 7, 8, 8}},
};

}  // namespace

std::string WriteTuning(const TuningRec& tuning) {
    LineWriter file;
    file.Number(tuning.NumStrings);
    for (int string = StringCount - 1; string >= 0; --string) file.Number(tuning.Tuning[string] + Standard);
    return file.Bytes();
}

std::optional<TuningRec> ReadTuning(std::string_view bytes) {
    try {
        LineReader file(bytes);
        TuningRec tuning;
        tuning.NumStrings = file.Number(1, StringCount);
        for (int string = StringCount - 1; string >= 0; --string) {
            tuning.Tuning[string] = Core::ToInt16(file.NumberOr(Standard, -MostValue, MostValue) - Standard);
        }
        return tuning;
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

std::vector<NamedBytes> DefaultTunings() {
    std::vector<NamedBytes> files;
    for (const DefaultTuning& each : Defaults) {
        TuningRec tuning;
        for (int line = 0; line < StringCount; ++line) {
            tuning.Tuning[StringCount - 1 - line] =
                Core::ToInt16(each.Values.at(static_cast<std::size_t>(line)) - Standard);
        }
        std::erase_if(files, [&each](const NamedBytes& file) { return file.Name == each.Name; });
        files.push_back({each.Name, WriteTuning(tuning)});
    }
    return files;
}

void CreateAllTunings() { WriteDefaults(Tunings.Folder(), DefaultTunings()); }

void EnsureTunings() {
    if (!Services.Files->Exists(Tunings.Folder())) CreateAllTunings();
}

void SaveTuning(const std::string& name, const TuningRec& tuning) {
    EnsureTunings();
    Services.Files->Replace(Tunings.FileOf(name), WriteTuning(tuning));
}

}  // namespace Quillon::Library
