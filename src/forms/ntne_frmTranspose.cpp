#include "forms/ntne_frmTranspose.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

ntne_frmTranspose::ntne_frmTranspose(Shell::TransposeModel& model, QWidget* parent)
    : ModelDialog(parent, "str_TransposeTitle", "TransposeWindowDetails") {
    setObjectName("ntne_frmTranspose");
    QFormLayout* const page = AddPage();
    constexpr int Most = Shell::TransposeModel::MostSemitones;
    const int bars = Core::Open.TabFile.BarInfos.Count();
    AddNumber(page, "vbSemitones", "str_TransposeSemitones", model.Semitones, -Most, Most);
    AddNumber(page, "vbFromBar", "str_FromBar", model.FromBar, 1, bars);
    AddNumber(page, "vbToBar", "str_ToBar", model.ToBar, 1, bars);
    AddChoice(page, "cmbTracks", "str_OfTracks", model.Tracks, {Text("str_ThisTrack"), Text("str_AllTheTracks")});
    AddCheck(page, "chkKeys", "str_TransposeKeys", model.Keys);
    AddNote(page, "str_TransposeNote");
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
