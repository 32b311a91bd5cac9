// The commands of the menus Track, Bar and Operations that change the open document, and cut, copy and paste.
//
// They take no step of undo: what they change belongs to the state that the next key finds.
#pragma once

namespace Quillon::Shell {

void mnuTrackAdd_Click();
void mnuTrackDelete_Click();  ///< asks first
void mnuTrackMoveUp_Click();
void mnuTrackMoveDown_Click();

void mnuBarInsert_Click();
void mnuBarAppend_Click();
void mnuBarRemove_Click();
void mnuBarClear_Click();
void mnuBarShrink_Click();
void mnuFixThisBar_Click();
void mnuFixAllBars_Click();  ///< asks first when beats would be dropped
void mnuNoteInsertBeat_Click();
void mnuNoteDeleteBeat_Click();

void mnuBarTimeSig_Click();
void mnuBarKeySig_Click();
void mnuBarRepeatOpen_Click();
void mnuBarEndRepeat_Click();
void mnuBarCoda_Click();

void mnuEditCut_Click();
void mnuEditCopy_Click();
void mnuEditPaste_Click();
void mnuOperationsTranspose_Click();

}  // namespace Quillon::Shell
