// The windows around bars and tracks, as the shell asks for them; see Dialogs.
#pragma once

namespace Quillon::Shell {

struct AddTrackModel;
struct InsertBarModel;
struct RemoveBarModel;
struct BarTimeSigModel;
struct BarKeySigModel;
struct EndRepeatModel;
struct CodaModel;
struct CutCopyPasteModel;
struct TransposeModel;

/// Each edits a model and says whether it was accepted.
struct BarDialogs {
    virtual ~BarDialogs() = default;
    virtual bool EditAddTrack(AddTrackModel& model) = 0;
    virtual bool EditInsertBar(InsertBarModel& model) = 0;
    virtual bool EditRemoveBar(RemoveBarModel& model) = 0;
    virtual bool EditBarTimeSig(BarTimeSigModel& model) = 0;
    virtual bool EditBarKeySig(BarKeySigModel& model) = 0;
    virtual bool EditEndRepeat(EndRepeatModel& model) = 0;
    virtual bool EditCoda(CodaModel& model) = 0;
    virtual bool EditCutCopyPaste(CutCopyPasteModel& model) = 0;
    virtual bool EditTranspose(TransposeModel& model) = 0;
};

}  // namespace Quillon::Shell
