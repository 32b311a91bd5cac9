#include "tools/ScaleEditModel.h"

#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "library/NoteRun.h"
#include "library/ScaleView.h"
#include "library/mod_Chords.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "tools/Questions.h"

namespace Quillon::Tools {

using Core::StringCount;
using Library::Scales;

namespace {

std::size_t PatternString(const Library::ScaleRec& scale, int string) {
    return static_cast<std::size_t>(scale.NumStrings - 1 - string);
}

bool InPattern(const Library::ScaleRec& scale, int string, int position) {
    return string >= 0 && string < scale.NumStrings && position >= 0 && position < Library::PatternFrets;
}

}  // namespace

void ScaleEditModel::LoadNew(const Library::ScaleRec* like) {
    *this = {};
    if (like) Scale = *like;
    Keywords = Scale.Keywords;
    for (int s = 0; s < StringCount; ++s) OpenNotes[s] = Core::NoteName(Scale.Tuning[s]);
}

void ScaleEditModel::LoadFrom(const std::string& name, const Library::ScaleRec& scale) {
    LoadNew(&scale);
    Before = Name = name;
}

bool ScaleEditModel::IsSet(int string, int position) const {
    return InPattern(Scale, string, position) &&
           Scale.Pattern.at(PatternString(Scale, string)).test(static_cast<std::size_t>(position));
}

void ScaleEditModel::Toggle(int string, int position) {
    if (!InPattern(Scale, string, position)) return;
    Scale.Pattern.at(PatternString(Scale, string)).flip(static_cast<std::size_t>(position));
}

void ScaleEditModel::ClearPattern() { Scale.Pattern = {}; }

void ScaleEditModel::SetStrings(int strings) {
    Scale.NumStrings = Core::ToInt16(std::clamp(strings, 1, StringCount));
    for (auto at = static_cast<std::size_t>(Scale.NumStrings); at < Scale.Pattern.size(); ++at) {
        Scale.Pattern.at(at).reset();
    }
}

int ScaleEditModel::OpenPitch(int string) const {
    const int pitch = Core::PitchOfNoteName(Core::TrimBlanks(OpenNotes[string]));
    return pitch < 0 ? Scale.Tuning[string] : pitch;
}

Library::ScaleRec ScaleEditModel::Wanted() const {
    Library::ScaleRec wanted = Scale;
    wanted.Keywords = std::string(Core::TrimBlanks(Keywords));
    for (int s = 0; s < Scale.NumStrings; ++s) wanted.Tuning[s] = Core::ToInt16(OpenPitch(s));
    return wanted;
}

std::vector<Library::NeckDot> ScaleEditModel::Dots() const {
    // At the nut, where the tonic is the lowest string's open note.
    const Library::ScaleRec scale = Wanted();
    Library::ScaleView view;
    view.Key = scale.Tuning[scale.NumStrings - 1] % 12;
    view.WholeNeck = false;
    return Library::ScaleDots(scale, view);
}

std::string ScaleEditModel::TonesText() const {
    const Library::ScaleRec scale = Wanted();
    const int key = scale.Tuning[scale.NumStrings - 1] % 12;
    const auto classes = Library::ScaleClasses(scale, key);
    if (classes.none()) return "";
    std::string degrees;
    for (const Library::ScaleTone& tone : Library::ScaleTones(classes, key)) {
        if (!classes.test(static_cast<std::size_t>(tone.Class))) continue;
        degrees += (degrees.empty() ? "" : "  ") + tone.Degree;
    }
    return degrees;
}

void ScaleEditModel::Sound(int string, int position) const {
    if (InPattern(Scale, string, position)) Library::PlayRun({.Pitches = {OpenPitch(string) + position}});
}

std::string_view ScaleEditModel::Validate() const {
    if (Library::FileNameOf(Name).empty()) return "str_ScaleNameMissing";
    for (int s = 0; s < Scale.NumStrings; ++s) {
        if (Core::PitchOfNoteName(Core::TrimBlanks(OpenNotes[s])) < 0) return "str_ScaleStringUnknown";
    }
    if (Core::FromWindows1252(Core::ToWindows1252(Keywords)) != Keywords) return "str_ScaleKeywordsLost";
    const auto any = [](const auto& string) { return string.any(); };
    return std::ranges::any_of(Scale.Pattern, any) ? "" : "str_ScaleEmpty";
}

bool ScaleEditModel::Apply() {
    Name = Library::FileNameOf(Name);
    const bool renamed = Name != Before;
    if (renamed && Services.Files->Exists(Scales.FileOf(Name)) && !Agrees("str_ScaleOverwrite", {Name})) return false;
    Library::SaveScale(Name, Wanted());
    if (renamed && !Before.empty()) Services.Files->Delete(Scales.FileOf(Before));
    Scales.Refresh();
    return true;
}

}  // namespace Quillon::Tools
