#include "forms/ntne_frmMIDIImport.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "forms/ImportPreview.h"
#include "forms/Text.h"
#include "shell/MidiImportModel.h"
#include "shell/mod_Shell.h"

namespace Quillon::Forms {

using Shell::MidiImportModel;

ntne_frmMIDIImport::ntne_frmMIDIImport(MidiImportModel& edited, QWidget* parent)
    : ModelDialog(parent, edited.SingleTrack ? "str_MidiTrackTitle" : "str_MidiImportTitle", "MIDIImportWindowDetails"),
      model(edited) {
    setObjectName("ntne_frmMIDIImport");
    QFormLayout* const page = AddPage();
    AddFile(page);
    AddTracks(page);
    AddReaders(page);
    Finish([this] { return model.Validate(); });
    FillTracks();
    ShowOutcomes();
}

void ntne_frmMIDIImport::AddFile(QFormLayout* page) {
    auto* const row = new QHBoxLayout;
    txtFile = new QLineEdit(this);
    txtFile->setObjectName("txtFile");
    txtFile->setReadOnly(true);
    auto* const choose = new QPushButton(Text("str_MidiChooseFile"), this);
    choose->setObjectName("Command1");
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &ntne_frmMIDIImport::ChooseFile);
    row->addWidget(txtFile, 1);
    row->addWidget(choose);
    page->addRow(Text("str_MidiFile"), row);
}

void ntne_frmMIDIImport::AddTracks(QFormLayout* page) {
    auto* const columns = new QHBoxLayout;
    Frame1 = new QGroupBox(Text(model.SingleTrack ? "str_TrackToImport" : "str_TracksToImport"), this);
    Frame1->setObjectName("Frame1");
    TrackList = new QListWidget(this);
    TrackList->setObjectName(model.SingleTrack ? "TrackList2" : "TrackList");
    TrackList->setAccessibleName(Frame1->title());
    TrackList->setSelectionMode(model.SingleTrack ? QAbstractItemView::SingleSelection
                                                  : QAbstractItemView::MultiSelection);
    TrackList->setMinimumHeight(fontMetrics().lineSpacing() * 7);
    connect(TrackList, &QListWidget::itemSelectionChanged, this, [this] {
        if (filling) return;
        for (int i = 0; i < TrackList->count(); ++i) {
            const bool selected = TrackList->item(i)->isSelected();
            if (!model.SingleTrack) model.Chosen[static_cast<std::size_t>(i)] = selected;
            if (model.SingleTrack && selected) model.ChosenTrack = static_cast<std::int16_t>(i);
        }
        ShowOutcomes();
    });
    (new QVBoxLayout(Frame1))->addWidget(TrackList);
    columns->addWidget(Frame1, 1);
    auto* const options = new QVBoxLayout;
    const auto check = [&](const char* name, std::string_view key, bool& value) {
        auto* const box = new QCheckBox(Text(key), this);
        box->setObjectName(name);
        box->setChecked(value);
        connect(box, &QCheckBox::toggled, this, [this, &value](bool on) {
            value = on;
            ShowOutcomes();
        });
        options->addWidget(box);
        return box;
    };
    QCheckBox* const ties = check("Check1", "str_MidiAddTies", model.Ties);
    check("Check2", "str_MidiReverb", model.Reverb);
    QCheckBox* const quantize = check("Check3", "str_MidiQuantize", model.Quantize);
    for (QCheckBox* const box : {ties, quantize}) box->setToolTip(Text("str_MidiClassicOnly"));
    options->addStretch();
    columns->addLayout(options);
    page->addRow(columns);
}

void ntne_frmMIDIImport::AddReaders(QFormLayout* page) {
    auto* const columns = new QHBoxLayout;
    classic = new ImportPreview("optClassic", "str_ReaderClassic", "str_MidiClassicAbout", this);
    aligned = new ImportPreview("optAligned", "str_ReaderAligned", "str_MidiAlignedAbout", this);
    auto* const group = new QButtonGroup(this);
    for (ImportPreview* const each : {classic, aligned}) {
        columns->addWidget(each, 1);
        group->addButton(each->Button());
    }
    (model.ChosenReader == MidiImportModel::Aligned ? aligned : classic)->Button()->setChecked(true);
    connect(aligned->Button(), &QRadioButton::toggled, this, [this](bool on) {
        model.ChosenReader = on ? MidiImportModel::Aligned : MidiImportModel::Classic;
        ShowOutcomes();
    });
    page->addRow(columns);
    txtReport = new QPlainTextEdit(this);
    txtReport->setObjectName("txtReport");
    txtReport->setAccessibleName(Text("str_MidiReport"));
    txtReport->setReadOnly(true);
    txtReport->setTabChangesFocus(true);
    txtReport->setMinimumHeight(fontMetrics().lineSpacing() * 6);
    page->addRow(txtReport);
}

void ntne_frmMIDIImport::ChooseFile() {
    const QString chosen = QFileDialog::getOpenFileName(
        this, Text("str_MidiImportTitle"), PathText(model.File.parent_path()),
        Text("str_FilterMidi") + " (*.mid *.midi *.MID *.MIDI);;" + Text("str_FilterAll") + " (*)");
    if (chosen.isEmpty() || !Shell::OpenMIDIFile(model, ToPath(chosen))) return;
    FillTracks();
    ShowOutcomes();
}

void ntne_frmMIDIImport::FillTracks() {
    filling = true;
    txtFile->setText(PathText(model.File));
    TrackList->clear();
    for (const std::string& entry : model.TrackList) TrackList->addItem(ToQString(entry));
    for (int i = 0; i < TrackList->count(); ++i) {
        TrackList->item(i)->setSelected(model.SingleTrack ? i == model.ChosenTrack
                                                          : model.Chosen[static_cast<std::size_t>(i)]);
    }
    filling = false;
}

void ntne_frmMIDIImport::ShowOutcomes() {
    const auto show = [this](ImportPreview* into, MidiImportModel::Reader reader) {
        const MidiImportModel::Outcome& made = model.Preview(reader);
        into->Show(made.File, made.Report, made.FirstTrack, made.Failure);
        return Exchange::ReportText(made.Report);
    };
    const std::string ofClassic = show(classic, MidiImportModel::Classic);
    const std::string ofAligned = show(aligned, MidiImportModel::Aligned);
    txtReport->setPlainText(ToQString(model.ChosenReader == MidiImportModel::Aligned ? ofAligned : ofClassic));
    ShowComplaint("");
}

}  // namespace Quillon::Forms
