#include "forms/ntne_frmTuning.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include "forms/Text.h"
#include "forms/frmTuningLoader.h"
#include "shell/TuningLoaderModel.h"
#include "shell/TuningModel.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

ntne_frmTuning::ntne_frmTuning(Shell::TuningModel& edited, QWidget* parent)
    : ModelDialog(parent, "str_TuningTitle", "TuningWindowDetails"), model(edited) {
    setObjectName("ntne_frmTuning");
    const std::string& name = Core::Open.TabFile.Tracks[model.Track].Name;
    setWindowTitle(ToQString(Core::LanguageText("str_TuningTitle", {name})));
    QFormLayout* const page = AddPage();
    AddStrings(page);
    AddNumber(page, "vbCapo", "str_TrackCapo", model.Capo, 0, Shell::TuningModel::MostCapo);
    AddNotesFate(page);
    Finish([this] { return model.Validate(); });
    Show();
}

QString ntne_frmTuning::ComplaintText(std::string_view textKey) const {
    return ToQString(model.ComplaintText(textKey));
}

void ntne_frmTuning::AddStrings(QFormLayout* page) {
    cmbTuning = new QComboBox(this);
    cmbTuning->setObjectName("cmbTuning");
    cmbTuning->addItem(Text("str_TuningOwn"));
    for (const Shell::CommonTuning& tuning : Shell::CommonTunings()) cmbTuning->addItem(Text(tuning.Text));
    cmbTuning->setMaxVisibleItems(cmbTuning->count());
    auto* const library = new QPushButton(Text("str_TuningFromLibrary"), this);
    library->setObjectName("cmdLibrary");
    library->setAutoDefault(false);
    connect(library, &QPushButton::clicked, this, [this] { Shell::Guarded([this] { TakeFromLibrary(); }); });
    auto* const choice = new QHBoxLayout;
    choice->addWidget(cmbTuning, 1);
    choice->addWidget(library);
    page->addRow(Text("str_TuningCommon"), choice);
    if (auto* const label = qobject_cast<QLabel*>(page->labelForField(choice))) label->setBuddy(cmbTuning);
    connect(cmbTuning, &QComboBox::activated, this, [this](int index) {
        if (index > 0) model.Choose(Shell::CommonTunings()[static_cast<std::size_t>(index - 1)]);
        Show();
    });
    vbStrings = new QSpinBox(this);
    vbStrings->setObjectName("vbStrings");
    vbStrings->setRange(1, Core::StringCount);
    page->addRow(Text("str_TrackStrings"), vbStrings);
    connect(vbStrings, &QSpinBox::valueChanged, this, [this](int count) {
        model.Strings = static_cast<std::int16_t>(count);
        Show();
    });

    auto* const grid = new QGridLayout;
    for (int string = 0; string < Core::StringCount; ++string) {
        auto* const note = new QLineEdit(this);
        note->setObjectName(QString("txtTuning%1").arg(string));
        note->setAccessibleName(Text("str_TuningOfString").arg(string + 1));
        note->setMaxLength(4);
        note->setAlignment(Qt::AlignCenter);
        note->setFixedWidth(fontMetrics().horizontalAdvance("0000000"));
        auto* const number = new QLabel(QString::number(string + 1), this);
        auto* const offset = new QLabel(this);
        for (QLabel* label : {number, offset}) label->setAlignment(Qt::AlignCenter);
        offset->setForegroundRole(QPalette::PlaceholderText);
        grid->addWidget(number, 0, string);
        grid->addWidget(note, 1, string);
        grid->addWidget(offset, 2, string);
        notes[static_cast<std::size_t>(string)] = note;
        offsets[static_cast<std::size_t>(string)] = offset;
        connect(note, &QLineEdit::textEdited, this, [this, string](const QString& text) {
            model.OpenNotes[string] = text.trimmed().toStdString();
            Show();
        });
    }
    grid->setColumnStretch(Core::StringCount, 1);
    page->addRow(Text("str_TrackTuning"), grid);
    AddNote(page, "str_TuningNameNote");
}

void ntne_frmTuning::TakeFromLibrary() {
    Shell::TuningLoaderModel loader;
    loader.HandsOver = true;
    loader.Load();
    if (frmTuningLoader(loader, this).exec() != QDialog::Accepted) return;
    if (const Library::TuningRec* const tuning = loader.Tuning()) model.Take(*tuning);
    Show();
}

void ntne_frmTuning::AddNotesFate(QFormLayout* page) {
    auto* const frets = new QRadioButton(Text("str_KeepFrets"), this);
    auto* const pitches = new QRadioButton(Text("str_KeepPitches"), this);
    frets->setObjectName("optKeepFrets");
    pitches->setObjectName("optKeepPitches");
    frets->setChecked(true);
    auto* const both = new QVBoxLayout;
    both->addWidget(frets);
    both->addWidget(pitches);
    page->addRow(Text("str_NotesWritten"), both);
    OnStore([this, pitches] { model.Keep = pitches->isChecked() ? 1 : 0; });
    cmbLost = AddChoice(page, "cmbLost", "str_LostNotes", model.Lost, {Text("str_LostMove"), Text("str_LostRemove")});
}

void ntne_frmTuning::Show() {
    const QSignalBlocker quietStrings(vbStrings);
    vbStrings->setValue(model.Strings);
    const int common = model.Chosen();
    cmbTuning->setCurrentIndex(common + 1);
    for (int string = 0; string < Core::StringCount; ++string) {
        const auto at = static_cast<std::size_t>(string);
        const QString typed = ToQString(model.OpenNotes[string]);
        if (notes[at]->text().trimmed() != typed) notes[at]->setText(typed);
        notes[at]->setEnabled(string < model.Strings);
        offsets[at]->setText(string < model.Strings ? ToQString(model.OffsetText(string)) : QString());
    }
    const int lost = model.LostNotes();
    cmbLost->setEnabled(lost > 0);
    cmbLost->setToolTip(ToQString(Core::LanguageText("str_LostCount", {std::to_string(lost)})));
}

}  // namespace Quillon::Forms
