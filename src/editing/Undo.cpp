#include <algorithm>
#include <utility>

#include "core/mod_Settings.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Selection.h"
#include "editing/mod_Undo.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Editing {

using Core::Open;

UndoRing Undone;

namespace {

/// The slot of the step that undo would take back.
std::size_t Latest(const UndoRing& ring) { return (ring.UndoPos + 1) % ring.UndoStack.size(); }

std::size_t SlotsFor(int levels) { return levels > 0 ? static_cast<std::size_t>(levels) + 1 : 0; }

}  // namespace

void SetUndoLevels(UndoRing& ring, int levels) {
    ring = {};
    ring.UndoStack.resize(SlotsFor(levels));
}

UndoSlot Snapshot(const Core::OpenDocument& open) {
    UndoSlot slot{{}, open.CurPitch, open.CurTrack, open.CurBar, open.CurStrum, open.CurString, true, {}};
    slot.Doc.Edit() = open.TabFile;
    return slot;
}

void TakeUndoStep(UndoRing& ring, UndoSlot before) {
    if (ring.UndoStack.empty()) return;
    ring.UndoStack[ring.UndoPos] = std::move(before);
    ring.UndoPos = ring.UndoPos == 0 ? ring.UndoStack.size() - 1 : ring.UndoPos - 1;
}

bool CanUndo(const UndoRing& ring) { return !ring.UndoStack.empty() && ring.UndoStack[Latest(ring)].Valid; }

bool Undo(UndoRing& ring, Core::OpenDocument& open) {
    if (!CanUndo(ring)) return false;
    ring.UndoPos = Latest(ring);
    UndoSlot slot = std::exchange(ring.UndoStack[ring.UndoPos], {});
    open.TabFile = std::move(slot.Doc.Edit());
    open.CurPitch = slot.CursorExtra;
    open.CurTrack = slot.Track;
    open.CurBar = slot.Bar;
    open.CurStrum = slot.Strum;
    open.CurString = slot.String;
    return true;
}

void ClearUndo() { SetUndoLevels(Undone, Core::Settings.UndoLevels); }

bool UndoIsOn() {
    if (Undone.UndoStack.size() != SlotsFor(Core::Settings.UndoLevels)) ClearUndo();
    return !Undone.UndoStack.empty();
}

bool CanUndo() { return UndoIsOn() && CanUndo(Undone); }

void mnuEditUndo_Click() {
    if (!CanUndo()) return;
    const int bars = Open.TabFile.BarInfos.Count();
    Playback::Player.Listening.CameBack(Undone.UndoStack[Latest(Undone)].TrackOrder);
    Undo(Undone, Open);
    if (Open.TabFile.BarInfos.Count() != bars) ClearSelection();
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    if (Entry.DocumentRestored) Entry.DocumentRestored();
}

}  // namespace Quillon::Editing
