#include "shell/BarCommands.h"

#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Selection.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "shell/BarModels.h"
#include "shell/BatchFixModel.h"
#include "shell/EditCommands.h"
#include "shell/PercAssistant.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;

namespace {

bool Agreed(const std::string& question) {
    return Services.Messages->Show(question, LanguageText("str_TitleQuestion"), Buttons::YesNo, BoxIcon::Question) ==
           Answer::Yes;
}

}  // namespace

void MarkEdited() {
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
}

void ShowEdited() {
    RefreshPercAssistant();
    Program.View->RebuildTrackList();
    Program.View->UpdateCommands();
    Program.View->DrawDocument();
}

void mnuTrackAdd_Click() { ByDialog<AddTrackModel>(); }

void mnuTrackDelete_Click() {
    if (!PasswordCorrect()) return;
    if (!Agreed(LanguageText("str_TrackDeleteQuestion", {Open.TabFile.Tracks[Open.CurTrack].Name}))) return;
    if (Editing::DeleteTrack(Open.CurTrack)) ShowEdited();
}

void mnuTrackMoveUp_Click() {
    if (PasswordCorrect() && Editing::MoveTrackUp(Open.CurTrack)) ShowEdited();
}

void mnuTrackMoveDown_Click() {
    if (PasswordCorrect() && Editing::MoveTrackDown(Open.CurTrack)) ShowEdited();
}

void mnuBarInsert_Click() { ByDialog<InsertBarModel>(); }

void mnuBarAppend_Click() {
    if (!PasswordCorrect()) return;
    Editing::AppendBar();
    Open.CurBar = Core::NumberOfBars(Open.CurTrack);
    Open.CurStrum = 0;
    ShowEdited();
}

void mnuBarRemove_Click() { ByDialog<RemoveBarModel>(); }

void mnuBarClear_Click() {
    ByEngine([](Core::OpenDocument& open) {
        Editing::ClearBar(open.TabFile, open.CurTrack, open.CurBar);
        open.CurStrum = 0;
    });
}

void mnuBarShrink_Click() {
    if (!PasswordCorrect()) return;
    const Editing::Dropped dropped = Editing::ShrinkBar(Open.CurTrack, Open.CurBar);
    if (dropped == Editing::Dropped::Bar) Editing::ClearSelection();
    if (dropped != Editing::Dropped::Nothing) ShowEdited();
}

void mnuFixThisBar_Click() {
    ByEngine([](Core::OpenDocument& open) {
        Editing::FixThisBar(open.TabFile, open.CurTrack, open.CurBar);
        Editing::ClampCursor(open);
    });
}

void FixBars(const BatchFixModel& model) {
    const int over = BatchFixModel::Count(model.Bars(), Editing::Fullness::Over);
    const char* const question = model.Tracks == 0 ? "str_FixAllQuestion" : "str_FixBarsQuestion";
    if (over > 0 && !Agreed(LanguageText(question, {std::to_string(over)}))) return;
    if (model.Apply()) ShowEdited();
}

void mnuFixAllBars_Click() {
    if (PasswordCorrect()) FixBars(BatchFixModel{});
}

void mnuNoteInsertBeat_Click() { ByEngine(Editing::InsertBeat); }

void mnuNoteDeleteBeat_Click() {
    const int bars = Core::NumberOfBars(Open.CurTrack);
    ByEngine(Editing::DeleteBeat);
    if (Core::NumberOfBars(Open.CurTrack) != bars) Editing::ClearSelection();
}

void mnuBarTimeSig_Click() { ByDialog<BarTimeSigModel>(); }

void mnuBarKeySig_Click() { ByDialog<BarKeySigModel>(); }

void mnuBarRepeatOpen_Click() {
    if (!PasswordCorrect()) return;
    Core::BarInfo& info = Open.TabFile.BarInfos.Edit(Open.CurBar);
    info.RepeatOpen = !info.RepeatOpen;
    MarkEdited();
    ShowEdited();
}

void mnuBarEndRepeat_Click() { ByDialog<EndRepeatModel>(); }

void mnuBarCoda_Click() { ByDialog<CodaModel>(); }

}  // namespace Quillon::Shell
