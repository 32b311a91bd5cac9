// Undo: a ring of whole documents, each as it was before a key of the score changed it.
//
// Documents are values whose copies share every bar that was not edited, so that a step costs little. Steps are taken
// for keys alone. What menus, dialogs and the mouse change belongs to the state that the next key finds.
#pragma once

#include <cstdint>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

struct UndoSlot {
    Core::Lazy<Core::TabFile> Doc;
    std::int16_t CursorExtra = 0;  ///< CurPitch
    std::int16_t Track = 0;
    std::int16_t Bar = 0;
    std::int16_t Strum = 0;
    std::int16_t String = 0;
    bool Valid = false;
    std::vector<int> TrackOrder;  ///< see Playback::ListeningState::Order
};

/// UndoLevels + 1 slots, so that many steps can be undone. UndoPos is the slot that the next step goes to; steps go
/// downwards from it and wrap, so that none is ever moved.
struct UndoRing {
    std::vector<UndoSlot> UndoStack;  ///< empty while undo is off
    std::size_t UndoPos = 0;
};

/// Empties the ring and gives it room for the levels; 0 and below turn undo off.
void SetUndoLevels(UndoRing& ring, int levels);
/// The document and its cursor as they are, to be given to TakeUndoStep once they changed.
UndoSlot Snapshot(const Core::OpenDocument& open);
/// Keeps a state. The oldest falls out of a full ring.
void TakeUndoStep(UndoRing& ring, UndoSlot before);
/// True when a step can be undone.
bool CanUndo(const UndoRing& ring);
/// Brings back the latest state with its cursor; false when there is none. There is no redo.
bool Undo(UndoRing& ring, Core::OpenDocument& open);

// Fronts over the open document --------------------------------------------------------------------------------------

/// The ring of the open document. Its levels are those of the settings.
extern UndoRing Undone;
/// Forgets all steps: another document is open.
void ClearUndo();
/// Brings the ring to the levels of the settings, emptying it when they changed. True when undo is on.
bool UndoIsOn();
bool CanUndo();
/// Undoes one step.
void mnuEditUndo_Click();

}  // namespace Quillon::Editing
