// Commands on the note, and on the strum, under the cursor. Keys of the score end in the same engines.
//
// Those of a list take the index of their entry, or the code that the document keeps.
#pragma once

#include <array>
#include <cstdint>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Shell {

void mnuInputTab_Click();
void mnuInputNotation_Click();
void mnuInputSwitch_Click();

void mnuNoteClear_Click();
void mnuNoteUp_Click();
void mnuNoteDown_Click();
void mnuNoteShiftUp_Click();
void mnuNoteShiftDown_Click();
void mnuNoteLinkNote_Click();
void mnuNoteEffectsGhostNote_Click();
void mnuNoteEffectsAccentuate_Click();
void mnuNoteEffectsLetRing_Click();
void mnuNoteTechniques_Click(std::int32_t entry);
void mnuNoteHarmonics_Click(std::int32_t harmonic);
void mnuNoteDynamics_Click(std::int32_t dynamic);
void mnuNoteLeftFinger_Click(std::int32_t finger);
void mnuNoteRightFinger_Click(std::int32_t finger);

void mnuChordLength_Click(std::int32_t length);
void mnuChordDotted_Click();
void mnuChordXTuplets_Click(std::int32_t kind);
void mnuChordUpStroke_Click();
void mnuChordDownStroke_Click();
void mnuChordTechniques_Click(std::int32_t entry);
void mnuHash_Click();
void mnuChordRepeat_Click();
void mnuChordMoveLeft_Click();
void mnuChordMoveRight_Click();
void mnuChordShiftRight_Click();

/// The codes of the entries of the menu of note techniques, 0 to 9. They leave 5 out, and 10 stands before 9.
inline constexpr std::array<std::int32_t, 10> NoteTechniqueCodes = {
    Core::Staccato,    Core::TremoloPicking8ths, Core::TremoloPicking16ths, Core::TremoloPicking32nds,
    Core::SlideUp,     Core::SlideDown,          Core::LegatoSlide,         Core::SlideIntoDown,
    Core::SlideIntoUp, Core::HammerOnPullOff};

}  // namespace Quillon::Shell
