// The commands whose work is a dialog for the note, or the strum, under the cursor.
//
// From a menu they take no step of undo; the score's own keys open the same dialogs as a step.
#pragma once

#include <span>

#include "editing/mod_NoteEntry.h"
#include "shell/Commands.h"

namespace Quillon::Shell {

/// For EntryState::OpenDialog. The key that asks has made sure of the password.
bool OpenEntryDialog(Editing::EntryDialog dialog);

void mnuNoteEffectsBend_Click();
void mnuNoteEffectsGrace_Click();
void mnuNoteEffectsTrill_Click();
void mnuNoteProperties_Click();
void mnuChordTremBar_Click();
void mnuChordText_Click();
void mnuChordChord_Click();

}  // namespace Quillon::Shell
