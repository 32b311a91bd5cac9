#include "forms/frmTuningEditor.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>

#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "library/NoteRun.h"
#include "library/mod_Tuner.h"
#include "shell/mod_Shell.h"
#include "tools/TuningEditModel.h"

namespace Quillon::Forms {

frmTuningEditor::frmTuningEditor(Tools::TuningEditModel& edited, QWidget* parent)
    : ModelDialog(parent, edited.Before.empty() ? "str_NewTuningTitle" : "str_EditTuningTitle",
                  "TuningEditorWindowDetails"),
      model(edited) {
    setObjectName("frmTuningEditor");
    if (!model.Before.empty()) setWindowTitle(ToQString(Core::LanguageText("str_EditTuningTitle", {model.Before})));
    QFormLayout* const page = AddPage();
    AddText(page, "txtName", "str_TuningName", model.Name);
    AddStrings(page);
    Finish([this] { return model.Validate(); });
    Show();
}

frmTuningEditor::~frmTuningEditor() { Library::StopRun(); }

void frmTuningEditor::AddStrings(QFormLayout* page) {
    auto* const count = new QSpinBox(this);
    count->setObjectName("vbStrings");
    count->setRange(1, Core::StringCount);
    count->setValue(model.Tuning.NumStrings);
    page->addRow(Text("str_TuningStrings"), count);
    connect(count, &QSpinBox::valueChanged, this, [this](int strings) {
        model.Tuning.NumStrings = static_cast<std::int16_t>(strings);
        Show();
    });
    for (int string = 0; string < Core::StringCount; ++string) {
        const auto at = static_cast<std::size_t>(string);
        auto* const notes = new QComboBox(this);
        notes->setObjectName(QString("cmbNote%1").arg(string));
        for (const std::string& note : Tools::TuningEditModel::NotesOf(string)) notes->addItem(ToQString(note));
        const int offset = model.Tuning.Tuning[string];
        // A file may hold a note that is farther from standard; it stays unless another one is chosen.
        notes->setCurrentIndex(std::abs(offset) <= Library::TunerReach ? offset + Library::TunerReach : -1);
        notes->setAccessibleName(Text("str_TuningOfString").arg(string + 1));
        auto* const listen = new QPushButton(SvgIcon("play"), Text("str_TuningListen"), this);
        listen->setObjectName(QString("cmdListen%1").arg(string));
        listen->setAutoDefault(false);
        connect(notes, &QComboBox::activated, this, [this, string](int index) {
            model.Tuning.Tuning[string] = static_cast<std::int16_t>(index - Library::TunerReach);
            Shell::Guarded([&] { model.Sound(string); });
        });
        connect(listen, &QPushButton::clicked, this, [this, string] { Shell::Guarded([&] { model.Sound(string); }); });
        auto* const row = new QHBoxLayout;
        row->addWidget(notes, 1);
        row->addWidget(listen);
        page->addRow(Text("str_TuningOfString").arg(string + 1), row);
        cmbNotes.at(at) = notes;
        cmdListen.at(at) = listen;
    }
}

void frmTuningEditor::Show() {
    for (int string = 0; string < Core::StringCount; ++string) {
        const auto at = static_cast<std::size_t>(string);
        cmbNotes.at(at)->setEnabled(string < model.Tuning.NumStrings);
        cmdListen.at(at)->setEnabled(string < model.Tuning.NumStrings);
    }
}

}  // namespace Quillon::Forms
