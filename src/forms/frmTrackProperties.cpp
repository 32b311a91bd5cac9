#include "forms/frmTrackProperties.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <array>

#include "core/mod_Instruments.h"
#include "forms/DrumTable.h"
#include "forms/Text.h"
#include "forms/ntne_frmInstrument.h"
#include "shell/DialogModels.h"
#include "shell/InstrumentModel.h"

namespace Quillon::Forms {

frmTrackProperties::frmTrackProperties(Shell::TrackPropertiesModel& edited, QWidget* parent)
    : ModelDialog(parent, "str_TrackPropertiesTitle", "TrackPropertiesWindowDetails"), model(edited) {
    setObjectName("frmTrackProperties");
    AddSoundPage();
    AddStringPage();
    AddStaffPage();
    AddLyricPage();
    AddDrumPage();
    Finish([this] { return model.Validate(); });
    if (model.DrumsFirst) Tabs()->setCurrentIndex(Tabs()->count() - 1);
}

void frmTrackProperties::AddSoundPage() {
    Core::Track& track = model.Track;
    QFormLayout* const page = AddPage("str_PageSound");
    AddText(page, "txtName", "str_TrackName", track.Name);
    QCheckBox* const drums = AddCheck(page, "chkDrum", "str_TrackIsDrum", track.IsDrum);
    auto* const instrument = new QComboBox(this);
    instrument->setObjectName("cmbInstrument");
    int program = 0;
    for (const char* name : Core::InstrumentNames()) instrument->addItem(QString("%1  %2").arg(++program).arg(name));
    instrument->setCurrentIndex(track.Instrument);
    instrument->setDisabled(track.IsDrum);
    connect(drums, &QCheckBox::toggled, instrument, &QWidget::setDisabled);
    auto* const choose = new QPushButton(Text("str_InstrumentChoose"), this);
    choose->setObjectName("cmdInstrument");
    choose->setAutoDefault(false);
    choose->setDisabled(track.IsDrum);
    connect(drums, &QCheckBox::toggled, choose, &QWidget::setDisabled);
    connect(choose, &QPushButton::clicked, this, [this, instrument] {
        Shell::InstrumentModel asked;
        asked.Program = static_cast<std::int16_t>(instrument->currentIndex());
        if (ntne_frmInstrument(asked, this).exec() == QDialog::Accepted) instrument->setCurrentIndex(asked.Program);
    });
    auto* const row = new QHBoxLayout;
    row->addWidget(instrument, 1);
    row->addWidget(choose);
    page->addRow(Text("str_TrackInstrument"), row);
    if (auto* const label = qobject_cast<QLabel*>(page->labelForField(row))) label->setBuddy(instrument);
    OnStore([this, instrument, shown = instrument->currentIndex()] {
        if (instrument->currentIndex() != shown) model.ChooseInstrument(instrument->currentIndex());
    });
    AddNumber(page, "vbVolume", "str_TrackVolume", track.Volume, 0, 127);
    AddNumber(page, "vbChordVolume", "str_TrackChordVolume", track.ChordVolume, 0, 127);
    QStringList channels;
    for (int channel = 1; channel <= 16; ++channel) channels << QString::number(channel);
    AddChoice(page, "cmbChannel", "str_TrackChannel", track.Channel, channels);
    AddChoice(page, "cmbEffectChannel", "str_TrackEffectChannel", track.EffectChannel, channels);
    AddCheck(page, "chkReverb", "str_TrackReverb", track.Reverb);
}

void frmTrackProperties::AddStringPage() {
    Core::Track& track = model.Track;
    QFormLayout* const page = AddPage("str_PageStrings");
    QSpinBox* const strings = AddNumber(page, "vbStrings", "str_TrackStrings", track.Strings, 1, Core::StringCount);
    auto* const grid = new QGridLayout;
    std::array<QLineEdit*, Core::StringCount> notes{};
    for (int string = 0; string < Core::StringCount; ++string) {
        auto* const note = new QLineEdit(ToQString(model.OpenNotes[string]), this);
        note->setObjectName(QString("txtTuning%1").arg(string));
        note->setAccessibleName(Text("str_TuningOfString").arg(string + 1));
        note->setMaxLength(4);
        note->setAlignment(Qt::AlignCenter);
        note->setFixedWidth(56);
        auto* const number = new QLabel(QString::number(string + 1), this);
        number->setAlignment(Qt::AlignCenter);
        number->setBuddy(note);
        grid->addWidget(number, 0, string);
        grid->addWidget(note, 1, string);
        notes[static_cast<std::size_t>(string)] = note;
        OnStore([this, note, string] {
            if (note->isModified()) model.OpenNotes[string] = note->text().trimmed().toStdString();
        });
    }
    grid->setColumnStretch(Core::StringCount, 1);
    page->addRow(Text("str_TrackTuning"), grid);
    const auto enable = [notes](int count) {
        for (int string = 0; string < Core::StringCount; ++string) {
            notes[static_cast<std::size_t>(string)]->setEnabled(string < count);
        }
    };
    enable(strings->value());
    connect(strings, &QSpinBox::valueChanged, this, enable);
    AddNote(page, "str_TuningNote");
    AddNumber(page, "vbCapo", "str_TrackCapo", track.Capo, 0, 24);
}

void frmTrackProperties::AddStaffPage() {
    Core::Track& track = model.Track;
    QFormLayout* const page = AddPage("str_PageStaves");
    AddCheck(page, "chkTreble", "str_TrackShowTreble", track.ShowTreble);
    AddCheck(page, "chkBass", "str_TrackShowBass", track.ShowBass);
    AddCheck(page, "chkTab", "str_TrackShowTab", track.ShowTab);
    QCheckBox* const down = AddCheck(page, "chkOctaveDown", "str_TrackOctaveDown", track.OctaveDown);
    QCheckBox* const up = AddCheck(page, "chkOctaveUp", "str_TrackOctaveUp", track.OctaveUp);
    // One excludes the other.
    connect(down, &QCheckBox::clicked, up, [up] { up->setChecked(false); });
    connect(up, &QCheckBox::clicked, down, [down] { down->setChecked(false); });
}

void frmTrackProperties::AddLyricPage() {
    Core::Track& track = model.Track;
    QFormLayout* const page = AddPage("str_PageLyrics");
    AddCheck(page, "chkShowStaff", "str_TrackShowStaff", track.ShowStaff);
    auto* const own = new QRadioButton(Text("str_LyricsOwn"), this);
    auto* const other = new QRadioButton(Text("str_LyricsOther"), this);
    own->setObjectName("optLyricsOwn");
    other->setObjectName("optLyricsOther");
    (track.LyricsOfOtherTrack == 1 ? other : own)->setChecked(true);
    page->addRow(QString(), own);
    page->addRow(QString(), other);
    OnStore([other, &track, shown = other->isChecked()] {
        if (other->isChecked() != shown) track.LyricsOfOtherTrack = other->isChecked() ? 1 : 0;
    });
    QStringList names;
    for (const std::string& name : model.TrackNames)
        names << QString("%1. %2").arg(names.size() + 1).arg(ToQString(name));
    QComboBox* const lyrics = AddChoice(page, "cmbLyrics", "str_LyricsTrack", track.LyricsTrack, names);
    lyrics->setEnabled(other->isChecked());
    connect(other, &QRadioButton::toggled, lyrics, &QWidget::setEnabled);
}

void frmTrackProperties::AddDrumPage() {
    QFormLayout* const page = AddPage("str_PageDrums");
    auto* const table = new DrumTable(model.Track.PercStrings, this);
    table->setObjectName("tblDrums");
    page->addRow(table);
    AddNote(page, "str_DrumNote");
    OnStore([this, table] { model.Track.PercStrings = table->Chosen(); });
}

}  // namespace Quillon::Forms
