// The dialogs around bars and tracks.
#include "forms/frmMain.h"
#include "forms/ntne_frmAddTrack.h"
#include "forms/ntne_frmBarKeySig.h"
#include "forms/ntne_frmBarTimeSig.h"
#include "forms/ntne_frmCoda.h"
#include "forms/ntne_frmCutCopyPaste.h"
#include "forms/ntne_frmEndRepeat.h"
#include "forms/ntne_frmInsertBar.h"
#include "forms/ntne_frmRemoveBar.h"
#include "forms/ntne_frmTranspose.h"

namespace Quillon::Forms {

bool frmMain::EditAddTrack(Shell::AddTrackModel& model) {
    return ntne_frmAddTrack(model, this).exec() == QDialog::Accepted;
}

bool frmMain::EditInsertBar(Shell::InsertBarModel& model) {
    return ntne_frmInsertBar(model, this).exec() == QDialog::Accepted;
}

bool frmMain::EditRemoveBar(Shell::RemoveBarModel& model) {
    return ntne_frmRemoveBar(model, this).exec() == QDialog::Accepted;
}

bool frmMain::EditBarTimeSig(Shell::BarTimeSigModel& model) {
    return ntne_frmBarTimeSig(model, this).exec() == QDialog::Accepted;
}

bool frmMain::EditBarKeySig(Shell::BarKeySigModel& model) {
    return ntne_frmBarKeySig(model, this).exec() == QDialog::Accepted;
}

bool frmMain::EditEndRepeat(Shell::EndRepeatModel& model) {
    return ntne_frmEndRepeat(model, this).exec() == QDialog::Accepted;
}

bool frmMain::EditCoda(Shell::CodaModel& model) { return ntne_frmCoda(model, this).exec() == QDialog::Accepted; }

bool frmMain::EditCutCopyPaste(Shell::CutCopyPasteModel& model) {
    return ntne_frmCutCopyPaste(model, this).exec() == QDialog::Accepted;
}

bool frmMain::EditTranspose(Shell::TransposeModel& model) {
    return ntne_frmTranspose(model, this).exec() == QDialog::Accepted;
}

}  // namespace Quillon::Forms
