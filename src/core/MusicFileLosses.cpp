// What a save would lose: found before anything is written.
#include <array>
#include <string>
#include <vector>

#include "core/MusicFileTags.h"
#include "core/mod_Common.h"
#include "core/mod_Language.h"

namespace Quillon::Core {

using namespace MusicTags;

namespace {

constexpr Place NoPlace{-1, -1, -1, -1};

template <class Record>
void InspectRows(std::vector<Loss>& losses, std::span<const TagRow<Record>> rows, const Record& record,
                 const Place& place) {
    TextInspector io(losses, place);
    for (const TagRow<Record>& row : rows) {
        if (row.Due(record)) row.Inspect(io, record);
    }
}

/// Syllables travel joined in one text, so what joins them is reserved too.
void InspectSyllables(std::vector<Loss>& losses, const Strum& strum, const Place& place) {
    for (const std::string& syllable : strum.Syllables.Read()) {
        if (syllable.empty()) continue;
        TextInspector(losses, place).Field(syllable, '>');
        if (syllable == "`" || syllable.find("££$") != std::string::npos) {
            losses.push_back({LossKind::ReservedText, place.Track, place.Bar, place.Strum, syllable});
        }
    }
}

void InspectStrum(std::vector<Loss>& losses, const Strum& strum, const Place& place) {
    InspectRows(losses, StrumTags(), strum, place);
    for (int s = 0; s < StringCount; ++s) {
        if (strum.Notes.IsDefault(s)) continue;
        InspectRows(losses, NoteTags(), strum.Notes[s], place);
        if (strum.Notes[s].Harmonic != 0) {
            losses.push_back({LossKind::Harmonic, place.Track, place.Bar, place.Strum, ""});
        }
    }
}

bool SameHashMarks(const Bar& a, const Bar& b) {
    for (int s = 0; s < a.Strums().Count(); ++s) {
        if (a.Strums()[s].Hash != b.Strums()[s].Hash) return false;
    }
    return true;
}

void InspectTrack(std::vector<Loss>& losses, const Track& track, int index) {
    Place place = NoPlace;
    place.Track = index;
    InspectRows(losses, TrackTags(), track, place);
    InspectRows(losses, PropertyTags(), track, place);
    std::vector<int> writtenAs = EqualEarlierBars(track);  // followed to the bar that is written whole
    for (place.Bar = 0; place.Bar < track.Bars.Count(); ++place.Bar) {
        const Bar& bar = track.Bars[place.Bar];
        int& source = writtenAs[static_cast<std::size_t>(place.Bar)];
        const bool isCopy = source >= 0;
        if (isCopy && writtenAs[static_cast<std::size_t>(source)] >= 0) {
            source = writtenAs[static_cast<std::size_t>(source)];
        }
        if (isCopy && !SameHashMarks(bar, track.Bars[source])) {
            losses.push_back({LossKind::HashMarks, index, place.Bar, -1, ""});
        }
        for (place.Strum = 0; place.Strum < bar.Strums().Count(); ++place.Strum) {
            const Strum& strum = bar.Strums()[place.Strum];
            if (!isCopy) InspectStrum(losses, strum, place);
            InspectSyllables(losses, strum, place);
        }
        place.Strum = -1;
    }
}

std::string PlaceText(const Loss& loss) {
    // People count from 1.
    const std::string track = std::to_string(loss.Track + 1);
    const std::string bar = std::to_string(loss.Bar + 1);
    if (loss.Track < 0) return LanguageText("str_PlaceFile");
    if (loss.Bar < 0) return LanguageText("str_PlaceTrack", {track});
    if (loss.Strum < 0) return LanguageText("str_PlaceBar", {track, bar});
    return LanguageText("str_PlaceBeat", {track, bar, std::to_string(loss.Strum + 1)});
}

}  // namespace

std::vector<Loss> SaveLosses(const TabFile& file) {
    std::vector<Loss> losses;
    InspectRows(losses, HeaderTags(), file, NoPlace);
    for (int t = 0; t < file.Tracks.Count(); ++t) InspectTrack(losses, file.Tracks[t], t);
    return losses;
}

std::string LossText(const Loss& loss) {
    static constexpr std::array<std::string_view, 4> keys = {"str_LossHarmonic", "str_LossHashMarks",
                                                             "str_LossReservedText", "str_LossUnknownCharacter"};
    return LanguageText(keys[static_cast<std::size_t>(loss.Kind)], {PlaceText(loss), loss.Text});
}

}  // namespace Quillon::Core
