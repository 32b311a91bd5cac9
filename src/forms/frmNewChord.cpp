#include "forms/frmNewChord.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include "core/mod_TabFileManipulation.h"
#include "forms/SvgIcon.h"
#include "forms/Text.h"
#include "forms/picChordBox.h"
#include "library/mod_Tunings.h"
#include "shell/CursorState.h"
#include "shell/mod_Shell.h"
#include "tools/ChordManager.h"

namespace Quillon::Forms {

using Core::StringCount;

frmNewChord::frmNewChord(Tools::ChordEditorModel& edited, QWidget* parent)
    : ModelDialog(parent, edited.Before.empty() ? "str_NewChordTitle" : "str_EditChordTitle", "NewChordWindowDetails"),
      model(edited) {
    setObjectName("frmNewChord");
    QFormLayout* const page = AddPage();
    txtName = new QLineEdit(ToQString(model.Name), this);
    txtName->setObjectName("txtName");
    connect(txtName, &QLineEdit::textChanged, this, [this](const QString& text) { model.Name = text.toStdString(); });
    page->addRow(Text("str_ChordName"), txtName);
    cmbNames = new QComboBox(this);
    cmbNames->setObjectName("cmbNames");
    connect(cmbNames, &QComboBox::activated, this, [this](int index) { txtName->setText(cmbNames->itemText(index)); });
    page->addRow(Text("str_ChordSuggested"), cmbNames);

    box = new picChordBox(model, this);
    connect(box, &picChordBox::Changed, this, &frmNewChord::ShowShape);
    page->addRow(QString(), box);
    auto* const play = new QPushButton(SvgIcon("play"), Text("str_ChordHear"), this);
    play->setObjectName("cmdPlay");
    play->setAutoDefault(false);
    connect(play, &QPushButton::clicked, this,
            [this] { Shell::Guarded([this] { Tools::PlayChordRec(model.Name, model.Chord()); }); });
    txtFrets = new QLineEdit(this);
    txtFrets->setObjectName("txtFrets");
    txtFrets->setToolTip(Text("str_ChordFretsAbout"));
    connect(txtFrets, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (model.SetFretsText(text.toStdString())) ShowShape();
    });
    // A text that is none gives way to what the box shows.
    connect(txtFrets, &QLineEdit::editingFinished, this, [this] {
        txtFrets->setModified(false);
        ShowShape();
    });
    auto* const line = new QHBoxLayout;
    line->addWidget(txtFrets, 1);
    line->addWidget(play);
    auto* const lblFrets = new QLabel(Text("str_ChordFrets"), this);
    lblFrets->setBuddy(txtFrets);
    page->addRow(lblFrets, line);

    auto* const strings = new QSpinBox(this);
    strings->setObjectName("vbStrings");
    strings->setRange(Tools::ChordEditorModel::LeastStrings, StringCount);
    strings->setValue(model.Strings);
    connect(strings, &QSpinBox::valueChanged, this, [this](int count) {
        model.SetStrings(count);
        ShowShape();
    });
    page->addRow(Text("str_ChordStrings"), strings);
    AddTunings(page);
    QCheckBox* const barre = AddCheck(page, "chkBarre", "str_ChordBarre", model.Barre);
    connect(barre, &QCheckBox::toggled, this, [this](bool on) {
        model.Barre = on;
        box->update();
    });
    suggested = model.Name;
    ShowShape();
    Finish([this] { return model.Validate(); });
    txtName->selectAll();
}

frmNewChord::~frmNewChord() { Tools::StopChord(); }

/// The chord's own, standard, the current track's, and those of the library.
void frmNewChord::AddTunings(QFormLayout* page) {
    auto* const tunings = new QComboBox(this);
    tunings->setObjectName("cmbTuning");
    std::vector<Core::Row<std::int16_t, StringCount>> pitches;
    const auto add = [&](const QString& name, const Core::Row<std::int16_t, StringCount>& row) {
        tunings->addItem(name);
        pitches.push_back(row);
    };
    Core::Row<std::int16_t, StringCount> standard, ofTrack;
    for (int string = 0; string < StringCount; ++string) {
        standard[string] = static_cast<std::int16_t>(Core::DefaultStringPitch(string));
        ofTrack[string] =
            Shell::OnFrettedTrack()
                ? static_cast<std::int16_t>(Core::OpenPitch(Core::Open.TabFile.Tracks[Core::Open.CurTrack], string))
                : standard[string];
    }
    if (!(model.Tuning == standard) && !(model.Tuning == ofTrack)) add(Text("str_TuningOfChord"), model.Tuning);
    if (!(ofTrack == standard)) add(Text("str_TuningOfTrack"), ofTrack);
    add(Text("str_TuningStandard"), standard);
    Library::Tunings.Refresh();
    for (const std::string& name : Library::Tunings.Names()) {
        const Library::TuningRec* const tuning = Library::Tunings.Find(name);
        if (!tuning) continue;
        Core::Row<std::int16_t, StringCount> row;
        for (int string = 0; string < StringCount; ++string) {
            row[string] = static_cast<std::int16_t>(standard[string] + tuning->Tuning[string]);
        }
        if (!(row == standard)) add(ToQString(name), row);
    }
    for (std::size_t i = 0; i < pitches.size(); ++i) {
        if (pitches[i] == model.Tuning) {
            tunings->setCurrentIndex(static_cast<int>(i));
            break;
        }
    }
    connect(tunings, &QComboBox::activated, this, [this, pitches](int index) {
        model.Tuning = pitches.at(static_cast<std::size_t>(index));
        ShowShape();
    });
    page->addRow(Text("str_ChordTuning"), tunings);
}

void frmNewChord::ShowShape() {
    box->update();
    if (!txtFrets->hasFocus() || !txtFrets->isModified()) txtFrets->setText(ToQString(model.FretsText()));
    const auto names = model.Names();
    cmbNames->clear();
    for (const std::string& name : names) cmbNames->addItem(ToQString(name));
    cmbNames->setEnabled(!names.empty());
    if (names.empty()) cmbNames->addItem(Text("str_ChordNoName"));
    // A name that a person gave stays.
    if (!model.Before.empty() || model.Name != suggested) return;
    suggested = names.empty() ? std::string() : names.front();
    txtName->setText(ToQString(suggested));
}

}  // namespace Quillon::Forms
