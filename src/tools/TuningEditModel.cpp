#include "tools/TuningEditModel.h"

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "library/NoteRun.h"
#include "library/mod_Chords.h"
#include "library/mod_Tuner.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "tools/Questions.h"

namespace Quillon::Tools {

using Library::TunerReach;
using Library::Tunings;

void TuningEditModel::LoadEditor(const std::string& name, const Library::TuningRec& tuning) {
    *this = {};
    Before = Name = name;
    Tuning = tuning;
}

std::vector<std::string> TuningEditModel::NotesOf(int string) {
    std::vector<std::string> notes;
    for (int offset = -TunerReach; offset <= TunerReach; ++offset) {
        notes.push_back(Core::NoteName(Core::DefaultStringPitch(string) + offset));
    }
    return notes;
}

void TuningEditModel::Sound(int string) const {
    constexpr std::int16_t SteelGuitar = 25;
    Library::PlayRun({.Pitches = {Core::DefaultStringPitch(string) + Tuning.Tuning[string]}, .Program = SteelGuitar});
}

std::string_view TuningEditModel::Validate() const {
    return Library::FileNameOf(Name).empty() ? "str_TuningNameMissing" : "";
}

bool TuningEditModel::Apply() {
    Name = Library::FileNameOf(Name);
    const bool renamed = Name != Before;
    if (renamed && Services.Files->Exists(Tunings.FileOf(Name)) && !Agrees("str_TuningOverwrite", {Name})) return false;
    Library::SaveTuning(Name, Tuning);
    if (renamed && !Before.empty()) Services.Files->Delete(Tunings.FileOf(Before));
    Tunings.Refresh();
    return true;
}

}  // namespace Quillon::Tools
