#include "forms/frmScaleEditor.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>

#include "core/mod_Common.h"
#include "forms/Text.h"
#include "forms/picNeck.h"
#include "library/NoteRun.h"
#include "shell/mod_Shell.h"
#include "tools/ScaleEditModel.h"

namespace Quillon::Forms {

frmScaleEditor::frmScaleEditor(Tools::ScaleEditModel& edited, QWidget* parent)
    : ModelDialog(parent, edited.Before.empty() ? "str_NewScaleTitle" : "str_EditScaleTitle",
                  "ScaleEditorWindowDetails"),
      model(edited) {
    setObjectName("frmScaleEditor");
    if (!model.Before.empty()) setWindowTitle(ToQString(Core::LanguageText("str_EditScaleTitle", {model.Before})));
    QFormLayout* const page = AddPage();
    AddText(page, "txtName", "str_ScaleName", model.Name);
    AddText(page, "txtKeywords", "str_ScaleKeywords", model.Keywords);
    AddStrings(page);
    AddPattern(page);
    AddNote(page, "str_ScalePatternNote");
    Finish([this] { return model.Validate(); });
    Show();
}

frmScaleEditor::~frmScaleEditor() { Library::StopRun(); }

void frmScaleEditor::AddStrings(QFormLayout* page) {
    auto* const strings = new QSpinBox(this);
    strings->setObjectName("vbStrings");
    strings->setRange(1, Core::StringCount);
    strings->setValue(model.Scale.NumStrings);
    page->addRow(Text("str_ScaleStrings"), strings);
    connect(strings, &QSpinBox::valueChanged, this, [this](int count) {
        model.SetStrings(count);
        Show();
    });
    auto* const row = new QHBoxLayout;
    for (int string = 0; string < Core::StringCount; ++string) {
        auto* const note = new QLineEdit(ToQString(model.OpenNotes[string]), this);
        note->setObjectName(QString("txtTuning%1").arg(string));
        note->setAccessibleName(Text("str_TuningOfString").arg(string + 1));
        note->setToolTip(note->accessibleName());
        constexpr int MostLetters = 4;
        note->setMaxLength(MostLetters);
        note->setAlignment(Qt::AlignCenter);
        note->setFixedWidth(fontMetrics().horizontalAdvance("0000000"));
        connect(note, &QLineEdit::textEdited, this, [this, string](const QString& text) {
            model.OpenNotes[string] = text.trimmed().toStdString();
            Show();
        });
        row->addWidget(note);
        notes.at(static_cast<std::size_t>(string)) = note;
    }
    row->addStretch();
    page->addRow(Text("str_ScaleTuning"), row);
}

void frmScaleEditor::AddPattern(QFormLayout* page) {
    picPattern = new picNeck(this, [this](double width, double height) -> std::optional<picNeck::Content> {
        std::vector<int> open;
        for (int s = 0; s < model.Scale.NumStrings; ++s) open.push_back(model.OpenPitch(s));
        constexpr int Last = Library::PatternFrets - 1;
        return picNeck::Content{Library::NeckGeometry(model.Scale.NumStrings, false, 0, Last, width, height, Last),
                                open, model.Dots()};
    });
    picPattern->setObjectName("picPattern");
    picPattern->setAccessibleName(Text("str_ScalePattern").remove(':'));
    constexpr int LeastHeight = 200;
    picPattern->setMinimumHeight(LeastHeight);
    connect(picPattern, &picNeck::Clicked, this, [this](int string, int position) {
        model.Toggle(string, position);
        if (model.IsSet(string, position)) Shell::Guarded([&] { model.Sound(string, position); });
        Show();
    });
    page->addRow(Text("str_ScalePattern"), picPattern);
    auto* const row = new QHBoxLayout;
    lblTones = new QLabel(this);
    lblTones->setObjectName("lblTones");
    row->addWidget(lblTones, 1);
    auto* const clear = new QPushButton(Text("str_ScaleClear"), this);
    clear->setObjectName("cmdClear");
    clear->setAutoDefault(false);
    connect(clear, &QPushButton::clicked, this, [this] {
        model.ClearPattern();
        Show();
    });
    row->addWidget(clear);
    page->addRow(QString(), row);
}

void frmScaleEditor::Show() {
    for (int string = 0; string < Core::StringCount; ++string) {
        notes.at(static_cast<std::size_t>(string))->setEnabled(string < model.Scale.NumStrings);
    }
    lblTones->setText(ToQString(model.TonesText()));
    picPattern->Refresh();
}

}  // namespace Quillon::Forms
