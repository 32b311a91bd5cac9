#include <algorithm>
#include <array>

#include "core/mod_Common.h"
#include "editing/mod_NoteEntry.h"
#include "shell/EffectModels.h"

namespace Quillon::Shell {

namespace {

constexpr std::array<std::int32_t, 8> Dynamics = {3, 2, 1, 0, 4, 5, 6, 7};

/// A code that the dialog's list has; another gives the first.
std::int16_t Entry(std::int32_t code, int count) {
    return code >= 0 && code < count ? static_cast<std::int16_t>(code) : std::int16_t{0};
}

bool IsFret(const std::string& text) {
    const int fret = Editing::FretNumber(Core::TrimBlanks(text));
    return fret >= 0 && fret <= Editing::HighestFret;
}

/// Two frets away from the note's, below or above it.
std::string FretNear(const Core::Note& note, bool above) {
    constexpr int tone = 2;
    const int fret = std::max(0, Editing::FretNumber(note.Fret));
    if (above) return std::to_string(fret + tone <= Editing::HighestFret ? fret + tone : fret - tone);
    return std::to_string(fret >= tone ? fret - tone : fret + tone);
}

}  // namespace

std::span<const std::int32_t> DynamicsByLoudness() { return Dynamics; }

std::int16_t LoudnessIndex(std::int32_t dynamic) {
    const auto* const found = std::ranges::find(Dynamics, dynamic);
    return found == Dynamics.end() ? LoudnessIndex(0) : static_cast<std::int16_t>(found - Dynamics.begin());
}

void GraceModel::Load() {
    StrumModel::Load();
    const Core::Note& note = NoteBefore();
    if (note.HasGrace) {
        Fret = note.GraceFret;
        Dynamic = LoudnessIndex(note.GraceDynamic);
        Duration = Entry(note.GraceDuration, 3);
        Transition = Entry(note.GraceTransition, 4);
        return;
    }
    Fret = FretNear(note, false);
    Dynamic = EffectsChosen.GraceDynamic;
    Duration = EffectsChosen.GraceDuration;
    Transition = EffectsChosen.GraceTransition;
}

std::string_view GraceModel::Validate() const {
    const std::string_view fret = Core::TrimBlanks(Fret);
    return fret == "x" || fret == "X" || IsFret(Fret) ? "" : "str_GraceFretWrong";
}

void GraceModel::WriteNote(Core::Note& note) const {
    const std::string_view fret = Core::TrimBlanks(Fret);
    note.HasGrace = true;
    note.GraceFret = fret == "X" ? "x" : IsFret(Fret) ? std::to_string(Editing::FretNumber(fret)) : std::string(fret);
    note.GraceDynamic = Dynamics[static_cast<std::size_t>(Dynamic)];
    note.GraceDuration = Duration;
    note.GraceTransition = Transition;
}

void GraceModel::Remember() const {
    EffectsChosen.GraceDynamic = Dynamic;
    EffectsChosen.GraceDuration = Duration;
    EffectsChosen.GraceTransition = Transition;
}

void TrillModel::Load() {
    StrumModel::Load();
    const Core::Note& note = NoteBefore();
    Fret = note.HasTrill ? std::to_string(note.TrillFret) : FretNear(note, true);
    Period = note.HasTrill ? Entry(note.TrillPeriod, 3) : EffectsChosen.TrillPeriod;
}

std::string_view TrillModel::Validate() const {
    if (!IsFret(Fret)) return "str_TrillFretWrong";
    const bool same = Editing::FretNumber(Core::TrimBlanks(Fret)) == Editing::FretNumber(NoteBefore().Fret);
    return same ? "str_TrillFretSame" : "";
}

void TrillModel::WriteNote(Core::Note& note) const {
    note.HasTrill = true;
    if (IsFret(Fret)) note.TrillFret = Core::ToInt16(Editing::FretNumber(Core::TrimBlanks(Fret)));
    note.TrillPeriod = Period;
}

void TrillModel::Remember() const { EffectsChosen.TrillPeriod = Period; }

}  // namespace Quillon::Shell
