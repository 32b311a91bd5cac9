#include "forms/ntne_frmNote.h"

#include <QCheckBox>
#include <QComboBox>

#include "forms/MarkNames.h"
#include "forms/Text.h"
#include "shell/NoteModels.h"

namespace Quillon::Forms {

ntne_frmNote::ntne_frmNote(Shell::NoteModel& model, QWidget* parent)
    : StrumDialog(model, parent, "str_NoteTitle", "NoteWindowDetails") {
    setObjectName("ntne_frmNote");
    AddChoice(Fields(), "cmbDynamic", "str_NoteDynamic", model.Dynamic, DynamicNames());
    if (!model.IsDrum()) {
        AddChoice(Fields(), "cmbTechnique", "str_NoteTechnique", model.Technique, TechniqueNames());
        AddChoice(Fields(), "cmbHarmonic", "str_NoteHarmonic", model.Harmonic, HarmonicNames());
        AddChoice(Fields(), "cmbLeftFinger", "str_NoteLeftFinger", model.LeftFinger, LeftFingerNames());
        AddChoice(Fields(), "cmbRightFinger", "str_NoteRightFinger", model.RightFinger, RightFingerNames());
    }
    AddCheck(Fields(), "chkAccentuate", "str_NoteAccentuate", model.Accentuate);
    AddCheck(Fields(), "chkGhost", "str_NoteGhost", model.Ghost);
    if (!model.IsDrum()) {
        AddCheck(Fields(), "chkLetRing", "str_NoteLetRing", model.LetRing);
        AddCheck(Fields(), "chkTied", "str_NoteTied", model.Tied);
    }
    FinishStrum("str_NoteRemoveMarks");
}

}  // namespace Quillon::Forms
