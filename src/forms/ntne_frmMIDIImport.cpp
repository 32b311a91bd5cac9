#include "forms/ntne_frmMIDIImport.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/Text.h"
#include "shell/MidiImportModel.h"

namespace Quillon::Forms {

using Shell::MidiImportModel;

ntne_frmMIDIImport::ntne_frmMIDIImport(MidiImportModel& edited, QWidget* parent)
    : ImportDialog(edited, parent, edited.SingleTrack ? "str_MidiTrackTitle" : "str_MidiImportTitle",
                   "MIDIImportWindowDetails"),
      model(edited) {
    setObjectName("ntne_frmMIDIImport");
    QWidget* const source = MakeFileRow("");
    Build(source, MakeOptions());
    FillTracks();
}

QWidget* ntne_frmMIDIImport::MakeOptions() {
    auto* const panel = new QWidget(this);
    auto* const columns = new QHBoxLayout(panel);
    columns->setContentsMargins(0, 0, 0, 0);
    auto* const Frame1 = new QGroupBox(Text(model.SingleTrack ? "str_TrackToImport" : "str_TracksToImport"), panel);
    Frame1->setObjectName("Frame1");
    TrackList = new QListWidget(Frame1);
    TrackList->setObjectName(model.SingleTrack ? "TrackList2" : "TrackList");
    TrackList->setAccessibleName(Frame1->title());
    TrackList->setSelectionMode(model.SingleTrack ? QAbstractItemView::SingleSelection
                                                  : QAbstractItemView::MultiSelection);
    connect(TrackList, &QListWidget::itemSelectionChanged, this, &ntne_frmMIDIImport::StoreTracks);
    (new QVBoxLayout(Frame1))->addWidget(TrackList);
    auto* const group = new QGroupBox(Text("str_ImportOptions"), panel);
    auto* const options = new QVBoxLayout(group);
    const auto check = [&](const char* name, std::string_view key, bool& value) {
        auto* const box = new QCheckBox(Text(key), group);
        box->setObjectName(name);
        box->setChecked(value);
        connect(box, &QCheckBox::toggled, this, [this, &value](bool on) {
            value = on;
            Refresh();
        });
        options->addWidget(box);
        return box;
    };
    QCheckBox* const ties = check("Check1", "str_MidiAddTies", model.Ties);
    check("Check2", "str_MidiReverb", model.Reverb);
    QCheckBox* const quantize = check("Check3", "str_MidiQuantize", model.Quantize);
    for (QCheckBox* const box : {ties, quantize}) box->setToolTip(Text("str_MidiClassicOnly"));
    options->addStretch();
    columns->addWidget(Frame1, 3);
    columns->addWidget(group, 2);
    return panel;
}

void ntne_frmMIDIImport::StoreTracks() {
    if (filling) return;
    for (int i = 0; i < TrackList->count(); ++i) {
        const bool selected = TrackList->item(i)->isSelected();
        if (!model.SingleTrack) model.Chosen[static_cast<std::size_t>(i)] = selected;
        if (model.SingleTrack && selected) model.ChosenTrack = static_cast<std::int16_t>(i);
    }
    Refresh();
}

void ntne_frmMIDIImport::Command1_Click() {
    const QString chosen = QFileDialog::getOpenFileName(
        this, Text("str_MidiImportTitle"), PathText(model.File.parent_path()),
        Text("str_FilterMidi") + " (*.mid *.midi *.MID *.MIDI);;" + Text("str_FilterAll") + " (*)");
    if (chosen.isEmpty() || !Shell::OpenMIDIFile(model, ToPath(chosen))) return;
    FillTracks();
    Refresh();
}

void ntne_frmMIDIImport::FillTracks() {
    filling = true;
    ShowFile(PathText(model.File));
    TrackList->clear();
    for (const std::string& entry : model.TrackList) TrackList->addItem(ToQString(entry));
    for (int i = 0; i < TrackList->count(); ++i) {
        TrackList->item(i)->setSelected(model.SingleTrack ? i == model.ChosenTrack
                                                          : model.Chosen[static_cast<std::size_t>(i)]);
    }
    constexpr int rows = 5;
    const int rowHeight = std::max(TrackList->sizeHintForRow(0), fontMetrics().lineSpacing());
    TrackList->setFixedHeight(rowHeight * rows + 2 * TrackList->frameWidth());
    filling = false;
}

}  // namespace Quillon::Forms
