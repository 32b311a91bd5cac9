#include <algorithm>
#include <array>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "core/mod_Language.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_NoteEntry.h"
#include "shell/BarModels.h"

namespace Quillon::Shell {

using Core::Open;

namespace {

constexpr std::int16_t DrumChannel = 9;

/// Two channels that no track uses; the first two when all are taken.
std::array<std::int16_t, 2> FreeChannels() {
    constexpr std::int16_t Channels = 16;
    std::array<std::int16_t, 2> free = {0, 1};
    std::size_t found = 0;
    for (std::int16_t channel = 0; channel < Channels && found < free.size(); ++channel) {
        const auto uses = [channel](const Core::Track& track) {
            return track.Channel == channel || track.EffectChannel == channel;
        };
        const auto& tracks = Open.TabFile.Tracks;
        if (channel != DrumChannel && std::none_of(tracks.begin(), tracks.end(), uses)) free[found++] = channel;
    }
    if (found == 1) free[1] = free[0];
    return free;
}

}  // namespace

std::string AddTrackModel::SuggestedName(bool drum) {
    if (drum) return Core::LanguageText("str_DrumTrackName");
    return Core::LanguageText("str_TrackNumbered", {std::to_string(Open.TabFile.Tracks.Count() + 1)});
}

void AddTrackModel::Load() {
    *this = {};
    Name = SuggestedName(false);
    const Core::Track& current = Open.TabFile.Tracks[Open.CurTrack];
    if (!current.IsDrum) Instrument = std::clamp<std::int16_t>(current.Instrument, 0, 127);
}

std::string_view AddTrackModel::Validate() const {
    if (Core::TrimBlanks(Name).empty()) return "str_TrackNameMissing";
    if (HoldsFileSigns(Name)) return "str_TextReserved";
    if (Instrument < 0 || Instrument > 127) return "str_InstrumentOutOfRange";
    if (Strings < 1 || Strings > Core::StringCount) return "str_StringsOutOfRange";
    return "";
}

void AddTrackModel::Apply() const {
    Core::Track track;
    track.Name = Name;
    track.Strings = Strings;
    if (IsDrum) {
        track.IsDrum = true;
        track.PercStrings = Editing::DefaultDrumSounds();
        track.Channel = track.EffectChannel = DrumChannel;
    } else {
        track.Instrument = Instrument;
        track.InstrumentName = Core::InstrumentNames()[static_cast<std::size_t>(Instrument)];
        const auto free = FreeChannels();
        track.Channel = free[0];
        track.EffectChannel = free[1];
    }
    Editing::AddTrack(std::move(track));
}

}  // namespace Quillon::Shell
