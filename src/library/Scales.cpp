#include <algorithm>

#include "core/mod_Common.h"
#include "library/BuiltInTables.h"
#include "library/LineFile.h"
#include "library/mod_Scales.h"

namespace Quillon::Library {

ScaleLibrary Scales{std::filesystem::path("Data") / "My Scales", ReadScale};

namespace {

constexpr std::int16_t MostPitch = 127;

}  // namespace

ScaleRec MakeScale(std::string_view keywords, const std::vector<std::string_view>& digits) {
    ScaleRec scale;
    scale.Keywords = keywords;
    for (std::size_t string = 0; string < digits.size(); ++string) {
        for (const char digit : digits[string]) {
            const int position = digit - '0';
            if (position >= 0 && position < PatternFrets) {
                scale.Pattern.at(string).set(static_cast<std::size_t>(position));
            }
        }
    }
    return scale;
}

std::string WriteScale(const ScaleRec& scale) {
    LineWriter file;
    file.Number(scale.NumStrings);
    for (const auto& string : scale.Pattern) {
        for (std::size_t position = 0; position < string.size(); ++position) file.Number(string.test(position) ? 1 : 0);
    }
    for (const std::int16_t pitch : scale.Tuning) file.Number(pitch);
    file.Text(scale.Keywords);
    return file.Bytes();
}

std::optional<ScaleRec> ReadScale(std::string_view bytes) {
    try {
        LineReader file(bytes);
        ScaleRec scale;
        scale.NumStrings = file.Number(1, StringCount);
        for (auto& string : scale.Pattern) {
            for (std::size_t position = 0; position < string.size(); ++position) {
                string.set(position, file.Number(0, 1) == 1);
            }
        }
        for (std::int16_t& pitch : scale.Tuning) pitch = file.NumberOr(pitch, 0, MostPitch);
        scale.Keywords = file.Text();
        return scale;
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

std::vector<NamedBytes> DefaultScales() {
    std::vector<NamedBytes> files;
    for (const auto& row : TableRows("Scales")) {
        files.push_back({std::string(row.at(0)), WriteScale(MakeScale(row.at(1), {row.begin() + 2, row.end()}))});
    }
    return files;
}

void CreateAllScales() { WriteDefaults(Scales.Folder(), DefaultScales()); }

void EnsureScales() {
    if (!Services.Files->Exists(Scales.Folder())) CreateAllScales();
}

void SaveScale(const std::string& name, const ScaleRec& scale) {
    EnsureScales();
    Services.Files->Replace(Scales.FileOf(name), WriteScale(scale));
}

std::vector<std::string> FilteredScales(ScaleLibrary& library, const ScaleFilter& filter) {
    using Kind = ScaleFilter::Kind;
    const std::string text = Searchable(filter.Text);
    const auto passes = [&](const std::string& name) {
        if (filter.By == Kind::Name) return Searchable(name).find(text) != std::string::npos;
        const ScaleRec* const scale = library.Find(name);
        if (!scale) return false;
        if (filter.By == Kind::Strings) return scale->NumStrings == filter.Strings;
        return Searchable(scale->Keywords).find(text) != std::string::npos;
    };
    if (filter.By == Kind::All) return library.Names();
    std::vector<std::string> names;
    std::ranges::copy_if(library.Names(), std::back_inserter(names), passes);
    return names;
}

}  // namespace Quillon::Library
