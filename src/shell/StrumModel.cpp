#include "shell/StrumModel.h"

#include "core/mod_TabFileManipulation.h"
#include "playback/mod_Audition.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::Open;

void StrumModel::Load() {
    place = {Open.CurTrack, Open.CurBar, Open.CurStrum};
    stringHere = Open.CurString;
    before = Core::ReadStrum(place.Track, place.Bar, place.Strum);
    Remove = false;
}

const Core::Track& StrumModel::ItsTrack() const { return Open.TabFile.Tracks[place.Track]; }

Core::Strum StrumModel::After() const {
    Core::Strum after = before;
    Remove ? Clear(after) : Write(after);
    return after;
}

bool StrumModel::Apply() const {
    Playback::EndAudition();
    Core::Strum after = After();
    if (!Remove) Remember();
    if (after == before) return false;
    Core::EditStrum(place.Track, place.Bar, place.Strum) = std::move(after);
    MarkEdited();
    return true;
}

Core::TabFile StrumModel::Changed() const {
    Core::TabFile file = Open.TabFile;
    file.Tracks[place.Track].Bars.Edit(place.Bar).EditStrums()[place.Strum] = After();
    return file;
}

Drawing::ExcerptOf StrumModel::Shown() const {
    return {.Track = place.Track, .Bar = place.Bar, .Strum = place.Strum, .TabAlone = true};
}

void StrumModel::Listen() const { Playback::Audition(Changed(), place); }

}  // namespace Quillon::Shell
