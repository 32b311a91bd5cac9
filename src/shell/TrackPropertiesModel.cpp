#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "shell/DialogModels.h"

namespace Quillon::Shell {

using Core::Open;
using Core::PercAssignment;
using Core::StringCount;

namespace {

constexpr int MostVolume = 127;
constexpr int MostChannel = 15;
constexpr int MostCapo = 24;

bool InRange(int value, int most) { return value >= 0 && value <= most; }

/// The track that the model stands for, its tuning taken from the note names.
Core::Track Result(const TrackPropertiesModel& model) {
    Core::Track track = model.Track;
    for (int s = 0; s < StringCount; ++s) {
        const int pitch = Core::PitchOfNoteName(model.OpenNotes[s]);
        // A name left as it was loaded may stand for a pitch that no name can be typed for.
        if (pitch >= 0) track.Tuning[s] = Core::ToInt16(pitch - Core::StandardPitches[s]);
    }
    const Core::Track& before = Open.TabFile.Tracks[model.Index];
    track.Bars = before.Bars;
    // A track that becomes one of drums has letters that sound, unless some were chosen.
    const bool silent = track.PercStrings == Core::Row<PercAssignment, StringCount>();
    if (track.IsDrum && !before.IsDrum && silent) track.PercStrings = Editing::DefaultDrumSounds();
    return track;
}

}  // namespace

void TrackPropertiesModel::Load(int track) {
    Index = track;
    Track = Open.TabFile.Tracks[track];
    for (int s = 0; s < StringCount; ++s) OpenNotes[s] = Core::NoteName(Core::OpenPitch(Track, s));
    TrackNames.clear();
    for (const Core::Track& each : Open.TabFile.Tracks) TrackNames.push_back(each.Name);
}

void TrackPropertiesModel::ChooseInstrument(int program) {
    if (!InRange(program, static_cast<int>(Core::InstrumentNames().size()) - 1)) RaiseSubscriptOutOfRange();
    Track.Instrument = static_cast<std::int16_t>(program);
    Track.InstrumentName = Core::InstrumentNames()[static_cast<std::size_t>(program)];
}

std::string_view TrackPropertiesModel::Validate() const {
    // An odd value that the file came with stays, and keeps nobody from changing another.
    const Core::Track& before = Open.TabFile.Tracks[Index];
    const auto wrong = [&](auto field, int most) {
        return Track.*field != before.*field && !InRange(Track.*field, most);
    };
    if (Track.Name != before.Name && HoldsFileSigns(Track.Name)) return "str_TextReserved";
    if (wrong(&Core::Track::Volume, MostVolume) || wrong(&Core::Track::ChordVolume, MostVolume)) {
        return "str_VolumeOutOfRange";
    }
    if (wrong(&Core::Track::Instrument, 127)) return "str_InstrumentOutOfRange";
    if (wrong(&Core::Track::Channel, MostChannel) || wrong(&Core::Track::EffectChannel, MostChannel)) {
        return "str_ChannelOutOfRange";
    }
    if (Track.Strings != before.Strings && (Track.Strings < 1 || Track.Strings > StringCount)) {
        return "str_StringsOutOfRange";
    }
    if (wrong(&Core::Track::Capo, MostCapo)) return "str_CapoOutOfRange";
    for (int s = 0; s < std::min<int>(Track.Strings, StringCount); ++s) {
        const bool unchanged = OpenNotes[s] == Core::NoteName(Core::OpenPitch(Track, s));
        if (!unchanged && Core::PitchOfNoteName(OpenNotes[s]) < 0) return "str_TuningUnknown";
    }
    const bool lyricsAreNew =
        Track.LyricsOfOtherTrack != before.LyricsOfOtherTrack || Track.LyricsTrack != before.LyricsTrack;
    if (lyricsAreNew && Track.LyricsOfOtherTrack == 1 &&
        !InRange(Track.LyricsTrack, Open.TabFile.Tracks.UpperBound())) {
        return "str_LyricsTrackMissing";
    }
    if (Track.OctaveUp && Track.OctaveDown) return "str_OctaveBothWays";
    if (!Track.ShowTreble && !Track.ShowBass && !Track.ShowTab) return "str_NothingShown";
    const int mostSound = static_cast<int>(Core::DrumSoundNames().size()) - 1;
    for (int s = 0; s < StringCount; ++s) {
        const PercAssignment& now = Track.PercStrings[s];
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
            const bool isNew = now.*letter.Sound != before.PercStrings[s].*letter.Sound;
            if (isNew && !InRange(now.*letter.Sound, mostSound)) return "str_DrumSoundOutOfRange";
        }
    }
    return "";
}

bool TrackPropertiesModel::Apply() const {
    Core::Track track = Result(*this);
    if (track == Open.TabFile.Tracks[Index]) return false;
    Open.TabFile.Tracks[Index] = std::move(track);
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    Editing::ClampCursor();
    return true;
}

}  // namespace Quillon::Shell
