#include "shell/NoteModels.h"

#include <algorithm>

#include "core/mod_Common.h"
#include "shell/EffectModels.h"
#include "shell/NoteCommands.h"

namespace Quillon::Shell {

namespace {

/// A code as the entry of a list that begins with none; -1 shows nothing for one that the list lacks.
std::int16_t Entry(std::int32_t code, int count) {
    return code >= 0 && code < count ? static_cast<std::int16_t>(code) : std::int16_t{-1};
}

constexpr int Harmonics = Core::SemiHarmonic + 1;
constexpr int Fingers = 6;

}  // namespace

void NoteModel::Load() {
    StrumModel::Load();
    const Core::Note& note = NoteBefore();
    Harmonic = Entry(note.Harmonic, Harmonics);
    Dynamic = LoudnessIndex(note.Dynamic);
    const auto* const technique = std::ranges::find(NoteTechniqueCodes, note.Technique);
    Technique = note.Technique == 0                     ? std::int16_t{0}
                : technique == NoteTechniqueCodes.end() ? std::int16_t{-1}
                                                        : Core::ToInt16(technique - NoteTechniqueCodes.begin() + 1);
    LeftFinger = Entry(note.LeftFinger, Fingers);
    RightFinger = Entry(note.RightFinger, Fingers);
    Ghost = note.Ghost;
    Accentuate = note.Accentuate;
    LetRing = note.LetRing;
    Tied = note.Tied;
}

bool NoteModel::Exists() const {
    Core::Note bare = NoteBefore();
    ClearNote(bare);
    return bare != NoteBefore();
}

void NoteModel::WriteNote(Core::Note& note) const {
    if (Harmonic >= 0) note.Harmonic = Harmonic;
    if (Dynamic != LoudnessIndex(note.Dynamic)) note.Dynamic = DynamicsByLoudness()[static_cast<std::size_t>(Dynamic)];
    if (Technique >= 0) {
        note.Technique = Technique == 0 ? 0 : NoteTechniqueCodes[static_cast<std::size_t>(Technique) - 1];
    }
    if (LeftFinger >= 0) note.LeftFinger = LeftFinger;
    if (RightFinger >= 0) note.RightFinger = RightFinger;
    note.Ghost = Ghost;
    note.Accentuate = Accentuate;
    note.LetRing = LetRing;
    note.Tied = Tied;
}

void NoteModel::ClearNote(Core::Note& note) const {
    note.Harmonic = note.Dynamic = note.Technique = note.LeftFinger = note.RightFinger = 0;
    note.Ghost = note.Accentuate = note.LetRing = note.Tied = false;
}

void TextModel::Load() {
    StrumModel::Load();
    Text = Before().Text;
}

std::string_view TextModel::Validate() const {
    return Text != Before().Text && HoldsFileSigns(Text) ? "str_TextReserved" : "";
}

}  // namespace Quillon::Shell
