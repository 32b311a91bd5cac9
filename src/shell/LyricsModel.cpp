#include "shell/LyricsModel.h"

#include <algorithm>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "shell/CursorText.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LyricLines;
using Core::Open;

namespace {

/// What a music file can't hold of a syllable: the text key of the complaint, or "".
std::string_view Loss(const std::string& syllable) {
    Core::TabFile file;
    file.Tracks[0].Bars.Edit(0).EditStrums()[0].Syllables.Edit()[0] = syllable;
    const auto losses = Core::SaveLosses(file);
    if (losses.empty()) return "";
    return losses.front().Kind == Core::LossKind::UnknownCharacter ? "str_LyricsUnknownCharacter"
                                                                   : "str_LyricsReservedText";
}

}  // namespace

void LyricsModel::Load() {
    *this = {};
    Track = Open.CurTrack;
    const Core::Track& track = Open.TabFile.Tracks[Track];
    Places = Editing::LyricPlaces(track);
    for (std::size_t place = 0; place < Places.size(); ++place) {
        Grid.push_back(StrumAt(place).Syllables.Read());
        const auto& [bar, strum] = Places[place];
        if (std::pair(bar, strum) < std::pair<int, int>(Open.CurBar, Open.CurStrum)) ++Cursor;
    }
    OfOther = track.LyricsOfOtherTrack == 1;
    LyricsTrack = track.LyricsTrack;
    ShowStaff = track.ShowStaff;
    for (const Core::Track& each : Open.TabFile.Tracks) TrackNames.push_back(each.Name);
}

const Core::Strum& LyricsModel::StrumAt(std::size_t place) const {
    return Open.TabFile.Tracks[Track].Bars[Places.at(place).Bar].Strums()[Places.at(place).Strum];
}

std::string LyricsModel::LineText(int line) const {
    std::vector<std::string> syllables;
    for (auto place = static_cast<std::size_t>(FirstPlace()); place < Grid.size(); ++place) {
        syllables.push_back(Grid[place][line]);
    }
    const auto& more = rest.at(static_cast<std::size_t>(line));
    syllables.insert(syllables.end(), more.begin(), more.end());
    return Editing::JoinLyrics(syllables);
}

void LyricsModel::SetLineText(int line, std::string_view text) {
    std::vector<std::string> syllables = Editing::DivideLyrics(text);
    while (!syllables.empty() && syllables.back().empty()) syllables.pop_back();
    std::size_t next = 0;
    for (auto place = static_cast<std::size_t>(FirstPlace()); place < Grid.size(); ++place, ++next) {
        Grid[place][line] = next < syllables.size() ? syllables[next] : std::string();
    }
    syllables.erase(syllables.begin(),
                    syllables.begin() + static_cast<std::ptrdiff_t>(std::min(next, syllables.size())));
    rest.at(static_cast<std::size_t>(line)) = std::move(syllables);
}

bool LyricsModel::MoveSyllable(int line, int place, int by) {
    const int count = static_cast<int>(Grid.size());
    const auto at = [&](int index) -> std::string& { return Grid[static_cast<std::size_t>(index)][line]; };
    if (place < 0 || place >= count || at(place).empty()) return false;
    int gap = place;
    while (gap >= 0 && gap < count && !at(gap).empty()) gap += by;
    if (gap < 0 || gap >= count) return false;
    for (; gap != place; gap -= by) std::swap(at(gap), at(gap - by));
    return true;
}

std::string LyricsModel::BarText(int place) const {
    return std::to_string(Places.at(static_cast<std::size_t>(place)).Bar + 1);
}

std::string LyricsModel::BeatText(int place) const {
    const auto& [bar, strum] = Places.at(static_cast<std::size_t>(place));
    return Core::FormatDouble(BeatOf(Track, bar, strum));
}

std::string LyricsModel::NotesText(int place) const {
    std::string text;
    for (int string = Core::StringCount - 1; string >= 0; --string) {
        const std::string& fret = StrumAt(static_cast<std::size_t>(place)).Notes[string].Fret;
        if (!fret.empty()) text += (text.empty() ? "" : " ") + fret;
    }
    return text;
}

std::string_view LyricsModel::Complaint(std::string* about) const {
    const auto tell = [about](const std::string& text) {
        if (about) *about = text;
    };
    for (std::size_t line = 0; line < rest.size(); ++line) {
        if (rest[line].empty()) continue;
        tell(rest[line].front());
        return "str_LyricsTooLong";
    }
    for (std::size_t place = 0; place < Grid.size(); ++place) {
        const Syllables& before = StrumAt(place).Syllables.Read();
        for (int line = 0; line < LyricLines; ++line) {
            // What the file came with stays, and keeps nobody from changing another.
            const std::string& syllable = Grid[place][line];
            if (syllable.empty() || syllable == before[line]) continue;
            const std::string_view loss = Loss(syllable);
            if (loss.empty()) continue;
            tell(syllable);
            return loss;
        }
    }
    const Core::Track& track = Open.TabFile.Tracks[Track];
    const bool isNew = OfOther != (track.LyricsOfOtherTrack == 1) || LyricsTrack != track.LyricsTrack;
    if (OfOther && isNew && (LyricsTrack < 0 || LyricsTrack > Open.TabFile.Tracks.UpperBound())) {
        return "str_LyricsTrackMissing";
    }
    return "";
}

std::string_view LyricsModel::Validate() const { return Complaint(nullptr); }

std::string LyricsModel::ComplaintText(std::string_view key) const {
    std::string about;
    Complaint(&about);
    return Core::LanguageText(key, {about});
}

bool LyricsModel::Apply() const {
    Core::Track& track = Open.TabFile.Tracks[Track];
    bool changed = false;
    for (std::size_t place = 0; place < Grid.size(); ++place) {
        if (StrumAt(place).Syllables.Read() == Grid[place]) continue;
        const auto& [bar, strum] = Places[place];
        track.Bars.Edit(bar).EditStrums()[strum].Syllables.Edit() = Grid[place];
        changed = true;
    }
    const auto set = [&changed](auto& field, auto value) {
        changed = changed || field != value;
        field = value;
    };
    // Any other number than 1 shows the track's own lyrics.
    if (OfOther != (track.LyricsOfOtherTrack == 1)) set(track.LyricsOfOtherTrack, std::int16_t{OfOther});
    set(track.LyricsTrack, LyricsTrack);
    set(track.ShowStaff, ShowStaff);
    if (changed) MarkEdited();
    return changed;
}

}  // namespace Quillon::Shell
