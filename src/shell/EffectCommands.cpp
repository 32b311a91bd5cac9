#include "shell/EffectCommands.h"

#include "shell/ChordModel.h"
#include "shell/EditCommands.h"
#include "shell/EffectModels.h"
#include "shell/NoteModels.h"

namespace Quillon::Shell {

bool OpenEntryDialog(Editing::EntryDialog dialog) {
    switch (dialog) {
        case Editing::EntryDialog::Bend:
            return EditByDialog<BendModel>();
        case Editing::EntryDialog::Chord:
            return EditByDialog<ChordModel>();
        case Editing::EntryDialog::Text:
            return EditByDialog<TextModel>();
    }
    return false;
}

void mnuNoteEffectsBend_Click() { ByDialog<BendModel>(); }
void mnuNoteEffectsGrace_Click() { ByDialog<GraceModel>(); }
void mnuNoteEffectsTrill_Click() { ByDialog<TrillModel>(); }
void mnuNoteProperties_Click() { ByDialog<NoteModel>(); }
void mnuChordTremBar_Click() { ByDialog<TremBarModel>(); }
void mnuChordText_Click() { ByDialog<TextModel>(); }
void mnuChordChord_Click() { ByDialog<ChordModel>(); }

}  // namespace Quillon::Shell
