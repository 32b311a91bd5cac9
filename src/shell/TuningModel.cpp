#include "shell/TuningModel.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;
using Core::StandardPitches;
using Core::StringCount;

namespace {

constexpr CommonTuning Tunings[] = {
    {"str_TuningStandard", 6, {64, 59, 55, 50, 45, 40}},
    {"str_TuningHalfDown", 6, {63, 58, 54, 49, 44, 39}},
    {"str_TuningWholeDown", 6, {62, 57, 53, 48, 43, 38}},
    {"str_TuningDropD", 6, {64, 59, 55, 50, 45, 38}},
    {"str_TuningDropC", 6, {62, 57, 53, 48, 43, 36}},
    {"str_TuningDoubleDropD", 6, {62, 59, 55, 50, 45, 38}},
    {"str_TuningDADGAD", 6, {62, 57, 55, 50, 45, 38}},
    {"str_TuningOpenG", 6, {62, 59, 55, 50, 43, 38}},
    {"str_TuningOpenD", 6, {62, 57, 54, 50, 45, 38}},
    {"str_TuningOpenE", 6, {64, 59, 56, 52, 47, 40}},
    {"str_TuningOpenC", 6, {64, 60, 55, 48, 43, 36}},
    {"str_TuningSeven", 7, {64, 59, 55, 50, 45, 40, 35}},
    {"str_TuningSevenDropA", 7, {64, 59, 55, 50, 45, 40, 33}},
    {"str_TuningBass4", 4, {43, 38, 33, 28}},
    {"str_TuningBass5", 5, {43, 38, 33, 28, 23}},
    {"str_TuningBass6", 6, {48, 43, 38, 33, 28, 23}},
    {"str_TuningBanjo", 5, {62, 59, 55, 50, 67}},
    {"str_TuningUkulele", 4, {69, 64, 60, 67}},
    {"str_TuningMandolin", 4, {76, 69, 62, 55}},
};

/// The pitch that a text means for a string: a note's name, or semitones from the string's standard pitch.
std::optional<int> PitchOf(const std::string& typed, int string) {
    const std::string text(Core::TrimBlanks(typed));
    constexpr int Highest = 127;
    int pitch = Core::PitchOfNoteName(text);
    if (pitch < 0 && text.find_first_not_of("+-0123456789") == std::string::npos) {
        try {
            pitch = StandardPitches[string] + Core::ParseInt16(text);
        } catch (const RunTimeError&) {
            return {};
        }
    }
    if (pitch < 0 || pitch > Highest) return {};
    return pitch;
}

}  // namespace

std::span<const CommonTuning> CommonTunings() { return Tunings; }

void TuningModel::Load() {
    *this = {};
    Track = Open.CurTrack;
    const Core::Track& track = Open.TabFile.Tracks[Track];
    Strings = track.Strings;
    Capo = track.Capo;
    for (int s = 0; s < StringCount; ++s) OpenNotes[s] = Core::NoteName(Core::OpenPitch(track, s));
}

void TuningModel::Choose(const CommonTuning& tuning) {
    Strings = tuning.Strings;
    for (int s = 0; s < tuning.Strings; ++s) OpenNotes[s] = Core::NoteName(tuning.Pitches[s]);
}

void TuningModel::Take(const Library::TuningRec& tuning) {
    Strings = tuning.NumStrings;
    for (int s = 0; s < tuning.NumStrings; ++s) OpenNotes[s] = Core::NoteName(StandardPitches[s] + tuning.Tuning[s]);
}

std::string TuningModel::OffsetText(int string) const {
    const auto pitch = PitchOf(OpenNotes[string], string);
    const int offset = pitch ? *pitch - StandardPitches[string] : 0;
    if (offset == 0) return "";
    return (offset > 0 ? "+" : "\u2212") + std::to_string(std::abs(offset));
}

int TuningModel::Chosen() const {
    const auto stands = [this](const CommonTuning& tuning) {
        if (tuning.Strings != Strings) return false;
        for (int s = 0; s < tuning.Strings; ++s) {
            if (PitchOf(OpenNotes[s], s) != tuning.Pitches[s]) return false;
        }
        return true;
    };
    const auto* const found = std::ranges::find_if(Tunings, stands);
    return found == std::end(Tunings) ? -1 : static_cast<int>(found - std::begin(Tunings));
}

int TuningModel::LostNotes() const { return Editing::NotesOnLostStrings(Open.TabFile.Tracks[Track], Strings); }

Editing::Retuning TuningModel::Wanted() const {
    Editing::Retuning wanted{Open.TabFile.Tracks[Track].Tuning, Strings, Keep == 1,
                             static_cast<Editing::LostNotes>(Lost)};
    for (int s = 0; s < StringCount; ++s) {
        // A string left as it was may sound where no name can be typed for it.
        if (const auto pitch = PitchOf(OpenNotes[s], s)) wanted.Tuning[s] = Core::ToInt16(*pitch - StandardPitches[s]);
    }
    return wanted;
}

std::string_view TuningModel::Validate() const {
    const Core::Track& before = Open.TabFile.Tracks[Track];
    if (Strings != before.Strings && (Strings < 1 || Strings > StringCount)) return "str_StringsOutOfRange";
    if (Capo != before.Capo && (Capo < 0 || Capo > MostCapo)) return "str_CapoOutOfRange";
    for (int s = 0; s < std::min<int>(Strings, StringCount); ++s) {
        const bool unchanged = OpenNotes[s] == Core::NoteName(Core::OpenPitch(before, s));
        if (!unchanged && !PitchOf(OpenNotes[s], s)) return "str_StringPitchUnknown";
    }
    Core::TabFile trial = Open.TabFile;
    return Editing::Retune(trial, Track, Wanted()) ? "str_RetuneUnplayable" : "";
}

std::string TuningModel::ComplaintText(std::string_view key) const {
    Core::TabFile trial = Open.TabFile;
    const auto stuck = key == "str_RetuneUnplayable" ? Editing::Retune(trial, Track, Wanted()) : std::nullopt;
    if (!stuck) return Core::LanguageText(key);
    return Core::LanguageText(key, {std::to_string(stuck->Bar + 1), std::to_string(stuck->Strum + 1)});
}

bool TuningModel::Apply() const {
    const Core::TabFile before = Open.TabFile;
    if (Editing::Retune(Open.TabFile, Track, Wanted())) return false;
    Open.TabFile.Tracks[Track].Capo = Capo;
    if (Open.TabFile == before) return false;
    MarkEdited();
    Editing::ClampCursor();
    return true;
}

}  // namespace Quillon::Shell
