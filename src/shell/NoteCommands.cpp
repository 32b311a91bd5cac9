#include "shell/NoteCommands.h"

#include "core/mod_TabFileStructure.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_NoteMarks.h"
#include "shell/EditCommands.h"

namespace Quillon::Shell {

using Core::Note;
using Core::Open;
using Core::OpenDocument;
using Core::Strum;

namespace {

void Toggle(bool Note::*mark) {
    ByEngine([mark](OpenDocument& open) { return Editing::ToggleMark(open, mark); });
}

template <class Record>
void Toggle(std::int32_t Record::*field, std::int32_t code) {
    ByEngine([=](OpenDocument& open) { return Editing::ToggleCode(open, field, code); });
}

template <class Record>
void Set(std::int32_t Record::*field, std::int32_t code) {
    ByEngine([=](OpenDocument& open) { return Editing::SetCode(open, field, code); });
}

/// The document stays as it is; the cursor shows elsewhere.
void SetInput(std::int16_t mode) {
    Editing::SetInputMode(Open, mode);
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

}  // namespace

void mnuInputTab_Click() { SetInput(Core::TabInput); }
void mnuInputNotation_Click() { SetInput(Core::NotationInput); }
void mnuInputSwitch_Click() {
    SetInput(Open.InputMode == Core::TabInput ? std::int16_t{Core::NotationInput} : std::int16_t{Core::TabInput});
}

void mnuNoteClear_Click() { ByEngine(Editing::DeleteNote); }
void mnuNoteUp_Click() {
    ByEngine([](OpenDocument& open) { return Editing::AddToFret(open, 1); });
}
void mnuNoteDown_Click() {
    ByEngine([](OpenDocument& open) { return Editing::AddToFret(open, -1); });
}
void mnuNoteShiftUp_Click() {
    ByEngine([](OpenDocument& open) { return Editing::ShiftNote(open, -1); });
}
void mnuNoteShiftDown_Click() {
    ByEngine([](OpenDocument& open) { return Editing::ShiftNote(open, 1); });
}
void mnuNoteLinkNote_Click() { Toggle(&Note::Tied); }
void mnuNoteEffectsGhostNote_Click() { Toggle(&Note::Ghost); }
void mnuNoteEffectsAccentuate_Click() { Toggle(&Note::Accentuate); }
void mnuNoteEffectsLetRing_Click() { Toggle(&Note::LetRing); }
void mnuNoteTechniques_Click(std::int32_t entry) {
    Toggle(&Note::Technique, NoteTechniqueCodes.at(static_cast<std::size_t>(entry)));
}
void mnuNoteHarmonics_Click(std::int32_t harmonic) { Toggle(&Note::Harmonic, harmonic); }
void mnuNoteDynamics_Click(std::int32_t dynamic) { Set(&Note::Dynamic, dynamic); }
void mnuNoteLeftFinger_Click(std::int32_t finger) { Toggle(&Note::LeftFinger, finger); }
void mnuNoteRightFinger_Click(std::int32_t finger) { Toggle(&Note::RightFinger, finger); }

void mnuChordLength_Click(std::int32_t length) { Set(&Strum::Length, length); }
void mnuChordDotted_Click() {
    ByEngine([](OpenDocument& open) { return Editing::ToggleMark(open, &Strum::Dotted); });
}
void mnuChordXTuplets_Click(std::int32_t kind) {
    ByEngine([kind](OpenDocument& open) { Editing::ToggleTuplet(open, kind); });
}
void mnuChordUpStroke_Click() { Toggle(&Strum::Stroke, Editing::UpStroke); }
void mnuChordDownStroke_Click() { Toggle(&Strum::Stroke, Editing::DownStroke); }
void mnuChordTechniques_Click(std::int32_t entry) { Toggle(&Strum::Technique, entry + 1); }
void mnuHash_Click() { ByEngine(Editing::ToggleHash); }
void mnuChordRepeat_Click() { ByEngine(Editing::RepeatStrum); }
void mnuChordMoveLeft_Click() { ByEngine(Editing::MoveStrumLeft); }
void mnuChordMoveRight_Click() { ByEngine(Editing::MoveStrumRight); }
void mnuChordShiftRight_Click() { ByEngine(Editing::ShiftStrumRight); }

}  // namespace Quillon::Shell
