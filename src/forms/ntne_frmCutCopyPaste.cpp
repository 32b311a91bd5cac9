#include "forms/ntne_frmCutCopyPaste.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

#include "forms/Text.h"
#include "shell/BarModels.h"

namespace Quillon::Forms {

namespace {

struct Frame {
    std::string_view TitleKey;
    const char* Section;  ///< of its own each: they differ in height
};

Frame FrameOf(Shell::CutCopyPasteModel::Task task) {
    switch (task) {
        case Shell::CutCopyPasteModel::Task::Cut:
            return {"str_CutTitle", "CutWindowDetails"};
        case Shell::CutCopyPasteModel::Task::Copy:
            return {"str_CopyTitle", "CopyWindowDetails"};
        default:
            return {"str_PasteTitle", "PasteWindowDetails"};
    }
}

}  // namespace

ntne_frmCutCopyPaste::ntne_frmCutCopyPaste(Shell::CutCopyPasteModel& model, QWidget* parent)
    : ModelDialog(parent, FrameOf(model.Doing).TitleKey, FrameOf(model.Doing).Section) {
    using Task = Shell::CutCopyPasteModel::Task;
    setObjectName("ntne_frmCutCopyPaste");
    QFormLayout* const page = AddPage();
    const int bars = Core::Open.TabFile.BarInfos.Count();
    if (model.Doing == Task::Paste) {
        auto* const copied = new QLabel(ToQString(Shell::CutCopyPasteModel::CopiedText()), this);
        copied->setObjectName("lblCopied");
        page->addRow(Text("str_PasteWhat"), copied);
        AddNumber(page, "vbBeforeBar", "str_PasteAt", model.BeforeBar, 1, bars + 1);
        AddChoice(page, "cmbOver", "str_PasteHow", model.Over, {Text("str_PasteBefore"), Text("str_PasteOver")});
        AddNumber(page, "vbTimes", "str_PasteTimes", model.Times, 1, Shell::CutCopyPasteModel::MostTimes);
        AddNote(page, "str_PasteNote");
    } else {
        AddNumber(page, "vbFromBar", "str_FromBar", model.FromBar, 1, bars);
        AddNumber(page, "vbToBar", "str_ToBar", model.ToBar, 1, bars);
        AddChoice(page, "cmbTracks", "str_OfTracks", model.Tracks, {Text("str_ThisTrack"), Text("str_AllTheTracks")});
        if (model.Doing == Task::Cut) AddNote(page, "str_CutNote");
    }
    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
