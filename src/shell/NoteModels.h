// The marks of one note, and the text of a strum, as their dialogs edit them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/StrumModel.h"

namespace Quillon::Shell {

/// All that a note has beside its fret and its effects of their own dialogs. Removing takes every mark.
struct NoteModel : NoteEffectModel {
    std::int16_t Harmonic = 0;   ///< a HarmonicKind
    std::int16_t Dynamic = 3;    ///< by loudness: 0 FFF to 7 PPP
    std::int16_t Technique = 0;  ///< 0 none, else the entry of NoteTechniqueCodes and 1
    std::int16_t LeftFinger = 0;
    std::int16_t RightFinger = 0;
    bool Ghost = false;
    bool Accentuate = false;
    bool LetRing = false;
    bool Tied = false;

    void Load();
    bool IsDrum() const { return ItsTrack().IsDrum; }
    bool Exists() const override;
    std::string_view Validate() const override { return ""; }

protected:
    void WriteNote(Core::Note& note) const override;
    void ClearNote(Core::Note& note) const override;
};

/// The free text above a strum. An empty one is none.
struct TextModel : StrumModel {
    std::string Text;

    void Load();
    bool Exists() const override { return !Before().Text.empty(); }
    std::string_view Validate() const override;

protected:
    void Write(Core::Strum& strum) const override { strum.Text = Text; }
    void Clear(Core::Strum& strum) const override { strum.Text.clear(); }
};

}  // namespace Quillon::Shell
