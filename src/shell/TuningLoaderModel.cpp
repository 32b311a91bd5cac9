#include "shell/TuningLoaderModel.h"

#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_Retune.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;
using Core::StringCount;
using Library::Tunings;

namespace {

bool HasTuning(const Core::Track& track, const Library::TuningRec& tuning) {
    if (track.Strings != tuning.NumStrings) return false;
    for (int s = 0; s < tuning.NumStrings; ++s) {
        if (track.Tuning[s] != tuning.Tuning[s]) return false;
    }
    return true;
}

Editing::Retuning Retuning(const Library::TuningRec& tuning) { return {tuning.Tuning, tuning.NumStrings}; }

}  // namespace

void TuningLoaderModel::Load() {
    const bool handsOver = HandsOver;
    *this = {};
    HandsOver = handsOver;
    Track = Open.CurTrack;
    Library::EnsureTunings();
    Tunings.Refresh();
    Names = Tunings.Names();
    std::erase_if(Names, [](const std::string& name) { return !Tunings.Find(name); });
    const auto found = std::ranges::find_if(
        Names, [&](const std::string& name) { return HasTuning(Open.TabFile.Tracks[Track], *Tunings.Find(name)); });
    if (found != Names.end()) Chosen = *found;
}

const Library::TuningRec* TuningLoaderModel::Tuning() const { return Chosen.empty() ? nullptr : Tunings.Find(Chosen); }

std::string TuningLoaderModel::NotesText() const {
    const Library::TuningRec* const tuning = Tuning();
    std::string text;
    for (int s = tuning ? tuning->NumStrings - 1 : -1; s >= 0; --s) {
        text += (text.empty() ? "" : "  ") + Core::NoteName(Core::DefaultStringPitch(s) + tuning->Tuning[s]);
    }
    return text;
}

int TuningLoaderModel::LostNotes() const {
    const Library::TuningRec* const tuning = Tuning();
    return tuning ? Editing::NotesOnLostStrings(Open.TabFile.Tracks[Track], tuning->NumStrings) : 0;
}

std::string_view TuningLoaderModel::Validate() const {
    const Library::TuningRec* const tuning = Tuning();
    if (!tuning) return "str_TuningNoneChosen";
    if (HandsOver || LostNotes() == 0) return "";
    Core::TabFile trial = Open.TabFile;
    return Editing::Retune(trial, Track, Retuning(*tuning)) ? "str_TuningNotesLost" : "";
}

bool TuningLoaderModel::Apply() const {
    const Library::TuningRec* const tuning = Tuning();
    if (!tuning) return false;
    const Core::TabFile before = Open.TabFile;
    if (LostNotes() > 0 && Editing::Retune(Open.TabFile, Track, Retuning(*tuning))) return false;
    Core::Row<std::int16_t, StringCount> fromLowest;
    for (int s = 0; s < StringCount; ++s) fromLowest[s] = tuning->Tuning[StringCount - 1 - s];
    Core::SetTrackTuning(Track, fromLowest, tuning->NumStrings);
    if (Open.TabFile == before) return false;
    MarkEdited();
    Editing::ClampCursor();
    return true;
}

}  // namespace Quillon::Shell
